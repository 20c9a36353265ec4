// Sound files (string samples, the beep) played with Qt Multimedia's media player.
#include <QAudioOutput>
#include <QFile>
#include <QFileInfo>
#include <QMediaPlayer>
#include <QUrl>

#include "platform/qt/QtPorts.h"

namespace uke {

namespace {

class QtSoundPlayer : public SoundPlayer {
public:
    explicit QtSoundPlayer(const QString& path) {
        player_.setAudioOutput(&output_);
        player_.setSource(QUrl::fromLocalFile(path));
    }
    // Releasing the player ends its sound.
    ~QtSoundPlayer() override { player_.stop(); }

    void play() override {
        // A sound that has run to its end starts again from the beginning.
        if (player_.playbackState() == QMediaPlayer::StoppedState)
            player_.setPosition(0);
        player_.play();
    }
    void stop() override { player_.stop(); }

private:
    QAudioOutput output_;
    QMediaPlayer player_;
};

class QtSoundPlayerFactory : public SoundPlayerFactory {
public:
    std::shared_ptr<SoundPlayer> playerForFile(const std::string& path) override {
        const QString file = QString::fromStdString(path);
        // Only a file that exists and can be read gets a player; a broken one plays nothing.
        QFile f(file);
        if (!QFileInfo(file).isFile() || !f.open(QIODevice::ReadOnly) || f.read(4).size() < 4)
            return nullptr;
        return std::make_shared<QtSoundPlayer>(file);
    }
};

} // namespace

std::unique_ptr<SoundPlayerFactory> makeQtSoundPlayerFactory() { return std::make_unique<QtSoundPlayerFactory>(); }

} // namespace uke
