#include "Commands.h"

namespace uke::tool {

int cmdListen(const Words&, std::ostream&, std::ostream& err) {
    err << "uke listen: not available in this build\n";
    return 2;
}

} // namespace uke::tool
