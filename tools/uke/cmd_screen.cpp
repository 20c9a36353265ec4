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
#include "app/Actions.h"
#include "app/TunerApp.h"
#include "audio/PitchSource.h"
#include "base/LayoutClass.h"
#include "base/OutletJson.h"
#include "platform/virtual/TsStringTable.h"
#include "platform/virtual/VirtualPlatform.h"

namespace uke::tool {

namespace {

// One --do value: an action of the app's table with its arguments, or a wait
// on the virtual clock, which is the tool's own.
struct Step {
    std::string text; // as given, for messages
    const actions::Action* action = nullptr;
    std::vector<double> args;
    double wait = 0.0;
};

bool parseStep(const std::string& text, Step& step, std::string& error) {
    step.text = text;
    std::istringstream in(text);
    std::vector<std::string> w;
    for (std::string word; in >> word;)
        w.push_back(word);
    if (!w.empty() && w[0] == "wait") {
        char* end = nullptr;
        if (w.size() != 2) {
            error = "--do '" + text + "': expected 'wait SECONDS'";
            return false;
        }
        step.wait = std::strtod(w[1].c_str(), &end);
        if (*end != '\0' || !std::isfinite(step.wait)) {
            error = "--do '" + text + "': '" + w[1] + "' is not a number";
            return false;
        }
        if (step.wait < 0 || step.wait > 3600) {
            error = "--do '" + text + "': wait takes 0 to 3600";
            return false;
        }
        return true;
    }
    actions::Scripted scripted = actions::parse(text);
    if (scripted.unknown)
        error = scripted.error + " (" + actions::scriptUsage() + ", wait SECONDS)";
    else if (w.empty())
        error = "--do " + scripted.error;
    else if (!scripted.action)
        error = "--do '" + text + "': " + scripted.error;
    step.action = scripted.action;
    step.args = std::move(scripted.args);
    return step.action != nullptr;
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

    // Runs one step; false with the app's reason when the action is refused here.
    bool apply(const Step& step, std::string& error) {
        if (step.action) {
            error = actions::refusal(*app, *step.action, step.args);
            if (!error.empty())
                return false;
            step.action->run(*app, step.args);
        } else {
            platform.runLoop.advanceBy(step.wait);
        }
        platform.runLoop.runPending();
        return true;
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

    std::vector<Step> steps;
    for (const auto& text : args.values("do")) {
        Step step;
        std::string error;
        if (!parseStep(text, step, error)) {
            err << "uke screen: " << error << "\n";
            return 2;
        }
        steps.push_back(std::move(step));
    }
    // The script is played once on a scratch app first, so that a step the app
    // refuses (an arrow past the last tuning) stops it before anything is stored.
    {
        ScreenRun trial(device, language, nullptr);
        for (const Step& step : steps) {
            if (std::string error; !trial.apply(step, error)) {
                err << "uke screen: --do '" << step.text << "': " << error << "\n";
                return 2;
            }
        }
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
    for (const Step& step : steps) {
        if (std::string error; !run.apply(step, error)) {
            err << "uke screen: --do '" << step.text << "': " << error << "\n";
            return 2;
        }
    }
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
