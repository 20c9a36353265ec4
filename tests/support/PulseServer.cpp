// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/PulseServer.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <thread>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace uke::test {
namespace {

using Clock = std::chrono::steady_clock;

std::string readFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

// Waits up to `limit` for the child to end; its wait status, or -1 if it still runs.
int waitExit(pid_t pid, std::chrono::milliseconds limit) {
    const auto deadline = Clock::now() + limit;
    int status = 0;
    while (::waitpid(pid, &status, WNOHANG) == 0) {
        if (Clock::now() > deadline)
            return -1;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return status;
}

bool pidAlive(pid_t pid) { return waitExit(pid, std::chrono::milliseconds(0)) == -1; }

void killAndReap(pid_t pid, int signal) {
    ::kill(pid, signal);
    if (waitExit(pid, std::chrono::seconds(5)) == -1) {
        ::kill(pid, SIGKILL);
        ::waitpid(pid, nullptr, 0);
    }
}

} // namespace

PulseServer::~PulseServer() { stop(); }

bool PulseServer::toolsAvailable() {
    return std::system("for p in pulseaudio pactl pacat parec; do command -v $p || exit 1; done >/dev/null") == 0;
}

bool PulseServer::failWith(const std::string& message) {
    error_ = message;
    const std::string log = serverLog();
    stop();
    if (!log.empty())
        error_ += "\n--- pulseaudio log ---\n" + log;
    return false;
}

std::vector<std::string> PulseServer::childEnvironment() const {
    // Everything a client could use to find another server or the user's files.
    const std::pair<std::string, std::string> own[] = {
        {"HOME=", folder_ + "/home"},
        {"XDG_RUNTIME_DIR=", folder_ + "/run"},
        {"XDG_CONFIG_HOME=", folder_ + "/home/.config"},
        {"PULSE_RUNTIME_PATH=", folder_ + "/run/pulse"},
        {"PULSE_STATE_PATH=", folder_ + "/state"},
        {"DBUS_SESSION_BUS_ADDRESS=", "disabled:"},
        {"PULSE_SERVER=", address_},
    };
    std::vector<std::string> env;
    for (char** e = environ; *e; ++e)
        if (std::none_of(std::begin(own), std::end(own),
                         [&](const auto& o) { return std::string_view(*e).starts_with(o.first); }))
            env.emplace_back(*e);
    for (const auto& [name, value] : own)
        env.push_back(name + value);
    return env;
}

pid_t PulseServer::spawn(const std::vector<std::string>& argv, const std::string& outputFile, int input) const {
    // Everything the child needs is prepared before fork: between fork and exec
    // only async-signal-safe calls are allowed.
    const std::vector<std::string> env = childEnvironment();
    std::vector<char*> argp, envp;
    for (const auto& a : argv)
        argp.push_back(const_cast<char*>(a.c_str()));
    argp.push_back(nullptr);
    for (const auto& e : env)
        envp.push_back(const_cast<char*>(e.c_str()));
    envp.push_back(nullptr);
    const int out = ::open(outputFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    const int devnull = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    const pid_t parent = ::getpid();
    const pid_t pid = out < 0 || devnull < 0 ? -1 : ::fork();
    if (pid == 0) {
        // A crashed test must not leave a server behind.
        ::prctl(PR_SET_PDEATHSIG, SIGTERM);
        if (::getppid() != parent)
            ::_exit(127);
        ::dup2(input >= 0 ? input : devnull, STDIN_FILENO);
        ::dup2(out, STDOUT_FILENO);
        ::dup2(out, STDERR_FILENO);
        if (::chdir(folder_.c_str()) != 0)
            ::_exit(127);
        ::execvpe(argp[0], argp.data(), envp.data());
        ::_exit(127);
    }
    ::close(out); // closing -1 is harmless
    ::close(devnull);
    return pid;
}

int PulseServer::pactl(const std::vector<std::string>& args, std::string* output) const {
    static std::atomic<int> counter = 0;
    const std::string outPath = folder_ + "/pactl-" + std::to_string(++counter) + ".out";
    std::vector<std::string> argv{"pactl"};
    argv.insert(argv.end(), args.begin(), args.end());
    const pid_t pid = spawn(argv, outPath);
    if (pid < 0)
        return -1;
    const int status = waitExit(pid, std::chrono::seconds(10));
    if (status == -1)
        killAndReap(pid, SIGKILL);
    if (output)
        *output = readFile(outPath);
    std::filesystem::remove(outPath);
    return status == -1 || !WIFEXITED(status) ? -1 : WEXITSTATUS(status);
}

bool PulseServer::start(std::chrono::milliseconds timeout) {
    if (running())
        return true;
    error_.clear();
    if (!toolsAvailable())
        return failWith("pulseaudio, pactl, pacat or parec is not installed");

    char pattern[] = "/tmp/uke-pulse-XXXXXX";
    if (!::mkdtemp(pattern))
        return failWith(std::string("cannot make a temporary folder: ") + std::strerror(errno));
    folder_ = pattern; // from here on stop() puts PULSE_SERVER back as it was
    if (const char* old = std::getenv("PULSE_SERVER"))
        savedPulseServer_ = old;
    for (const char* sub : {"/home", "/home/.config", "/run", "/state"})
        ::mkdir((folder_ + sub).c_str(), 0700);
    address_ = "unix:" + folder_ + "/native";

    // No default script (-n): only these modules, so nothing probes real hardware,
    // D-Bus or the network. ".fail" makes a module that will not load fatal. The
    // microphone is the monitor of a sink the tests play into, remapped to a source
    // of its own (loadMicrophone) so that it is an input, not a monitor.
    std::ofstream config(folder_ + "/server.pa");
    config << ".fail\nload-module module-native-protocol-unix socket=" << folder_ << "/native auth-anonymous=1\n";
    for (const char* sink : {kSpeaker, kMicrophoneFeed})
        config << "load-module module-null-sink sink_name=" << sink << " format=s16le channels=1 rate=" << kRate
               << "\n";
    config << "set-default-sink " << kSpeaker << "\n";
    config.close();

    serverPid_ = spawn({"pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--disallow-exit",
                        "--use-pid-file=no", "--enable-memfd=no", "--realtime=no", "--high-priority=no",
                        "--log-target=stderr", "-F", folder_ + "/server.pa"},
                       folder_ + "/pulseaudio.log");
    if (serverPid_ < 0)
        return failWith("cannot start pulseaudio");

    const auto deadline = Clock::now() + timeout;
    for (;;) {
        if (!pidAlive(serverPid_)) {
            serverPid_ = -1;
            return failWith("pulseaudio exited during start-up");
        }
        std::string sinks;
        if (pactl({"list", "short", "sinks"}, &sinks) == 0 && sinks.find(kMicrophoneFeed) != std::string::npos)
            break;
        if (Clock::now() > deadline)
            return failWith("pulseaudio did not answer within the time limit");
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }

    if (!loadMicrophone())
        return failWith("cannot load the microphone");
    // pacat plays the pipe into the microphone in real time, and silence while it is
    // empty. A pipe of 1 MB holds about twelve seconds: writes do not wait.
    int fds[2];
    if (::pipe2(fds, O_CLOEXEC) != 0)
        return failWith("cannot make the microphone's pipe: " + std::string(std::strerror(errno)));
    ::fcntl(fds[1], F_SETPIPE_SZ, 1 << 20);
    feed_ = fds[1];
    feederPid_ =
        spawn({"pacat", "--playback", "--raw", "--format=s16le", "--channels=1", "--rate=" + std::to_string(kRate),
               "--latency-msec=20", std::string("--device=") + kMicrophoneFeed},
              folder_ + "/pacat.log", fds[0]);
    ::close(fds[0]);
    if (feederPid_ < 0)
        return failWith("cannot start pacat");
    // A feeder that dies under a write must fail the test, not kill the program.
    std::signal(SIGPIPE, SIG_IGN);
    ::setenv("PULSE_SERVER", address_.c_str(), 1);
    return true;
}

bool PulseServer::loadMicrophone() {
    return pactl({"load-module", "module-remap-source", std::string("source_name=") + kMicrophone,
                  std::string("master=") + kMicrophoneFeed + ".monitor", "channels=1"}) == 0 &&
           pactl({"set-default-source", kMicrophone}) == 0;
}

bool PulseServer::unplugMicrophone() {
    std::string modules;
    if (pactl({"list", "short", "modules"}, &modules) != 0)
        return false;
    // "INDEX\tmodule-remap-source\t...": the one line of the microphone's module.
    const size_t at = modules.find("\tmodule-remap-source");
    const size_t line = at == std::string::npos ? at : modules.rfind('\n', at) + 1; // npos + 1 is 0
    return at != std::string::npos && pactl({"unload-module", modules.substr(line, at - line)}) == 0;
}

bool PulseServer::plugMicrophone() { return loadMicrophone(); }

void PulseServer::writeToMicrophone(const std::vector<int16_t>& samples) {
    const auto* bytes = reinterpret_cast<const char*>(samples.data());
    for (size_t left = samples.size() * sizeof(int16_t); feed_ >= 0 && left > 0;) {
        const ssize_t w = ::write(feed_, bytes, left);
        if (w < 0 && errno != EINTR)
            return; // the feeder has gone: the test sees a silent microphone
        bytes += std::max<ssize_t>(w, 0);
        left -= static_cast<size_t>(std::max<ssize_t>(w, 0));
    }
}

bool PulseServer::waitMicrophoneDrained(std::chrono::milliseconds timeout) {
    const auto deadline = Clock::now() + timeout;
    for (int queued = 1; feed_ >= 0 && ::ioctl(feed_, FIONREAD, &queued) == 0 && queued > 0;) {
        if (Clock::now() > deadline)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    // What pacat has read is played within its latency.
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    return true;
}

bool PulseServer::startRecordingSpeaker(int rate, std::chrono::milliseconds timeout) {
    if (!running())
        return false;
    stopRecording();
    recordingPath_ = folder_ + "/recording.raw";
    recorderPid_ = spawn({"parec", "--raw", "--format=s16le", "--channels=1", "--rate=" + std::to_string(rate),
                          "--latency-msec=20", "--device=" + std::string(kSpeakerMonitor)},
                         recordingPath_);
    if (recorderPid_ < 0)
        return false;
    // Nothing suspends the null sinks (no module does so), so a connected stream
    // starts writing at once.
    const auto deadline = Clock::now() + timeout;
    std::error_code ec;
    while (std::filesystem::file_size(recordingPath_, ec) == 0 || ec) {
        if (Clock::now() > deadline || !pidAlive(recorderPid_))
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

std::vector<int16_t> PulseServer::stopRecording() {
    if (recorderPid_ > 0) {
        killAndReap(recorderPid_, SIGINT);
        recorderPid_ = -1;
    }
    if (recordingPath_.empty())
        return {};
    const std::string bytes = readFile(recordingPath_);
    std::vector<int16_t> samples(bytes.size() / 2);
    std::memcpy(samples.data(), bytes.data(), samples.size() * 2);
    return samples;
}

std::string PulseServer::serverLog() const { return folder_.empty() ? "" : readFile(folder_ + "/pulseaudio.log"); }

void PulseServer::stop() {
    stopRecording();
    for (pid_t* child : {&feederPid_, &serverPid_})
        if (*child > 0) {
            killAndReap(*child, SIGTERM);
            *child = -1;
        }
    if (feed_ >= 0) {
        ::close(feed_);
        feed_ = -1;
    }
    if (!folder_.empty()) {
        if (savedPulseServer_)
            ::setenv("PULSE_SERVER", savedPulseServer_->c_str(), 1);
        else
            ::unsetenv("PULSE_SERVER");
        savedPulseServer_.reset();
        std::error_code ec;
        std::filesystem::remove_all(folder_, ec);
        folder_.clear();
    }
}

} // namespace uke::test
