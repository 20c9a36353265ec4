// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "WebApp.h"

#include <algorithm>
#include <cmath>

#include "app/Actions.h"
#include "base/LayoutClass.h"
#include "base/OutletJson.h"

using emscripten::val;

namespace uke::web {

WebApp::WebApp(val host)
    : ports_(host), attachment_(ports_.capture, ports_.log),
      app_(std::make_unique<TunerApp>(ports_.services(), *MicListener::sharedListener())), host_(std::move(host)) {}

WebApp::~WebApp() {
    app_.reset();
    ports_.output.stop();
}

std::string WebApp::start() {
    dirty_ = true;
    const HostDeviceInfo& device = ports_.device;
    if (device.measuredHeight() != device.screenHeight())
        ports_.log.log("Screen: " + DeviceClass{device.idiom(), device.measuredHeight()}.name() +
                       " is no device class of its own; the page is shown as " +
                       DeviceClass{device.idiom(), device.screenHeight()}.name());
    return app_->start([this](const std::string& storyboard) { return host_.call<bool>("buildWindow", storyboard); });
}

std::string WebApp::layoutSize() const {
    const DeviceClass shown =
        nearestLayoutClass(DeviceClass{ports_.device.idiom(), ports_.device.screenHeight(), 0.0});
    return "{\"width\": " + jsonNumber(shown.width) + ", \"height\": " + jsonNumber(shown.height) + "}";
}

double WebApp::nextMessageDue() const {
    const auto due = ports_.runLoop.nextMessageDue();
    return due ? *due : -1.0;
}

void WebApp::advanceTo(double seconds) {
    constexpr double kLongestTickReplay = 1.0;
    const uint64_t before = ports_.runLoop.messagesRun();
    ports_.runLoop.advanceTo(seconds, seconds - kLongestTickReplay);
    dirty_ = dirty_ || ports_.runLoop.messagesRun() != before;
}

std::string WebApp::changes() {
    TunerScreenModel& tuner = app_->tunerScreen();
    if (!dirty_ && !tuner.readoutChanged && flagsShown_["hearing"] == app_->hearing())
        return {};
    std::string out;
    // `walk` visits the outlets to compare.
    auto section = [&](const char* screen, OutletChanges& shown, auto walk) {
        std::string body;
        shown.compare(walk, [&](const char* name, const auto& outlet) {
            body += (body.empty() ? "" : ", ") + jsonQuoted(name) + ": " + outletJson(outlet);
        });
        if (!body.empty())
            out += (out.empty() ? "" : ", ") + jsonQuoted(screen) + ": {" + body + "}";
    };
    // A tick writes only the read-out; everything else changes through actions and
    // delayed messages, after which every outlet is compared.
    if (dirty_) {
        section("tuner", tunerShown_, [&](auto visit) { tuner.forEachOutlet(visit); });
        section("chords", chordsShown_, [&](auto visit) { app_->chordScreen().forEachOutlet(visit); });
    } else {
        section("tuner", tunerShown_, [&](auto visit) { tuner.forEachReadoutOutlet(visit); });
    }
    tuner.readoutChanged = false;
    dirty_ = false;
    auto flag = [&](const char* name, bool value) {
        auto it = flagsShown_.find(name);
        if (it != flagsShown_.end() && it->second == value)
            return;
        flagsShown_[name] = value;
        out += (out.empty() ? "" : ", ") + jsonQuoted(name) + ": " + (value ? "true" : "false");
    };
    auto text = [&](const char* name, std::string value) {
        std::string& shown = textsShown_[name];
        if (shown == value)
            return;
        out += (out.empty() ? "" : ", ") + jsonQuoted(name) + ": " + jsonQuoted(value);
        shown = std::move(value);
    };
    flag("hearing", app_->hearing());
    flag("inTune", tuner.inTune());
    flag("chordsOpen", app_->chordsOpen());
    text("idleReadout", app_->idleReadout(!micOpen_));
    text("panel", TunerApp::panelName(app_->panel()));
    text("lampOutlet", app_->shownLampOutlet());
    return out.empty() ? std::string{} : "{" + out + "}";
}

bool WebApp::act(const std::string& screen, const std::string& name, const val& args) {
    dirty_ = true;
    if (screen != "tuner" && screen != "chords") {
        ports_.log.log("Action " + name + " refused: there is no screen " + screen);
        return false;
    }
    const std::vector<double> values = emscripten::convertJSArrayToNumberVector<double>(args);
    return actions::run(*app_, screen == "tuner" ? actions::Screen::Tuner : actions::Screen::Chords, name, values)
        .empty();
}

void WebApp::alertChosen(int index) {
    ports_.alerts.chosen(index);
    dirty_ = true;
}

bool WebApp::deliver(const val& samples) {
    return ports_.capture.deliver(emscripten::convertJSArrayToNumberVector<int16_t>(samples));
}

void WebApp::captureOpened() {
    micOpen_ = true;
    dirty_ = true;
}

void WebApp::captureFailed(const std::string& reason) {
    ports_.capture.failed(reason);
    ports_.log.log("Microphone: " + reason);
}

val WebApp::render(uint32_t frames) {
    frames = std::min<uint32_t>(frames, 1u << 16);
    const int16_t* data = ports_.output.render(frames);
    return val(emscripten::typed_memory_view(static_cast<size_t>(frames) * 2, data));
}

double WebApp::frequency() { return MicListener::sharedListener()->frequency(); }
double WebApp::averagePower() { return MicListener::sharedListener()->averagePower(); }
double WebApp::peakPower() { return MicListener::sharedListener()->peakPower(); }

} // namespace uke::web
