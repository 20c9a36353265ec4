// What the sanitizer builds of the tests and the fuzz targets report, and what
// they leave out. It is built into every test program and fuzz target, and into
// `uke` in the sanitizer build (the golden outputs run it); outside a sanitizer
// build nothing reads it.
//
// Qt and the system libraries below it are not built with the sanitizers, so
// only their own internals are left out here, each with the reason. Everything
// of this project's is reported.

extern "C" {

// Leaks that are not leaks: allocations the libraries make once per process
// and keep until exit, which LeakSanitizer sees as unreachable.
const char* __lsan_default_suppressions() {
    return
        // fontconfig's cache of font patterns, made the first time Qt lays out text.
        "leak:libfontconfig.so\n"
        // libvorbis's stream description, left behind by libsndfile when it
        // gives up on a damaged Ogg file part way through opening it.
        "leak:libvorbis.so\n";
}

// A leak that was left out is not worth a line: the tool's outputs are compared
// byte for byte.
const char* __lsan_default_options() { return "print_suppressions=0"; }

// Undefined behaviour fails the test at once, with where it happened.
const char* __ubsan_default_options() { return "halt_on_error=1:print_stacktrace=1"; }

} // extern "C"
