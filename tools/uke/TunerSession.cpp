#include "TunerSession.h"

#include <cmath>
#include <cstdio>

#include "Args.h"
#include "settings/FactorySettings.h"
#include "settings/SettingsKeys.h"

namespace uke::tool {

TunerSession::TunerSession(Services services, PitchSource& listener, const TunerOptions& options, std::ostream& out)
    : s_(services), listener_(listener), options_(options), out_(out) {
    rating_ = std::make_unique<RatingPrompt>(s_);
    controller_ = std::make_unique<ViewController>(s_, state_, screen_, listener_, tone_, *rating_);
}

void TunerSession::start() {
    // A returning player whose stored calibration is the one asked for.
    auto& st = s_.settings;
    storeFactorySettings(st);
    st.setInteger(keys::savedA4Calibration, options_.a4);
    st.setBool(keys::NewLaunchOrvel, true);
    controller_->viewDidLoad();
    controller_->viewWillAppear();
    for (long t = 1; t < options_.tuning; ++t)
        controller_->showNextTuning();
    if (options_.sensitivity)
        controller_->micSensitivity(static_cast<float>(*options_.sensitivity));
}

namespace {
const ImageView& highlightView(const TunerScreenModel& s, const DeviceClass& d) {
    if (d.idiom == Idiom::Pad)
        return s.tunedStringiPad;
    return d.height == 480 ? s.tunedString : s.tunedString5;
}
} // namespace

std::string TunerSession::line(double seconds, bool beeped) const {
    const ImageView& hl = highlightView(screen_, options_.device);
    const ImageView& led = options_.device.idiom == Idiom::Pad ? screen_.LEDDisplay128 : screen_.LEDDisplay;
    const double t = std::round(seconds * 100.0) / 100.0;
    if (options_.json) {
        return "{\"t\": " + exactDouble(t) + ", \"freq_label\": " + jsonString(screen_.freq_label.text) +
               ", \"noteDisplay\": " + jsonString(screen_.noteDisplay.text) +
               ", \"LEDDisplay\": " + jsonString(led.image) + ", \"highlight\": " + jsonString(hl.image) +
               ", \"highlightHidden\": " + (hl.hidden ? "true" : "false") + ", \"rings\": [" +
               jsonString(screen_.ring1.image) + ", " + jsonString(screen_.ring2.image) + ", " +
               jsonString(screen_.ring3.image) + ", " + jsonString(screen_.ring4.image) +
               "], \"beep\": " + (beeped ? "true" : "false") + "}";
    }
    auto ring = [](const ImageView& r, char n) { return r.image.empty() ? '-' : n; };
    char buf[256];
    std::snprintf(buf, sizeof buf, "%7.2fs  %-9s %-4s %-6s %-26s rings %c%c%c%c%s", t,
                  screen_.freq_label.text.empty() ? "-" : screen_.freq_label.text.c_str(),
                  screen_.noteDisplay.text.empty() ? "-" : screen_.noteDisplay.text.c_str(),
                  led.image.rfind("green", 0) == 0 ? "green" : "yellow",
                  hl.hidden || hl.image.empty() ? "-" : hl.image.c_str(), ring(screen_.ring1, '1'),
                  ring(screen_.ring2, '2'), ring(screen_.ring3, '3'), ring(screen_.ring4, '4'), beeped ? "  BEEP" : "");
    return buf;
}

void TunerSession::afterTick(double seconds, bool beeped) {
    // What the player sees; a line is printed only when it moves or a beep starts.
    const ImageView& hl = highlightView(screen_, options_.device);
    const std::string shown = screen_.freq_label.text + '\n' + screen_.noteDisplay.text + '\n' +
                              screen_.LEDDisplay.image + screen_.LEDDisplay128.image + '\n' + hl.image +
                              (hl.hidden ? "h" : "v") + '\n' + screen_.ring1.image + screen_.ring2.image +
                              screen_.ring3.image + screen_.ring4.image;
    if (shown == lastShown_ && !beeped)
        return;
    lastShown_ = shown;
    out_ << line(seconds, beeped) << '\n';
    out_.flush();
}

bool readTunerOptions(Args& args, TunerOptions& o, std::string& error) {
    double a4 = static_cast<double>(o.a4);
    long sensitivity = 5;
    std::string fmt = "text";
    if (!args.integer("tuning", 1, 11, o.tuning) || !args.number("a4", 1.0, 10000.0, a4) ||
        !args.integer("sensitivity", 0, 10, sensitivity) || !args.choice("format", {"text", "json"}, fmt)) {
        error = args.error();
        return false;
    }
    o.a4 = static_cast<long>(a4);
    if (args.has("sensitivity"))
        o.sensitivity = sensitivity;
    o.json = fmt == "json";
    if (const auto d = args.value("device")) {
        const auto c = DeviceClass::parse(*d);
        if (!c) {
            error = "unknown device class '" + *d + "' (use phone-HEIGHT or pad-HEIGHT, e.g. phone-844)";
            return false;
        }
        o.device = *c;
    }
    return true;
}

} // namespace uke::tool
