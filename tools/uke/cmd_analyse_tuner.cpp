// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "AnalyseTuner.h"
#include "TunerReplay.h"

namespace uke::tool {

int analyseTuner(AudioFile& audio, const Args& args, std::ostream& out, std::ostream& err) {
    Args options = args; // the readers note their errors on the object
    TunerOptions tuner;
    std::string error;
    if (!readTunerOptions(options, tuner, error)) {
        err << "uke analyse: " << error << "\n";
        return 2;
    }
    return replayThroughTuner(audio, tuner, out, err);
}

} // namespace uke::tool
