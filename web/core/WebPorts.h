// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <emscripten/val.h>

#include <map>
#include <memory>
#include <string>

#include "platform/ManualAudioCapture.h"
#include "platform/Services.h"
#include "platform/VirtualRunLoop.h"

namespace uke::web {

// The ports of the browser build. Each hands its work to the page's JavaScript
// through one object, the host (web/src/host.js says what it holds); none keeps a
// rule of its own.

class HostLog : public Log {
public:
    explicit HostLog(emscripten::val host) : host_(std::move(host)) {}
    void log(const std::string& line) override;

private:
    emscripten::val host_;
};

// Raw values live in the page's store (localStorage); the typed accessors of the
// base class read them as on every other platform.
class HostSettingsStore : public SettingsStore {
public:
    explicit HostSettingsStore(emscripten::val store) : store_(std::move(store)) {}
    std::optional<SettingValue> value(const std::string& key) const override;
    void setValue(const std::string& key, const SettingValue& value) override;
    void wipeDomain() override;
    void synchronize() override;
    std::vector<std::string> keys() const override;

private:
    emscripten::val store_;
};

class HostStringTable : public StringTable {
public:
    explicit HostStringTable(emscripten::val host) : host_(std::move(host)) {}
    std::optional<std::string> lookup(const std::string& key, const std::string& table) const override;

private:
    emscripten::val host_;
};

// The page's screen as a device class. A screen of a class's exact height is that
// class; any other (most phones that are not iPhones) is shown as the nearest
// class of its idiom, with that class's highlight and neck pictures, as the
// desktop window shows the class it is told to be. Decided once: a page that
// rotates or resizes keeps its class and is only fitted anew.
class HostDeviceInfo : public DeviceInfo {
public:
    explicit HostDeviceInfo(const emscripten::val& device);
    Idiom idiom() const override { return idiom_; }
    double screenHeight() const override { return height_; }
    std::string systemVersion() const override { return systemVersion_; }
    // The screen's own height, where it differs from the class shown.
    double measuredHeight() const { return measured_; }

private:
    Idiom idiom_;
    double measured_;
    double height_;
    std::string systemVersion_;
};

// The page's worklet delivers the blocks by hand, so the queue's buffers circulate
// exactly as the hand-driven queue's do; starting and stopping are passed on to the
// page, which opens the microphone at the player's first touch and says here when it
// cannot (refused, or none there).
class HostAudioCapture : public ManualAudioCapture {
public:
    explicit HostAudioCapture(emscripten::val capture) : capture_(std::move(capture)) {}
    void start() override;
    void stop() override;
    void dispose() override;
    void failed(const std::string& reason);

private:
    emscripten::val capture_;
};

// The page's worklet asks for frames; render() pulls them from the core's render step.
class HostAudioOutput : public AudioOutput {
public:
    explicit HostAudioOutput(emscripten::val output) : output_(std::move(output)) {}
    void setup(RenderCallback render) override;
    void start() override;
    void stop() override;
    // Fills `frames` stereo frames, silence when nothing is set up or playing.
    const int16_t* render(uint32_t frames);

private:
    emscripten::val output_;
    RenderCallback render_;
    bool playing_ = false;
    std::vector<int16_t> frames_;
};

class HostSoundPlayerFactory : public SoundPlayerFactory {
public:
    explicit HostSoundPlayerFactory(emscripten::val sounds) : sounds_(std::move(sounds)) {}
    std::shared_ptr<SoundPlayer> playerForFile(const std::string& path) override;

private:
    emscripten::val sounds_;
    int nextId_ = 1;
};

class HostUrlOpener : public UrlOpener {
public:
    explicit HostUrlOpener(emscripten::val host) : host_(std::move(host)) {}
    void openUrl(const std::string& url) override;

private:
    emscripten::val host_;
};

class HostNetworkProbe : public NetworkProbe {
public:
    explicit HostNetworkProbe(emscripten::val host) : host_(std::move(host)) {}
    std::optional<Flags> reachabilityFlags() override;
    bool startFetch(const std::string& url, double timeoutSeconds) override;

private:
    emscripten::val host_;
};

class HostAlertPresenter : public AlertPresenter {
public:
    explicit HostAlertPresenter(emscripten::val alert) : alert_(std::move(alert)) {}
    void present(const std::string& title, const std::string& message, const std::vector<std::string>& buttons,
                 Handler handler) override;
    void dismiss() override;
    // The player chose button `index` of the alert on show.
    void chosen(int index);

private:
    emscripten::val alert_;
    Handler handler_;
};

class HostIdleTimer : public IdleTimer {
public:
    explicit HostIdleTimer(emscripten::val host) : host_(std::move(host)) {}
    void setIdleTimerDisabled(bool disabled) override;

private:
    emscripten::val host_;
};

// One of every port over one host object.
struct WebPorts {
    explicit WebPorts(const emscripten::val& host);
    Services services();

    VirtualRunLoop runLoop;
    HostSettingsStore settings;
    HostStringTable strings;
    HostLog log;
    HostDeviceInfo device;
    HostAudioCapture capture;
    HostAudioOutput output;
    HostSoundPlayerFactory sounds;
    HostUrlOpener urls;
    HostNetworkProbe network;
    NoStoreReview storeReview; // a browser has neither a review request nor a store sheet
    HostAlertPresenter alerts;
    HostIdleTimer idleTimer;
    std::string resourcePath;
};

} // namespace uke::web
