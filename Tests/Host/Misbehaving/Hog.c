/* Takes and uses memory until there is none, and takes that badly. */

#include "Tests/Host/Misbehaving/Importer.h"

enum { BLOCK = 1 << 20 };

static Boolean importBadFile(CFMutableDictionaryRef attributes) {
    (void)attributes;
    for (;;) {
        /* Volatile, or a compiler may do without the memory. */
        char* volatile block = (char*)malloc(BLOCK);
        if (block == NULL) {
            abort();
        }
        memset(block, 1, BLOCK);
    }
}
