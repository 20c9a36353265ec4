#include "audio/MicListener.h"

namespace uke {

void MicListener::configure(AudioCapture&, Log&) {}

MicListener* MicListener::sharedListener() {
    static MicListener* instance = new MicListener();
    return instance;
}

void MicListener::listen() {}
float MicListener::averagePower() { return 0.0f; }
float MicListener::frequency() { return 0.0f; }

} // namespace uke
