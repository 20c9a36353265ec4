#include "AnalyseTuner.h"
#include "TunerReplay.h"

namespace uke::tool {

int analyseTuner(const std::vector<std::vector<int16_t>>& blocks, const Args& args, std::ostream& out,
                 std::ostream& err) {
    Args options = args; // the readers note their errors on the object
    TunerOptions tuner;
    std::string error;
    if (!readTunerOptions(options, tuner, error)) {
        err << "uke analyse: " << error << "\n";
        return 2;
    }
    return replayThroughTuner(blocks, tuner, out, err);
}

} // namespace uke::tool
