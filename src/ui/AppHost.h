// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QObject>
#include <QPointer>
#include <QQmlApplicationEngine>
#include <QVariantMap>
#include <QtQml/qqmlregistration.h>
#include <memory>
#include <optional>

#include "AppOptions.h"
#include "AppPorts.h"
#include "OutletMap.h"
#include "ScreenActions.h"
#include "StateFile.h"
#include "app/TunerApp.h"

class QQuickWindow;

namespace uke {

class ViewController;

// Runs one app: builds the core's composition root on its ports, loads the QML views
// and carries actions from the views to the controllers and outlets back. The views
// reach it as the singleton `App` of the UkuleleTuner module.
class AppHost : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(App)
    QML_SINGLETON
    // The screens' outlets, one map entry per outlet name.
    Q_PROPERTY(QObject* tunerOutlets READ tunerOutlets CONSTANT)
    Q_PROPERTY(QObject* chordOutlets READ chordOutlets CONSTANT)
    // The screens' actions, by the app's names: App.tuner.act(name, value).
    Q_PROPERTY(uke::ScreenActions* tuner READ tuner CONSTANT)
    Q_PROPERTY(uke::ScreenActions* chords READ chords CONSTANT)
    Q_PROPERTY(uke::QmlAlertPresenter* alert READ alert CONSTANT)
    Q_PROPERTY(QVariantMap layout READ layout CONSTANT)
    Q_PROPERTY(QVariantMap geometry READ geometry CONSTANT)
    Q_PROPERTY(bool isPad READ isPad CONSTANT)
    Q_PROPERTY(bool chordsOpen READ chordsOpen NOTIFY chordsOpenChanged)
    // The panel over the tuner ("settings", "about", "tuningFork"), empty with none.
    Q_PROPERTY(QString panel READ panel NOTIFY panelChanged)
    // The lamp outlet this device class shows.
    Q_PROPERTY(QString lampOutlet READ lampOutlet CONSTANT)
    // Whether the microphone is being heard; false where no input could be opened.
    Q_PROPERTY(bool hearing READ hearing NOTIFY hearingChanged)
    // What the frequency read-out says while it has nothing to show.
    Q_PROPERTY(QString idleReadout READ idleReadout NOTIFY hearingChanged)
    // Whether the lamp says the last reading was in tune.
    Q_PROPERTY(bool inTune READ inTune NOTIFY inTuneChanged)
    // The window's pixels per layout point, kept by the window. Pictures are drawn at
    // it (and Qt adds the screen's pixel ratio), so they stay sharp at any size.
    Q_PROPERTY(qreal pixelScale READ pixelScale WRITE setPixelScale NOTIFY pixelScaleChanged)

public:
    using Options = AppOptions;

    // Without ports, the Qt ones made from the options.
    explicit AppHost(Options options, std::unique_ptr<AppPorts> ports = nullptr, QObject* parent = nullptr);
    ~AppHost() override;

    // Runs start-up: the delegate builds the window and the tuner screen appears.
    bool start();
    QQuickWindow* window() const;

    // The QML engine's instance: the host that loads the views.
    static AppHost* create(QQmlEngine* engine, QJSEngine*);

    QObject* tunerOutlets() { return &tunerMap_; }
    QObject* chordOutlets() { return &chordsMap_; }
    ScreenActions* tuner() { return &tunerActions_; }
    ScreenActions* chords() { return &chordActions_; }
    QmlAlertPresenter* alert() { return &ports_->alerts; }
    QVariantMap layout() const { return layout_; }
    QVariantMap geometry() const { return geometry_; }
    bool isPad() const { return options_.device.idiom == Idiom::Pad; }
    bool chordsOpen() const { return chordsOpen_; }
    QString panel() const { return QString::fromLatin1(TunerApp::panelName(panel_)); }
    QString lampOutlet() const { return QString::fromLatin1(app_->shownLampOutlet()); }
    bool hearing() const { return hearing_; }
    QString idleReadout() const;
    bool inTune() const { return inTune_; }
    qreal pixelScale() const { return pixelScale_; }
    void setPixelScale(qreal scale) {
        if (scale > 0 && scale != pixelScale_) {
            pixelScale_ = scale;
            emit pixelScaleChanged();
        }
    }

    TunerApp& app() { return *app_; }
    ViewController& tunerController() { return app_->tuner(); }
    TunerScreenModel& tunerModel() { return app_->tunerScreen(); }
    ChordScreenModel& chordModel() { return app_->chordScreen(); }
    SharedState& state() { return app_->state(); }
    RatingPrompt& rating() { return app_->rating(); }
    Log& log() { return ports_->log; }
    // Pushes changed outlets to the views: after an action or a delayed message,
    // comparing every outlet.
    void sync();
    // After a tick: only what the tick says it changed, usually nothing.
    void syncAfterTick();

signals:
    void chordsOpenChanged();
    void panelChanged();
    void hearingChanged();
    void inTuneChanged();
    void pixelScaleChanged();

private:
    bool buildWindow(const std::string& storyboard);
    void syncFlags();

    Options options_;
    std::unique_ptr<AppPorts> ports_;
    std::unique_ptr<TunerApp> app_;

    OutletMap tunerMap_;
    OutletMap chordsMap_;
    ScreenActions tunerActions_{*this, actions::Screen::Tuner};
    ScreenActions chordActions_{*this, actions::Screen::Chords};
    QVariantMap layout_;
    QVariantMap geometry_;
    std::unique_ptr<QQmlApplicationEngine> engine_;
    std::optional<StateFile> stateFile_;
    bool hearing_ = true;
    bool inTune_ = false;
    bool chordsOpen_ = false;
    TunerApp::Panel panel_ = TunerApp::Panel::None;
    qreal pixelScale_ = 1.0;
};

} // namespace uke
