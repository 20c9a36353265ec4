// The settings and about panels driven through the window, as a player drives
// them, and the pictures of them for the docs (written when UKE_DOCS_DIR names a
// folder).
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QMouseEvent>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSettings>
#include <QTemporaryDir>
#include <QUrl>
#include <cstdio>
#include <functional>
#include <unistd.h>

#include "AppHost.h"
#include "platform/virtual/TsStringTable.h"
#include "settings/SettingsKeys.h"
#include "support/QtApp.h"

namespace uke {
namespace {

void settle(int ms) {
    QElapsedTimer t;
    t.start();
    while (t.elapsed() < ms)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
}

// Whatever the app asks the desktop to open lands here instead of in a browser.
class UrlRecorder : public QObject {
    Q_OBJECT
public:
    UrlRecorder() {
        for (const char* scheme : kSchemes)
            QDesktopServices::setUrlHandler(scheme, this, "open");
    }
    ~UrlRecorder() override {
        for (const char* scheme : kSchemes)
            QDesktopServices::unsetUrlHandler(scheme);
    }
    QStringList opened;

public slots:
    void open(const QUrl& url) { opened << url.toString(); }

private:
    static constexpr const char* kSchemes[] = {"http", "https", "itms-apps"};
};

// The app's log goes to the standard error stream; this keeps a copy of it.
class StderrCapture {
public:
    StderrCapture() {
        std::fflush(stderr);
        saved_ = ::dup(2);
        std::FILE* f = std::fopen(path_.toLocal8Bit().constData(), "w");
        if (f) {
            ::dup2(::fileno(f), 2);
            std::fclose(f);
        }
    }
    ~StderrCapture() { restore(); }
    QString text() {
        restore();
        QFile f(path_);
        return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
    }

private:
    void restore() {
        if (saved_ < 0)
            return;
        std::fflush(stderr);
        ::dup2(saved_, 2);
        ::close(saved_);
        saved_ = -1;
    }
    QTemporaryDir dir_;
    QString path_ = dir_.filePath("stderr.txt");
    int saved_ = -1;
};

struct Running {
    using Seed = std::function<void(QSettings&)>;

    Running(const char* device, const char* language, const Seed& seed = {}, bool quiet = true) {
        test::ensureQtApp();
        if (seed) {
            QSettings ini(settingsPath(), QSettings::IniFormat);
            seed(ini);
        }
        AppHost::Options o;
        o.device = *DeviceClass::parse(device);
        o.settingsPath = settingsPath();
        o.quietLog = quiet;
        o.language = language;
        host = std::make_unique<AppHost>(o);
        started = host->start();
        settle(50);
    }
    QString settingsPath() const { return dir.filePath("settings.ini"); }
    // What the app has written to its store, read as a fresh process would.
    QVariant stored(const char* key) const { return QSettings(settingsPath(), QSettings::IniFormat).value(key); }

    QQuickWindow* window() const { return host->window(); }
    // Searched through the visual tree: items made by repeaters and views have no QObject parent.
    QQuickItem* item(const char* name, QQuickItem* under = nullptr) const {
        if (!under)
            under = window() ? window()->contentItem() : nullptr;
        return under ? find(under, name) : nullptr;
    }
    static QQuickItem* find(QQuickItem* under, const char* name) {
        for (QQuickItem* child : under->childItems()) {
            if (child->objectName() == QLatin1String(name))
                return child;
            if (QQuickItem* found = find(child, name))
                return found;
        }
        return nullptr;
    }
    QQuickItem* open(const char* sheet) {
        QQuickItem* s = item(sheet);
        EXPECT_NE(s, nullptr) << sheet;
        if (s) {
            s->setProperty("open", true);
            settle(350);
        }
        return s;
    }
    QPointF centre(QQuickItem* i) const { return i->mapToScene(QPointF(i->width() / 2, i->height() / 2)); }
    void mouse(QEvent::Type type, QPointF at) {
        const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent e(type, at, window()->mapToGlobal(at), Qt::LeftButton, held, Qt::NoModifier);
        QCoreApplication::sendEvent(window(), &e);
    }
    void tap(QQuickItem* i) {
        ASSERT_NE(i, nullptr);
        const QPointF at = centre(i);
        mouse(QEvent::MouseButtonPress, at);
        mouse(QEvent::MouseButtonRelease, at);
        settle(50);
    }
    // Presses the slider's handle, drags it to `fraction` of the track and lets go.
    void drag(QQuickItem* slider, double fraction) {
        ASSERT_NE(slider, nullptr);
        QQuickItem* handle = slider->property("handle").value<QQuickItem*>();
        ASSERT_NE(handle, nullptr);
        QPointF at = centre(handle);
        mouse(QEvent::MouseButtonPress, at);
        const double left = slider->property("leftPadding").toDouble() + handle->width() / 2;
        const double track = slider->property("availableWidth").toDouble() - handle->width();
        const QPointF to = slider->mapToScene(QPointF(left + fraction * track, slider->height() / 2));
        for (int step = 1; step <= 10; ++step) {
            at = at + (to - at) / (11 - step);
            mouse(QEvent::MouseMove, at);
            settle(5);
        }
        mouse(QEvent::MouseButtonRelease, to);
        settle(50);
    }
    QImage grab() {
        settle(100);
        return window()->grabWindow();
    }

    QTemporaryDir dir;
    std::unique_ptr<AppHost> host;
    bool started = false;
};

QString textOf(QQuickItem* i) { return i ? i->property("text").toString() : QString("(missing)"); }

QRectF sceneRect(QQuickItem* i) { return i->mapRectToScene(QRectF(0, 0, i->width(), i->height())); }

// Share of pixels that differ from the top-left one: a blank window scores near 0.
double varied(const QImage& img) {
    const QRgb bg = img.pixel(0, 0);
    long differ = 0;
    for (int y = 0; y < img.height(); y += 2)
        for (int x = 0; x < img.width(); x += 2)
            differ += img.pixel(x, y) != bg;
    return static_cast<double>(differ) / ((img.width() / 2) * (img.height() / 2));
}

// Keeps a picture for the docs when asked to; otherwise only checks it shows something.
void keep(const QImage& img, const char* name) {
    ASSERT_FALSE(img.isNull()) << name;
    EXPECT_GT(varied(img), 0.05) << name << " looks blank";
    if (const QByteArray docs = qgetenv("UKE_DOCS_DIR"); !docs.isEmpty()) {
        EXPECT_TRUE(img.save(QDir(QString::fromLocal8Bit(docs)).filePath(name))) << name;
    }
}

TEST(SettingsSheet, SliderReleaseUsesTheLowerStepAndStoresTheRoundedOne) {
    Running r("phone-844", "es", {}, false);
    ASSERT_TRUE(r.started);
    r.open("settingsSheet");
    const SharedState& state = r.host->state();
    EXPECT_EQ(textOf(r.item("micSensitivityLabel")), "Sensibilidad del micrófono");
    QQuickItem* slider = r.item("micSensitivitySlider");
    ASSERT_NE(slider, nullptr);
    EXPECT_EQ(slider->property("value").toDouble(), 5.0);
    EXPECT_EQ(slider->property("from").toDouble(), 0.0);
    EXPECT_EQ(slider->property("to").toDouble(), 10.0);

    StderrCapture log;
    r.drag(slider, 0.46);
    EXPECT_EQ(state.micSensitivityValue, 4);
    EXPECT_EQ(state.bottomLimit, 0.003);
    EXPECT_EQ(state.topLimit, 0.0055);
    EXPECT_EQ(r.stored(keys::savedSliderValue).toInt(), 5);
    // The handle settles on the step that was stored, though it was 5 before too.
    EXPECT_EQ(slider->property("value").toDouble(), 5.0);
    EXPECT_EQ(r.host->tunerModel().micSensitivitySlider.value, 5.0);

    r.drag(slider, 0.0);
    EXPECT_EQ(state.micSensitivityValue, 0);
    EXPECT_EQ(state.bottomLimit, 0.007);
    EXPECT_EQ(state.topLimit, 0.0095);
    EXPECT_EQ(r.stored(keys::savedSliderValue).toInt(), 0);
    EXPECT_EQ(slider->property("value").toDouble(), 0.0);

    r.drag(slider, 1.0);
    EXPECT_EQ(state.micSensitivityValue, 10);
    EXPECT_EQ(state.bottomLimit, 0.002);
    EXPECT_EQ(r.stored(keys::savedSliderValue).toInt(), 10);

    const QString lines = log.text();
    EXPECT_TRUE(lines.contains("micSensitivityValue: 4\nbottomLimit: 0.003000\ntopLimit: 0.005500\n"))
        << lines.toStdString();
    EXPECT_TRUE(lines.contains("micSensitivityValue: 0\nbottomLimit: 0.007000\ntopLimit: 0.009500\n"))
        << lines.toStdString();
}

TEST(SettingsSheet, StepperStepsWholeHertzAndStopsAtItsEnds) {
    Running r("phone-667", "de");
    ASSERT_TRUE(r.started);
    r.open("settingsSheet");
    EXPECT_EQ(textOf(r.item("calibrationLabel")), "Kalibrierung A4 =");
    EXPECT_EQ(textOf(r.item("calibrationFrequencyValue")), "440");
    r.tap(r.item("stepperPlus"));
    r.tap(r.item("stepperPlus"));
    r.tap(r.item("stepperMinus"));
    EXPECT_EQ(r.host->state().a4Calibration, 441);
    EXPECT_EQ(r.stored(keys::savedA4Calibration).toInt(), 441);
    EXPECT_EQ(textOf(r.item("calibrationFrequencyValue")), "441");

    r.host->tunerAction("setFrequencyValue", 466.0);
    settle(20);
    r.tap(r.item("stepperPlus"));
    EXPECT_EQ(r.host->state().a4Calibration, 466);
    r.host->tunerAction("setFrequencyValue", 415.0);
    settle(20);
    r.tap(r.item("stepperMinus"));
    EXPECT_EQ(r.host->state().a4Calibration, 415);
    EXPECT_EQ(r.stored(keys::savedA4Calibration).toInt(), 415);
}

TEST(SettingsSheet, SwitchesStoreAndLogTheirState) {
    Running r("phone-844", "en", {}, false);
    ASSERT_TRUE(r.started);
    r.open("settingsSheet");
    const SharedState& state = r.host->state();
    QQuickItem* chart = r.item("freqChartSwitchControl");
    QQuickItem* strings = r.item("stringSoundsSwitchControl");
    QQuickItem* beep = r.item("soundNotificationSwitchControl");
    ASSERT_TRUE(chart && strings && beep);
    EXPECT_TRUE(chart->property("checked").toBool());
    EXPECT_FALSE(strings->property("checked").toBool());
    EXPECT_TRUE(beep->property("checked").toBool());

    StderrCapture log;
    r.tap(chart);
    r.tap(strings);
    r.tap(beep);
    EXPECT_FALSE(state.frequencyChartOn);
    EXPECT_TRUE(state.stringSoundsOn);
    EXPECT_FALSE(state.soundNotificationOn);
    EXPECT_FALSE(chart->property("checked").toBool());
    EXPECT_TRUE(strings->property("checked").toBool());
    EXPECT_FALSE(beep->property("checked").toBool());
    EXPECT_EQ(r.stored(keys::frequencyChartEnabled).toString(), "false");
    EXPECT_EQ(r.stored(keys::stringSoundsEnabled).toString(), "true");
    EXPECT_EQ(r.stored(keys::soundNotificationEnabled).toString(), "false");
    EXPECT_EQ(log.text().section("\n", 0, 2).toStdString(), "Frequency chart IS NOT enabled: 0\n"
                                                            "Has encendido el Switch, valor de la variable = 1\n"
                                                            "Has apagado el Switch, valor de la variable = 0");

    r.tap(r.item("sheetDone", r.item("settingsSheet")));
    settle(350);
    EXPECT_FALSE(r.item("settingsSheet")->isVisible());
}

TEST(SettingsSheet, NamingPickerStoresItsRowAtOnce) {
    Running r("phone-667", "ru");
    ASSERT_TRUE(r.started);
    r.open("settingsSheet");
    const SharedState& state = r.host->state();
    QQuickItem* wheel = r.item("establecerIdioma");
    ASSERT_NE(wheel, nullptr);
    EXPECT_EQ(wheel->property("count").toInt(), 6);
    EXPECT_DOUBLE_EQ(wheel->property("scale").toDouble(), 0.75);
    EXPECT_EQ(textOf(r.item("languageRow5")), "Кириллица (До Ре Ми)");

    r.tap(r.item("languageRow2"));
    EXPECT_EQ(state.languageIndex, 2);
    EXPECT_EQ(r.stored(keys::SavedLanguage).toInt(), 2);
    EXPECT_EQ(wheel->property("currentIndex").toInt(), 2);

    // A row the wheel comes to rest on counts as chosen, as a tapped one does.
    ASSERT_TRUE(QMetaObject::invokeMethod(wheel, "choose", Q_ARG(QVariant, 5)));
    settle(50);
    EXPECT_EQ(state.languageIndex, 5);
    EXPECT_EQ(r.stored(keys::SavedLanguage).toInt(), 5);
    EXPECT_EQ(wheel->property("currentIndex").toInt(), 5);
    if (demoModeEnabled)
        GTEST_SKIP() << "the demonstration picture writes the note labels itself";
    EXPECT_EQ(r.host->tunerModel().firstString.text, "Ля");
    EXPECT_EQ(r.host->tunerModel().a4TFButton.title, "Ля4");
}

TEST(AboutSheet, ShowsItsTextsInTheAppsLanguage) {
    Running r("phone-844", "de");
    ASSERT_TRUE(r.started);
    QQuickItem* sheet = r.open("aboutSheet");
    ASSERT_NE(sheet, nullptr);
    EXPECT_TRUE(textOf(r.item("aboutCongratsMessage")).startsWith("Danke"));
    EXPECT_TRUE(textOf(r.item("aboutMsg2")).startsWith("Mit Sorgfalt"));
    EXPECT_EQ(textOf(r.item("reviewButtonText")), "App bewerten");
    EXPECT_EQ(textOf(r.item("makerButtonText")), "Zum Hersteller");
}

TEST(AboutSheet, ButtonsOpenTheMakerAndTheReviewAddresses) {
    // A returning player on the fourth run: the review button asks the rating prompt.
    Running r(
        "phone-844", "en",
        [](QSettings& ini) {
            ini.setValue(keys::NewLaunchOrvel, true);
            ini.setValue(keys::numberOfRuns, 3);
        },
        false);
    ASSERT_TRUE(r.started);
    r.open("aboutSheet");
    UrlRecorder urls;
    r.tap(r.item("makerButton"));
    EXPECT_EQ(urls.opened, QStringList{UKE_MAKER_URL});

    if (demoModeEnabled)
        GTEST_SKIP() << "the demonstration build never asks for a rating";
    StderrCapture log;
    r.tap(r.item("reviewButton"));
    settle(100);
    QObject* alert = r.host->alert();
    if (alert->property("visible").toBool()) {
        // The desktop has no review sheet of its own: rating leads to the store's review page.
        ASSERT_TRUE(QMetaObject::invokeMethod(alert, "press", Q_ARG(int, 0)));
        settle(50);
        ASSERT_EQ(urls.opened.size(), 2);
        EXPECT_TRUE(urls.opened[1].startsWith("itms-apps://" UKE_STORE_HOST "/")) << urls.opened[1].toStdString();
        EXPECT_TRUE(urls.opened[1].contains(UKE_APP_ID)) << urls.opened[1].toStdString();
    } else {
        // Without a known network state the prompt stays away, and says why.
        EXPECT_TRUE(log.text().contains("Error. Could not recover network reachability flags"));
        EXPECT_EQ(urls.opened.size(), 1);
    }
}

// Every caption of both panels reads in full, inside the card, in every language
// and on the smallest and largest phones and a pad.
class PanelsFit : public ::testing::TestWithParam<std::string> {};

TEST_P(PanelsFit, OnEveryScreenClass) {
    for (const char* device : {"phone-480", "phone-667", "phone-844", "pad-1194"}) {
        SCOPED_TRACE(device);
        Running r(device, GetParam().c_str());
        ASSERT_TRUE(r.started);
        const QRectF window(0, 0, r.window()->width(), r.window()->height());

        QQuickItem* settings = r.open("settingsSheet");
        ASSERT_NE(settings, nullptr);
        QQuickItem* card = r.item("sheetCard", settings);
        ASSERT_NE(card, nullptr);
        const QRectF cardRect = sceneRect(card);
        EXPECT_TRUE(window.contains(cardRect)) << "card " << cardRect.width() << "x" << cardRect.height();
        for (const char* name : {"micSensitivityLabel", "calibrationLabel", "soundNotificationLabel",
                                 "stringSoundsLabel", "frequencyChartLabel", "noteNamesCaption", "languageRow0",
                                 "languageRow1", "languageRow2", "languageRow3", "languageRow4", "languageRow5"}) {
            QQuickItem* text = r.item(name, settings);
            ASSERT_NE(text, nullptr) << name;
            EXPECT_FALSE(text->property("text").toString().isEmpty()) << name;
            EXPECT_FALSE(text->property("truncated").toBool()) << name << " \"" << textOf(text).toStdString() << "\"";
        }
        for (const char* name : {"micSensitivitySlider", "setFrequencyValueStepper", "hZLabel",
                                 "freqChartSwitchControl", "establecerIdioma"}) {
            QQuickItem* control = r.item(name, settings);
            ASSERT_NE(control, nullptr) << name;
            const QRectF at = sceneRect(control);
            EXPECT_GE(at.left(), cardRect.left()) << name;
            EXPECT_LE(at.right(), cardRect.right()) << name;
        }
        // The read-out and its unit stay clear of the stepper's buttons.
        EXPECT_LE(sceneRect(r.item("hZLabel", settings)).right(),
                  sceneRect(r.item("setFrequencyValueStepper", settings)).left());
        // Content that does not fit scrolls, so nothing is out of reach.
        QQuickItem* scroller = r.item("sheetScroller", card);
        ASSERT_NE(scroller, nullptr);
        if (scroller->property("contentHeight").toDouble() > scroller->height()) {
            EXPECT_TRUE(scroller->property("interactive").toBool());
        }
        settings->setProperty("open", false);

        QQuickItem* about = r.open("aboutSheet");
        ASSERT_NE(about, nullptr);
        const QRectF aboutCard = sceneRect(r.item("sheetCard", about));
        EXPECT_TRUE(window.contains(aboutCard));
        for (const char* name : {"reviewButtonText", "makerButtonText"})
            EXPECT_FALSE(r.item(name, about)->property("truncated").toBool()) << name;
        QQuickItem* maker = r.item("makerButton", about);
        EXPECT_LE(sceneRect(maker).bottom(), aboutCard.bottom()) << "the last button is cut off";
    }
}

INSTANTIATE_TEST_SUITE_P(EveryLanguage, PanelsFit, ::testing::ValuesIn(builtInLanguages()),
                         [](const ::testing::TestParamInfo<std::string>& info) { return info.param; });

TEST(Screenshots, SettingsOnPhoneAndPadAndTheNamingSystems) {
    {
        Running r("phone-844", "en");
        ASSERT_TRUE(r.started);
        r.open("settingsSheet");
        keep(r.grab(), "settings-phone.png");
    }
    {
        Running r("pad-1194", "en");
        ASSERT_TRUE(r.started);
        r.open("settingsSheet");
        keep(r.grab(), "settings-pad.png");
    }
    if (demoModeEnabled)
        GTEST_SKIP() << "the demonstration picture writes the note labels itself";
    {
        Running r("phone-844", "es");
        ASSERT_TRUE(r.started);
        r.host->tunerAction("didSelectRow", 2);
        EXPECT_EQ(r.host->tunerModel().firstString.text, "La4");
        keep(r.grab(), "tuner-solfege.png");
    }
    {
        Running r("phone-844", "ru");
        ASSERT_TRUE(r.started);
        r.host->tunerAction("didSelectRow", 5);
        EXPECT_EQ(r.host->tunerModel().firstString.text, "Ля");
        keep(r.grab(), "tuner-cyrillic.png");
    }
}

} // namespace
} // namespace uke

#include "test_settings_sheet.moc"
