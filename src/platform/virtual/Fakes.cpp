// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/virtual/Fakes.h"

#include <algorithm>

namespace uke {

size_t RecordingLog::count(const std::string& line) const {
    std::lock_guard lock(mutex_);
    return static_cast<size_t>(std::count(lines.begin(), lines.end(), line));
}

std::optional<std::string> MapStringTable::lookup(const std::string& key, const std::string& table) const {
    const auto t = entries.find(table);
    if (t == entries.end())
        return std::nullopt;
    const auto e = t->second.find(key);
    if (e == t->second.end())
        return std::nullopt;
    return e->second;
}

std::vector<int16_t> RecordingAudioOutput::pull(uint32_t frames) {
    std::vector<int16_t> out(static_cast<size_t>(frames) * 2, 0);
    if (render)
        render(out.data(), frames);
    return out;
}

namespace {
class RecordingPlayer : public SoundPlayer {
public:
    RecordingPlayer(std::string path, RecordingSoundPlayerFactory& owner)
        : path_(std::move(path)), owner_(owner) {}
    void play() override { owner_.played.push_back(path_); }
    void stop() override {}

private:
    std::string path_;
    RecordingSoundPlayerFactory& owner_;
};
} // namespace

std::shared_ptr<SoundPlayer> RecordingSoundPlayerFactory::playerForFile(const std::string& path) {
    for (const auto& m : missing)
        if (path.size() >= m.size() && path.compare(path.size() - m.size(), m.size(), m) == 0)
            return nullptr;
    made.push_back(path);
    return std::make_shared<RecordingPlayer>(path, *this);
}

void RecordingAlertPresenter::present(const std::string& t, const std::string& m,
                                      const std::vector<std::string>& b, Handler handler) {
    title = t;
    message = m;
    buttons = b;
    handler_ = std::move(handler);
    visible = true;
    ++presentCount;
}

void RecordingAlertPresenter::press(int index) {
    if (!visible)
        return;
    visible = false;
    auto handler = std::move(handler_);
    handler_ = nullptr;
    if (handler)
        handler(index);
}

} // namespace uke
