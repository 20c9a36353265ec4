// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Recordings as the listener would have captured them: mono, 16-bit, at the
// capture rate, cut into capture-buffer blocks, decoded a piece at a time as the
// blocks are taken, so that a recording of any length is read in the same memory.
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace uke::tool {

class AudioFile {
public:
    static constexpr int kRate = 14039;           // hertz, the listener's capture rate
    static constexpr size_t kBlockSamples = 4096; // one capture buffer
    // The most audio decoded from one recording. Memory does not grow with the
    // length: the limit only bounds the time one file can take (a day of audio
    // takes minutes).
    static constexpr double kLongestSeconds = 24.0 * 60.0 * 60.0;

    // Opens any format libsndfile knows and decodes up to the first block. A file
    // that is missing, a directory, unreadable, not audio, damaged where it starts
    // (its header giving no channels or an impossible rate among that) or holding
    // no audio leaves a one-line reason in error(); the decoders' own messages
    // never reach the error stream.
    explicit AudioFile(const std::string& path, double longestSeconds = kLongestSeconds);
    ~AudioFile();
    AudioFile(const AudioFile&) = delete;
    AudioFile& operator=(const AudioFile&) = delete;

    // The next block: kBlockSamples samples, the last one as many as are left.
    // Channels are averaged, other rates resampled (libsamplerate's fastest
    // band-limited converter) and samples rounded and clipped to 16 bits. False at
    // the end, or where the recording turns out damaged or more than
    // `longestSeconds` of audio: then error() says so.
    bool next(std::vector<int16_t>& block);
    const std::string& error() const { return error_; }

    int sourceRate() const { return sourceRate_; } // hertz, as stored in the file
    int sourceChannels() const { return sourceChannels_; }
    // Seconds from the start of the recording to the start of block `b`.
    static double blockStart(size_t b) { return static_cast<double>(b) * kBlockSamples / kRate; }

private:
    struct Decoder;
    bool open();
    bool fill();

    std::string path_;
    double longest_;
    std::string error_;
    int sourceRate_ = 0;
    int sourceChannels_ = 0;
    std::unique_ptr<Decoder> decoder_;
    std::vector<int16_t> pending_; // converted; its first taken_ samples already handed out
    size_t taken_ = 0;
    bool ended_ = false;
};

} // namespace uke::tool
