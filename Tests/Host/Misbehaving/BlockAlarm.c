/* Shuts the signal of its deadline out, and never comes back. */

#define _POSIX_C_SOURCE 200809L

#include <signal.h>
#include <unistd.h>

#include "Tests/Host/Misbehaving/Importer.h"

static Boolean importBadFile(CFMutableDictionaryRef attributes) {
    sigset_t alarm;
    volatile int forever = 1;
    (void)attributes;
    sigemptyset(&alarm);
    sigaddset(&alarm, SIGALRM);
    sigprocmask(SIG_BLOCK, &alarm, NULL);
    while (forever) {
        pause();
    }
    return 0;
}
