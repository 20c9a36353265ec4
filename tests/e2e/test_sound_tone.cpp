// The tuning fork in the running app, heard on the speaker: the sheet's buttons sound
// the string's pitch, a second button retunes without a break, stop silences it.
#include <QDir>
#include <QProcess>

#include "test_sound_support.h"

namespace uke::test {
namespace {

class ToneEndToEnd : public SoundEndToEnd {
protected:
    // What the sheet's read-out shows.
    QString shown(const char* objectName) const {
        QQuickItem* label = item(objectName);
        return label ? label->property("text").toString() : QString("<no %1>").arg(objectName);
    }
    // The caption inside a round string button.
    QString caption(const char* objectName) const {
        QQuickItem* button = item(objectName);
        if (!button)
            return QString("<no %1>").arg(objectName);
        for (QQuickItem* child : button->childItems())
            if (child->property("text").isValid())
                return child->property("text").toString();
        return {};
    }
};

TEST_F(ToneEndToEnd, TuningForkSheetSoundsA440AndStopSilencesIt) {
    tap("tuningForkButton");
    runFor(0.5); // the sheet slides in
    EXPECT_TRUE(host->state().tuningForkFlag);
    EXPECT_EQ(caption("a4TFButton").toStdString(), host->tunerModel().a4TFButton.title);
    EXPECT_EQ(caption("g4TFButton").toStdString(), host->tunerModel().g4TFButton.title);
    EXPECT_FALSE(caption("e4TFButton").isEmpty());

    ASSERT_TRUE(pulse().startRecordingSpeaker(kRecordRate)) << pulse().serverLog();
    tap("a4TFButton");
    EXPECT_EQ(shown("tfnoteDisplay"), "A4");
    EXPECT_EQ(shown("tfFreqLabel"), "440.0Hz");
    runFor(1.5);

    if (const QByteArray docs = qgetenv("UKE_DOCS_DIR"); !docs.isEmpty())
        host->window()->grabWindow().save(QString::fromLocal8Bit(docs) + "/tuning-fork-phone-844.png");

    tap("stopFreqPlayButton");
    runFor(0.5);
    const std::vector<int16_t> rec = pulse().stopRecording();

    const auto [first, last] = soundingPart(rec);
    ASSERT_LT(first, last) << "the speaker stayed silent; " << rec.size() << " samples recorded";
    const double seconds = static_cast<double>(last - first) / kRecordRate;
    EXPECT_GT(seconds, 1.2);
    EXPECT_LT(seconds, 2.5);
    // Silent again once stopped.
    for (size_t i = last + kRecordRate / 10; i < rec.size(); ++i)
        ASSERT_LT(std::abs(rec[i]), 300) << "still sounding " << static_cast<double>(i - last) / kRecordRate
                                         << " s after the stop";

    const int peak = std::abs(*std::max_element(rec.begin(), rec.end(), [](int16_t a, int16_t b) {
        return std::abs(static_cast<int>(a)) < std::abs(static_cast<int>(b));
    }));
    EXPECT_GT(peak, 26000); // the tone's full-scale peak, about 29726, after resampling
    const double hz = finePitch(rec, kRecordRate, first + kRecordRate / 10, kRecordRate, 440.0);
    EXPECT_NEAR(hz, 440.0, 0.05);
    const std::vector<float> readings = tunerReadings(rec, first, last);
    ASSERT_GE(readings.size(), 3u);
    for (float f : readings)
        EXPECT_NEAR(f, 440.0, 440.0 / 360.0);

    // Every panel has a Done button of that name: close this one by its own hand.
    QMetaObject::invokeMethod(item("tuningForkSheet"), "close");
    runFor(0.4);
    EXPECT_FALSE(host->state().tuningForkFlag);
}

TEST_F(ToneEndToEnd, SecondStringRetunesTheRunningToneWithoutABreak) {
    ASSERT_TRUE(pulse().startRecordingSpeaker(kRecordRate)) << pulse().serverLog();
    host->tuner()->act("playA440Hz");
    runFor(1.0);
    host->tuner()->act("playE329_6");
    runFor(1.0);
    host->tuner()->act("stopFreqPlay");
    runFor(0.4);
    const std::vector<int16_t> rec = pulse().stopRecording();

    const auto [first, last] = soundingPart(rec);
    ASSERT_LT(first, last) << "the speaker stayed silent";
    ASSERT_GT(last - first, static_cast<size_t>(1.6 * kRecordRate));
    // Loud in every 20 ms stretch from start to stop, and no step between samples
    // larger than the steepest slope of the tone itself (about 4700 at this rate).
    int steepest = 0;
    // The start and the stop are cuts (the waveform's phase carries over from the
    // last tone), smeared over a few samples by the resampler: the check leaves them out.
    for (size_t at = first + 8; at + 280 + 8 < last; at += 280) {
        int loudest = 0;
        for (size_t i = at; i < at + 280; ++i) {
            loudest = std::max(loudest, std::abs(static_cast<int>(rec[i])));
            steepest = std::max(steepest, std::abs(rec[i + 1] - rec[i]));
        }
        ASSERT_GT(loudest, 15000) << "a break " << static_cast<double>(at - first) / kRecordRate << " s in";
    }
    EXPECT_LT(steepest, 7000);
    EXPECT_NEAR(finePitch(rec, kRecordRate, first + kRecordRate / 10, kRecordRate / 2, 440.0), 440.0, 0.1);
    EXPECT_NEAR(finePitch(rec, kRecordRate, last - kRecordRate * 6 / 10, kRecordRate / 2, 329.63), 329.628, 0.1);
}

TEST_F(ToneEndToEnd, UkeTonePlaysTheSameToneThroughTheSpeaker) {
    const QString uke = QStringLiteral(UKE_BINARY_DIR) + "/tools/uke/uke";
    if (!QFile::exists(uke))
        GTEST_SKIP() << "uke is not built";
    ASSERT_TRUE(pulse().startRecordingSpeaker(kRecordRate)) << pulse().serverLog();
    QProcess proc;
    proc.start(uke, {"tone", "--tuning", "1", "--string", "3", "--seconds", "1.2", "--play"});
    ASSERT_TRUE(proc.waitForFinished(20000)) << "uke tone --play did not finish";
    runFor(0.3);
    const std::vector<int16_t> rec = pulse().stopRecording();
    EXPECT_EQ(proc.exitCode(), 0) << proc.readAllStandardError().toStdString();
    EXPECT_NE(proc.readAllStandardOutput().indexOf("C4 261.6256 Hz triangle"), -1);

    const auto [first, last] = soundingPart(rec);
    ASSERT_LT(first, last) << "the speaker stayed silent";
    EXPECT_NEAR(static_cast<double>(last - first) / kRecordRate, 1.2, 0.3);
    EXPECT_NEAR(finePitch(rec, kRecordRate, first + kRecordRate / 10, kRecordRate * 8 / 10, 261.63), 261.626, 0.1);
}

} // namespace
} // namespace uke::test
