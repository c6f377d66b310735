/* Ends as a failed assertion does. */

#include "Tests/Host/Misbehaving/Importer.h"

static Boolean importBadFile(CFMutableDictionaryRef attributes) {
    (void)attributes;
    abort();
}
