#include <QCommandLineParser>
#include <QGuiApplication>
#include <QQuickWindow>
#include <QTimer>
#include <cstdio>

#include "AppHost.h"

namespace {

struct CommandLine {
    uke::AppHost::Options host;
    long tuning = 1;
    QString screenshot;
    double runFor = 0.0; // seconds; 0 = until the window closes
};

void usage(FILE* to) {
    std::fprintf(to, "usage: ukulele-tuner [--device phone-HEIGHT|pad-HEIGHT] [--tuning 1..11] [--lang CODE]\n"
                     "                     [--settings FILE.ini] [--resources FOLDER] [--screenshot FILE.png]\n"
                     "                     [--run-for SECONDS] [--state-out FILE.json] [--quiet]\n");
}

// One line on stderr and the status of a bad argument.
int badArgument(const QString& message) {
    std::fprintf(stderr, "ukulele-tuner: %s\n", message.toLocal8Bit().constData());
    return 2;
}

// Returns an exit status to stop with, or -1 to go on.
int parse(const QStringList& arguments, CommandLine& cl) {
    const QCommandLineOption help(QStringList{"h", "help"}), quiet("quiet");
    const QCommandLineOption device("device", {}, "a device class such as phone-844 or pad-1194");
    const QCommandLineOption tuning("tuning", {}, "a tuning number from 1 to 11");
    const QCommandLineOption lang("lang", {}, "a language code such as en or es");
    const QCommandLineOption settings("settings", {}, "a file name");
    const QCommandLineOption resources("resources", {}, "a folder");
    const QCommandLineOption screenshot("screenshot", {}, "a PNG file name");
    const QCommandLineOption stateOut("state-out", {}, "a file name");
    const QCommandLineOption runFor("run-for", {}, "a number of seconds");
    QCommandLineParser p;
    p.addOptions({help, quiet, device, tuning, lang, settings, resources, screenshot, stateOut, runFor});

    if (!p.parse(arguments)) {
        // An option that takes a value can only lack one at the end of the line.
        for (const QCommandLineOption& o : {device, tuning, lang, settings, resources, screenshot, stateOut, runFor})
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
    cl.host.language = p.value(lang);
    cl.host.settingsPath = p.value(settings);
    cl.host.resourcePath = p.value(resources);
    cl.screenshot = p.value(screenshot);
    cl.host.stateOut = p.value(stateOut);
    cl.host.quietLog = p.isSet(quiet);
    return -1;
}

} // namespace

int main(int argc, char** argv) {
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

    uke::AppHost host(cl.host);
    if (!host.start())
        return 1;
    for (long t = 1; t < cl.tuning; ++t)
        host.tuner()->showNextTuning();

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
