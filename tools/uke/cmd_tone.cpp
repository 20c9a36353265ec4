#include "Commands.h"

namespace uke::tool {

int cmdTone(const Words&, std::ostream&, std::ostream& err) {
    err << "uke tone: not available in this build\n";
    return 2;
}

} // namespace uke::tool
