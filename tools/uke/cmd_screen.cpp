// `uke screen`: the app's start-up and the tuner screen on virtual ports, a
// script of user actions, then every outlet, log line and stored key.
#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <sstream>

#include "Args.h"
#include "Commands.h"
#include "app/TunerApp.h"
#include "audio/PitchSource.h"
#include "base/LayoutClass.h"
#include "base/OutletJson.h"
#include "platform/virtual/TsStringTable.h"
#include "platform/virtual/VirtualPlatform.h"
#include "tuner/TunerScreenModel.h"
#include "tuner/TuningCatalogue.h"
#include "tuner/ViewController.h"

namespace uke::tool {

namespace {

enum class Kind { Next, Previous, Appear, SelectLanguage, Slider, Stepper, Switch, Wait };

struct Action {
    Kind kind;
    std::string text; // as given, for messages
    double number = 0.0;
    std::string which; // switch: beep, strings or chart
    bool on = false;
};

bool parseNumber(const std::string& word, double& out) {
    if (word.empty())
        return false;
    char* end = nullptr;
    out = std::strtod(word.c_str(), &end);
    return *end == '\0' && std::isfinite(out);
}

// One --do value; false with a reason when it is not an action the screen can take
// at that point. `tuning` follows the arrows from tuning 1, where every launch starts,
// so that a script is refused before anything runs or is stored.
bool parseAction(const std::string& text, Action& a, int64_t& tuning, std::string& error) {
    std::istringstream in(text);
    std::vector<std::string> w;
    for (std::string word; in >> word;)
        w.push_back(word);
    a.text = text;
    auto wrongCount = [&](const char* usage) {
        error = "--do '" + text + "': expected '" + usage + "'";
        return false;
    };
    if (w.empty()) {
        error = "--do needs an action";
        return false;
    }
    const std::string& name = w[0];
    if (name == "next" || name == "previous" || name == "appear") {
        if (w.size() != 1)
            return wrongCount(name.c_str());
        a.kind = name == "next" ? Kind::Next : name == "previous" ? Kind::Previous : Kind::Appear;
        const int64_t to = tuning + (a.kind == Kind::Next ? 1 : a.kind == Kind::Previous ? -1 : 0);
        if (!TuningCatalogue::contains(to)) {
            error = "--do '" + text + "': there is no tuning " + (a.kind == Kind::Next ? "after " : "before ") +
                    std::to_string(tuning);
            return false;
        }
        tuning = to;
        return true;
    }
    if (name == "select-language") {
        if (w.size() != 2)
            return wrongCount("select-language ROW");
        if (!parseNumber(w[1], a.number) || a.number != std::floor(a.number) || a.number < 0 || a.number > 5) {
            error = "--do '" + text + "': the picker has rows 0 to 5";
            return false;
        }
        a.kind = Kind::SelectLanguage;
        return true;
    }
    if (name == "slider" || name == "stepper" || name == "wait") {
        if (w.size() != 2)
            return wrongCount(name == "wait" ? "wait SECONDS" : (name + " VALUE").c_str());
        if (!parseNumber(w[1], a.number)) {
            error = "--do '" + text + "': '" + w[1] + "' is not a number";
            return false;
        }
        a.kind = name == "slider" ? Kind::Slider : name == "stepper" ? Kind::Stepper : Kind::Wait;
        // The controls' ranges are the layout's, the same on every device.
        const TunerScreenModel layout;
        double lo = 0.0, hi = 3600.0;
        if (a.kind == Kind::Slider) {
            lo = layout.micSensitivitySlider.minimum;
            hi = layout.micSensitivitySlider.maximum;
        } else if (a.kind == Kind::Stepper) {
            lo = layout.setFrequencyValueStepper.minimum;
            hi = layout.setFrequencyValueStepper.maximum;
        }
        if (a.number < lo || a.number > hi) {
            char range[64];
            std::snprintf(range, sizeof range, "%g to %g", lo, hi);
            error = "--do '" + text + "': " + name + " takes " + range;
            return false;
        }
        return true;
    }
    if (name == "switch") {
        if (w.size() != 3)
            return wrongCount("switch beep|strings|chart on|off");
        if (w[1] != "beep" && w[1] != "strings" && w[1] != "chart") {
            error = "--do '" + text + "': the switches are beep, strings and chart";
            return false;
        }
        if (w[2] != "on" && w[2] != "off") {
            error = "--do '" + text + "': a switch is turned on or off";
            return false;
        }
        a.kind = Kind::Switch;
        a.which = w[1];
        a.on = w[2] == "on";
        return true;
    }
    error = "unknown action '" + name +
            "' (next, previous, appear, select-language ROW, slider VALUE, stepper VALUE, "
            "switch beep|strings|chart on|off, wait SECONDS)";
    return false;
}

// The language of the process's locale, as the app would follow it.
std::string environmentLanguage() {
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* v = std::getenv(name);
        if (v && *v)
            return v;
    }
    return "en";
}

// "es" from "es", "es_ES.UTF-8" or "es-419"; empty when the text names no language.
std::string primaryLanguage(const std::string& code) {
    std::string lang;
    for (const char c : code) {
        if (c == '_' || c == '-' || c == '.' || c == '@')
            break;
        lang += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    if (lang.size() < 2 || lang.size() > 3)
        return {};
    for (const char c : lang)
        if (c < 'a' || c > 'z')
            return {};
    return lang;
}

std::string textOf(const Label& o) { return "label   text=" + jsonQuoted(o.text); }
std::string textOf(const ImageView& o) { return "image   image=" + jsonQuoted(o.image); }
std::string textOf(const Button& o) {
    return "button  title=" + jsonQuoted(o.title) + (o.image.empty() ? "" : " image=" + jsonQuoted(o.image));
}
std::string textOf(const Switch& o) { return std::string("switch  ") + (o.on ? "on" : "off"); }
std::string textOf(const Slider& o) { return "slider  value=" + jsonNumber(o.value); }
std::string textOf(const Stepper& o) { return "stepper value=" + jsonNumber(o.value); }
std::string textOf(const Picker& o) {
    std::string rows;
    for (const auto& r : o.rows)
        rows += (rows.empty() ? "" : ", ") + jsonQuoted(r);
    return "picker  row=" + std::to_string(o.selectedRow) + " rows=[" + rows + "]";
}

// The app's start-up on virtual ports: the delegate picks the layout and the tuner
// screen loads and appears.
class ScreenRun {
public:
    ScreenRun(const DeviceClass& device, const std::string& language, SettingsStore* store) {
        platform.device.idiomValue = device.idiom;
        platform.device.height = device.height;
        if (store)
            platform.store = store;
        platform.strings.entries = stringsForLanguage(language).tables();
        app = std::make_unique<TunerApp>(platform.services(), listener);
        app->start();
        platform.runLoop.runPending();
    }

    void apply(const Action& a) {
        ViewController& c = app->tuner();
        switch (a.kind) {
        case Kind::Next: c.showNextTuning(); break;
        case Kind::Previous: c.showPreviousTuning(); break;
        case Kind::Appear: c.viewWillAppear(); break;
        case Kind::SelectLanguage: app->selectLanguage(static_cast<long>(a.number)); break;
        case Kind::Slider: c.micSensitivity(static_cast<float>(a.number)); break;
        case Kind::Stepper: c.setFrequencyValue(a.number); break;
        case Kind::Switch:
            if (a.which == "beep")
                c.soundNotificationAction(a.on);
            else if (a.which == "strings")
                c.toggleStringSounds(a.on);
            else
                c.toggleFreqChart(a.on);
            break;
        case Kind::Wait: platform.runLoop.advanceBy(a.number); break;
        }
        platform.runLoop.runPending();
    }

    void printJson(std::ostream& out) const {
        out << "{\"outlets\": " << outletsJson(app->tunerScreen()) << ", \"log\": [";
        for (size_t i = 0; i < platform.log.lines.size(); ++i)
            out << (i ? ", " : "") << jsonQuoted(platform.log.lines[i]);
        out << "], \"settings\": {";
        bool first = true;
        for (const auto& key : platform.store->keys()) {
            out << (first ? "" : ", ") << jsonQuoted(key) << ": " << settingJson(*platform.store->value(key));
            first = false;
        }
        out << "}}\n";
    }

    void printText(std::ostream& out) const {
        out << "outlets:\n";
        app->tunerScreen().forEachOutlet([&](const char* name, const auto& o) {
            std::string line = "  " + std::string(name);
            line.resize(std::max<size_t>(line.size() + 1, 28), ' ');
            out << line << textOf(o) << (o.hidden ? " hidden" : "") << "\n";
        });
        out << "log:\n";
        for (const auto& line : platform.log.lines)
            out << "  " << line << "\n";
        out << "settings:\n";
        for (const auto& key : platform.store->keys())
            out << "  " << key << " = " << settingToText(*platform.store->value(key)) << "\n";
    }

    VirtualPlatform platform;
    SilentPitchSource listener;
    std::unique_ptr<TunerApp> app;
};

} // namespace

int cmdScreen(const Words& words, std::ostream& out, std::ostream& err) {
    Args args({"device", "lang", "settings", "do", "format"}, {}, {"do"});
    std::string fmt = "text";
    if (!args.parse(words) || !args.choice("format", {"text", "json"}, fmt)) {
        err << "uke screen: " << args.error() << "\n";
        return 2;
    }
    if (!args.positional().empty()) {
        err << "uke screen: unexpected argument '" << args.positional().front()
            << "' (actions go after --do, e.g. --do \"slider 4.6\")\n";
        return 2;
    }

    DeviceClass device;
    if (const auto d = args.value("device")) {
        const auto parsed = DeviceClass::parse(*d);
        if (!parsed) {
            err << "uke screen: unknown device class '" << *d << "' (use phone-HEIGHT or pad-HEIGHT, e.g. phone-844)\n";
            return 2;
        }
        device = *parsed;
    }

    std::string language = primaryLanguage(environmentLanguage());
    if (language.empty() || language == "c" || language == "posix")
        language = "en";
    if (const auto l = args.value("lang")) {
        language = primaryLanguage(*l);
        if (language.empty()) {
            err << "uke screen: --lang needs a language code such as en or es, not '" << *l << "'\n";
            return 2;
        }
    }

    std::vector<Action> actions;
    int64_t tuning = TuningCatalogue::kFirst;
    for (const auto& text : args.values("do")) {
        Action a{};
        std::string error;
        if (!parseAction(text, a, tuning, error)) {
            err << "uke screen: " << error << "\n";
            return 2;
        }
        actions.push_back(a);
    }

    std::unique_ptr<IniFileSettingsStore> ini;
    if (const auto path = args.value("settings")) {
        // Refused before anything runs, so that nothing is half done.
        if (std::error_code ec; std::filesystem::is_directory(*path, ec)) {
            err << "uke screen: --settings '" << *path << "' is a directory, not a settings file\n";
            return 2;
        }
        ini = std::make_unique<IniFileSettingsStore>(*path);
        std::string error;
        if (!ini->load(error)) {
            err << "uke screen: cannot read settings file " << *path << ": " << error << "\n";
            return 2;
        }
    }

    ScreenRun run(device, language, ini.get());
    for (const Action& a : actions)
        run.apply(a);
    if (fmt == "json")
        run.printJson(out);
    else
        run.printText(out);
    if (ini && ini->writeError()) {
        err << "uke screen: could not write settings file " << *args.value("settings") << "\n";
        return 2;
    }
    return 0;
}

} // namespace uke::tool
