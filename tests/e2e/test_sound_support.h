#pragma once
// The running app with the private PulseAudio server as its speaker, and the
// measurements the sound tests make on what the speaker played.
#include <QCoreApplication>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <memory>
#include <vector>

#include "audio/MicListener.h"
#include "base/SharedState.h"
#include "support/FinePitch.h"
#include "support/PulseServer.h"
#include "support/RunningApp.h"

namespace uke::test {

// The speaker is recorded at the microphone's rate, so the tuner's own estimator
// can read the recording as it would read a microphone buffer.
inline constexpr int kRecordRate = 14039;

class SoundEndToEnd : public PulseServerTest {
protected:
    void SetUp() override {
        PulseServerTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        if (demoModeEnabled)
            GTEST_SKIP() << "the demonstration build plays no sound";
        app =
            std::make_unique<RunningApp>("phone-844", "en", RunningApp::Seed{},
                                         QStringLiteral(UKE_SOURCE_DIR) + "/resources/sounds", RunningApp::Audio::Real);
        ASSERT_TRUE(app->started);
        host = app->host.get();
        runFor(0.2);
    }
    void TearDown() override {
        if (pulse().running())
            pulse().stopRecording();
        app.reset();
    }

    // Runs the app's event loop for a while.
    static void runFor(double seconds) { settle(static_cast<int>(seconds * 1000)); }

    QQuickItem* item(const char* objectName) const { return app->item(objectName); }
    void tap(const char* objectName) { app->tap(objectName, 0); }

    std::unique_ptr<RunningApp> app;
    AppHost* host = nullptr;
};

// Where the recording is louder than `level`: the first and last such sample.
inline std::pair<size_t, size_t> soundingPart(const std::vector<int16_t>& rec, int level = 2000) {
    size_t first = rec.size(), last = 0;
    for (size_t i = 0; i < rec.size(); ++i)
        if (std::abs(rec[i]) > level) {
            first = std::min(first, i);
            last = i;
        }
    return {first, last};
}

// The pitch of samples [from, from + count) of a recording, near `guess`.
inline double finePitch(const std::vector<int16_t>& rec, int rate, size_t from, size_t count, double guess) {
    from = std::min(from, rec.size());
    return finePitch(rec.data() + from, std::min(count, rec.size() - from), rate, guess);
}

// The tuner's estimate for each whole 4096-sample block of [from, to).
inline std::vector<float> tunerReadings(const std::vector<int16_t>& rec, size_t from, size_t to) {
    std::vector<float> hz;
    MicListener& listener = *MicListener::sharedListener();
    for (size_t at = from; at + 4096 <= std::min(to, rec.size()); at += 4096)
        hz.push_back(listener.getFreqFromBuffer(rec.data() + at, 8192));
    return hz;
}

} // namespace uke::test
