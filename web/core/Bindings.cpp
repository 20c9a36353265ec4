// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// What the page's JavaScript sees of the core: one class, WebApp.
#include <emscripten/bind.h>

#include "WebApp.h"

EMSCRIPTEN_BINDINGS(uke) {
    using uke::web::WebApp;
    emscripten::class_<WebApp>("WebApp")
        .constructor<emscripten::val>()
        .function("start", &WebApp::start)
        .function("layoutSize", &WebApp::layoutSize)
        .function("advanceTo", &WebApp::advanceTo)
        .function("elapsed", &WebApp::elapsed)
        .function("nextMessageDue", &WebApp::nextMessageDue)
        .function("changes", &WebApp::changes)
        .function("act", &WebApp::act)
        .function("alertChosen", &WebApp::alertChosen)
        .function("deliver", &WebApp::deliver)
        .function("captureOpened", &WebApp::captureOpened)
        .function("captureFailed", &WebApp::captureFailed)
        .function("render", &WebApp::render)
        .function("frequency", &WebApp::frequency)
        .function("averagePower", &WebApp::averagePower)
        .function("peakPower", &WebApp::peakPower);
}
