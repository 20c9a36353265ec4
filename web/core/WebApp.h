// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <emscripten/val.h>

#include <map>
#include <memory>
#include <string>

#include "WebPorts.h"
#include "app/TunerApp.h"
#include "base/OutletChanges.h"
#include "audio/MicListener.h"

namespace uke::web {

// One running app in a page: the core's composition root on the browser's ports.
// The page drives its clock, hands it captured blocks and the player's actions, and
// asks after each for what changed on the screens. Nothing here decides anything
// the app's rules decide; it only carries.
class WebApp {
public:
    explicit WebApp(emscripten::val host);
    ~WebApp();
    WebApp(const WebApp&) = delete;
    WebApp& operator=(const WebApp&) = delete;

    // Start-up: returns the storyboard the window was built from.
    std::string start();
    // The size in points of the device class whose layout the window shows (the
    // nearest one for a viewport of no table), as JSON {"width": w, "height": h}.
    std::string layoutSize() const;

    // Runs everything due up to the page's clock, `seconds` since the app was made.
    // The page moves the clock only when something can happen (a block came, the
    // player acted, a delayed message is due), and a page in the background gets
    // its timers slowed or stopped: the ticks missed in between would all draw the
    // same, so at most a second of them is replayed, while every delayed message
    // still runs at its own time, whether or not blocks come.
    void advanceTo(double seconds);
    // The page's seconds at which the next delayed message is due, or -1 for none.
    double nextMessageDue() const;
    double elapsed() const { return ports_.runLoop.elapsed(); }

    // What changed on the screens since the last call, as JSON:
    // {"tuner": {outlet: value, ...}, "chords": {...}, "hearing": b, "inTune": b,
    //  "chordsOpen": b, "idleReadout": text, "panel": name, "lampOutlet": name}, with
    //  only the keys that changed; ""
    // when nothing did.
    std::string changes();

    // The player's action `name` on `screen` ("tuner" or "chords"), with its
    // arguments; false when the core refused it (its log says why).
    bool act(const std::string& screen, const std::string& name, const emscripten::val& args);
    void alertChosen(int index);

    // The page's worklet hands over one captured block of 16-bit samples.
    bool deliver(const emscripten::val& samples);
    // The microphone opened (at the player's first tap) or could not be.
    void captureOpened();
    void captureFailed(const std::string& reason);
    // Renders `frames` tone frames and returns them as a view on the module's memory.
    emscripten::val render(uint32_t frames);

    // The listener's reading of the latest block (the same numbers `uke analyse
    // --blocks` prints).
    double frequency();
    double averagePower();
    double peakPower();

private:
    WebPorts ports_;
    MicListener::Attachment attachment_;
    std::unique_ptr<TunerApp> app_;
    emscripten::val host_;
    // What the page was last told of every outlet.
    OutletChanges tunerShown_, chordsShown_;
    std::map<std::string, bool> flagsShown_;
    std::map<std::string, std::string> textsShown_;
    bool micOpen_ = false;
    bool dirty_ = true;
};

} // namespace uke::web
