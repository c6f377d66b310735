/* Ends the process as if all were well. */

#include "Tests/Host/Misbehaving/Importer.h"

static Boolean importBadFile(CFMutableDictionaryRef attributes) {
    (void)attributes;
    exit(0);
}
