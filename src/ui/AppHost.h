#pragma once
#include <QObject>
#include <QPointer>
#include <QQmlApplicationEngine>
#include <QVariantMap>
#include <memory>

#include "AppPorts.h"
#include "OutletMap.h"
#include "app/TunerApp.h"
#include "base/LayoutClass.h"

class QQuickWindow;

namespace uke {

class ViewController;

// Runs one app: builds the core's composition root on its ports, loads the QML views
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
        QString language;     // empty: follow the system locale
        QString settingsPath; // empty: the standard location
        QString resourcePath; // empty: next to the program
        QString stateOut;     // file rewritten with the tuner's outlets as they change
        bool quietLog = false;
    };

    // Without ports, the Qt ones made from the options.
    explicit AppHost(Options options, std::unique_ptr<AppPorts> ports = nullptr, QObject* parent = nullptr);
    static std::unique_ptr<AppPorts> qtPorts(const Options& options);
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
    QObject* alert() { return &ports_->alerts; }
    QVariantMap layout() const { return layout_; }
    QVariantMap geometry() const { return geometry_; }
    bool isPad() const { return options_.device.idiom == Idiom::Pad; }
    bool chordsOpen() const { return app_->chordsOpen(); }
    bool hearing() const { return hearing_; }

    TunerApp& app() { return *app_; }
    ViewController& tunerController() { return app_->tuner(); }
    TunerScreenModel& tunerModel() { return app_->tunerScreen(); }
    ChordScreenModel& chordModel() { return app_->chordScreen(); }
    SharedState& state() { return app_->state(); }
    RatingPrompt& rating() { return app_->rating(); }
    Log& log() { return ports_->log; }
    // Pushes changed outlets to the views.
    void sync();

signals:
    void chordsOpenChanged();
    void hearingChanged();

private:
    bool buildWindow(const std::string& storyboard);
    void writeState();

    Options options_;
    std::unique_ptr<AppPorts> ports_;
    std::unique_ptr<TunerApp> app_;

    OutletMap tunerMap_;
    OutletMap chordsMap_;
    QVariantMap layout_;
    QVariantMap geometry_;
    std::unique_ptr<QQmlApplicationEngine> engine_;
    QByteArray lastState_;
    bool hearing_ = true;
};

} // namespace uke
