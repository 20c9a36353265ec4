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
#include "app/AppDelegate.h"
#include "audio/MicListener.h"
#include "chords/ChordsViewController.h"
#include "platform/qt/QtSettingsStore.h"
#include "platform/qt/QtStringTable.h"
#include "platform/virtual/TsStringTable.h"
#include "rating/RatingPrompt.h"
#include "sounds/ToneGenerator.h"
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

AppHost::AppHost(Options options, QObject* parent)
    : QObject(parent), options_(std::move(options)), device_(options_.device.idiom, options_.device.height) {
    log_.quiet = options_.quietLog;
    settings_ = std::make_unique<QtSettingsStore>(options_.settingsPath, log_);
    QtStringTable& strings = qtStringsForLanguage(options_.language);
    strings.installForViews();
    strings_ = &strings;
    capture_ = makeQtAudioCapture();
    output_ = makeQtAudioOutput();
    sounds_ = makeQtSoundPlayerFactory();
    urls_ = makeQtUrlOpener();
    network_ = makeQtNetworkProbe();
    storeReview_ = makeQtStoreReview();
    resourcePath_ = (options_.resourcePath.isEmpty() ? defaultResourcePath() : options_.resourcePath).toStdString();

    tone_ = std::make_unique<ToneGenerator>();
    rating_ = std::make_unique<RatingPrompt>(services());
    MicListener::configure(*capture_, log_);
    controller_ = std::make_unique<ViewController>(services(), state_, tunerModel_, *MicListener::sharedListener(),
                                                   *tone_, *rating_);
    controller_->makerUrl = UKE_MAKER_URL;
    delegate_ = std::make_unique<AppDelegate>(
        services(), *rating_, [this](const std::string& storyboard) { buildWindow(storyboard); }, UKE_APP_ID);
    runLoop_.afterTask = [this] { sync(); };
    geometry_ = readJsonResource(":/art/geometry.json");
}

AppHost::~AppHost() {
    // The listener outlives this host: let go of the capture before it is destroyed.
    MicListener::detach(*capture_);
    // The output stream must go idle before the app ends.
    if (output_)
        output_->stop();
}

Services AppHost::services() {
    return Services{runLoop_, *settings_, *strings_, log_,    device_, *capture_, *output_,
                    *sounds_, *urls_,     *network_, *storeReview_, alerts_, resourcePath_};
}

bool AppHost::start() {
    delegate_->didFinishLaunchingWithOptions();
    if (!delegate_->window()) {
        // A class of no layout table still gets a usable window: the nearest layout.
        const DeviceClass nearest = nearestLayoutClass(options_.device);
        const auto storyboard = storyboardFor(nearest.idiom, nearest.height);
        log_.log("No layout for " + options_.device.name() + "; using " + *storyboard + " (" + nearest.name() + ")");
        buildWindow(*storyboard);
    }
    sync();
    return window() != nullptr;
}

void AppHost::buildWindow(const std::string& storyboard) {
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
        log_.log("The tuner screen could not be loaded");
        return;
    }
    // The first screen of every layout is the tuner screen: it loads, then appears.
    controller_->viewDidLoad();
    controller_->viewWillAppear();
    sync();
}

QQuickWindow* AppHost::window() const {
    if (!engine_ || engine_->rootObjects().isEmpty())
        return nullptr;
    return qobject_cast<QQuickWindow*>(engine_->rootObjects().first());
}

void AppHost::sync() {
    tunerMap_.sync(tunerModel_);
    chordsMap_.sync(chordModel_);
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
    const QByteArray json = QJsonDocument::fromVariant(QVariantMap{{"outlets", outlets}}).toJson(QJsonDocument::Compact);
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
    ViewController& c = *controller_;
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
        {"soundNotificationAction", [](ViewController& v, const QVariant& x) { v.soundNotificationAction(x.toBool()); }},
        {"toggleStringSounds", [](ViewController& v, const QVariant& x) { v.toggleStringSounds(x.toBool()); }},
        {"toggleFreqChart", [](ViewController& v, const QVariant& x) { v.toggleFreqChart(x.toBool()); }},
        {"didSelectRow",
         [](ViewController& v, const QVariant& x) {
             v.didSelectRow(x.toInt());
             v.overrideDefaultLanguage();
         }},
        {"reviewQuenby", [](ViewController& v, const QVariant&) { v.reviewQuenby(); }},
        {"redirectToMorvaneLabs", [](ViewController& v, const QVariant&) { v.redirectToMorvaneLabs(); }},
        {"disableTemporarilySoundConfirmation",
         [](ViewController& v, const QVariant&) { v.disableTemporarilySoundConfirmation(); }},
        {"enableSoundConfirmation", [](ViewController& v, const QVariant&) { v.enableSoundConfirmation(); }},
    };
    const auto it = actions.find(name);
    if (it == actions.end()) {
        log_.log("Unknown tuner action: " + name.toStdString());
        return;
    }
    it->second(c, value);
    sync();
}

void AppHost::openChords() {
    if (chordsController_)
        return;
    chordModel_ = ChordScreenModel{};
    chordsController_ = std::make_unique<ChordsViewController>(services(), state_, chordModel_, *rating_);
    controller_->prepareForSegue("showChordsView", *chordsController_);
    chordsController_->viewDidLoad();
    sync();
    emit chordsOpenChanged();
}

void AppHost::closeChords() {
    if (!chordsController_)
        return;
    chordsController_.reset();
    emit chordsOpenChanged();
    // Coming back makes the tuner screen appear again.
    controller_->viewWillAppear();
    sync();
}

} // namespace uke
