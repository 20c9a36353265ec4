// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "Args.h"
#include "Commands.h"
#include "TunerSession.h"

#ifdef UKE_HAVE_QT
#include <QCoreApplication>
#include <QAudioDevice>
#include <QMediaDevices>
#include <QTimer>
#include <atomic>
#include <csignal>

#include "audio/MicListener.h"
#include "platform/qt/QtPorts.h"
#include "platform/qt/QtRunLoop.h"
#include "platform/virtual/VirtualPlatform.h"
#include "platform/virtual/TsStringTable.h"
#endif

namespace uke::tool {

#ifdef UKE_HAVE_QT
namespace {
std::atomic<bool> interrupted{false};
void onSignal(int) { interrupted = true; }
} // namespace
#endif

int cmdListen(const Words& words, [[maybe_unused]] std::ostream& out, std::ostream& err) {
    Args args({"tuning", "a4", "sensitivity", "device", "format"}, {});
    TunerOptions options;
    std::string error;
    if (!args.parse(words) || !readTunerOptions(args, options, error) || !args.positionalAtMost(0)) {
        err << "uke listen: " << (error.empty() ? args.error() : error) << "\n";
        return 2;
    }
#ifndef UKE_HAVE_QT
    err << "uke listen: this build has no audio capture (built without Qt)\n";
    return 2;
#else
    static int argc = 1;
    static char name[] = "uke";
    static char* argv[] = {name, nullptr};
    QCoreApplication app(argc, argv);
    if (QMediaDevices::defaultAudioInput().isNull()) {
        err << "uke listen: no microphone found (no audio input device is available)\n";
        return 2;
    }
    // The real microphone and clock; everything else stays virtual so nothing is stored or played.
    VirtualPlatform virt;
    virt.device.idiomValue = options.device.idiom;
    virt.device.height = options.device.height;
    QtRunLoop loop;
    QtLog log;
    auto capture = makeQtAudioCapture();
    Services services{loop,       virt.memoryStore, stringsForLanguage("en"), log,           virt.device,
                      *capture,   virt.output,      virt.sounds,              virt.urls,     virt.network,
                      virt.storeReview, virt.alerts, virt.idleTimer, "sounds"};
    const MicListener::Attachment attached(*capture, log);
    MicListener* listener = MicListener::sharedListener();
    TunerSession session(services, *listener, options, out);
    session.start();
    if (!capture->isRunning()) {
        err << "uke listen: the microphone could not be opened" << (capture->lastError().empty() ? "" : ": ")
            << capture->lastError() << "\n";
        return 2;
    }
    err << "Listening on \"" << QMediaDevices::defaultAudioInput().description().toStdString()
        << "\"; press Ctrl+C to stop.\n";

    const double started = loop.now();
    size_t beeps = 0;
    loop.scheduleRepeating(0.01, [&] {
        const size_t now = virt.sounds.played.size();
        session.afterTick(loop.now() - started, now > beeps);
        beeps = now;
    });
    std::signal(SIGINT, onSignal);
    std::signal(SIGTERM, onSignal);
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &app, [&] {
        if (interrupted)
            app.quit();
    });
    poll.start(50);
    app.exec();
    capture->dispose();
    return 0;
#endif
}

} // namespace uke::tool
