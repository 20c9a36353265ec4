// Sound files (string samples, the beep) played with Qt Multimedia's media player.
#include <QAudioOutput>
#include <QFile>
#include <QFileInfo>
#include <QMediaPlayer>
#include <QUrl>
#include <memory>

#include "platform/qt/QtPorts.h"

namespace uke {

namespace {

class QtSoundPlayer : public SoundPlayer {
public:
    explicit QtSoundPlayer(const QString& path) : path_(path) {}
    // Releasing the player ends its sound.
    ~QtSoundPlayer() override {
        if (player_)
            player_->stop();
    }

    void play() override {
        // The media pipeline is built at the first play, not when the sound is
        // prepared: a pipeline left loading for a while on PulseAudio never starts.
        if (!player_) {
            output_ = std::make_unique<QAudioOutput>();
            player_ = std::make_unique<QMediaPlayer>();
            player_->setAudioOutput(output_.get());
            player_->setSource(QUrl::fromLocalFile(path_));
        } else if (player_->playbackState() == QMediaPlayer::StoppedState) {
            // A sound that has run to its end starts again from the beginning.
            player_->setPosition(0);
        }
        player_->play();
    }
    void stop() override {
        if (player_)
            player_->stop();
    }

private:
    QString path_;
    std::unique_ptr<QAudioOutput> output_;
    std::unique_ptr<QMediaPlayer> player_;
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
