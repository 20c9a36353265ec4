// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a recording: every format libsndfile and its MP3 decoder read.
// The reader must answer with blocks or one reason, never crash, never
// reserve memory a header asks for.
#include <cstdint>
#include <string>
#include <vector>

#include "AudioFile.h"
#include "ScratchFile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string path = uke::fuzz::writeScratch(data, size, ".audio");
    uke::tool::AudioFile audio(path);
    std::vector<int16_t> block;
    while (audio.next(block)) {
    }
    return 0;
}
