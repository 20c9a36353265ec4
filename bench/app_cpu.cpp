// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// What the running app costs while a player tunes, against what listening alone
// costs: the app and a bare `parecord` of the same microphone, one after the other,
// each pinned to CPU 0 while a plucked A4 plays into the project's private
// PulseAudio microphone in real time (the end-to-end tests' server).
//
// usage: app_cpu APP [--show chords|settings|about|fork]...   (run under a display,
// see bench/app-cpu.sh). Prints the CPU share of each, their ratio, the app's RSS and
// PSS, and its start-up time to the first drawn frame.
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <numeric>
#include <optional>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <csignal>
#include <dirent.h>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "ProcFiles.h"
#include "support/PulseServer.h"
#include "support/SyntheticPluck.h"

namespace {

using Clock = std::chrono::steady_clock;
using uke::test::PulseServer;

constexpr double kWarmUpSeconds = 5.0;
constexpr int kWindows = 5;
constexpr double kWindowSeconds = 6.0;

std::string readFile(const std::string& path) {
    std::ifstream in(path);
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
}

// The fields of /proc/PID/stat from the third (the state) on: the command name
// before them may hold spaces.
std::vector<std::string> statFields(pid_t pid) {
    const std::string stat = readFile("/proc/" + std::to_string(pid) + "/stat");
    const auto close = stat.rfind(')');
    std::vector<std::string> fields;
    if (close == std::string::npos)
        return fields;
    std::istringstream in(stat.substr(close + 2));
    for (std::string f; in >> f;)
        fields.push_back(f);
    return fields;
}

// Clock ticks of user and system time of one process (all its threads):
// fields 14 and 15.
long long cpuTicks(pid_t pid) {
    const auto f = statFields(pid);
    return f.size() > 12 ? std::stoll(f[11]) + std::stoll(f[12]) : 0;
}

// Field 4.
pid_t parentOf(pid_t pid) {
    const auto f = statFields(pid);
    return f.size() > 1 ? static_cast<pid_t>(std::stol(f[1])) : 0;
}

// The process and everything it started.
std::vector<pid_t> tree(pid_t root) {
    std::vector<pid_t> all{root};
    std::vector<pid_t> everyone;
    if (DIR* d = opendir("/proc")) {
        while (dirent* e = readdir(d))
            if (const pid_t p = static_cast<pid_t>(std::atoi(e->d_name)); p > 0)
                everyone.push_back(p);
        closedir(d);
    }
    for (size_t i = 0; i < all.size(); ++i)
        for (pid_t p : everyone)
            if (parentOf(p) == all[i])
                all.push_back(p);
    return all;
}

long long treeTicks(pid_t root) {
    long long sum = 0;
    for (pid_t p : tree(root))
        sum += cpuTicks(p);
    return sum;
}

// Nanoseconds on a CPU of every thread of the tree, from the scheduler's own
// account: the same time as the ticks above at a resolution that tells 1.0 %
// from 1.2 % in a 6 s window.
long long treeRunNanoseconds(pid_t root) {
    long long sum = 0;
    for (pid_t p : tree(root)) {
        const std::string tasks = "/proc/" + std::to_string(p) + "/task";
        DIR* d = opendir(tasks.c_str());
        if (!d)
            continue;
        while (dirent* e = readdir(d))
            if (e->d_name[0] != '.')
                sum += std::atoll(readFile(tasks + "/" + e->d_name + "/schedstat").c_str());
        closedir(d);
    }
    return sum;
}

// Kilobytes of one "Name:" line of /proc/PID/smaps_rollup.
long rollupKb(pid_t pid, const char* name) {
    return uke::bench::kilobytesIn("/proc/" + std::to_string(pid) + "/smaps_rollup", name);
}

// A child pinned to CPU 0 whose error stream is read line by line.
class Pinned {
public:
    explicit Pinned(std::vector<std::string> argv) {
        argv.insert(argv.begin(), {"taskset", "-c", "0"});
        int pipeFds[2];
        if (::pipe2(pipeFds, O_CLOEXEC) != 0)
            return;
        started_ = Clock::now();
        pid_ = ::fork();
        if (pid_ == 0) {
            ::dup2(pipeFds[1], 2);
            const int devNull = ::open("/dev/null", O_WRONLY);
            ::dup2(devNull, 1);
            std::vector<char*> args;
            for (auto& a : argv)
                args.push_back(a.data());
            args.push_back(nullptr);
            ::execvp(args[0], args.data());
            _exit(127);
        }
        ::close(pipeFds[1]);
        reader_ = std::thread([this, fd = pipeFds[0]] { readLines(fd); });
    }
    ~Pinned() {
        if (pid_ > 0) {
            ::kill(pid_, SIGTERM);
            ::waitpid(pid_, nullptr, 0);
        }
        if (reader_.joinable())
            reader_.join();
    }
    pid_t pid() const { return pid_; }
    // Waits up to `seconds` for the child to end by itself; true when it did.
    bool waitForExit(double seconds) {
        const auto deadline = Clock::now() + std::chrono::duration<double>(seconds);
        while (Clock::now() < deadline) {
            if (::waitpid(pid_, nullptr, WNOHANG) == pid_) {
                pid_ = -1;
                if (reader_.joinable())
                    reader_.join();
                return true;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
        return false;
    }
    bool alive() const { return pid_ > 0 && ::waitpid(pid_, nullptr, WNOHANG) == 0; }
    // Seconds from the start to the line that contains `text`, if it came.
    std::optional<double> lineAt(const char* text) const {
        std::lock_guard lock(mutex_);
        for (const auto& [line, at] : lines_)
            if (line.find(text) != std::string::npos)
                return at;
        return std::nullopt;
    }
    std::string output() const {
        std::lock_guard lock(mutex_);
        std::string all;
        for (const auto& l : lines_)
            all += "  " + l.first + "\n";
        return all;
    }

private:
    void readLines(int fd) {
        std::string pending;
        char buffer[512];
        for (ssize_t n; (n = ::read(fd, buffer, sizeof buffer)) > 0;) {
            pending.append(buffer, static_cast<size_t>(n));
            for (size_t nl; (nl = pending.find('\n')) != std::string::npos; pending.erase(0, nl + 1)) {
                const double at = std::chrono::duration<double>(Clock::now() - started_).count();
                std::lock_guard lock(mutex_);
                lines_.emplace_back(pending.substr(0, nl), at);
            }
        }
        ::close(fd);
    }

    pid_t pid_ = -1;
    Clock::time_point started_;
    std::thread reader_;
    mutable std::mutex mutex_;
    std::vector<std::pair<std::string, double>> lines_;
};

struct Measurement {
    std::vector<double> windows; // share of one core in each window, in per cent: (utime + stime) / wall
    std::vector<double> precise; // the same from the scheduler's nanoseconds
    static double mean(const std::vector<double>& v) {
        return v.empty() ? 0.0 : std::accumulate(v.begin(), v.end(), 0.0) / static_cast<double>(v.size());
    }
    double mean() const { return mean(windows); }
    double preciseMean() const { return mean(precise); }
};

// Waits the warm-up, then measures the process tree's CPU share over the windows.
std::optional<Measurement> measure(Pinned& process) {
    std::this_thread::sleep_for(std::chrono::duration<double>(kWarmUpSeconds));
    const double tick = static_cast<double>(::sysconf(_SC_CLK_TCK));
    Measurement m;
    for (int w = 0; w < kWindows; ++w) {
        if (!process.alive())
            return std::nullopt;
        const long long before = treeTicks(process.pid());
        const long long ranBefore = treeRunNanoseconds(process.pid());
        const auto start = Clock::now();
        std::this_thread::sleep_for(std::chrono::duration<double>(kWindowSeconds));
        const long long after = treeTicks(process.pid());
        const long long ranAfter = treeRunNanoseconds(process.pid());
        const double wall = std::chrono::duration<double>(Clock::now() - start).count();
        m.windows.push_back(100.0 * static_cast<double>(after - before) / tick / wall);
        m.precise.push_back(100.0 * static_cast<double>(ranAfter - ranBefore) / 1e9 / wall);
    }
    return m;
}

std::string describe(const Measurement& m) {
    char line[256];
    std::string windows;
    for (double w : m.windows) {
        std::snprintf(line, sizeof line, " %.2f", w);
        windows += line;
    }
    std::snprintf(line, sizeof line, "%6.2f %% of a core (windows:%s; scheduler %.2f %%)", m.mean(), windows.c_str(),
                  m.preciseMean());
    return line;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: app_cpu APP [--show SCREEN]...\n");
        return 2;
    }
    std::setvbuf(stdout, nullptr, _IOLBF, 0); // a line as soon as it is measured
    const std::string app = argv[1];
    std::vector<std::string> screens{""};
    for (int i = 2; i + 1 < argc; i += 2)
        if (std::strcmp(argv[i], "--show") == 0)
            screens.push_back(argv[i + 1]);

    PulseServer pulse;
    if (!pulse.start()) {
        std::fprintf(stderr, "app_cpu: %s\n", pulse.error().c_str());
        return 1;
    }
    // A player plucking A4 every two seconds.
    std::atomic<bool> playing{true};
    std::thread player([&] {
        const auto pluck = uke::test::syntheticPluck(440.0, PulseServer::kRate, 2 * PulseServer::kRate);
        while (playing) {
            pulse.writeToMicrophone(pluck);
            pulse.waitMicrophoneDrained(std::chrono::seconds(5));
        }
    });
    const auto stopPlaying = [&] {
        playing = false;
        if (player.joinable())
            player.join();
    };

    char folder[] = "/tmp/uke-app-cpu-XXXXXX";
    if (!::mkdtemp(folder)) {
        stopPlaying();
        return 1;
    }
    // The app ends by itself just after the last window, to report its frames.
    const double total = kWarmUpSeconds + kWindows * kWindowSeconds + 1.0;

    std::optional<Measurement> bare;
    {
        Pinned parecord({"parecord", "--raw", "--format=s16le", "--channels=1", "--rate=14039",
                         "--device=" + std::string(PulseServer::kMicrophone)});
        bare = measure(parecord);
        if (!bare)
            std::fprintf(stderr, "app_cpu: parecord stopped early:\n%s", parecord.output().c_str());
    }
    int status = bare ? 0 : 1;
    if (bare)
        std::printf("%-28s %s\n", "bare parecord", describe(*bare).c_str());

    for (const std::string& screen : screens) {
        std::vector<std::string> argv{app,     "--quiet", "--stats", "--settings", std::string(folder) + "/settings.ini",
                                      "--run-for", std::to_string(total)};
        if (!screen.empty())
            argv.insert(argv.end(), {"--show", screen});
        Pinned running(argv);
        const auto m = measure(running);
        const std::string name = "app, " + (screen.empty() ? std::string("tuning") : screen + " open");
        if (!m) {
            std::fprintf(stderr, "app_cpu: the app stopped early:\n%s", running.output().c_str());
            status = 1;
            continue;
        }
        std::printf("%-28s %s\n", name.c_str(), describe(*m).c_str());
        if (bare && bare->mean() > 0.0)
            std::printf("%-28s %6.2f x bare parecord (scheduler %.2f x; target at most 1.5, aim 1.2)\n", "",
                        m->mean() / bare->mean(), m->preciseMean() / bare->preciseMean());
        if (screen.empty()) {
            std::printf("%-28s RSS %.1f MB, PSS %.1f MB (target RSS at most 60 MB)\n", "",
                        rollupKb(running.pid(), "Rss:") / 1024.0, rollupKb(running.pid(), "Pss:") / 1024.0);
            if (const auto first = running.lineAt("first frame"))
                std::printf("%-28s start-up to the first frame %.3f s (target at most 0.5 s)\n", "", *first);
            else
                std::printf("%-28s no frame was reported\n", "");
        }
        if (running.waitForExit(10.0)) {
            const std::string out = running.output();
            const auto at = out.find("frames in");
            if (at != std::string::npos) {
                const auto start = out.rfind(':', at) + 2;
                std::printf("%-28s %s drawn\n", "", out.substr(start, out.find('\n', at) - start).c_str());
            }
        }
    }
    stopPlaying();
    std::filesystem::remove_all(folder);
    return status;
}
