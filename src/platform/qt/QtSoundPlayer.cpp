#include "platform/qt/QtPorts.h"

namespace uke {

namespace {
class NoSounds : public SoundPlayerFactory {
public:
    std::shared_ptr<SoundPlayer> playerForFile(const std::string&) override { return nullptr; }
};
} // namespace

std::unique_ptr<SoundPlayerFactory> makeQtSoundPlayerFactory() { return std::make_unique<NoSounds>(); }

} // namespace uke
