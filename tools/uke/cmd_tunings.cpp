// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include <cstdio>
#include <iomanip>

#include "Args.h"
#include "Commands.h"
#include "base/OutletJson.h"
#include "base/StringTargetTable.h"
#include "base/TuningCatalogue.h"
#include "platform/virtual/TsStringTable.h"
#include "platform/virtual/VirtualPlatform.h"

namespace uke::tool {

int cmdTunings(const Words& words, std::ostream& out, std::ostream& err) {
    Args args({"a4", "format"}, {});
    double a4 = 440.0;
    std::string fmt = "text";
    if (!args.parse(words) || !args.number("a4", 1.0, 10000.0, a4) || !args.choice("format", {"text", "json"}, fmt) ||
        !args.positionalAtMost(0)) {
        err << "uke tunings: " << args.error() << "\n";
        return 2;
    }
    StringTargetTable targets;
    targets.recompute(a4);
    const StringTable& titles = stringsForLanguage("en");

    if (fmt == "json") {
        out << "{\"a4\": " << (a4 == static_cast<long>(a4) ? std::to_string(static_cast<long>(a4)) : jsonNumber(a4))
            << ", \"tunings\": [";
        for (int64_t n = TuningCatalogue::kFirst; n <= TuningCatalogue::kLast; ++n) {
            const Tuning& t = TuningCatalogue::tuning(n);
            out << (n > 1 ? ", " : "") << "{\"number\": " << n
                << ", \"title\": " << jsonQuoted(titles.localized(std::string(t.titleKey))) << ", \"strings\": [";
            for (size_t i = 0; i < 4; ++i)
                out << (i ? ", " : "") << jsonQuoted(std::string(pitchName(t.strings[i])));
            out << "], \"rules\": [";
            for (size_t r = 0; r < t.rules.size(); ++r) {
                const MatchRule& rule = t.rules[r];
                const StringTarget& st = targets[rule.pitch];
                out << (r ? ", " : "") << "{\"pitch\": " << jsonQuoted(std::string(pitchName(rule.pitch)))
                    << ", \"label\": " << jsonQuoted(std::string(rule.label)) << ", \"indication\": " << rule.indication
                    << ", \"slot\": " << rule.slot << ", \"target\": " << jsonNumber(st.target)
                    << ", \"low\": " << jsonNumber(st.low()) << ", \"high\": " << jsonNumber(st.high()) << "}";
            }
            out << "]}";
        }
        out << "]}\n";
        return 0;
    }

    char line[160];
    std::snprintf(line, sizeof line, "A4 = %g Hz\n", a4);
    out << line;
    for (int64_t n = TuningCatalogue::kFirst; n <= TuningCatalogue::kLast; ++n) {
        const Tuning& t = TuningCatalogue::tuning(n);
        out << "\n" << n << ". " << titles.localized(std::string(t.titleKey)) << "\n   strings 1-4:";
        for (Pitch p : t.strings)
            out << " " << pitchName(p);
        out << "\n";
        for (const MatchRule& rule : t.rules) {
            const StringTarget& st = targets[rule.pitch];
            std::snprintf(line, sizeof line, "   %-4s shows %-4s string %-2d slot %d  %9.4f Hz  [%9.4f, %9.4f]\n",
                          std::string(pitchName(rule.pitch)).c_str(), std::string(rule.label).c_str(), rule.indication,
                          rule.slot, st.target, st.low(), st.high());
            out << line;
        }
    }
    return 0;
}

} // namespace uke::tool
