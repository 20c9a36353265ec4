// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A private PulseAudio server for tests that exercise real audio paths.
//
// The server runs in its own temporary folder with one virtual microphone (the
// default source, fed by writeToMicrophone) and one virtual speaker (a null sink,
// the default sink, whose monitor can be recorded). While it runs,
// PULSE_SERVER in this process points at it, so any PulseAudio client started
// afterwards (Qt Multimedia included) talks to it and to nothing else.
//
// Qt Multimedia connects to PulseAudio once per process, so a test program should
// keep one server for all its tests: derive the test suite from PulseServerTest
// (PulseServerTest.h). The server itself needs no test framework: the whole-app
// benchmark runs on it too.
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace uke::test {

class PulseServer {
public:
    // Both ends are s16le mono at this rate; the microphone streams silence between
    // writes, as a real one would.
    static constexpr int kRate = 44100;

    static constexpr const char* kMicrophone = "uke_microphone";
    static constexpr const char* kMicrophoneFeed = "uke_microphone_feed";
    static constexpr const char* kSpeaker = "uke_speaker";
    static constexpr const char* kSpeakerMonitor = "uke_speaker.monitor";

    PulseServer() = default;
    ~PulseServer();
    PulseServer(const PulseServer&) = delete;
    PulseServer& operator=(const PulseServer&) = delete;

    // Whether the pulseaudio, pactl, pacat and parec programs are installed.
    static bool toolsAvailable();

    // Starts the server and waits until it answers. False, with error(), on failure.
    bool start(std::chrono::milliseconds timeout = std::chrono::seconds(20));
    // Kills the server (the destructor does this too) and restores PULSE_SERVER.
    void stop();
    bool running() const { return serverPid_ > 0; }
    const std::string& error() const { return error_; }
    // The server's own log, for failure messages.
    std::string serverLog() const;

    // Queues samples (at kRate, up to a few seconds) for the microphone and returns
    // at once; the server plays them in real time. As with a real microphone, what
    // is played while nothing records is lost.
    void writeToMicrophone(const std::vector<int16_t>& samples);
    // Waits until everything queued has been played.
    bool waitMicrophoneDrained(std::chrono::milliseconds timeout);

    // Takes the microphone away (its source module unloaded, as when a headset is
    // pulled out) and brings it back as the default source. What is played while it
    // is away is lost.
    bool unplugMicrophone();
    bool plugMicrophone();

    // Records the speaker's monitor (s16le mono at `rate`) with parec until
    // stopRecording(); returns once the recording stream is connected.
    bool startRecordingSpeaker(int rate = 44100, std::chrono::milliseconds timeout = std::chrono::seconds(10));
    std::vector<int16_t> stopRecording();

    // Runs pactl against this server; returns its exit status (-1 if it could not
    // run) and, if asked, what it printed.
    int pactl(const std::vector<std::string>& args, std::string* output = nullptr) const;

private:
    std::vector<std::string> childEnvironment() const;
    pid_t spawn(const std::vector<std::string>& argv, const std::string& outputFile, int input = -1) const;
    bool failWith(const std::string& message);
    bool loadMicrophone();

    std::string folder_;
    std::string address_;
    std::string error_;
    std::optional<std::string> savedPulseServer_; // PULSE_SERVER before start()
    pid_t serverPid_ = -1;
    pid_t feederPid_ = -1; // pacat, playing what the feed pipe holds into the microphone
    int feed_ = -1;        // the pipe's end this process writes

    pid_t recorderPid_ = -1;
    std::string recordingPath_;
};

} // namespace uke::test
