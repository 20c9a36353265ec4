// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "audio/Resampler.h"

// The browser build compiles the audio folder without libsamplerate; nothing there
// resamples in C++ (see the header).
#ifndef __EMSCRIPTEN__

#include <cmath>

#include <samplerate.h>

namespace uke {

Resampler::Resampler(double ratio, Quality quality) : ratio_(ratio) {
    if (src_is_valid_ratio(ratio) == 0) {
        error_ = "the rates are too far apart";
        return;
    }
    int status = 0;
    state_ = src_new(quality == Quality::Fastest ? SRC_SINC_FASTEST : SRC_SINC_MEDIUM_QUALITY, 1, &status);
    if (!state_)
        error_ = src_strerror(status);
}

Resampler::~Resampler() {
    if (state_)
        src_delete(static_cast<SRC_STATE*>(state_));
}

void Resampler::reset() {
    if (state_)
        src_reset(static_cast<SRC_STATE*>(state_));
}

bool Resampler::process(const float* in, size_t count, bool last, std::vector<float>& out) {
    if (!state_)
        return false;
    // Room for the whole output in one call, as a rule; the loop is for the rest.
    const size_t room = static_cast<size_t>(std::ceil(static_cast<double>(count) * ratio_)) + 64;
    SRC_DATA data{};
    data.data_in = in;
    data.input_frames = static_cast<long>(count);
    data.src_ratio = ratio_;
    data.end_of_input = last ? 1 : 0;
    for (;;) {
        const size_t before = out.size();
        out.resize(before + room);
        data.data_out = out.data() + before;
        data.output_frames = static_cast<long>(room);
        const int e = src_process(static_cast<SRC_STATE*>(state_), &data);
        out.resize(before + static_cast<size_t>(e == 0 ? data.output_frames_gen : 0));
        if (e != 0) {
            error_ = src_strerror(e);
            return false;
        }
        data.data_in += data.input_frames_used;
        data.input_frames -= data.input_frames_used;
        const bool stuck = data.input_frames_used == 0 && data.output_frames_gen == 0;
        if ((data.input_frames == 0 && (!last || data.output_frames_gen == 0)) || stuck)
            return true;
    }
}

} // namespace uke

#endif
