// Any bytes as a recording: every format libsndfile and its MP3 decoder read.
// The reader must answer with samples or one reason, never crash, never
// reserve memory a header asks for.
#include <cstdint>
#include <string>

#include "AudioFile.h"
#include "ScratchFile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string path = uke::fuzz::writeScratch(data, size, ".audio");
    std::string error;
    if (const auto audio = uke::tool::readAudioFile(path, error)) {
        const auto blocks = audio->blocks();
        (void)blocks;
    }
    return 0;
}
