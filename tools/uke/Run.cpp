// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <array>

#include "Commands.h"

namespace uke::tool {

namespace {

using Handler = int (*)(const Words&, std::ostream&, std::ostream&);

struct Command {
    const char* name;
    Handler run;
    const char* summary; // one line of the overall usage
    const char* usage;   // what `uke NAME --help` prints
};

constexpr std::array kCommands = {
    Command{"tunings", cmdTunings, "[--a4 HZ] [--format text|json]            every tuning and its match windows",
            "usage: uke tunings [--a4 HZ] [--format text|json]\n"
            "Every tuning with its strings, targets and match windows.\n"
            "  --a4 HZ       the calibration, 1 to 10000 (default 440)\n"},
    Command{"analyse", cmdAnalyse, "FILE (--blocks | --tuning N) [...]         pitch estimates or the tuner on a recording",
            "usage: uke analyse FILE --blocks [--format text|json]\n"
            "       uke analyse FILE --tuning N [--a4 HZ] [--sensitivity S] [--device D] [--format text|json]\n"
            "FILE is any recording libsndfile reads (WAV, FLAC, Ogg, MP3); it is mixed to mono\n"
            "and resampled to the microphone's 14039 Hz.\n"
            "  --blocks         the level and pitch estimate of each 4096-sample block\n"
            "  --tuning N       the recording replayed through the tuner screen, tuning 1 to 11\n"
            "  --a4 HZ          the calibration (default 440)\n"
            "  --sensitivity S  the microphone sensitivity step, 0 to 10\n"
            "  --device D       the device class, phone-HEIGHT or pad-HEIGHT (default phone-844)\n"},
    Command{"listen", cmdListen, "[--tuning N] [--a4 HZ]                     the tuner on the default microphone",
            "usage: uke listen [--tuning N] [--a4 HZ] [--sensitivity S] [--device D] [--format text|json]\n"
            "The tuner screen on the default microphone, one line per change, until interrupted.\n"},
    Command{"tone", cmdTone, "(--tuning N --string S | --freq HZ) ...    the reference tone into a WAV file",
            "usage: uke tone (--tuning N --string S | --freq HZ) [--a4 HZ]\n"
            "                [--wave sine|triangle|sawtooth|square] [--seconds X | --frames N]\n"
            "                (--out FILE.wav | --play)\n"
            "The tuning fork's reference tone, written to a WAV file or played on the speaker.\n"},
    Command{"chord", cmdChord, "--chart C --root R --type T [...]           one chord shape",
            "usage: uke chord --chart C --root R --type T [--flats] [--format text|json|notation|svg]\n"
            "One chord shape of chart C (1 to 4).\n"},
    Command{"chords", cmdChords, "--chart C [--flats] [--format ...]         a whole chord chart",
            "usage: uke chords --chart C [--flats] [--format text|notation]\n"
            "Every root and chord type of chart C (1 to 4).\n"},
    Command{"screen", cmdScreen, "[--device D] [--do ACTION]... [...]        the tuner screen's outlets after actions",
            "usage: uke screen [--device D] [--lang xx] [--settings FILE.ini] [--do ACTION]... [--format text|json]\n"
            "The tuner screen's outlets after a launch and the actions, in order. ACTION is one of:\n"
            "  next, previous, appear, select-language ROW, slider VALUE, stepper VALUE,\n"
            "  switch beep|strings|chart on|off, wait SECONDS\n"},
};

void usage(std::ostream& os) {
    os << "usage: uke COMMAND [OPTIONS]     (uke COMMAND --help for one command, uke --version)\n";
    for (const Command& c : kCommands)
        os << "  " << c.name << std::string(9 - std::string_view(c.name).size(), ' ') << c.summary << "\n";
}

bool asksForHelp(const Words& words) {
    return std::any_of(words.begin(), words.end(), [](const std::string& w) { return w == "--help" || w == "-h"; });
}

} // namespace

int run(const Words& words, std::ostream& out, std::ostream& err) {
    if (words.empty()) {
        usage(err);
        return 2;
    }
    if (words[0] == "--help" || words[0] == "-h" || words[0] == "help") {
        usage(out);
        return 0;
    }
    if (words[0] == "--version") {
        out << "uke " << UKE_VERSION << "\n"
            << "License GPL-3.0-or-later: GNU GPL version 3 or later <https://gnu.org/licenses/gpl.html>\n";
        return 0;
    }
    const auto it = std::find_if(kCommands.begin(), kCommands.end(),
                                 [&](const Command& c) { return words[0] == c.name; });
    if (it == kCommands.end()) {
        err << "uke: unknown command '" << words[0] << "' (try uke --help)\n";
        return 2;
    }
    const Words rest(words.begin() + 1, words.end());
    if (asksForHelp(rest)) {
        out << it->usage;
        return 0;
    }
    return it->run(rest, out, err);
}

} // namespace uke::tool
