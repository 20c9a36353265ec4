// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "WebPorts.h"

#include <cmath>

#include "base/LayoutClass.h"

using emscripten::val;

namespace uke::web {

void HostLog::log(const std::string& line) { host_.call<void>("log", line); }

// Values cross as [tag, value]: the page's store keeps the type, which a plain
// JavaScript number would lose between an integer and a number with a point.
std::optional<SettingValue> HostSettingsStore::value(const std::string& key) const {
    const val v = store_.call<val>("value", key);
    if (v.isNull() || v.isUndefined())
        return std::nullopt;
    const std::string tag = v[0].as<std::string>();
    const val x = v[1];
    if (tag == "b")
        return SettingValue{x.as<bool>()};
    // The store only ever writes whole numbers here, but a hand-edited one must
    // not be converted out of range.
    if (tag == "i")
        return SettingValue{wholeNumber(x.as<double>())};
    if (tag == "d")
        return SettingValue{x.as<double>()};
    return SettingValue{x.as<std::string>()};
}

void HostSettingsStore::setValue(const std::string& key, const SettingValue& value) {
    struct Tagged {
        const emscripten::val& store;
        const std::string& key;
        void operator()(bool b) const { store.call<void>("setValue", key, std::string("b"), b); }
        void operator()(long i) const { store.call<void>("setValue", key, std::string("i"), static_cast<double>(i)); }
        void operator()(double d) const { store.call<void>("setValue", key, std::string("d"), d); }
        void operator()(const std::string& s) const { store.call<void>("setValue", key, std::string("s"), s); }
    };
    std::visit(Tagged{store_, key}, value);
}

void HostSettingsStore::wipeDomain() { store_.call<void>("wipe"); }

void HostSettingsStore::synchronize() { store_.call<void>("synchronize"); }

std::vector<std::string> HostSettingsStore::keys() const {
    return emscripten::vecFromJSArray<std::string>(store_.call<val>("keys"));
}

std::optional<std::string> HostStringTable::lookup(const std::string& key, const std::string& table) const {
    const val v = host_.call<val>("lookup", key, table);
    if (!v.isString())
        return std::nullopt;
    return v.as<std::string>();
}

namespace {
Idiom idiomNamed(const std::string& name) {
    return name == "pad" ? Idiom::Pad : name == "phone" ? Idiom::Phone : Idiom::Other;
}
} // namespace

HostDeviceInfo::HostDeviceInfo(const val& device)
    : idiom_(idiomNamed(device["idiom"].as<std::string>())), measured_(device["height"].as<double>()),
      height_(idiom_ == Idiom::Other || !std::isfinite(measured_) ? measured_
                                                                  : nearestLayoutClass({idiom_, measured_}).height),
      systemVersion_(device["systemVersion"].as<std::string>()) {}

void HostAudioCapture::start() {
    ManualAudioCapture::start();
    if (running)
        capture_.call<void>("start");
}

void HostAudioCapture::stop() {
    ManualAudioCapture::stop();
    capture_.call<void>("stop");
}

void HostAudioCapture::dispose() {
    ManualAudioCapture::dispose();
    capture_.call<void>("stop");
}

void HostAudioCapture::failed(const std::string& reason) {
    running = false;
    error = reason;
}

void HostAudioOutput::setup(RenderCallback render) {
    // Only one stream ever pulls the render step: the earlier one stops first.
    stop();
    render_ = std::move(render);
}

void HostAudioOutput::start() {
    playing_ = static_cast<bool>(render_);
    if (playing_)
        output_.call<void>("start");
}

void HostAudioOutput::stop() {
    if (playing_)
        output_.call<void>("stop");
    playing_ = false;
}

const int16_t* HostAudioOutput::render(uint32_t frames) {
    frames_.assign(static_cast<size_t>(frames) * 2, 0);
    if (playing_ && render_)
        render_(frames_.data(), frames);
    return frames_.data();
}

namespace {

class HostSoundPlayer : public SoundPlayer {
public:
    HostSoundPlayer(val sounds, std::string path, int id) : sounds_(std::move(sounds)), path_(std::move(path)), id_(id) {}
    // Releasing a player ends its sound, as on every platform.
    ~HostSoundPlayer() override { stop(); }
    void play() override { sounds_.call<void>("play", id_, path_); }
    void stop() override { sounds_.call<void>("stop", id_); }

private:
    val sounds_;
    std::string path_;
    int id_;
};

} // namespace

std::shared_ptr<SoundPlayer> HostSoundPlayerFactory::playerForFile(const std::string& path) {
    if (!sounds_.call<bool>("has", path))
        return nullptr;
    return std::make_shared<HostSoundPlayer>(sounds_, path, nextId_++);
}

void HostUrlOpener::openUrl(const std::string& url) { host_.call<void>("openUrl", url); }

std::optional<NetworkProbe::Flags> HostNetworkProbe::reachabilityFlags() {
    // A browser says only whether it believes it is on line.
    return Flags{host_.call<bool>("online"), false, false};
}

bool HostNetworkProbe::startFetch(const std::string& url, double timeoutSeconds) {
    return host_.call<bool>("fetch", url, timeoutSeconds);
}

void HostAlertPresenter::present(const std::string& title, const std::string& message,
                                 const std::vector<std::string>& buttons, Handler handler) {
    handler_ = std::move(handler);
    val list = val::array();
    for (const auto& b : buttons)
        list.call<void>("push", b);
    alert_.call<void>("present", title, message, list);
}

void HostAlertPresenter::dismiss() {
    handler_ = nullptr;
    alert_.call<void>("dismiss");
}

void HostAlertPresenter::chosen(int index) {
    // The handler may present the next alert: it is taken out before it runs.
    Handler handler = std::move(handler_);
    handler_ = nullptr;
    if (handler)
        handler(index);
}

void HostIdleTimer::setIdleTimerDisabled(bool disabled) { host_.call<void>("keepAwake", disabled); }

WebPorts::WebPorts(const val& host)
    : runLoop(host["epoch"].as<double>()), settings(host["settings"]), strings(host), log(host),
      device(host["device"]), capture(host["capture"]), output(host["output"]), sounds(host["sounds"]), urls(host),
      network(host), alerts(host["alert"]), idleTimer(host), resourcePath(host["resourcePath"].as<std::string>()) {}

Services WebPorts::services() {
    return Services{runLoop, settings, strings, log,         device, capture,   output,
                    sounds,  urls,     network, storeReview, alerts, idleTimer, resourcePath};
}

} // namespace uke::web
