// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/QtAudioCapture.h"

#include <QAudioDevice>
#include <QAudioFormat>
#include <QAudioSource>
#include <QIODevice>
#include <QMediaDevices>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstring>
#include <deque>
#include <map>
#include <mutex>
#include <optional>
#include <vector>

#include "audio/SampleConverter.h"
#include "platform/qt/Mailbox.h"
#include "platform/qt/QtPorts.h"

namespace uke {

namespace {

// Time the sound server gets to let go of a stopped stream before its source is
// deleted; deleting at once can race with the server's last callback.
constexpr unsigned long kSettleMs = 100;
// How often a running capture checks that its device is still connected.
constexpr int kWatchMs = 500;

std::optional<SampleConverter::Encoding> encodingOf(QAudioFormat::SampleFormat f) {
    switch (f) {
    case QAudioFormat::UInt8: return SampleConverter::Encoding::UInt8;
    case QAudioFormat::Int16: return SampleConverter::Encoding::Int16;
    case QAudioFormat::Int32: return SampleConverter::Encoding::Int32;
    case QAudioFormat::Float: return SampleConverter::Encoding::Float32;
    default: return std::nullopt;
    }
}

const char* describe(QAudio::Error e) {
    switch (e) {
    case QAudio::NoError: return "no error";
    case QAudio::OpenError: return "the device could not be opened";
    case QAudio::IOError: return "reading from the device failed";
    case QAudio::UnderrunError: return "the device stopped delivering audio";
    case QAudio::FatalError: return "the audio system failed";
    }
    return "unknown audio error";
}

class QtAudioCapture;

// Where the source writes what it recorded; lives on the capture thread.
class CaptureSink : public QIODevice {
public:
    explicit CaptureSink(QtAudioCapture& owner) : owner_(owner) {}
    bool isSequential() const override { return true; }

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char* data, qint64 size) override;

private:
    QtAudioCapture& owner_;
};

class QtAudioCapture : public AudioCapture {
public:
    explicit QtAudioCapture(QtAudioCaptureOptions options) : options_(options), mailbox_(new Mailbox) {
        thread_.setObjectName("uke-capture");
        mailbox_->moveToThread(&thread_);
        QObject::connect(&thread_, &QThread::finished, mailbox_, &QObject::deleteLater);
        thread_.start();
        onCaptureThread([this] {
            watch_ = new QTimer(mailbox_);
            watch_->setInterval(kWatchMs);
            QObject::connect(watch_, &QTimer::timeout, mailbox_, [this] { watchDevice(); });
        });
    }

    ~QtAudioCapture() override {
        dispose();
        thread_.quit();
        thread_.wait();
    }

    bool newInput(const Format& format, Callback callback) override {
        dispose();
        if (format.channels != 1 || format.bitsPerChannel != 16 || format.sampleRate < 1.0) {
            setError("only 16-bit mono capture is supported");
            return false;
        }
        const QAudioDevice device = QMediaDevices::defaultAudioInput();
        if (device.isNull()) {
            setError("no audio input device is available");
            return false;
        }
        targetRate_ = static_cast<int>(std::lround(format.sampleRate));
        callback_ = std::move(callback);
        bool made = false;
        onCaptureThread([&] {
            sink_ = new CaptureSink(*this);
            sink_->open(QIODevice::WriteOnly | QIODevice::Unbuffered);
            made = makeSource(device);
        });
        if (!made) {
            // dispose() keeps the error makeSource() set.
            dispose();
            return false;
        }
        exists_ = true;
        return true;
    }

    int allocateBuffer(uint32_t byteSize) override {
        std::lock_guard lock(mutex_);
        const int id = nextId_++;
        buffers_[id].assign(byteSize / 2, 0);
        return id;
    }

    void enqueueBuffer(int bufferId) override {
        std::lock_guard lock(mutex_);
        if (buffers_.count(bufferId))
            enqueued_.push_back(bufferId);
    }

    void start() override {
        if (!exists_)
            return;
        wanted_ = true;
        if (running_)
            return;
        onCaptureThread([this] {
            watch_->start();
            // A microphone that went away comes back through the watch.
            if (!lost_)
                startSource();
        });
    }

    void stop() override {
        wanted_ = false;
        running_ = false;
        if (!exists_)
            return;
        onCaptureThread([this] {
            watch_->stop();
            // A lost device whose replacement could not be opened leaves no source.
            if (source_)
                source_->stop();
            pending_.clear();
        });
    }

    void dispose() override {
        wanted_ = false;
        running_ = false;
        onCaptureThread([this] {
            watch_->stop();
            lost_ = false;
            dropSource();
            delete sink_;
            sink_ = nullptr;
        });
        std::lock_guard lock(mutex_);
        buffers_.clear();
        enqueued_.clear();
        filled_ = 0;
        exists_ = false;
    }

    bool isRunning() const override { return running_; }

    std::string lastError() const override {
        std::lock_guard lock(mutex_);
        return error_;
    }

    // On the capture thread: what the source recorded since the last call.
    void consume(const char* data, qint64 size) {
        if (!running_)
            return;
        if (direct_) {
            fillDirect(data, size);
        } else {
            appendConverted(data, size);
            deliverBlocks();
        }
    }

private:
    template <class F> void onCaptureThread(F&& f) { mailbox_->call(std::forward<F>(f)); }

    // makeSource, dropSource, startSource and watchDevice run on the capture thread.

    // A source on `device` in the queue's format, or in the device's own with
    // conversion; false, with the error set, when the device offers nothing usable.
    bool makeSource(const QAudioDevice& device) {
        dropSource();
        QAudioFormat wanted;
        wanted.setSampleRate(options_.deviceRate > 0 ? options_.deviceRate : targetRate_);
        wanted.setChannelCount(1);
        wanted.setSampleFormat(QAudioFormat::Int16);
        if (!device.isFormatSupported(wanted)) {
            // Take what the device offers and convert it ourselves.
            wanted = device.preferredFormat();
            if (options_.deviceRate > 0)
                wanted.setSampleRate(options_.deviceRate);
        }
        const auto encoding = encodingOf(wanted.sampleFormat());
        if (!wanted.isValid() || !device.isFormatSupported(wanted) || !encoding) {
            setError("the input device \"" + device.description().toStdString() + "\" offers no usable format");
            return false;
        }
        direct_ = wanted.sampleRate() == targetRate_ && wanted.channelCount() == 1 &&
                  wanted.sampleFormat() == QAudioFormat::Int16;
        if (!direct_) {
            // The finer filter: a live stream pays for it in real time, where a
            // long recording's analysis would pay for it all at once.
            converter_.emplace(SampleConverter::Input{*encoding, wanted.channelCount(), wanted.sampleRate()},
                               targetRate_, Resampler::Quality::Medium);
            if (!converter_->error().empty()) {
                setError("the microphone's audio cannot be converted: " + converter_->error());
                converter_.reset();
                return false;
            }
        }
        device_ = device;
        source_ = new QAudioSource(device, wanted);
        source_->setBufferSize(options_.sourceBufferBytes);
        return true;
    }

    void dropSource() {
        if (source_) {
            source_->stop();
            QThread::msleep(kSettleMs);
        }
        delete source_;
        source_ = nullptr;
        converter_.reset();
        pending_.clear();
    }

    void startSource() {
        pending_.clear();
        if (converter_)
            converter_->reset();
        {
            std::lock_guard lock(mutex_);
            filled_ = 0;
        }
        // Set before the source starts: the first block may arrive inside start().
        running_ = true;
        source_->start(sink_);
        if (source_->error() != QAudio::NoError || source_->state() == QAudio::StoppedState) {
            running_ = false;
            setError(std::string("the microphone could not be started: ") + describe(source_->error()));
            source_->stop();
        }
    }

    // A microphone can be pulled out while it records. The sound server then
    // moves the recording to whatever source is left (a speaker's monitor, or
    // nothing), which is not the player's instrument: capture stops, the listener
    // reads nothing (the read-out says there is no microphone), and when an input
    // is there again, the default one is opened and capture carries on.
    void watchDevice() {
        if (!wanted_)
            return;
        if (!lost_) {
            for (const QAudioDevice& input : QMediaDevices::audioInputs())
                if (input.id() == device_.id())
                    return;
            lost_ = true;
            running_ = false;
            source_->stop();
            setError("the microphone \"" + device_.description().toStdString() + "\" was disconnected");
            qWarning("Microphone: \"%s\" was disconnected; listening again when an input is connected",
                     qPrintable(device_.description()));
            return;
        }
        const QAudioDevice device = QMediaDevices::defaultAudioInput();
        if (device.isNull() || !makeSource(device))
            return;
        startSource();
        if (running_) {
            lost_ = false;
            setError({});
            qWarning("Microphone: listening to \"%s\"", qPrintable(device.description()));
        }
    }

    void setError(std::string e) {
        std::lock_guard lock(mutex_);
        error_ = std::move(e);
    }

    // At the capture rate the bytes go straight into the waiting buffer: one
    // copy, no allocation, and a block is handed over the moment it is full.
    // With no buffer waiting, the audio is dropped as a recording queue drops it.
    void fillDirect(const char* data, qint64 size) {
        auto left = static_cast<size_t>(size);
        while (left > 0) {
            int id = 0;
            const int16_t* samples = nullptr;
            size_t bytes = 0;
            {
                std::lock_guard lock(mutex_);
                if (enqueued_.empty()) {
                    filled_ = 0;
                    return;
                }
                auto& buffer = buffers_[enqueued_.front()];
                bytes = buffer.size() * sizeof(int16_t);
                const size_t n = std::min(left, bytes - filled_);
                std::memcpy(reinterpret_cast<char*>(buffer.data()) + filled_, data, n);
                filled_ += n;
                data += n;
                left -= n;
                if (filled_ < bytes)
                    return;
                filled_ = 0;
                id = enqueued_.front();
                enqueued_.pop_front();
                samples = buffer.data();
            }
            // Outside the lock: the callback enqueues the buffer again.
            callback_(id, samples, static_cast<uint32_t>(bytes));
        }
    }

    void appendConverted(const char* data, qint64 size) {
        converted_.clear();
        if (converter_ && converter_->push(data, static_cast<size_t>(size), converted_))
            pending_.insert(pending_.end(), converted_.begin(), converted_.end());
    }

    // Converted audio: hands over every whole block for which a buffer is waiting;
    // with no buffer waiting, the audio is dropped as a recording queue drops it.
    void deliverBlocks() {
        for (;;) {
            int id = 0;
            const int16_t* samples = nullptr;
            size_t count = 0;
            {
                std::lock_guard lock(mutex_);
                if (enqueued_.empty()) {
                    pending_.clear();
                    return;
                }
                auto& buffer = buffers_[enqueued_.front()];
                count = buffer.size();
                if (pending_.size() < count)
                    return;
                id = enqueued_.front();
                enqueued_.pop_front();
                std::copy_n(pending_.begin(), count, buffer.begin());
                pending_.erase(pending_.begin(), pending_.begin() + static_cast<std::ptrdiff_t>(count));
                samples = buffer.data();
            }
            // Outside the lock: the callback enqueues the buffer again.
            callback_(id, samples, static_cast<uint32_t>(count * 2));
        }
    }

    QtAudioCaptureOptions options_;
    QThread thread_;
    Mailbox* mailbox_; // lives on thread_; every call made there goes through it
    std::atomic<bool> exists_{false};
    std::atomic<bool> running_{false}; // blocks are being delivered
    std::atomic<bool> wanted_{false};  // the owner started capture and has not stopped it
    Callback callback_;

    mutable std::mutex mutex_; // guards buffers_, enqueued_, filled_ and error_
    std::map<int, std::vector<int16_t>> buffers_;
    std::deque<int> enqueued_;
    size_t filled_ = 0; // bytes of the oldest enqueued buffer already written
    int nextId_ = 1;
    std::string error_;

    // Capture thread only.
    int targetRate_ = 0;
    bool direct_ = true;
    QAudioDevice device_;
    QAudioSource* source_ = nullptr;
    CaptureSink* sink_ = nullptr;
    QTimer* watch_ = nullptr;                  // checks, while capture is wanted, that the device is still there
    bool lost_ = false;                        // the device went away while capture was wanted
    std::optional<SampleConverter> converter_; // when the device's format is not the queue's
    std::vector<int16_t> converted_;
    std::deque<int16_t> pending_;
};

qint64 CaptureSink::writeData(const char* data, qint64 size) {
    owner_.consume(data, size);
    return size;
}

} // namespace

std::unique_ptr<AudioCapture> makeQtAudioCapture(const QtAudioCaptureOptions& options) {
    return std::make_unique<QtAudioCapture>(options);
}

std::unique_ptr<AudioCapture> makeQtAudioCapture() { return makeQtAudioCapture(QtAudioCaptureOptions{}); }

} // namespace uke
