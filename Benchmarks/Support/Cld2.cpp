#include "Benchmarks/Support/Cld2.h"

#include <dlfcn.h>

#include <stdexcept>

namespace bench {
namespace {

using Ask = const char* (*)(const char* utf8, std::size_t size);

/// Opened and not linked: a library that the program links comes before those of the tagger's
/// module, which uses another set of the tables under the same names.
Ask openCld2() {
    void* const handle = ::dlopen(PV_BENCH_CLD2, RTLD_NOW | RTLD_LOCAL);
    void* const ask = handle == nullptr ? nullptr : ::dlsym(handle, "askCld2");
    if (ask == nullptr) {
        throw std::runtime_error("cannot open " PV_BENCH_CLD2);
    }
    return reinterpret_cast<Ask>(ask);
}

}  // namespace

std::string cld2Language(std::string_view utf8) {
    static const Ask ask = openCld2();
    return ask(utf8.data(), utf8.size());
}

}  // namespace bench
