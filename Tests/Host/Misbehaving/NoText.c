/* Says that it has read the file, and delivers nothing. */

#include "Tests/Host/Misbehaving/Importer.h"

static Boolean importBadFile(CFMutableDictionaryRef attributes) {
    (void)attributes;
    return 1;
}
