/* Has a factory that makes nothing. */

#define FACTORY_ANSWER NULL
#include "Tests/Host/Misbehaving/Importer.h"

static Boolean importBadFile(CFMutableDictionaryRef attributes) {
    (void)attributes;
    return 0;
}
