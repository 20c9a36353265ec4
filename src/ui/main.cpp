// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QIcon>
#include <QQuickWindow>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <iterator>
#include <memory>

#include "AppHost.h"

namespace {

struct CommandLine {
    uke::AppHost::Options host;
    long tuning = 1;
    QString screenshot;
    double runFor = 0.0; // seconds; 0 = until the window closes
    QString show;        // a screen or panel to open at start
    bool stats = false;  // report the first frame and the frames drawn
};

// What --show opens: the chord library, or a panel over the tuner.
const std::pair<const char*, uke::TunerApp::Panel> kShowable[] = {{"chords", uke::TunerApp::Panel::None},
                                                                  {"settings", uke::TunerApp::Panel::Settings},
                                                                  {"about", uke::TunerApp::Panel::About},
                                                                  {"fork", uke::TunerApp::Panel::TuningFork}};

void usage(FILE* to) {
    std::fprintf(to, "usage: ukulele-tuner [--help] [--version] [--device phone-HEIGHT|pad-HEIGHT]\n"
                     "                     [--tuning 1..11] [--lang CODE] [--settings FILE.ini]\n"
                     "                     [--resources FOLDER] [--screenshot FILE.png]\n"
                     "                     [--run-for SECONDS] [--state-out FILE.json] [--quiet]\n"
                     "                     [--show chords|settings|about|fork] [--stats]\n");
}

// One line on stderr and the status of a bad argument.
int badArgument(const QString& message) {
    std::fprintf(stderr, "ukulele-tuner: %s\n", message.toLocal8Bit().constData());
    return 2;
}

// Returns an exit status to stop with, or -1 to go on.
int parse(const QStringList& arguments, CommandLine& cl) {
    const QCommandLineOption help(QStringList{"h", "help"}), version("version"), quiet("quiet"), stats("stats");
    const QCommandLineOption show("show", {}, "chords, settings, about or fork");
    const QCommandLineOption device("device", {}, "a device class such as phone-844 or pad-1194");
    const QCommandLineOption tuning("tuning", {}, "a tuning number from 1 to 11");
    const QCommandLineOption lang("lang", {}, "a language code such as en or es");
    const QCommandLineOption settings("settings", {}, "a file name");
    const QCommandLineOption resources("resources", {}, "a folder");
    const QCommandLineOption screenshot("screenshot", {}, "a PNG file name");
    const QCommandLineOption stateOut("state-out", {}, "a file name");
    const QCommandLineOption runFor("run-for", {}, "a number of seconds");
    QCommandLineParser p;
    p.addOptions({help, version, quiet, stats, show, device, tuning, lang, settings, resources, screenshot, stateOut, runFor});

    if (!p.parse(arguments)) {
        // An option that takes a value can only lack one at the end of the line.
        for (const QCommandLineOption& o : {show, device, tuning, lang, settings, resources, screenshot, stateOut, runFor})
            if (arguments.last() == "--" + o.names().constFirst())
                return badArgument(arguments.last() + " needs " + o.valueName());
        const QString name = p.unknownOptionNames().value(0);
        return badArgument(QString("unknown argument '%1%2' (try --help)").arg(name.size() > 1 ? "--" : "-", name));
    }
    if (!p.positionalArguments().isEmpty())
        return badArgument(QString("unknown argument '%1' (try --help)").arg(p.positionalArguments().constFirst()));
    if (p.isSet(help)) {
        usage(stdout);
        return 0;
    }
    if (p.isSet(version)) {
        std::printf("ukulele-tuner %s\n"
                    "License GPL-3.0-or-later: GNU GPL version 3 or later <https://gnu.org/licenses/gpl.html>\n",
                    UKE_VERSION);
        return 0;
    }
    if (p.isSet(device)) {
        const auto c = uke::DeviceClass::parse(p.value(device).toStdString());
        if (!c)
            return badArgument(QString("unknown device class '%1' (use phone-HEIGHT or pad-HEIGHT, e.g. phone-844)")
                                   .arg(p.value(device)));
        cl.host.device = *c;
    }
    if (p.isSet(tuning)) {
        bool ok = false;
        cl.tuning = p.value(tuning).toLong(&ok);
        if (!ok || cl.tuning < 1 || cl.tuning > 11)
            return badArgument(QString("--tuning needs a number from 1 to 11, not '%1'").arg(p.value(tuning)));
    }
    if (p.isSet(runFor)) {
        bool ok = false;
        cl.runFor = p.value(runFor).toDouble(&ok);
        if (!ok || !(cl.runFor > 0.0) || cl.runFor > 86400.0)
            return badArgument(QString("--run-for needs a positive number of seconds, not '%1'").arg(p.value(runFor)));
    }
    if (p.isSet(show)) {
        cl.show = p.value(show);
        if (std::none_of(std::begin(kShowable), std::end(kShowable), [&](const auto& s) { return cl.show == s.first; }))
            return badArgument(QString("--show needs chords, settings, about or fork, not '%1'").arg(cl.show));
    }
    cl.stats = p.isSet(stats);
    cl.host.language = p.value(lang);
    cl.host.settingsPath = p.value(settings);
    cl.host.resourcePath = p.value(resources);
    cl.screenshot = p.value(screenshot);
    cl.host.stateOut = p.value(stateOut);
    cl.host.quietLog = p.isSet(quiet);
    return -1;
}

// Opens the screen or panel --show names.
void showAtStart(uke::AppHost& host, const QString& show) {
    for (const auto& [name, panel] : kShowable) {
        if (show != name)
            continue;
        if (panel == uke::TunerApp::Panel::None)
            host.app().setChordsOpen(true);
        else
            host.app().openPanel(panel);
        host.sync();
    }
}

// --stats: when the first frame was drawn (from the start of main) and, at the
// end, how many frames were drawn in all; a screen that holds still draws none.
void reportFrames(QQuickWindow* window, const QElapsedTimer& sinceStart) {
    auto frames = std::make_shared<long>(0);
    QObject::connect(window, &QQuickWindow::frameSwapped, window, [frames, &sinceStart] {
        if ((*frames)++ == 0)
            std::fprintf(stderr, "ukulele-tuner: first frame after %lld ms\n", sinceStart.elapsed());
    });
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, window, [frames, &sinceStart] {
        std::fprintf(stderr, "ukulele-tuner: %ld frames in %.1f s\n", *frames, sinceStart.elapsed() / 1000.0);
    });
}

} // namespace

int main(int argc, char** argv) {
    QElapsedTimer sinceStart;
    sinceStart.start();
    // Read before the application object exists: a screenshot picks the platform.
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    CommandLine cl;
    if (const int status = parse(arguments, cl); status >= 0)
        return status;

    // A screenshot needs no display.
    if (!cl.screenshot.isEmpty() && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // The software renderer draws the same pixels everywhere and needs no GPU.
    if (qEnvironmentVariableIsEmpty("QT_QUICK_BACKEND"))
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);

    QGuiApplication app(argc, argv);
    QGuiApplication::setApplicationName("ukulele-tuner");
    QGuiApplication::setOrganizationName("ukulele-tuner");
    QGuiApplication::setApplicationDisplayName("Ukulele Tuner");
    // Ties the window to its menu entry (the Wayland app id, the dock's icon).
    QGuiApplication::setDesktopFileName(UKE_DESKTOP_ID);
    // The menu's picture, drawn from its SVG only when the desktop asks for a size.
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/icon/" UKE_DESKTOP_ID ".svg")));

    uke::AppHost host(cl.host);
    if (!host.start())
        return 1;
    if (cl.stats)
        reportFrames(host.window(), sinceStart);
    host.app().stepToTuning(cl.tuning);
    host.sync();
    if (!cl.show.isEmpty())
        showAtStart(host, cl.show);

    if (!cl.screenshot.isEmpty()) {
        // Let the first ticks and delayed messages run before the picture is taken.
        QTimer::singleShot(cl.runFor > 0.0 ? static_cast<int>(cl.runFor * 1000) : 400, &app, [&] {
            QQuickWindow* w = host.window();
            const QImage image = w ? w->grabWindow() : QImage();
            if (image.isNull() || !image.save(cl.screenshot)) {
                std::fprintf(stderr, "ukulele-tuner: could not write the screenshot to %s\n",
                             cl.screenshot.toLocal8Bit().constData());
                app.exit(2);
                return;
            }
            app.quit();
        });
    } else if (cl.runFor > 0.0) {
        QTimer::singleShot(static_cast<int>(cl.runFor * 1000), &app, &QGuiApplication::quit);
    }
    return app.exec();
}
