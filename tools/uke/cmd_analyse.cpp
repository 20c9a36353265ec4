// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include <cstdio>
#include <string>

#include "AnalyseTuner.h"
#include "Args.h"
#include "AudioFile.h"
#include "Commands.h"
#include "audio/MicListener.h"
#include "platform/virtual/Fakes.h"

namespace uke::tool {

namespace {

// Six decimals with the trailing zeros dropped, one kept: 0.0, 0.291759.
std::string seconds(double t) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%.6f", t);
    std::string s = buf;
    while (s.size() > 2 && s.back() == '0' && s[s.size() - 2] != '.')
        s.pop_back();
    return s;
}

// Every block through the listener's own capture path, as the microphone would
// have delivered it, and one reading of level and estimate after each.
int analyseBlocks(AudioFile& audio, bool json, std::ostream& out, std::ostream& err) {
    FakeAudioCapture capture;
    RecordingLog log;
    const MicListener::Attachment attached(capture, log);
    MicListener* listener = MicListener::sharedListener();
    listener->listen();
    if (!listener->isListening()) {
        err << "uke analyse: the listener could not be started\n";
        return 2;
    }
    if (!json)
        out << "block         t   average      peak   frequency\n";
    char line[160];
    std::vector<int16_t> block;
    for (size_t b = 0; audio.next(block); ++b) {
        if (!capture.deliver(block)) {
            err << "uke analyse: block " << b << " was not taken by the listener\n";
            return 2;
        }
        const double average = listener->averagePower();
        const double peak = listener->peakPower();
        const double frequency = listener->frequency();
        if (json) {
            std::snprintf(line, sizeof line,
                          "{\"block\": %zu, \"t\": %s, \"average\": %.6f, \"peak\": %.6f, \"frequency\": %.4f}\n", b,
                          seconds(AudioFile::blockStart(b)).c_str(), average, peak, frequency);
        } else {
            std::snprintf(line, sizeof line, "%5zu  %8.3f  %8.6f  %8.6f  %10.4f\n", b, AudioFile::blockStart(b),
                          average, peak, frequency);
        }
        out << line;
    }
    listener->stop();
    return 0;
}

} // namespace

int cmdAnalyse(const Words& words, std::ostream& out, std::ostream& err) {
    Args args({"tuning", "a4", "sensitivity", "device", "format"}, {"blocks"});
    if (!args.parse(words)) {
        err << "uke analyse: " << args.error() << "\n";
        return 2;
    }
    if (args.positional().empty()) {
        err << "uke analyse: no audio file given (uke analyse FILE --blocks | --tuning N)\n";
        return 2;
    }
    if (args.positional().size() > 1) {
        err << "uke analyse: unexpected argument '" << args.positional()[1] << "'\n";
        return 2;
    }
    const bool blocksMode = args.has("blocks");
    if (blocksMode == args.has("tuning")) {
        err << "uke analyse: choose one of --blocks and --tuning N\n";
        return 2;
    }
    std::string format = "text";
    if (blocksMode) {
        for (const char* tunerOnly : {"a4", "sensitivity", "device"}) {
            if (args.has(tunerOnly)) {
                err << "uke analyse: --" << tunerOnly << " applies only with --tuning\n";
                return 2;
            }
        }
        if (!args.choice("format", {"text", "json"}, format)) {
            err << "uke analyse: " << args.error() << "\n";
            return 2;
        }
    }

    AudioFile audio(args.positional().front());
    if (!audio.error().empty()) {
        err << "uke analyse: " << audio.error() << "\n";
        return 2;
    }
    const int status =
        blocksMode ? analyseBlocks(audio, format == "json", out, err) : analyseTuner(audio, args, out, err);
    // The recording is decoded as it is analysed: damage or too great a length
    // can still come to light after the first lines.
    if (!audio.error().empty()) {
        err << "uke analyse: " << audio.error() << "\n";
        return 2;
    }
    return status;
}

} // namespace uke::tool
