#include "AppHost.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QLocale>
#include <QQuickWindow>

#include "ArtImageProvider.h"
#include "audio/MicListener.h"
#include "platform/qt/QtSettingsStore.h"
#include "platform/qt/QtStringTable.h"
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

// The sounds are found from where the binary runs, never from where it was built:
// an installed copy (or one moved elsewhere with its share folder) reads
// PREFIX/share/ukulele-tuner/sounds, and the build tree keeps a copy beside the binary.
QString defaultResourcePath() {
    const QDir bin(QCoreApplication::applicationDirPath());
    const QString installed = bin.filePath(QStringLiteral("../share/ukulele-tuner/sounds"));
    if (QDir(installed).exists())
        return QDir::cleanPath(installed);
    return bin.filePath(QStringLiteral("sounds"));
}

} // namespace

AppHost* AppHost::create(QQmlEngine* engine, QJSEngine*) {
    auto* host = qobject_cast<AppHost*>(engine->property(kHostProperty).value<QObject*>());
    // The host outlives its engine: QML must never delete it.
    if (host)
        QJSEngine::setObjectOwnership(host, QJSEngine::CppOwnership);
    return host;
}

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
    ports->idleTimer = std::make_unique<ScreenSaverInhibitor>();
    const QString sounds = options.resourcePath.isEmpty() ? defaultResourcePath() : options.resourcePath;
    // Said once here, rather than by every silent button press later.
    if (!QFileInfo(QDir(sounds).filePath(QStringLiteral("beep-full.mp3"))).isFile())
        qWarning("Sounds: no sounds in \"%s\"; the string sounds and the beep stay silent",
                 qUtf8Printable(QDir::toNativeSeparators(sounds)));
    ports->resourcePath = sounds.toStdString();
    return ports;
}

AppHost::AppHost(Options options, std::unique_ptr<AppPorts> ports, QObject* parent)
    : QObject(parent), options_(std::move(options)), ports_(ports ? std::move(ports) : qtPorts(options_)) {
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
    if (const bool inTune = app_->tunerScreen().inTune(); inTune != inTune_) {
        inTune_ = inTune;
        emit inTuneChanged();
    }
    if (stateFile_)
        stateFile_->update(app_->tunerScreen());
}

} // namespace uke
