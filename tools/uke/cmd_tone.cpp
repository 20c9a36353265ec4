// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include <sndfile.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <vector>

#include "Args.h"
#include "Commands.h"
#include "base/StringTargetTable.h"
#include "base/TuningCatalogue.h"
#include "sounds/ToneGenerator.h"

#ifdef UKE_HAVE_QT
#include <QAudioDevice>
#include <QCoreApplication>
#include <QEventLoop>
#include <QMediaDevices>
#include <QTimer>

#include "platform/qt/QtPorts.h"
#endif

namespace uke::tool {

namespace {

struct SndfileCloser {
    void operator()(SNDFILE* f) const { sf_close(f); }
};

int fail(std::ostream& err, const std::string& why) {
    err << "uke tone: " << why << "\n";
    return 2;
}

// What to render: a fresh synthesis state at one pitch and waveform.
struct ToneRequest {
    float hz = 0.0f;
    int64_t wave = 1;
    long frames = 0;
};

int writeWav(const ToneRequest& req, const std::string& path, std::ostream& err) {
    SF_INFO info{};
    info.samplerate = static_cast<int>(ToneGenerator::kSampleRate);
    info.channels = 2;
    info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    namespace fs = std::filesystem;
    std::error_code ec;
    if (fs::is_directory(path, ec))
        return fail(err, "'" + path + "' is a directory, not a file to write");
    if (const fs::path folder = fs::path(path).parent_path(); !folder.empty() && !fs::is_directory(folder, ec))
        return fail(err, "cannot write '" + path + "': the folder '" + folder.string() + "' does not exist");
    std::unique_ptr<SNDFILE, SndfileCloser> file(sf_open(path.c_str(), SFM_WRITE, &info));
    if (!file)
        return fail(err, "cannot write '" + path + "': " + std::strerror(errno));

    ToneGenerator tone;
    tone.toneFrequency = req.hz;
    const std::atomic<int64_t> curTone{req.wave};
    // Blocks of the size an audio device typically pulls; the output does not depend on it.
    constexpr long kBlock = 512;
    std::vector<int16_t> buffer(static_cast<size_t>(kBlock) * 2);
    for (long done = 0; done < req.frames;) {
        const long n = std::min(kBlock, req.frames - done);
        tone.render(buffer.data(), static_cast<uint32_t>(n), curTone);
        if (sf_writef_short(file.get(), buffer.data(), n) != n)
            return fail(err, "writing '" + path + "' failed: " + sf_strerror(file.get()));
        done += n;
    }
    if (sf_close(file.release()) != 0)
        return fail(err, "writing '" + path + "' failed");
    return 0;
}

int play(const ToneRequest& req, std::ostream& err) {
#ifndef UKE_HAVE_QT
    (void)req;
    return fail(err, "--play needs the Qt build (this one has no speaker); use --out FILE.wav");
#else
    static int argc = 1;
    static char name[] = "uke";
    static char* argv[] = {name, nullptr};
    std::unique_ptr<QCoreApplication> ownApp;
    if (!QCoreApplication::instance())
        ownApp = std::make_unique<QCoreApplication>(argc, argv);
    if (QMediaDevices::defaultAudioOutput().isNull())
        return fail(err, "no speaker found (no audio output device is available)");

    // The app's own stream and render step; the clock, not a frame count, ends it.
    ToneGenerator tone;
    tone.toneFrequency = req.hz;
    const std::atomic<int64_t> curTone{req.wave};
    auto output = makeQtAudioOutput();
    output->setup([&](int16_t* out, uint32_t frames) { tone.render(out, frames, curTone); });
    output->start();
    QEventLoop loop;
    QTimer::singleShot(static_cast<int>(std::lround(static_cast<double>(req.frames) * 1000.0 / 44100.0)), &loop,
                       &QEventLoop::quit);
    loop.exec();
    output->stop();
    return 0;
#endif
}

} // namespace

int cmdTone(const Words& words, std::ostream& out, std::ostream& err) {
    Args args({"tuning", "string", "a4", "freq", "wave", "seconds", "frames", "out"}, {"play"});
    long tuning = 0, string = 0, frames = 0;
    double a4 = 440.0, freq = 0.0, seconds = 1.0;
    std::string wave = "triangle";
    if (!args.parse(words) || !args.integer("tuning", TuningCatalogue::kFirst, TuningCatalogue::kLast, tuning) ||
        !args.integer("string", 1, 4, string) || !args.number("a4", 1.0, 10000.0, a4) ||
        !args.number("freq", 0.0, 22050.0, freq) || !args.number("seconds", 0.0, 3600.0, seconds) ||
        !args.integer("frames", 1, 44100L * 3600, frames) ||
        !args.choice("wave", {"sine", "triangle", "sawtooth", "square"}, wave) || !args.positionalAtMost(0))
        return fail(err, args.error());
    if (args.has("freq") == (args.has("tuning") || args.has("string")))
        return fail(err, "give either --tuning N --string S or --freq HZ");
    if (args.has("tuning") != args.has("string"))
        return fail(err, "--tuning and --string go together");
    if (args.has("a4") && args.has("freq"))
        return fail(err, "--a4 applies to --tuning, not to --freq");
    if (args.has("seconds") && args.has("frames"))
        return fail(err, "give --seconds or --frames, not both");
    const auto path = args.value("out");
    if (!path == !args.has("play"))
        return fail(err, "give --out FILE.wav or --play");

    ToneRequest req;
    std::string note;
    req.hz = static_cast<float>(freq);
    if (args.has("tuning")) {
        // The pitch a press of the string's button plays in the app.
        StringTargetTable targets;
        targets.recompute(a4);
        const Pitch pitch = TuningCatalogue::tuning(tuning).strings[static_cast<size_t>(string - 1)];
        note = std::string(pitchName(pitch)) + " ";
        req.hz = static_cast<float>(targets[pitch].target);
    }
    req.wave = wave == "triangle" ? 1 : wave == "sawtooth" ? 2 : wave == "square" ? 3 : 0;
    req.frames = args.has("frames") ? frames : std::lround(seconds * ToneGenerator::kSampleRate);
    if (req.frames < 1)
        return fail(err, "--seconds must give at least one frame");

    if (const int status = path ? writeWav(req, *path, err) : play(req, err); status != 0)
        return status;
    char line[200];
    std::snprintf(line, sizeof line, "%s%.4f Hz %s, %ld frames (%.3f s) at 44100 Hz -> ", note.c_str(),
                  static_cast<double>(req.hz), wave.c_str(), req.frames, static_cast<double>(req.frames) / 44100.0);
    out << line << (path ? *path : std::string("speaker")) << "\n";
    return 0;
}

} // namespace uke::tool
