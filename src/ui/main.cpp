#include <QGuiApplication>
#include <QQuickWindow>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "AppHost.h"
#include "tuner/ViewController.h"

namespace {

struct CommandLine {
    uke::AppHost::Options host;
    long tuning = 1;
    QString screenshot;
    double runFor = 0.0;  // seconds; 0 = until the window closes
};

void usage(FILE* to) {
    std::fprintf(to,
                 "usage: ukulele-tuner [--device phone-HEIGHT|pad-HEIGHT] [--tuning 1..11] [--lang CODE]\n"
                 "                     [--settings FILE.ini] [--screenshot FILE.png] [--run-for SECONDS]\n"
                 "                     [--state-out FILE.json] [--quiet]\n");
}

// Returns an exit status to stop with, or -1 to go on.
int parse(int argc, char** argv, CommandLine& cl) {
    for (int i = 1; i < argc; ++i) {
        const std::string a = argv[i];
        auto next = [&](const char* what) -> const char* {
            if (i + 1 >= argc) {
                std::fprintf(stderr, "ukulele-tuner: %s needs %s\n", a.c_str(), what);
                return nullptr;
            }
            return argv[++i];
        };
        if (a == "--help" || a == "-h") {
            usage(stdout);
            return 0;
        } else if (a == "--device") {
            const char* v = next("a device class such as phone-844 or pad-1194");
            if (!v)
                return 2;
            const auto c = uke::DeviceClass::parse(v);
            if (!c) {
                std::fprintf(stderr, "ukulele-tuner: unknown device class '%s' (use phone-HEIGHT or pad-HEIGHT, e.g. phone-844)\n", v);
                return 2;
            }
            cl.host.device = *c;
        } else if (a == "--tuning") {
            const char* v = next("a tuning number from 1 to 11");
            if (!v)
                return 2;
            char* end = nullptr;
            cl.tuning = std::strtol(v, &end, 10);
            if (*end != '\0' || cl.tuning < 1 || cl.tuning > 11) {
                std::fprintf(stderr, "ukulele-tuner: --tuning needs a number from 1 to 11, not '%s'\n", v);
                return 2;
            }
        } else if (a == "--lang") {
            const char* v = next("a language code such as en or es");
            if (!v)
                return 2;
            cl.host.language = QString::fromLocal8Bit(v);
        } else if (a == "--settings") {
            const char* v = next("a file name");
            if (!v)
                return 2;
            cl.host.settingsPath = QString::fromLocal8Bit(v);
        } else if (a == "--resources") {
            const char* v = next("a folder");
            if (!v)
                return 2;
            cl.host.resourcePath = QString::fromLocal8Bit(v);
        } else if (a == "--screenshot") {
            const char* v = next("a PNG file name");
            if (!v)
                return 2;
            cl.screenshot = QString::fromLocal8Bit(v);
        } else if (a == "--state-out") {
            const char* v = next("a file name");
            if (!v)
                return 2;
            cl.host.stateOut = QString::fromLocal8Bit(v);
        } else if (a == "--run-for") {
            const char* v = next("a number of seconds");
            if (!v)
                return 2;
            char* end = nullptr;
            cl.runFor = std::strtod(v, &end);
            if (*end != '\0' || !(cl.runFor > 0.0) || cl.runFor > 86400.0) {
                std::fprintf(stderr, "ukulele-tuner: --run-for needs a positive number of seconds, not '%s'\n", v);
                return 2;
            }
        } else if (a == "--quiet") {
            cl.host.quietLog = true;
        } else {
            std::fprintf(stderr, "ukulele-tuner: unknown argument '%s' (try --help)\n", a.c_str());
            return 2;
        }
    }
    return -1;
}

} // namespace

int main(int argc, char** argv) {
    CommandLine cl;
    if (const int status = parse(argc, argv, cl); status >= 0)
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
