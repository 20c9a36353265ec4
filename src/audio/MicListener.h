#pragma once
#include "audio/PitchSource.h"
#include "platform/AudioCapture.h"
#include "platform/Log.h"

namespace uke {

// The process-wide microphone listener.
class MicListener : public PitchSource {
public:
    // Hands the listener its capture queue and log; called once by the platform
    // before the first sharedListener().
    static void configure(AudioCapture& capture, Log& log);
    static MicListener* sharedListener();

    void listen() override;
    float averagePower() override;
    float frequency() override;

private:
    MicListener() = default;
};

} // namespace uke
