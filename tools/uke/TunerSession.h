#pragma once
#include <memory>
#include <ostream>
#include <string>

#include "base/LayoutClass.h"
#include "base/SharedState.h"
#include "platform/Services.h"
#include "rating/RatingPrompt.h"
#include "sounds/ToneGenerator.h"
#include "tuner/TunerScreenModel.h"
#include "tuner/ViewController.h"

namespace uke::tool {

struct TunerOptions {
    long tuning = 1;
    long a4 = 440;
    std::optional<long> sensitivity;  // slider step moved to before listening
    DeviceClass device;
    bool json = false;
};

// The tuner screen as the app runs it, on whatever ports it is given, printing one
// line after every tick that changed what the player sees.
class TunerSession {
public:
    // `sounds` must be the factory inside `services` whose played files it counts.
    TunerSession(Services services, PitchSource& listener, const TunerOptions& options, std::ostream& out);

    // Start-up and the screen's first appearance; stores the calibration first.
    void start();
    // Compares the screen with the last line printed and prints when it changed.
    // `beeped` says a confirmation beep started since the last call.
    void afterTick(double seconds, bool beeped);

    TunerScreenModel& screen() { return screen_; }

private:
    std::string line(double seconds, bool beeped) const;

    Services s_;
    PitchSource& listener_;
    TunerOptions options_;
    std::ostream& out_;
    SharedState state_;
    TunerScreenModel screen_;
    ToneGenerator tone_;
    std::unique_ptr<RatingPrompt> rating_;
    std::unique_ptr<ViewController> controller_;
    std::string lastShown_;
};

// Reads --tuning, --a4, --sensitivity, --device and --format into `o`; false with a
// one-line reason in `error`.
class Args;
bool readTunerOptions(Args& args, TunerOptions& o, std::string& error);

} // namespace uke::tool
