// Asks for more memory than there is.

#include <new>

#include "Tests/Host/Misbehaving/Importer.h"

static Boolean importBadFile(CFMutableDictionaryRef) {
    throw std::bad_alloc();
}
