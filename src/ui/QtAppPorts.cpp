// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "QtAppPorts.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include "platform/qt/QtSettingsStore.h"
#include "platform/qt/QtStringTable.h"

namespace uke {

namespace {

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

std::unique_ptr<AppPorts> makeQtAppPorts(const AppOptions& options) {
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

} // namespace uke
