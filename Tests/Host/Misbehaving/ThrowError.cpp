// Throws what a host can expect.

#include <stdexcept>

#include "Tests/Host/Misbehaving/Importer.h"

static Boolean importBadFile(CFMutableDictionaryRef) {
    throw std::runtime_error("the seventh page is missing");
}
