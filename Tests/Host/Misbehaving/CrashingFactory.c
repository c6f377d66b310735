/* Has a factory that ends the process. */

#define FACTORY_ANSWER (abort(), NULL)
#include "Tests/Host/Misbehaving/Importer.h"

static Boolean importBadFile(CFMutableDictionaryRef attributes) {
    (void)attributes;
    return 0;
}
