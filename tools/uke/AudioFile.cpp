#include "AudioFile.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>

#include <samplerate.h>
#include <sndfile.h>
#include <unistd.h>

namespace uke::tool {

namespace {

struct SndfileCloser {
    void operator()(SNDFILE* f) const { sf_close(f); }
};

int16_t toSample(double v) { return static_cast<int16_t>(std::clamp(std::round(v * 32768.0), -32768.0, 32767.0)); }

// The decoders below libsndfile (libmpg123 among them) write their complaints
// straight to the error stream. While one of these lives, those lines go to a
// scratch file instead, so that the tool can turn them into its one line.
class DecoderChatter {
public:
    DecoderChatter() {
        std::fflush(stderr);
        scratch_ = std::tmpfile();
        saved_ = scratch_ ? ::dup(STDERR_FILENO) : -1;
        if (saved_ >= 0)
            ::dup2(::fileno(scratch_), STDERR_FILENO);
    }
    ~DecoderChatter() {
        restore();
        if (scratch_)
            std::fclose(scratch_);
    }
    DecoderChatter(const DecoderChatter&) = delete;
    DecoderChatter& operator=(const DecoderChatter&) = delete;

    // Where the decoder last said the data went wrong, as "near byte N", if it did.
    std::string damage() {
        restore();
        if (!scratch_)
            return {};
        std::rewind(scratch_);
        std::string text;
        char buffer[4096];
        for (size_t n; (n = std::fread(buffer, 1, sizeof buffer, scratch_)) > 0 && text.size() < 65536;)
            text.append(buffer, n);
        // libmpg123: "Illegal Audio-MPEG-Header 0x00000000 at offset 12555."
        const std::string marker = "at offset ";
        const auto at = text.find(marker);
        if (at == std::string::npos)
            return {};
        const auto digits = at + marker.size();
        const auto end = text.find_first_not_of("0123456789", digits);
        if (end == digits)
            return {};
        return "near byte " + text.substr(digits, end - digits);
    }

private:
    void restore() {
        if (saved_ < 0)
            return;
        std::fflush(stderr);
        ::dup2(saved_, STDERR_FILENO);
        ::close(saved_);
        saved_ = -1;
    }

    std::FILE* scratch_ = nullptr;
    int saved_ = -1;
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

std::string minutes(double seconds) {
    char text[32];
    std::snprintf(text, sizeof text, "%.1f minutes", seconds / 60.0);
    return text;
}

} // namespace

std::vector<std::vector<int16_t>> AudioFile::blocks(size_t blockSamples) const {
    std::vector<std::vector<int16_t>> out;
    for (size_t at = 0; at < samples.size(); at += blockSamples) {
        const size_t n = std::min(blockSamples, samples.size() - at);
        out.emplace_back(samples.begin() + static_cast<std::ptrdiff_t>(at),
                         samples.begin() + static_cast<std::ptrdiff_t>(at + n));
    }
    return out;
}

std::optional<AudioFile> readAudioFile(const std::string& path, std::string& error) {
    if (error = unreadableFile(path); !error.empty())
        return std::nullopt;
    DecoderChatter chatter;
    SF_INFO info{};
    std::unique_ptr<SNDFILE, SndfileCloser> file(sf_open(path.c_str(), SFM_READ, &info));
    if (!file) {
        // libsndfile's own words can mislead here ("File does not exist" for a
        // file the MP3 decoder gave up on), so its reason is only a category.
        const std::string where = chatter.damage();
        const int reason = sf_error(nullptr);
        if (!where.empty())
            error = "'" + path + "' is damaged " + where;
        else if (reason == SF_ERR_MALFORMED_FILE)
            error = "'" + path + "' is damaged: its header cannot be read";
        else if (reason == SF_ERR_UNSUPPORTED_ENCODING)
            error = "'" + path + "' is audio in an encoding that cannot be decoded";
        else
            error = "'" + path + "' is not a recording (WAV, FLAC, Ogg, MP3 or another format libsndfile reads)";
        return std::nullopt;
    }
    if (info.channels <= 0 || info.channels > 64 || info.samplerate <= 0 || info.samplerate > 768000) {
        error = "'" + path + "' is damaged: its header gives " + std::to_string(info.channels) + " channels at " +
                std::to_string(info.samplerate) + " Hz";
        return std::nullopt;
    }
    // What a header says is only a claim: memory grows with what is really
    // decoded, and the limit is checked on both.
    const double longest = AudioFile::kLongestSeconds;
    if (info.frames > 0 && static_cast<double>(info.frames) / info.samplerate > longest) {
        error = "'" + path + "' is too long to analyse: " + minutes(static_cast<double>(info.frames) / info.samplerate) +
                "; the limit is " + minutes(longest);
        return std::nullopt;
    }

    AudioFile audio;
    audio.sourceRate = info.samplerate;
    audio.sourceChannels = info.channels;
    const bool atCaptureRate = info.samplerate == AudioFile::kRate;
    const double ratio = static_cast<double>(AudioFile::kRate) / info.samplerate;
    if (!atCaptureRate && src_is_valid_ratio(ratio) == 0) {
        error = "cannot resample '" + path + "' from " + std::to_string(info.samplerate) + " Hz";
        return std::nullopt;
    }
    // The narrowest of the band-limited converters: its 80 % pass band still
    // holds everything up to 5.6 kHz, far above the tuner's 1 kHz ceiling and the
    // harmonics it sums, with the same 97 dB of noise rejection as the slower
    // ones and a fifth of their cost on a long recording.
    int status = 0;
    std::unique_ptr<SRC_STATE, decltype(&src_delete)> resampler(
        atCaptureRate ? nullptr : src_new(SRC_SINC_FASTEST, 1, &status), &src_delete);
    if (!atCaptureRate && !resampler) {
        error = "cannot resample '" + path + "': " + src_strerror(status);
        return std::nullopt;
    }

    // Read, mixed down and resampled a chunk at a time, so that a long recording
    // is never held whole in any form but the result.
    constexpr sf_count_t kChunkFrames = 4096;
    std::vector<double> chunk(static_cast<size_t>(kChunkFrames) * static_cast<size_t>(info.channels));
    std::vector<float> mono(static_cast<size_t>(kChunkFrames));
    std::vector<float> out(static_cast<size_t>(std::ceil(static_cast<double>(kChunkFrames) * ratio)) + 64);
    bool anyAudio = false;
    sf_count_t decoded = 0;
    auto resample = [&](long frames, bool last) {
        SRC_DATA data{};
        data.data_in = mono.data();
        data.input_frames = frames;
        data.src_ratio = ratio;
        data.end_of_input = last ? 1 : 0;
        for (;;) {
            data.data_out = out.data();
            data.output_frames = static_cast<long>(out.size());
            if (const int e = src_process(resampler.get(), &data); e != 0) {
                status = e;
                return false;
            }
            for (long i = 0; i < data.output_frames_gen; ++i)
                audio.samples.push_back(toSample(out[static_cast<size_t>(i)]));
            data.data_in += data.input_frames_used;
            data.input_frames -= data.input_frames_used;
            if (data.input_frames == 0 && (!last || data.output_frames_gen == 0))
                return true;
        }
    };
    for (;;) {
        const sf_count_t got = sf_readf_double(file.get(), chunk.data(), kChunkFrames);
        if (got <= 0)
            break;
        anyAudio = true;
        decoded += got;
        if (static_cast<double>(decoded) / info.samplerate > longest) {
            error = "'" + path + "' is too long to analyse: more than " + minutes(longest) + ", the limit";
            return std::nullopt;
        }
        for (sf_count_t f = 0; f < got; ++f) {
            double sum = 0.0;
            for (int c = 0; c < info.channels; ++c)
                sum += chunk[static_cast<size_t>(f * info.channels + c)];
            const double v = sum / info.channels;
            // At the capture rate, 16-bit input comes out exactly as it went in.
            if (atCaptureRate)
                audio.samples.push_back(toSample(v));
            else
                mono[static_cast<size_t>(f)] = static_cast<float>(v);
        }
        if (!atCaptureRate && !resample(static_cast<long>(got), false))
            break;
    }
    const std::string where = chatter.damage();
    if (sf_error(file.get()) != SF_ERR_NO_ERROR || !where.empty()) {
        char after[64];
        std::snprintf(after, sizeof after, "after %.2f s of audio", static_cast<double>(decoded) / info.samplerate);
        error = "'" + path + "' is damaged " + (where.empty() ? std::string(after) + ": " + sf_strerror(file.get()) : where);
        return std::nullopt;
    }
    if (!anyAudio) {
        error = "'" + path + "' holds no audio";
        return std::nullopt;
    }
    if (!atCaptureRate && (status != 0 || !resample(0, true))) {
        error = "cannot resample '" + path + "': " + src_strerror(status);
        return std::nullopt;
    }
    if (audio.samples.empty()) {
        error = "'" + path + "' is too short to resample";
        return std::nullopt;
    }
    return audio;
}

} // namespace uke::tool
