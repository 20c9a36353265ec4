#include "AppHost.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QLocale>
#include <QQmlContext>
#include <QQuickWindow>
#include <QSaveFile>
#include <functional>
#include <map>

#include "ArtImageProvider.h"
#include "audio/MicListener.h"
#include "platform/qt/QtSettingsStore.h"
#include "platform/qt/QtStringTable.h"
#include "tuner/ViewController.h"

namespace uke {

namespace {

QVariantMap readJsonResource(const QString& path) {
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return {};
    return QJsonDocument::fromJson(f.readAll()).toVariant().toMap();
}

QString defaultResourcePath() {
    const QString beside = QCoreApplication::applicationDirPath() + "/sounds";
    if (QDir(beside).exists())
        return beside;
    return QStringLiteral(UKE_SOURCE_RESOURCES) + "/sounds";
}

} // namespace

std::unique_ptr<AppPorts> AppHost::qtPorts(const Options& options) {
    auto ports = std::make_unique<AppPorts>();
    ports->log.quiet = options.quietLog;
    ports->settings = std::make_unique<QtSettingsStore>(options.settingsPath, ports->log);
    QtStringTable& strings = qtStringsForLanguage(options.language);
    strings.installForViews();
    ports->strings = &strings;
    ports->device = std::make_unique<DeviceClassInfo>(options.device.idiom, options.device.height);
    ports->capture = makeQtAudioCapture();
    ports->output = makeQtAudioOutput();
    ports->sounds = makeQtSoundPlayerFactory();
    ports->urls = makeQtUrlOpener();
    ports->network = makeQtNetworkProbe();
    ports->storeReview = makeQtStoreReview();
    ports->resourcePath = (options.resourcePath.isEmpty() ? defaultResourcePath() : options.resourcePath).toStdString();
    return ports;
}

AppHost::AppHost(Options options, std::unique_ptr<AppPorts> ports, QObject* parent)
    : QObject(parent), options_(std::move(options)), ports_(ports ? std::move(ports) : qtPorts(options_)) {
    MicListener::configure(*ports_->capture, ports_->log);
    app_ = std::make_unique<TunerApp>(ports_->services(), *MicListener::sharedListener());
    ports_->runLoop.afterTask = [this] { sync(); };
    geometry_ = readJsonResource(":/art/geometry.json");
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
    engine_->rootContext()->setContextProperty("app", this);
    sync();
    engine_->load(QUrl("qrc:/UkuleleTuner/Main.qml"));
    if (engine_->rootObjects().isEmpty()) {
        ports_->log.log("The tuner screen could not be loaded");
        return false;
    }
    return true;
}

QQuickWindow* AppHost::window() const {
    if (!engine_ || engine_->rootObjects().isEmpty())
        return nullptr;
    return qobject_cast<QQuickWindow*>(engine_->rootObjects().first());
}

void AppHost::sync() {
    tunerMap_.sync(app_->tunerScreen());
    chordsMap_.sync(app_->chordScreen());
    if (const bool hearing = MicListener::sharedListener()->isListening(); hearing != hearing_) {
        hearing_ = hearing;
        emit hearingChanged();
    }
    if (!options_.stateOut.isEmpty())
        writeState();
}

void AppHost::writeState() {
    QVariantMap outlets;
    for (const QString& key : tunerMap_.keys())
        outlets.insert(key, tunerMap_.value(key));
    const QByteArray json =
        QJsonDocument::fromVariant(QVariantMap{{"outlets", outlets}}).toJson(QJsonDocument::Compact);
    if (json == lastState_)
        return;
    lastState_ = json;
    QSaveFile f(options_.stateOut);
    if (f.open(QIODevice::WriteOnly)) {
        f.write(json);
        f.commit();
    }
}

void AppHost::tunerAction(const QString& name, const QVariant& value) {
    ViewController& c = app_->tuner();
    static const std::map<QString, std::function<void(ViewController&, const QVariant&)>> actions = {
        {"showNextTuning", [](ViewController& v, const QVariant&) { v.showNextTuning(); }},
        {"showPreviousTuning", [](ViewController& v, const QVariant&) { v.showPreviousTuning(); }},
        {"playA440Hz", [](ViewController& v, const QVariant&) { v.playA440Hz(); }},
        {"playE329_6", [](ViewController& v, const QVariant&) { v.playE329_6(); }},
        {"playC261_6Hz", [](ViewController& v, const QVariant&) { v.playC261_6Hz(); }},
        {"playG392Hz", [](ViewController& v, const QVariant&) { v.playG392Hz(); }},
        {"stopFreqPlay", [](ViewController& v, const QVariant&) { v.stopFreqPlay(); }},
        {"play1stStringSound", [](ViewController& v, const QVariant&) { v.play1stStringSound(); }},
        {"play2ndStringSound", [](ViewController& v, const QVariant&) { v.play2ndStringSound(); }},
        {"play3rdStringSound", [](ViewController& v, const QVariant&) { v.play3rdStringSound(); }},
        {"play4thStringSound", [](ViewController& v, const QVariant&) { v.play4thStringSound(); }},
        {"micSensitivity", [](ViewController& v, const QVariant& x) { v.micSensitivity(x.toFloat()); }},
        {"setFrequencyValue", [](ViewController& v, const QVariant& x) { v.setFrequencyValue(x.toDouble()); }},
        {"soundNotificationAction",
         [](ViewController& v, const QVariant& x) { v.soundNotificationAction(x.toBool()); }},
        {"toggleStringSounds", [](ViewController& v, const QVariant& x) { v.toggleStringSounds(x.toBool()); }},
        {"toggleFreqChart", [](ViewController& v, const QVariant& x) { v.toggleFreqChart(x.toBool()); }},
        {"reviewQuenby", [](ViewController& v, const QVariant&) { v.reviewQuenby(); }},
        {"redirectToMorvaneLabs", [](ViewController& v, const QVariant&) { v.redirectToMorvaneLabs(); }},
        {"disableTemporarilySoundConfirmation",
         [](ViewController& v, const QVariant&) { v.disableTemporarilySoundConfirmation(); }},
        {"enableSoundConfirmation", [](ViewController& v, const QVariant&) { v.enableSoundConfirmation(); }},
    };
    if (name == QLatin1String("didSelectRow")) {
        app_->selectLanguage(value.toInt());
        sync();
        return;
    }
    const auto it = actions.find(name);
    if (it == actions.end()) {
        ports_->log.log("Unknown tuner action: " + name.toStdString());
        return;
    }
    it->second(c, value);
    sync();
}

void AppHost::openChords() {
    if (app_->chordsOpen())
        return;
    app_->openChords();
    sync();
    emit chordsOpenChanged();
}

void AppHost::closeChords() {
    if (!app_->chordsOpen())
        return;
    app_->closeChords();
    emit chordsOpenChanged();
    sync();
}

} // namespace uke
