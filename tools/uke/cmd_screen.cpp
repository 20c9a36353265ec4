#include "Commands.h"

namespace uke::tool {

int cmdScreen(const Words&, std::ostream&, std::ostream& err) {
    err << "uke screen: not available in this build\n";
    return 2;
}

} // namespace uke::tool
