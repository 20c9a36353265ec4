#include "AudioFile.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include <samplerate.h>
#include <sndfile.h>

namespace uke::tool {

namespace {

struct SndfileCloser {
    void operator()(SNDFILE* f) const { sf_close(f); }
};

int16_t toSample(double v) { return static_cast<int16_t>(std::clamp(std::round(v * 32768.0), -32768.0, 32767.0)); }

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
    SF_INFO info{};
    std::unique_ptr<SNDFILE, SndfileCloser> file(sf_open(path.c_str(), SFM_READ, &info));
    if (!file) {
        error = "cannot read '" + path + "': " + sf_strerror(nullptr);
        return std::nullopt;
    }
    if (info.frames <= 0 || info.channels <= 0 || info.samplerate <= 0) {
        error = "'" + path + "' holds no audio";
        return std::nullopt;
    }

    // Whole frames in double, so that 16-bit input at the capture rate comes out
    // exactly as it went in.
    std::vector<double> mono;
    mono.reserve(static_cast<size_t>(info.frames));
    std::vector<double> chunk(static_cast<size_t>(4096) * static_cast<size_t>(info.channels));
    for (;;) {
        const sf_count_t got = sf_readf_double(file.get(), chunk.data(), 4096);
        if (got <= 0)
            break;
        for (sf_count_t f = 0; f < got; ++f) {
            double sum = 0.0;
            for (int c = 0; c < info.channels; ++c)
                sum += chunk[static_cast<size_t>(f * info.channels + c)];
            mono.push_back(sum / info.channels);
        }
    }
    if (sf_error(file.get()) != SF_ERR_NO_ERROR) {
        error = "cannot read '" + path + "': " + sf_strerror(file.get());
        return std::nullopt;
    }
    if (mono.empty()) {
        error = "'" + path + "' holds no audio";
        return std::nullopt;
    }

    AudioFile audio;
    audio.sourceRate = info.samplerate;
    audio.sourceChannels = info.channels;
    if (info.samplerate == AudioFile::kRate) {
        audio.samples.reserve(mono.size());
        for (double v : mono)
            audio.samples.push_back(toSample(v));
        return audio;
    }

    const double ratio = static_cast<double>(AudioFile::kRate) / info.samplerate;
    if (src_is_valid_ratio(ratio) == 0) {
        error = "cannot resample '" + path + "' from " + std::to_string(info.samplerate) + " Hz";
        return std::nullopt;
    }
    std::vector<float> in(mono.begin(), mono.end());
    std::vector<float> out(static_cast<size_t>(std::ceil(static_cast<double>(in.size()) * ratio)) + 16);
    SRC_DATA data{};
    data.data_in = in.data();
    data.input_frames = static_cast<long>(in.size());
    data.data_out = out.data();
    data.output_frames = static_cast<long>(out.size());
    data.src_ratio = ratio;
    if (const int status = src_simple(&data, SRC_SINC_BEST_QUALITY, 1); status != 0) {
        error = "cannot resample '" + path + "': " + src_strerror(status);
        return std::nullopt;
    }
    audio.samples.reserve(static_cast<size_t>(data.output_frames_gen));
    for (long i = 0; i < data.output_frames_gen; ++i)
        audio.samples.push_back(toSample(out[static_cast<size_t>(i)]));
    if (audio.samples.empty()) {
        error = "'" + path + "' is too short to resample";
        return std::nullopt;
    }
    return audio;
}

} // namespace uke::tool
