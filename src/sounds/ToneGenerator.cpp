#include "sounds/ToneGenerator.h"

namespace uke {

void ToneGenerator::render(int16_t* interleaved, uint32_t frames, const std::atomic<int64_t>& curTone) {
    (void)curTone;
    for (uint32_t i = 0; i < frames * 2; ++i)
        interleaved[i] = 0;
}

} // namespace uke
