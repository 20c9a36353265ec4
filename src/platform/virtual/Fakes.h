// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Deterministic stand-ins for the platform, for tests and the command-line tool.
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "platform/AlertPresenter.h"
#include "platform/AudioCapture.h"
#include "platform/AudioOutput.h"
#include "platform/DeviceInfo.h"
#include "platform/IdleTimer.h"
#include "platform/Log.h"
#include "platform/ManualAudioCapture.h"
#include "platform/NetworkProbe.h"
#include "platform/SoundPlayer.h"
#include "platform/StoreReview.h"
#include "platform/StringTable.h"
#include "platform/UrlOpener.h"

namespace uke {

class RecordingLog : public Log {
public:
    void log(const std::string& line) override {
        std::lock_guard lock(mutex_);
        lines.push_back(line);
    }
    size_t count(const std::string& line) const;
    bool contains(const std::string& line) const { return count(line) > 0; }
    std::vector<std::string> lines;

private:
    mutable std::mutex mutex_;
};

// Strings by (table, key).
class MapStringTable : public StringTable {
public:
    std::optional<std::string> lookup(const std::string& key, const std::string& table) const override;
    void set(const std::string& key, const std::string& text, const std::string& table = "Localizable") {
        entries[table][key] = text;
    }
    std::map<std::string, std::map<std::string, std::string>> entries;
};

class FixedDeviceInfo : public DeviceInfo {
public:
    FixedDeviceInfo(Idiom idiom = Idiom::Phone, double height = 844.0, std::string version = "17.0")
        : idiomValue(idiom), height(height), version(std::move(version)) {}
    Idiom idiom() const override { return idiomValue; }
    double screenHeight() const override { return height; }
    std::string systemVersion() const override { return version; }
    Idiom idiomValue;
    double height;
    std::string version;
};

// The hand-driven queue, with a device that can be missing and a count of starts.
class FakeAudioCapture : public ManualAudioCapture {
public:
    bool newInput(const Format& format, Callback callback) override {
        return !failToOpen && ManualAudioCapture::newInput(format, callback);
    }
    void start() override {
        ManualAudioCapture::start();
        ++startCount;
    }

    bool failToOpen = false;
    int startCount = 0;
};

class RecordingAudioOutput : public AudioOutput {
public:
    void setup(RenderCallback render) override { this->render = std::move(render); ++setupCount; }
    void start() override { ++startCount; playing = static_cast<bool>(render); }
    void stop() override { ++stopCount; playing = false; }
    // Pulls `frames` frames from the callback, as the audio thread would.
    std::vector<int16_t> pull(uint32_t frames);
    RenderCallback render;
    int setupCount = 0, startCount = 0, stopCount = 0;
    bool playing = false;
};

// Records which files were played; files named in `missing` give no player.
class RecordingSoundPlayerFactory : public SoundPlayerFactory {
public:
    std::shared_ptr<SoundPlayer> playerForFile(const std::string& path) override;
    std::vector<std::string> made;    // every path a player was made for
    std::vector<std::string> played;  // every path whose player was played
    std::vector<std::string> missing;
};

class FakeIdleTimer : public IdleTimer {
public:
    void setIdleTimerDisabled(bool d) override { disabled = d; }
    bool disabled = false;
};

class RecordingUrlOpener : public UrlOpener {
public:
    void openUrl(const std::string& url) override { opened.push_back(url); }
    std::vector<std::string> opened;
};

class FakeNetworkProbe : public NetworkProbe {
public:
    std::optional<Flags> reachabilityFlags() override { return flags; }
    bool startFetch(const std::string& url, double timeoutSeconds) override {
        fetched.push_back(url);
        lastTimeout = timeoutSeconds;
        return !suspended;
    }
    std::optional<Flags> flags = Flags{true, false, false};
    bool suspended = false;
    std::vector<std::string> fetched;
    double lastTimeout = 0.0;
};

class FakeStoreReview : public StoreReview {
public:
    bool reviewRequestAvailable() const override { return hasReviewRequest; }
    void requestReview() override { ++reviewRequests; }
    bool storeSheetAvailable() const override { return hasStoreSheet; }
    void presentStoreSheet(const std::string& appId) override { sheetsFor.push_back(appId); }
    bool hasReviewRequest = false;
    bool hasStoreSheet = false;
    int reviewRequests = 0;
    std::vector<std::string> sheetsFor;
};

class RecordingAlertPresenter : public AlertPresenter {
public:
    void present(const std::string& title, const std::string& message,
                 const std::vector<std::string>& buttons, Handler handler) override;
    void dismiss() override { visible = false; ++dismissCount; }
    // Presses button `index` of the visible alert.
    void press(int index);
    bool visible = false;
    int presentCount = 0, dismissCount = 0;
    std::string title, message;
    std::vector<std::string> buttons;

private:
    Handler handler_;
};

} // namespace uke
