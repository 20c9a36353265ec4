#include "Commands.h"

namespace uke::tool {

int cmdAnalyse(const Words&, std::ostream&, std::ostream& err) {
    err << "uke analyse: not available in this build\n";
    return 2;
}

} // namespace uke::tool
