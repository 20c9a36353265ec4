// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// What the sanitizer builds of the tests and the fuzz targets report, and what
// they leave out. It is built into every test program and fuzz target, and into
// `uke` in the sanitizer build (the golden outputs run it); outside a sanitizer
// build nothing reads it.
//
// Qt and the system libraries below it are not built with the sanitizers, so
// only their own internals are left out here, each with the reason. Everything
// of this project's is reported. Hand-overs between threads in this project go
// through std::mutex (see platform/qt/Mailbox.h), which the thread sanitizer sees.

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

// The thread sanitizer sees the memory each library touches through the C library
// (copies, frees, file descriptors) but not the locks and atomics inside a library
// that was not built with it, so a library's hand-over between its own threads
// looks like a race. called_from_lib stops it watching what that library itself
// does; everything this project's code does is still watched, including what it
// does when a library calls it back.
const char* __tsan_default_suppressions() {
    return
        // Qt: its event queue, the QML type loader's thread, the D-Bus thread,
        // the image reader's thread and the audio backends.
        "called_from_lib:libQt6Core.so\n"
        "called_from_lib:libQt6Gui.so\n"
        "called_from_lib:libQt6Qml.so\n"
        "called_from_lib:libQt6Quick.so\n"
        "called_from_lib:libQt6DBus.so\n"
        "called_from_lib:libQt6Multimedia.so\n"
        "called_from_lib:libQt6Network.so\n"
        "called_from_lib:libQt6OpenGL.so\n"
        // The D-Bus library Qt's D-Bus thread drives (the screen saver's calls).
        "called_from_lib:libdbus-1.so\n"
        // GLib's main loop under Qt's, and the PulseAudio client's own thread.
        "called_from_lib:libglib-2.0.so\n"
        "called_from_lib:libpulse.so\n"
        "called_from_lib:libpulsecommon-\n"
        // The table of compiled QML that Qt's code generator puts into the test
        // program: it is freed at exit while the loader thread, which Qt stops
        // without telling the sanitizer, may still have read it.
        "race:QQmlPrivate::CachedQmlUnit\n";
}

} // extern "C"
