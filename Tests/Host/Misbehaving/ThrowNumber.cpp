// Throws what no host can expect.

#include "Tests/Host/Misbehaving/Importer.h"

static Boolean importBadFile(CFMutableDictionaryRef) {
    throw 7;
}
