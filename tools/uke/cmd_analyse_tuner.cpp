#include "AnalyseTuner.h"

namespace uke::tool {

int analyseTuner(const std::vector<std::vector<int16_t>>&, const Args&, std::ostream&, std::ostream& err) {
    err << "uke analyse: --tuning is not available in this build\n";
    return 2;
}

} // namespace uke::tool
