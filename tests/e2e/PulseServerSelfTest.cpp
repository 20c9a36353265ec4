// The private PulseAudio server itself: what other end-to-end tests rely on.
#include <cmath>
#include <cstdlib>
#include <numbers>

#include "support/PulseServer.h"

namespace uke::test {
namespace {

class PulseServerSelfTest : public PulseServerTest {};

// Zero crossings per second of the loudest stretch, as a rough pitch.
double crossingRate(const std::vector<int16_t>& samples, int rate) {
    size_t first = samples.size(), last = 0;
    for (size_t i = 0; i < samples.size(); ++i)
        if (std::abs(samples[i]) > 3000) {
            first = std::min(first, i);
            last = i;
        }
    if (first >= last)
        return 0.0;
    int crossings = 0;
    for (size_t i = first + 1; i <= last; ++i)
        if ((samples[i - 1] < 0) != (samples[i] < 0))
            ++crossings;
    return crossings / 2.0 / (static_cast<double>(last - first) / rate);
}

TEST_F(PulseServerSelfTest, PointsThisProcessAtThePrivateServer) {
    const char* address = std::getenv("PULSE_SERVER");
    ASSERT_NE(address, nullptr);
    EXPECT_EQ(address, pulse().address());
    std::string info;
    ASSERT_EQ(pulse().pactl({"info"}, &info), 0);
    EXPECT_NE(info.find(std::string("Default Source: ") + PulseServer::kMicrophone), std::string::npos) << info;
    EXPECT_NE(info.find(std::string("Default Sink: ") + PulseServer::kSpeaker), std::string::npos) << info;
}

TEST_F(PulseServerSelfTest, WhatIsWrittenToTheMicrophoneCanBeRecordedFromIt) {
    ASSERT_TRUE(pulse().startRecording(PulseServer::kMicrophone, 22050));
    std::vector<int16_t> tone(22050 / 2);
    for (size_t i = 0; i < tone.size(); ++i)
        tone[i] = static_cast<int16_t>(12000 * std::sin(2 * std::numbers::pi * 330.0 * i / 22050.0));
    pulse().writeToMicrophone(tone, 22050);
    ASSERT_TRUE(pulse().waitMicrophoneDrained(std::chrono::seconds(10)));

    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    double rate = 0.0;
    while (std::chrono::steady_clock::now() < deadline) {
        rate = crossingRate(pulse().recording(), 22050);
        if (std::abs(rate - 330.0) < 3.0)
            break;
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    pulse().stopRecording();
    EXPECT_NEAR(rate, 330.0, 3.0);
}

TEST_F(PulseServerSelfTest, SpeakerMonitorRecordsSilenceWhenNothingPlays) {
    ASSERT_TRUE(pulse().startRecordingSpeaker(44100));
    const auto samples = pulse().stopRecording();
    ASSERT_FALSE(samples.empty());
    for (int16_t s : samples)
        ASSERT_EQ(s, 0);
}

} // namespace
} // namespace uke::test
