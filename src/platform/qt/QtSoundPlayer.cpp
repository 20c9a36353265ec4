// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// Sound files (string samples, the beep): decoded once with libsndfile and played
// through an audio sink of their own. A media player would bring a whole
// GStreamer pipeline (some 5 MB and a plugin scan) into the process for half a
// second of beep.
#include <QAudioFormat>
#include <QAudioSink>
#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QMediaDevices>
#include <atomic>
#include <memory>
#include <optional>
#include <utility>

#include <sndfile.h>

#include "platform/qt/QtPorts.h"

namespace uke {

namespace {

struct DecodedSound {
    QByteArray pcm; // 16-bit interleaved frames
    QAudioFormat format;
};

// The whole file as 16-bit samples, or nothing when libsndfile cannot read it.
std::optional<DecodedSound> decode(const QString& path) {
    SF_INFO info{};
    SNDFILE* file = sf_open(QFile::encodeName(path).constData(), SFM_READ, &info);
    if (!file)
        return std::nullopt;
    // Short sounds only: a minute is far beyond any sample or beep.
    constexpr sf_count_t kLongest = 60 * 48000;
    DecodedSound sound;
    if (info.channels >= 1 && info.channels <= 2 && info.samplerate > 0 && info.frames > 0 && info.frames <= kLongest) {
        const qsizetype frameBytes = info.channels * static_cast<qsizetype>(sizeof(short));
        sound.pcm.resize(static_cast<qsizetype>(info.frames) * frameBytes);
        const sf_count_t got = sf_readf_short(file, reinterpret_cast<short*>(sound.pcm.data()), info.frames);
        sound.pcm.resize(got > 0 ? static_cast<qsizetype>(got) * frameBytes : 0);
        sound.format.setSampleRate(info.samplerate);
        sound.format.setChannelCount(info.channels);
        sound.format.setSampleFormat(QAudioFormat::Int16);
    }
    sf_close(file);
    if (sound.pcm.isEmpty())
        return std::nullopt;
    return sound;
}

class QtSoundPlayer : public SoundPlayer {
public:
    explicit QtSoundPlayer(QString path) : path_(std::move(path)) {}
    // Releasing the player ends its sound. The sink goes later, from the event
    // loop: its destructor runs a nested event loop, which must not happen in
    // the middle of a tick or of the app's teardown.
    ~QtSoundPlayer() override {
        if (sink_) {
            sink_->stop();
            sink_->deleteLater();
        }
    }

    void play() override {
        // One that is playing simply goes on.
        if (sink_ && sink_->state() == QAudio::ActiveState)
            return;
        // Decoded at the first play, not when prepared: start-up reads no sound.
        if (!sound_ && !(sound_ = decode(path_)))
            return;
        if (!sink_) {
            const QAudioDevice device = QMediaDevices::defaultAudioOutput();
            if (device.isNull()) {
                static std::atomic<bool> said{false};
                if (!said.exchange(true))
                    qWarning("Sounds: no audio output device; the string sounds and the beep stay silent");
                return;
            }
            sink_ = new QAudioSink(device, sound_->format);
            buffer_ = new QBuffer(sink_);
            buffer_->setData(sound_->pcm);
            // The stream is let go as soon as the sound has run out: an idle
            // stream would go on waking the process for data that never comes.
            QObject::connect(sink_, &QAudioSink::stateChanged, sink_, [sink = sink_](QAudio::State s) {
                if (s == QAudio::IdleState)
                    sink->stop();
            });
        }
        sink_->stop();
        buffer_->close();
        buffer_->open(QIODevice::ReadOnly);
        sink_->start(buffer_);
    }
    void stop() override {
        if (sink_)
            sink_->stop();
    }

private:
    QString path_;
    std::optional<DecodedSound> sound_;
    QAudioSink* sink_ = nullptr; // made at the first play on a device
    QBuffer* buffer_ = nullptr;  // the sink's child, read from the start at each play
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
