// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// The reference tone's output stream: a QAudioSink in pull mode on a thread of its
// own, so that a busy interface thread never starves the speaker.
#include <QAudioDevice>
#include <QAudioFormat>
#include <QAudioSink>
#include <QDeadlineTimer>
#include <QIODevice>
#include <QMediaDevices>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <atomic>
#include <cstring>
#include <vector>

#include "platform/qt/Mailbox.h"
#include "platform/qt/QtPorts.h"

namespace uke {

namespace {

constexpr int kSampleRate = 44100; // frames per second
constexpr int kBytesPerFrame = 4;  // two 16-bit channels
// The sink's buffer, 100 ms: short enough that a new pitch is heard at once.
constexpr qsizetype kBufferBytes = kSampleRate / 10 * kBytesPerFrame;
// Frames rendered per call of the callback; the sink asks for about 20 ms at a time.
constexpr uint32_t kChunkFrames = 2048;
// Time the sound server gets to finish with a stopped stream before the sink goes.
constexpr int kSettleMs = 150;

// Hands the sink whatever it asks for, rendered on the spot. Lives on the output
// thread, which is the only thread that calls readData.
class RenderDevice : public QIODevice {
public:
    explicit RenderDevice(AudioOutput::RenderCallback render)
        : render_(std::move(render)), scratch_(static_cast<size_t>(kChunkFrames) * 2) {}

    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override { return kBufferBytes + QIODevice::bytesAvailable(); }

protected:
    qint64 readData(char* data, qint64 maxSize) override {
        // Whole frames only; the scratch buffer keeps the samples aligned whatever
        // the sink's pointer is, without allocating on this path.
        const qint64 frames = maxSize / kBytesPerFrame;
        qint64 done = 0;
        while (done < frames) {
            const auto n = static_cast<uint32_t>(std::min<qint64>(kChunkFrames, frames - done));
            render_(scratch_.data(), n);
            std::memcpy(data + done * kBytesPerFrame, scratch_.data(), static_cast<size_t>(n) * kBytesPerFrame);
            done += n;
        }
        return done * kBytesPerFrame;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    AudioOutput::RenderCallback render_;
    std::vector<int16_t> scratch_;
};

class QtAudioOutput : public AudioOutput {
public:
    QtAudioOutput() : mailbox_(new Mailbox) {
        thread_.setObjectName("uke-tone-output");
        mailbox_->moveToThread(&thread_);
        QObject::connect(&thread_, &QThread::finished, mailbox_, &QObject::deleteLater);
        thread_.start();
    }

    ~QtAudioOutput() override {
        stop();
        // The sink must be idle before it goes: give the server time to let go of
        // the stopped stream, counted from the last stop.
        const qint64 left = settle_.remainingTime();
        if (left > 0)
            QThread::msleep(static_cast<unsigned long>(left));
        onOutputThread([this] {
            retire();
            for (auto& [sink, source] : retired_) {
                delete sink;
                delete source;
            }
            retired_.clear();
        });
        thread_.quit();
        thread_.wait();
    }

    void setup(RenderCallback render) override {
        const QAudioDevice device = QMediaDevices::defaultAudioOutput();
        if (device.isNull())
            warnOnce("no audio output device; the reference tone stays silent");
        onOutputThread([&] {
            retire();
            if (device.isNull())
                return;
            QAudioFormat format;
            format.setSampleRate(kSampleRate);
            format.setChannelCount(2);
            format.setSampleFormat(QAudioFormat::Int16);
            sink_ = new QAudioSink(device, format);
            sink_->setBufferSize(kBufferBytes);
            source_ = new RenderDevice(std::move(render));
            source_->open(QIODevice::ReadOnly | QIODevice::Unbuffered);
        });
    }

    void start() override {
        onOutputThread([this] {
            if (!sink_)
                return;
            switch (sink_->state()) {
            case QAudio::ActiveState:
            case QAudio::IdleState:
                // Already sounding: the new pitch simply reaches the callback.
                break;
            case QAudio::SuspendedState: sink_->resume(); break;
            case QAudio::StoppedState:
                sink_->start(source_);
                if (sink_->state() == QAudio::StoppedState)
                    warnOnce("the audio device would not start; the reference tone stays silent");
                break;
            }
        });
    }

    // Returns once the stream has stopped: the callback is not called afterwards.
    void stop() override {
        onOutputThread([this] { stopSink(); });
    }

private:
    template <class F> void onOutputThread(F&& f) { mailbox_->call(std::forward<F>(f)); }

    // The rest runs on the output thread.
    void stopSink() {
        if (!sink_ || sink_->state() == QAudio::StoppedState)
            return;
        sink_->stop();
        settle_.setRemainingTime(kSettleMs);
    }

    // Stops the current stream and deletes it once the server is done with it, so
    // that a new stream never waits for the old one.
    void retire() {
        if (!sink_)
            return;
        stopSink();
        retired_.emplace_back(sink_, source_);
        sink_ = nullptr;
        source_ = nullptr;
        QTimer::singleShot(kSettleMs, mailbox_, [this] {
            if (retired_.empty())
                return;
            delete retired_.front().first;
            delete retired_.front().second;
            retired_.erase(retired_.begin());
        });
    }

    void warnOnce(const char* what) {
        if (!warned_.exchange(true))
            qWarning("Tone output: %s", what);
    }

    QThread thread_;
    Mailbox* mailbox_; // lives on thread_; every call made there goes through it
    QAudioSink* sink_ = nullptr;
    RenderDevice* source_ = nullptr;
    std::vector<std::pair<QAudioSink*, RenderDevice*>> retired_;
    QDeadlineTimer settle_{0};
    std::atomic<bool> warned_{false};
};

} // namespace

std::unique_ptr<AudioOutput> makeQtAudioOutput() { return std::make_unique<QtAudioOutput>(); }

} // namespace uke
