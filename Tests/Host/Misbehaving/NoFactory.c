/* Lacks the factory that its information names. */

#define FACTORY_NAME AnotherFactory
#include "Tests/Host/Misbehaving/Importer.h"

static Boolean importBadFile(CFMutableDictionaryRef attributes) {
    (void)attributes;
    return 0;
}
