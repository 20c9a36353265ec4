#pragma once
#include <QObject>
#include <QPointer>
#include <QQmlApplicationEngine>
#include <QVariantMap>
#include <memory>

#include "OutletMap.h"
#include "QmlAlertPresenter.h"
#include "base/LayoutClass.h"
#include "base/SharedState.h"
#include "chords/ChordScreenModel.h"
#include "platform/qt/QtPorts.h"
#include "platform/qt/QtRunLoop.h"
#include "tuner/TunerScreenModel.h"

class QQuickWindow;

namespace uke {

class AppDelegate;
class ChordsViewController;
class QtSettingsStore;
class RatingPrompt;
class ToneGenerator;
class ViewController;
class StringTable;

// Owns the core objects and the Qt ports of one running app, loads the QML views
// and carries actions from the views to the controllers and outlets back.
class AppHost : public QObject {
    Q_OBJECT
    Q_PROPERTY(QObject* tuner READ tuner CONSTANT)
    Q_PROPERTY(QObject* chords READ chords CONSTANT)
    Q_PROPERTY(QObject* alert READ alert CONSTANT)
    Q_PROPERTY(QVariantMap layout READ layout CONSTANT)
    Q_PROPERTY(QVariantMap geometry READ geometry CONSTANT)
    Q_PROPERTY(bool isPad READ isPad CONSTANT)
    Q_PROPERTY(bool chordsOpen READ chordsOpen NOTIFY chordsOpenChanged)
    // Whether the microphone is being heard; false where no input could be opened.
    Q_PROPERTY(bool hearing READ hearing NOTIFY hearingChanged)

public:
    struct Options {
        DeviceClass device;
        QString language;       // empty: follow the system locale
        QString settingsPath;   // empty: the standard location
        QString resourcePath;   // empty: next to the program
        QString stateOut;       // file rewritten with the tuner's outlets as they change
        bool quietLog = false;
    };

    explicit AppHost(Options options, QObject* parent = nullptr);
    ~AppHost() override;

    // Runs start-up: the delegate builds the window and the tuner screen appears.
    bool start();
    QQuickWindow* window() const;

    Q_INVOKABLE void tunerAction(const QString& name, const QVariant& value = {});
    Q_INVOKABLE void chordsAction(const QString& name, const QVariant& value = {}, const QVariant& extra = {});
    Q_INVOKABLE void openChords();
    Q_INVOKABLE void closeChords();

    QObject* tuner() { return &tunerMap_; }
    QObject* chords() { return &chordsMap_; }
    QObject* alert() { return &alerts_; }
    QVariantMap layout() const { return layout_; }
    QVariantMap geometry() const { return geometry_; }
    bool isPad() const { return options_.device.idiom == Idiom::Pad; }
    bool chordsOpen() const { return chordsController_ != nullptr; }
    bool hearing() const { return hearing_; }

    ViewController& tunerController() { return *controller_; }
    TunerScreenModel& tunerModel() { return tunerModel_; }
    ChordScreenModel& chordModel() { return chordModel_; }
    SharedState& state() { return state_; }
    RatingPrompt& rating() { return *rating_; }
    Log& log() { return log_; }
    // Pushes changed outlets to the views.
    void sync();

signals:
    void chordsOpenChanged();
    void hearingChanged();

private:
    void buildWindow(const std::string& storyboard);
    void writeState();
    Services services();

    Options options_;
    QtRunLoop runLoop_;
    QtLog log_;
    std::unique_ptr<QtSettingsStore> settings_;
    const StringTable* strings_ = nullptr;
    DeviceClassInfo device_;
    std::unique_ptr<AudioCapture> capture_;
    std::unique_ptr<AudioOutput> output_;
    std::unique_ptr<SoundPlayerFactory> sounds_;
    std::unique_ptr<UrlOpener> urls_;
    std::unique_ptr<NetworkProbe> network_;
    std::unique_ptr<StoreReview> storeReview_;
    QmlAlertPresenter alerts_;

    SharedState state_;
    TunerScreenModel tunerModel_;
    ChordScreenModel chordModel_;
    std::unique_ptr<ToneGenerator> tone_;
    std::unique_ptr<RatingPrompt> rating_;
    std::unique_ptr<ViewController> controller_;
    std::unique_ptr<ChordsViewController> chordsController_;
    std::unique_ptr<AppDelegate> delegate_;

    OutletMap tunerMap_;
    OutletMap chordsMap_;
    QVariantMap layout_;
    QVariantMap geometry_;
    std::unique_ptr<QQmlApplicationEngine> engine_;
    QByteArray lastState_;
    std::string resourcePath_;
    bool hearing_ = true;
};

} // namespace uke
