/* Writes where there is no memory. */

#include "Tests/Host/Misbehaving/Importer.h"

static Boolean importBadFile(CFMutableDictionaryRef attributes) {
    volatile char* volatile nowhere = NULL;
    (void)attributes;
    *nowhere = 1;
    return 0;
}
