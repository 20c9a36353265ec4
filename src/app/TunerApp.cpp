// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/TunerApp.h"

#include "app/AppDelegate.h"
#include "audio/PitchSource.h"
#include "base/LayoutClass.h"
#include "base/TuningCatalogue.h"
#include "chords/ChordsViewController.h"
#include "rating/RatingPrompt.h"
#include "tuner/ViewController.h"

#include <utility>

namespace uke {

TunerApp::TunerApp(Services services, PitchSource& listener) : TunerApp(services, listener, Config{}) {}

TunerApp::TunerApp(Services services, PitchSource& listener, Config config)
    : s_(services), listener_(listener), config_(std::move(config)) {
    rating_ = std::make_unique<RatingPrompt>(s_);
    tuner_ = std::make_unique<ViewController>(s_, state_, tunerScreen_, listener, tone_, *rating_);
    tuner_->setMakerUrl(config_.makerUrl);
    delegate_ = std::make_unique<AppDelegate>(
        s_, *rating_, [this](const std::string& storyboard) { showWindow(storyboard); }, config_.appId);
}

TunerApp::~TunerApp() = default;

std::string TunerApp::start(const WindowBuilder& buildWindow) {
    buildWindow_ = buildWindow;
    delegate_->didFinishLaunchingWithOptions();
    if (delegate_->window())
        return *delegate_->window();
    // A class of no layout table still gets a usable window: the nearest layout.
    const DeviceClass device{s_.device.idiom(), s_.device.screenHeight()};
    const DeviceClass nearest = nearestLayoutClass(device);
    const std::string storyboard = *storyboardFor(nearest.idiom, nearest.height);
    s_.log.log("No layout for " + device.name() + "; using " + storyboard + " (" + nearest.name() + ")");
    showWindow(storyboard);
    return storyboard;
}

void TunerApp::showWindow(const std::string& storyboard) {
    // The first screen of every layout is the tuner screen: it loads, then appears.
    if (!buildWindow_ || buildWindow_(storyboard)) {
        tuner_->viewDidLoad();
        tuner_->viewWillAppear();
    }
}

void TunerApp::stepToTuning(long n) {
    while (state_.chosenTuning < n && TuningCatalogue::contains(state_.chosenTuning + 1))
        tuner_->showNextTuning();
}

void TunerApp::startWithSensitivity(float slider) { tuner_->micSensitivity(slider); }

void TunerApp::selectLanguage(long row) {
    tuner_->didSelectRow(row);
    tuner_->overrideDefaultLanguage();
}

std::string TunerApp::panelRefusal(Panel panel) const {
    if (chords_)
        return "the chord library covers the tuner";
    if (panel_ != Panel::None)
        return std::string("a panel is open: ") + panelName(panel_);
    if (panel == Panel::TuningFork && tunerScreen_.tuningForkButton.hidden)
        return "this device offers no tuning fork";
    return {};
}

void TunerApp::openPanel(Panel panel) {
    if (panel == Panel::None || !panelRefusal(panel).empty())
        return;
    panel_ = panel;
    if (panel == Panel::TuningFork)
        tuner_->disableTemporarilySoundConfirmation();
}

void TunerApp::closePanel() {
    const Panel closing = std::exchange(panel_, Panel::None);
    if (closing == Panel::TuningFork)
        tuner_->enableSoundConfirmation();
}

const char* TunerApp::panelName(Panel panel) {
    switch (panel) {
    case Panel::Settings: return "settings";
    case Panel::About: return "about";
    case Panel::TuningFork: return "tuningFork";
    case Panel::None: break;
    }
    return "";
}

void TunerApp::setChordsOpen(bool open) {
    if (open == chordsOpen())
        return;
    if (!open) {
        chords_.reset();
        tuner_->viewWillAppear();
        return;
    }
    chordScreen_ = ChordScreenModel{};
    chords_ = std::make_unique<ChordsViewController>(s_, state_, chordScreen_, *rating_);
    tuner_->prepareForSegue("showChordsView", *chords_);
    if (config_.chordsWillLoad)
        config_.chordsWillLoad(*chords_);
    chords_->viewDidLoad();
}

bool TunerApp::hearing() const { return listener_.hearing(); }

std::string TunerApp::idleReadout(bool waitingForTap) const {
    // Without an input the tuner can never hear anything: say so instead of waiting.
    const auto [key, table] = !hearing()     ? std::pair{"No microphone found", "TunerScreen"}
                              : waitingForTap ? std::pair{"Tap to start listening", "WebPage"}
                                              : std::pair{"Pluck a string", "TunerScreen"};
    return s_.strings.lookup(key, table).value_or(key);
}

const ImageView& TunerApp::shownHighlight() const {
    const Idiom idiom = s_.device.idiom();
    const double h = s_.device.screenHeight();
    if (const auto variant = highlightFor(idiom, h))
        return tunerScreen_.highlight(variant->view);
    // A class of no table is laid out like its idiom's usual layouts.
    return idiom == Idiom::Pad ? tunerScreen_.tunedStringiPad : tunerScreen_.tunedString5;
}

// A pad's layout shows the larger lamp; the outlet and its name follow one rule.
bool TunerApp::showsLargeLamp() const { return s_.device.idiom() == Idiom::Pad; }

const ImageView& TunerApp::shownLamp() const {
    return showsLargeLamp() ? tunerScreen_.LEDDisplay128 : tunerScreen_.LEDDisplay;
}

const char* TunerApp::shownLampOutlet() const { return showsLargeLamp() ? "LEDDisplay128" : "LEDDisplay"; }

} // namespace uke
