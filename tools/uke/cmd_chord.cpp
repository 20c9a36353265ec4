#include "Commands.h"

namespace uke::tool {

int cmdChord(const Words&, std::ostream&, std::ostream& err) {
    err << "uke chord: not available in this build\n";
    return 2;
}

} // namespace uke::tool
