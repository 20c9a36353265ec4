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
#include <sstream>

#include <fcntl.h>
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
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
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
    return std::system("{ command -v pulseaudio && command -v pactl && command -v parec; } >/dev/null 2>&1") == 0;
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

pid_t PulseServer::spawn(const std::vector<std::string>& argv, const std::string& outputFile) const {
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
        ::dup2(devnull, STDIN_FILENO);
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
        return failWith("pulseaudio, pactl or parec is not installed");

    char pattern[] = "/tmp/uke-pulse-XXXXXX";
    if (!::mkdtemp(pattern))
        return failWith(std::string("cannot make a temporary folder: ") + std::strerror(errno));
    folder_ = pattern; // from here on stop() puts PULSE_SERVER back as it was
    if (const char* old = std::getenv("PULSE_SERVER"))
        savedPulseServer_ = old;
    for (const char* sub : {"/home", "/home/.config", "/run", "/state"})
        ::mkdir((folder_ + sub).c_str(), 0700);
    address_ = "unix:" + folder_ + "/native";
    fifoPath_ = folder_ + "/microphone.fifo";

    // No default script (-n): only these modules, so nothing probes real hardware,
    // D-Bus or the network. ".fail" makes a module that will not load fatal.
    std::ofstream config(folder_ + "/server.pa");
    config << ".fail\n"
           << "load-module module-native-protocol-unix socket=" << folder_ << "/native auth-anonymous=1\n"
           << "load-module module-null-sink sink_name=" << kSpeaker << " format=s16le channels=1 rate=" << kRate << "\n"
           << "load-module module-pipe-source source_name=" << kMicrophone << " file=" << fifoPath_
           << " format=s16le channels=1 rate=" << kRate << "\n"
           << "set-default-sink " << kSpeaker << "\n"
           << "set-default-source " << kMicrophone << "\n";
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
        std::string sources;
        if (pactl({"list", "short", "sources"}, &sources) == 0 && sources.find(kMicrophone) != std::string::npos)
            break;
        if (Clock::now() > deadline)
            return failWith("pulseaudio did not answer within the time limit");
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }

    if (!openMicrophonePipe())
        return failWith("cannot open the microphone pipe: " + std::string(std::strerror(errno)));
    // A server that dies under a write must fail the test, not kill the program.
    std::signal(SIGPIPE, SIG_IGN);

    ::setenv("PULSE_SERVER", address_.c_str(), 1);

    stopping_ = false;
    writer_ = std::thread([this] { writerLoop(); });
    return true;
}

bool PulseServer::openMicrophonePipe() {
    // The server holds the FIFO open for reading, so this open does not block.
    const int fd = ::open(fifoPath_.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0)
        return false;
    // The pipe source stops reading while nothing records, and a real microphone
    // does not store sound for later: the writer never blocks, a full pipe drops
    // the slice, and a small pipe keeps what is replayed to the next recording
    // short (about 0.2 s at 44100 Hz).
    ::fcntl(fd, F_SETPIPE_SZ, 16384);
    std::lock_guard lock(mutex_);
    fifo_ = fd;
    return true;
}

bool PulseServer::unplugMicrophone() {
    std::string modules;
    if (pactl({"list", "short", "modules"}, &modules) != 0)
        return false;
    std::istringstream lines(modules);
    std::string line, index;
    while (std::getline(lines, line))
        if (line.find("module-pipe-source") != std::string::npos)
            index = line.substr(0, line.find('\t'));
    if (index.empty() || pactl({"unload-module", index}) != 0)
        return false;
    std::lock_guard lock(mutex_);
    ::close(fifo_);
    fifo_ = -1;
    return true;
}

bool PulseServer::plugMicrophone() {
    return pactl({"load-module", "module-pipe-source", std::string("source_name=") + kMicrophone, "file=" + fifoPath_,
                  "format=s16le", "channels=1", "rate=" + std::to_string(kRate)}) == 0 &&
           pactl({"set-default-source", kMicrophone}) == 0 && openMicrophonePipe();
}

void PulseServer::writerLoop() {
    // Real time in 10 ms slices, like a sound card: the pipe source itself would
    // take a whole recording at once.
    const size_t slice = static_cast<size_t>(kRate / 100);
    std::vector<int16_t> chunk;
    auto next = Clock::now();
    for (;;) {
        {
            std::unique_lock lock(mutex_);
            if (stopping_)
                return;
            const size_t n = std::min(slice, pending_.size());
            chunk.assign(pending_.begin(), pending_.begin() + static_cast<std::ptrdiff_t>(n));
            pending_.erase(pending_.begin(), pending_.begin() + static_cast<std::ptrdiff_t>(n));
            chunk.resize(slice, 0);
            if (pending_.empty())
                changed_.notify_all();
            // A slice is smaller than PIPE_BUF, so it goes in whole or not at all.
            // Written under the lock, so that an unplugged microphone's pipe is not
            // closed under the write; a pipe with no server behind it takes nothing.
            if (fifo_ >= 0) {
                ssize_t w = 0;
                do {
                    w = ::write(fifo_, chunk.data(), chunk.size() * sizeof(int16_t));
                } while (w < 0 && errno == EINTR);
            }
        }
        next += std::chrono::milliseconds(10);
        const auto now = Clock::now();
        if (next < now - std::chrono::milliseconds(200))
            next = now; // fell far behind (a stopped debugger): do not burst to catch up
        std::this_thread::sleep_until(next);
    }
}

void PulseServer::writeToMicrophone(const std::vector<int16_t>& samples, int rate) {
    EXPECT_EQ(rate, kRate) << "the microphone takes samples at its own rate only";
    std::lock_guard lock(mutex_);
    pending_.insert(pending_.end(), samples.begin(), samples.end());
    changed_.notify_all();
}

bool PulseServer::waitMicrophoneDrained(std::chrono::milliseconds timeout) {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, timeout, [this] { return pending_.empty() || stopping_; });
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
    // Both sources stream all the time (the null sink never suspends, the
    // microphone gets silence between writes), so a connected stream starts
    // writing at once.
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
    {
        std::lock_guard lock(mutex_);
        stopping_ = true;
        changed_.notify_all();
    }
    if (serverPid_ > 0) {
        // Killing the server first unblocks a writer stuck on a full pipe.
        killAndReap(serverPid_, SIGTERM);
        serverPid_ = -1;
    }
    if (writer_.joinable())
        writer_.join();
    if (fifo_ >= 0) {
        ::close(fifo_);
        fifo_ = -1;
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

PulseServer& PulseServerTest::pulse() {
    static PulseServer server;
    return server;
}

void PulseServerTest::SetUp() {
    if (!PulseServer::toolsAvailable())
        GTEST_SKIP() << "PulseAudio is not installed (pulseaudio, pactl and parec are needed)";
    if (!pulse().running()) {
        ASSERT_TRUE(pulse().start()) << "cannot start a private PulseAudio server: " << pulse().error();
    }
}

} // namespace uke::test
