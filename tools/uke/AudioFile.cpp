// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "AudioFile.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <optional>

#include <sndfile.h>
#include <unistd.h>

#include "audio/SampleConverter.h"

namespace uke::tool {

namespace {

// The decoders below libsndfile (libmpg123 among them) write their complaints
// straight to the error stream. While they decode, those lines go to a scratch
// file instead, so that the tool can turn them into its one line; in between,
// the error stream is the tool's own again.
class DecoderChatter {
public:
    DecoderChatter() : scratch_(std::tmpfile()) {
        if (scratch_)
            saved_ = ::dup(STDERR_FILENO);
    }
    ~DecoderChatter() {
        if (saved_ >= 0)
            ::close(saved_);
        if (scratch_)
            std::fclose(scratch_);
    }
    DecoderChatter(const DecoderChatter&) = delete;
    DecoderChatter& operator=(const DecoderChatter&) = delete;

    // `decode()` with the error stream going to the scratch file.
    template <class F> auto muffled(F&& decode) {
        redirect(scratch_ ? ::fileno(scratch_) : -1);
        const auto result = decode();
        redirect(saved_);
        return result;
    }

    // Where the decoder last said the data went wrong, as "near byte N", if it did.
    std::string damage() {
        if (!scratch_ || !heardMore())
            return {};
        // libmpg123: "Illegal Audio-MPEG-Header 0x00000000 at offset 12555."
        const std::string marker = "at offset ";
        const auto at = said_.find(marker);
        if (at == std::string::npos)
            return {};
        const auto digits = at + marker.size();
        const auto end = said_.find_first_not_of("0123456789", digits);
        if (end == digits || end == std::string::npos)
            return {};
        return "near byte " + said_.substr(digits, end - digits);
    }

private:
    void redirect(int fd) {
        if (saved_ < 0 || fd < 0)
            return;
        std::fflush(stderr);
        ::dup2(fd, STDERR_FILENO);
    }
    // Reads what the decoders wrote since the last call, up to 64 KiB in all.
    bool heardMore() {
        const size_t before = said_.size();
        char buffer[4096];
        while (said_.size() < 65536) {
            const ssize_t n = ::pread(::fileno(scratch_), buffer, sizeof buffer, static_cast<off_t>(said_.size()));
            if (n <= 0)
                break;
            said_.append(buffer, static_cast<size_t>(n));
        }
        return said_.size() > before;
    }

    std::FILE* scratch_;
    int saved_ = -1;
    std::string said_;
};

// Why `path` cannot be a recording before any decoder looks at it, or empty.
std::string unreadableFile(const std::string& path) {
    namespace fs = std::filesystem;
    std::error_code ec;
    const fs::file_status status = fs::status(path, ec);
    if (status.type() == fs::file_type::not_found)
        return "'" + path + "' does not exist";
    if (status.type() == fs::file_type::directory)
        return "'" + path + "' is a directory, not a recording";
    if (ec || status.type() != fs::file_type::regular)
        return "'" + path + "' is not a regular file";
    if (fs::file_size(path, ec) == 0 && !ec)
        return "'" + path + "' is empty";
    if (!std::ifstream(path))
        return "cannot open '" + path + "': " + std::strerror(errno);
    return {};
}

std::string duration(double seconds) {
    char text[32];
    if (seconds < 120.0)
        std::snprintf(text, sizeof text, "%.1f seconds", seconds);
    else if (seconds < 2 * 3600.0)
        std::snprintf(text, sizeof text, "%.1f minutes", seconds / 60.0);
    else
        std::snprintf(text, sizeof text, "%.1f hours", seconds / 3600.0);
    return text;
}

// Frames decoded at a time: a 64-channel file's chunk is 2 MB.
constexpr sf_count_t kChunkFrames = 4096;

} // namespace

struct AudioFile::Decoder {
    DecoderChatter chatter; // made first, gone last: it hears the file closed too
    SNDFILE* file = nullptr;
    std::optional<SampleConverter> converter;
    std::vector<double> chunk;
    sf_count_t decoded = 0; // frames

    ~Decoder() {
        if (file)
            chatter.muffled([this] { return sf_close(file); });
    }
};

AudioFile::AudioFile(const std::string& path, double longestSeconds) : path_(path), longest_(longestSeconds) {
    if (open() && fill() && pending_.empty()) {
        // Only audio too short for the resampler to give a single sample gets here.
        error_ = "'" + path_ + "' is too short to resample";
    }
}

AudioFile::~AudioFile() = default;

bool AudioFile::open() {
    if (error_ = unreadableFile(path_); !error_.empty())
        return false;
    decoder_ = std::make_unique<Decoder>();
    Decoder& d = *decoder_;
    SF_INFO info{};
    d.file = d.chatter.muffled([&] { return sf_open(path_.c_str(), SFM_READ, &info); });
    if (!d.file) {
        // libsndfile's own words can mislead here ("File does not exist" for a
        // file the MP3 decoder gave up on), so its reason is only a category.
        const std::string where = d.chatter.damage();
        const int reason = sf_error(nullptr);
        if (!where.empty())
            error_ = "'" + path_ + "' is damaged " + where;
        else if (reason == SF_ERR_MALFORMED_FILE)
            error_ = "'" + path_ + "' is damaged: its header cannot be read";
        else if (reason == SF_ERR_UNSUPPORTED_ENCODING)
            error_ = "'" + path_ + "' is audio in an encoding that cannot be decoded";
        else
            error_ = "'" + path_ + "' is not a recording (WAV, FLAC, Ogg, MP3 or another format libsndfile reads)";
        return false;
    }
    if (info.channels <= 0 || info.channels > 64 || info.samplerate <= 0 || info.samplerate > 768000) {
        error_ = "'" + path_ + "' is damaged: its header gives " + std::to_string(info.channels) + " channels at " +
                 std::to_string(info.samplerate) + " Hz";
        return false;
    }
    sourceRate_ = info.samplerate;
    sourceChannels_ = info.channels;
    // The fastest band-limited converter: its 80 % pass band still holds
    // everything up to 5.6 kHz, far above the tuner's 1 kHz ceiling and the
    // harmonics it sums, with the same 97 dB of noise rejection as the slower
    // ones and a fifth of their cost on a long recording.
    d.converter.emplace(SampleConverter::Input{SampleConverter::Encoding::Float64, info.channels, info.samplerate},
                        kRate, Resampler::Quality::Fastest);
    if (!d.converter->error().empty()) {
        error_ =
            "cannot resample '" + path_ + "' from " + std::to_string(info.samplerate) + " Hz: " + d.converter->error();
        return false;
    }
    d.chunk.resize(static_cast<size_t>(kChunkFrames) * static_cast<size_t>(info.channels));
    return true;
}

// Decodes until a whole block waits or the recording ends.
bool AudioFile::fill() {
    Decoder& d = *decoder_;
    pending_.erase(pending_.begin(), pending_.begin() + static_cast<std::ptrdiff_t>(taken_));
    taken_ = 0;
    while (!ended_ && pending_.size() < kBlockSamples) {
        const sf_count_t got = d.chatter.muffled([&] { return sf_readf_double(d.file, d.chunk.data(), kChunkFrames); });
        std::string where = d.chatter.damage();
        // Every read clears libsndfile's error: what the last one left is what counts.
        if (got <= 0 && where.empty() && sf_error(d.file) != SF_ERR_NO_ERROR) {
            char after[64];
            std::snprintf(after, sizeof after, "after %.2f s of audio", static_cast<double>(d.decoded) / sourceRate_);
            where = std::string(after) + ": " + sf_strerror(d.file);
        }
        if (!where.empty()) {
            error_ = "'" + path_ + "' is damaged " + where;
            return false;
        }
        if (got <= 0) {
            ended_ = true;
            if (d.decoded == 0) {
                error_ = "'" + path_ + "' holds no audio";
                return false;
            }
            if (!d.converter->finish(pending_)) {
                error_ = "cannot resample '" + path_ + "': " + d.converter->error();
                return false;
            }
            break;
        }
        // The length a header gives is only a claim (libsndfile reads no further,
        // and a file whose data ends sooner simply ends), so the limit holds on
        // what is really decoded.
        d.decoded += got;
        if (static_cast<double>(d.decoded) / sourceRate_ > longest_) {
            error_ = "'" + path_ + "' is too long to analyse: more than " + duration(longest_) + ", the limit";
            return false;
        }
        const size_t samples = static_cast<size_t>(got) * static_cast<size_t>(sourceChannels_);
        if (!d.converter->push(d.chunk.data(), samples * sizeof(double), pending_)) {
            error_ = "cannot resample '" + path_ + "': " + d.converter->error();
            return false;
        }
    }
    return true;
}

bool AudioFile::next(std::vector<int16_t>& block) {
    if (!error_.empty() || !decoder_)
        return false;
    if (pending_.size() - taken_ < kBlockSamples && !ended_ && !fill())
        return false;
    const size_t n = std::min(kBlockSamples, pending_.size() - taken_);
    if (n == 0)
        return false;
    const auto from = pending_.begin() + static_cast<std::ptrdiff_t>(taken_);
    block.assign(from, from + static_cast<std::ptrdiff_t>(n));
    taken_ += n;
    return true;
}

} // namespace uke::tool
