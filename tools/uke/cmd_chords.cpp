#include "Commands.h"

namespace uke::tool {

int cmdChords(const Words&, std::ostream&, std::ostream& err) {
    err << "uke chords: not available in this build\n";
    return 2;
}

} // namespace uke::tool
