// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <memory>
#include <string>

namespace uke {

// One sound file, ready to play. Releasing the player ends its sound.
class SoundPlayer {
public:
    virtual ~SoundPlayer() = default;
    virtual void play() = 0;
    virtual void stop() = 0;
};

class SoundPlayerFactory {
public:
    virtual ~SoundPlayerFactory() = default;
    // A player for the file at `path`, or null when the file is missing or unreadable.
    virtual std::shared_ptr<SoundPlayer> playerForFile(const std::string& path) = 0;
};

} // namespace uke
