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
        // A fresh media pipeline for every start: a pipeline left loading for a
        // while, or replayed after its end, sometimes never sounds on PulseAudio.
        // One that is playing simply goes on.
        if (!player_ || player_->playbackState() != QMediaPlayer::PlayingState) {
            player_.reset();
            output_ = std::make_unique<QAudioOutput>();
            player_ = std::make_unique<QMediaPlayer>();
            player_->setAudioOutput(output_.get());
            player_->setSource(QUrl::fromLocalFile(path_));
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
