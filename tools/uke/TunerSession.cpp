// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "TunerSession.h"

#include <cmath>
#include <cstdio>

#include "Args.h"
#include "base/OutletJson.h"
#include "base/SettingsKeys.h"
#include "settings/FactorySettings.h"
#include "tuner/ViewController.h"

namespace uke::tool {

TunerSession::TunerSession(Services services, PitchSource& listener, const TunerOptions& options, std::ostream& out)
    : s_(services), options_(options), out_(out), app_(services, listener) {}

void TunerSession::start() {
    // A returning player whose stored calibration is the one asked for.
    auto& st = s_.settings;
    storeFactorySettings(st);
    st.setInteger(keys::savedA4Calibration, options_.a4);
    st.setBool(keys::NewLaunchOrvel, true);
    app_.start();
    app_.stepToTuning(options_.tuning);
    if (options_.sensitivity)
        app_.startWithSensitivity(static_cast<float>(*options_.sensitivity));
}

std::string TunerSession::line(double seconds, bool beeped) const {
    const TunerScreenModel& screen = app_.tunerScreen();
    const ImageView& hl = app_.shownHighlight();
    const ImageView& led = app_.shownLamp();
    const double t = std::round(seconds * 100.0) / 100.0;
    if (options_.json) {
        return "{\"t\": " + jsonNumber(t) + ", \"freq_label\": " + jsonQuoted(screen.freq_label.text) +
               ", \"noteDisplay\": " + jsonQuoted(screen.noteDisplay.text) +
               ", \"LEDDisplay\": " + jsonQuoted(led.image) + ", \"highlight\": " + jsonQuoted(hl.image) +
               ", \"highlightHidden\": " + (hl.hidden ? "true" : "false") + ", \"rings\": [" +
               jsonQuoted(screen.ring1.image) + ", " + jsonQuoted(screen.ring2.image) + ", " +
               jsonQuoted(screen.ring3.image) + ", " + jsonQuoted(screen.ring4.image) +
               "], \"beep\": " + (beeped ? "true" : "false") + "}";
    }
    auto ring = [](const ImageView& r, char n) { return r.image.empty() ? '-' : n; };
    char buf[256];
    std::snprintf(buf, sizeof buf, "%7.2fs  %-9s %-4s %-6s %-26s rings %c%c%c%c%s", t,
                  screen.freq_label.text.empty() ? "-" : screen.freq_label.text.c_str(),
                  screen.noteDisplay.text.empty() ? "-" : screen.noteDisplay.text.c_str(),
                  led.image.rfind("green", 0) == 0 ? "green" : "yellow",
                  hl.hidden || hl.image.empty() ? "-" : hl.image.c_str(), ring(screen.ring1, '1'),
                  ring(screen.ring2, '2'), ring(screen.ring3, '3'), ring(screen.ring4, '4'), beeped ? "  BEEP" : "");
    return buf;
}

void TunerSession::afterTick(double seconds, bool beeped) {
    // What the player sees; a line is printed only when it moves or a beep starts.
    const TunerScreenModel& screen = app_.tunerScreen();
    const bool moved = shown_.moved([&](auto visit) {
        visit("freq_label", screen.freq_label);
        visit("noteDisplay", screen.noteDisplay);
        visit("LEDDisplay", screen.LEDDisplay);
        visit("LEDDisplay128", screen.LEDDisplay128);
        visit("highlight", app_.shownHighlight());
        visit("ring1", screen.ring1);
        visit("ring2", screen.ring2);
        visit("ring3", screen.ring3);
        visit("ring4", screen.ring4);
    });
    if (!moved && !beeped)
        return;
    out_ << line(seconds, beeped) << '\n';
    out_.flush();
}

bool readTunerOptions(Args& args, TunerOptions& o, std::string& error) {
    double a4 = static_cast<double>(o.a4);
    long sensitivity = 5;
    std::string fmt = "text";
    if (!args.integer("tuning", 1, 11, o.tuning) || !args.number("a4", 1.0, 10000.0, a4) ||
        !args.integer("sensitivity", 0, 10, sensitivity) || !args.choice("format", {"text", "json"}, fmt) ||
        !args.device("device", o.device)) {
        error = args.error();
        return false;
    }
    o.a4 = static_cast<long>(a4);
    if (args.has("sensitivity"))
        o.sensitivity = sensitivity;
    o.json = fmt == "json";
    return true;
}

} // namespace uke::tool
