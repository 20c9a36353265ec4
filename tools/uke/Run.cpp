#include <map>

#include "Commands.h"

namespace uke::tool {

namespace {
using Command = int (*)(const Words&, std::ostream&, std::ostream&);
const std::map<std::string, Command>& commands() {
    static const std::map<std::string, Command> table = {
        {"tunings", cmdTunings}, {"analyse", cmdAnalyse}, {"listen", cmdListen}, {"tone", cmdTone},
        {"chord", cmdChord},     {"chords", cmdChords},   {"screen", cmdScreen},
    };
    return table;
}

void usage(std::ostream& os) {
    os << "usage: uke COMMAND [OPTIONS]\n"
          "  tunings  [--a4 HZ] [--format text|json]            every tuning and its match windows\n"
          "  analyse  FILE (--blocks | --tuning N) [...]         pitch estimates or the tuner on a recording\n"
          "  listen   [--tuning N] [--a4 HZ]                     the tuner on the default microphone\n"
          "  tone     (--tuning N --string S | --freq HZ) ...    the reference tone into a WAV file\n"
          "  chord    --chart C --root R --type T [...]           one chord shape\n"
          "  chords   --chart C [--flats] [--format ...]         a whole chord chart\n"
          "  screen   [--device D] [--do ACTION]... [...]        the tuner screen's outlets after actions\n";
}
} // namespace

int run(const Words& words, std::ostream& out, std::ostream& err) {
    if (words.empty() || words[0] == "--help" || words[0] == "-h" || words[0] == "help") {
        usage(words.empty() ? err : out);
        return words.empty() ? 2 : 0;
    }
    const auto it = commands().find(words[0]);
    if (it == commands().end()) {
        err << "uke: unknown command '" << words[0] << "' (try uke --help)\n";
        return 2;
    }
    return it->second(Words(words.begin() + 1, words.end()), out, err);
}

} // namespace uke::tool
