// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "AppHost.h"

#include <QFile>
#include <QJsonDocument>
#include <QQuickWindow>

#include "ArtImageProvider.h"
#include "QtAppPorts.h"
#include "audio/MicListener.h"
#include "tuner/ViewController.h"

// The module's types live in this static library; naming their registration keeps
// the linker from dropping it.
extern void qml_register_types_UkuleleTuner();

namespace uke {

namespace {

QVariantMap readJsonResource(const QString& path) {
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return {};
    return QJsonDocument::fromJson(f.readAll()).toVariant().toMap();
}

// Where the engine keeps the host that made it, for the singleton's factory.
constexpr char kHostProperty[] = "ukeAppHost";

} // namespace

AppHost* AppHost::create(QQmlEngine* engine, QJSEngine*) {
    auto* host = qobject_cast<AppHost*>(engine->property(kHostProperty).value<QObject*>());
    // The host outlives its engine: QML must never delete it.
    if (host)
        QJSEngine::setObjectOwnership(host, QJSEngine::CppOwnership);
    return host;
}

AppHost::AppHost(Options options, std::unique_ptr<AppPorts> ports, QObject* parent)
    : QObject(parent), options_(std::move(options)), ports_(ports ? std::move(ports) : makeQtAppPorts(options_)) {
    MicListener::configure(*ports_->capture, ports_->log);
    app_ = std::make_unique<TunerApp>(ports_->services(), *MicListener::sharedListener());
    ports_->runLoop.afterTask = [this](bool repeating) { repeating ? syncAfterTick() : sync(); };
    if (!options_.stateOut.isEmpty())
        stateFile_.emplace(options_.stateOut);
    geometry_ = readJsonResource(":/art/geometry.json");
    volatile auto registration = &qml_register_types_UkuleleTuner;
    Q_UNUSED(registration);
}

AppHost::~AppHost() {
    // The listener outlives this host: let go of the capture before it is destroyed.
    MicListener::detach(*ports_->capture);
    // The output stream must go idle before the app ends.
    ports_->output->stop();
}

bool AppHost::start() {
    app_->start([this](const std::string& storyboard) { return buildWindow(storyboard); });
    sync();
    return window() != nullptr;
}

bool AppHost::buildWindow(const std::string& storyboard) {
    const QVariantMap all = readJsonResource(":/layouts/layouts.json");
    layout_ = all.value(QString::fromStdString(storyboard)).toMap();
    layout_["name"] = QString::fromStdString(storyboard);
    layout_["width"] = options_.device.width;
    layout_["height"] = options_.device.height;

    engine_ = std::make_unique<QQmlApplicationEngine>();
    engine_->addImageProvider("art", new ArtImageProvider);
    engine_->setProperty(kHostProperty, QVariant::fromValue<QObject*>(this));
    sync();
    engine_->load(QUrl("qrc:/UkuleleTuner/Main.qml"));
    if (engine_->rootObjects().isEmpty()) {
        ports_->log.log("The tuner screen could not be loaded");
        return false;
    }
    ports_->idleTimer->watch(window());
    return true;
}

QString AppHost::idleReadout() const { return QString::fromStdString(app_->idleReadout()); }

QQuickWindow* AppHost::window() const {
    if (!engine_ || engine_->rootObjects().isEmpty())
        return nullptr;
    return qobject_cast<QQuickWindow*>(engine_->rootObjects().first());
}

void AppHost::sync() {
    tunerMap_.sync(app_->tunerScreen());
    chordsMap_.sync(app_->chordScreen());
    app_->tunerScreen().readoutChanged = false;
    syncFlags();
}

void AppHost::syncAfterTick() {
    // A hundred times a second: nothing is converted or compared unless the tick
    // drew something.
    if (app_->tunerScreen().readoutChanged) {
        app_->tunerScreen().readoutChanged = false;
        tunerMap_.syncReadout(app_->tunerScreen());
        syncFlags();
    } else if (app_->hearing() != hearing_) {
        syncFlags();
    }
}

void AppHost::syncFlags() {
    if (const bool hearing = app_->hearing(); hearing != hearing_) {
        hearing_ = hearing;
        emit hearingChanged();
    }
    if (const bool open = app_->chordsOpen(); open != chordsOpen_) {
        chordsOpen_ = open;
        emit chordsOpenChanged();
    }
    if (const TunerApp::Panel panel = app_->panel(); panel != panel_) {
        panel_ = panel;
        emit panelChanged();
    }
    if (const bool inTune = app_->tunerScreen().inTune(); inTune != inTune_) {
        inTune_ = inTune;
        emit inTuneChanged();
    }
    if (stateFile_)
        stateFile_->update(app_->tunerScreen());
}

} // namespace uke
