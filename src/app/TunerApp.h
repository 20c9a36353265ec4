// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <functional>
#include <memory>
#include <string>

#include "base/SharedState.h"
#include "base/TunerScreenModel.h"
#include "chords/ChordScreenModel.h"
#include "platform/Services.h"
#include "sounds/ToneGenerator.h"

namespace uke {

class AppDelegate;
class ChordsViewController;
class PitchSource;
class RatingPrompt;
class ViewController;

// The object graph of one running app on one bundle of ports: the process-wide
// state, both screens' models and controllers, the tone generator, the rating
// prompt and the delegate. The app, the tool, the benchmarks and the tests all build
// this and nothing else, so a rule never lives in a front end's copy of the wiring.
class TunerApp {
public:
    struct Config {
        std::string appId = UKE_APP_ID;
        std::string makerUrl = UKE_MAKER_URL;
        // Runs on every new chord screen before it loads: tests script its random
        // draws and count its rating asks here.
        std::function<void(ChordsViewController&)> chordsWillLoad;
    };
    // Builds the window of a storyboard; false when it could not be built, and the
    // tuner screen then does not load.
    using WindowBuilder = std::function<bool(const std::string& storyboard)>;

    TunerApp(Services services, PitchSource& listener);
    TunerApp(Services services, PitchSource& listener, Config config);
    ~TunerApp();
    TunerApp(const TunerApp&) = delete;
    TunerApp& operator=(const TunerApp&) = delete;

    // Launch: the delegate configures the rating prompt and walks the layout table,
    // the window is built and the tuner screen loads and appears. A device class of
    // no table gets the nearest class's layout, and the log says so. Returns the
    // storyboard the window was built from.
    std::string start(const WindowBuilder& buildWindow = {});

    // Tuning `n` chosen at start, as a player reaches it: by the arrow, one step at
    // a time, so each step's redraw and log line happen as they would by hand.
    void stepToTuning(long n);
    // The sensitivity chosen at start (`--sensitivity`), as the slider sets it.
    void startWithSensitivity(float slider);

    // The naming picker: the choice is stored, then applied to the string names.
    void selectLanguage(long row);

    // The panels over the tuner screen, one at a time. The tuning fork is offered
    // only while its button shows, and the confirmation beep keeps quiet while it
    // is open.
    enum class Panel { None, Settings, About, TuningFork };
    // Why `panel` cannot open now; empty when it can.
    std::string panelRefusal(Panel panel) const;
    void openPanel(Panel panel);
    void closePanel();
    Panel panel() const { return panel_; }
    // "settings", "about", "tuningFork", or empty with none open: what the views bind to.
    static const char* panelName(Panel panel);

    // The chord library covers the tuner while open; closing it makes the tuner
    // screen appear again.
    void setChordsOpen(bool open);
    bool chordsOpen() const { return chords_ != nullptr; }

    ViewController& tuner() { return *tuner_; }
    // Null while the chord library is closed.
    ChordsViewController* chords() { return chords_.get(); }
    const ChordsViewController* chords() const { return chords_.get(); }
    TunerScreenModel& tunerScreen() { return tunerScreen_; }
    const TunerScreenModel& tunerScreen() const { return tunerScreen_; }
    ChordScreenModel& chordScreen() { return chordScreen_; }
    const ChordScreenModel& chordScreen() const { return chordScreen_; }
    SharedState& state() { return state_; }
    const SharedState& state() const { return state_; }
    Log& log() { return s_.log; }
    RatingPrompt& rating() { return *rating_; }
    AppDelegate& delegate() { return *delegate_; }
    ToneGenerator& tone() { return tone_; }

    // Whether the tuner hears anything: false where no input could be opened.
    bool hearing() const;
    // What the read-out says while it shows no reading: "Pluck a string"; "No
    // microphone found" when nothing can be heard; "Tap to start listening" while
    // the microphone waits for the player's first tap (a browser opens it only then).
    std::string idleReadout(bool waitingForTap = false) const;

    // The string highlight and the lamp that this device class's layout shows; the
    // views show the lamp outlet named here ("LEDDisplay128" on a pad).
    const ImageView& shownHighlight() const;
    const ImageView& shownLamp() const;
    const char* shownLampOutlet() const;

private:
    void showWindow(const std::string& storyboard);
    bool showsLargeLamp() const;

    Services s_;
    PitchSource& listener_;
    Config config_;
    SharedState state_;
    TunerScreenModel tunerScreen_;
    ChordScreenModel chordScreen_;
    ToneGenerator tone_;
    std::unique_ptr<RatingPrompt> rating_;
    std::unique_ptr<ViewController> tuner_;
    std::unique_ptr<ChordsViewController> chords_;
    std::unique_ptr<AppDelegate> delegate_;
    WindowBuilder buildWindow_;
    Panel panel_ = Panel::None;
};

} // namespace uke
