// What LeakSanitizer has to know of the libraries behind the modules.
//
// Poppler decrypts with NSS, whose thread-local storage in loaded libraries LeakSanitizer cannot
// walk without crashing. It is told to leave thread-local storage out, and then takes what GLib
// keeps there for lost.

#if defined(__SANITIZE_ADDRESS__)

extern "C" {

__attribute__((visibility("default"))) const char* __lsan_default_options();
__attribute__((visibility("default"))) const char* __lsan_default_suppressions();

const char* __lsan_default_options() {  // NOLINT(bugprone-reserved-identifier): it is looked for.
    return "use_tls=0";
}

// NOLINTNEXTLINE(bugprone-reserved-identifier): the same.
const char* __lsan_default_suppressions() {
    return "leak:libglib-2.0\n";
}

}  // extern "C"

#endif
