#pragma once
// Recordings as the listener would have captured them: mono, 16-bit, at the
// capture rate, cut into capture-buffer blocks.
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace uke::tool {

struct AudioFile {
    static constexpr int kRate = 14039;           // hertz, the listener's capture rate
    static constexpr size_t kBlockSamples = 4096; // one capture buffer
    // The longest recording analysed: half an hour is 25 million samples at the
    // capture rate, some 100 MB once cut into blocks and replayed.
    static constexpr double kLongestSeconds = 30.0 * 60.0;

    int sourceRate = 0; // hertz, as stored in the file
    int sourceChannels = 0;
    std::vector<int16_t> samples; // mono at kRate

    // Blocks of kBlockSamples; a shorter last block keeps its own length.
    std::vector<std::vector<int16_t>> blocks(size_t blockSamples = kBlockSamples) const;
    // Seconds from the start of the recording to the start of block `b`.
    static double blockStart(size_t b) { return static_cast<double>(b) * kBlockSamples / kRate; }
};

// Reads any format libsndfile knows: channels are averaged to mono, other rates
// resampled (SRC_SINC_FASTEST) to kRate, and samples rounded and clipped to 16
// bits. Nothing, with a one-line reason in `error`, for a file that is missing,
// a directory, unreadable, not audio, damaged (where the decoder says so),
// longer than kLongestSeconds or empty; the decoders' own messages never reach
// the error stream.
std::optional<AudioFile> readAudioFile(const std::string& path, std::string& error);

} // namespace uke::tool
