// The settings and about panels driven through the window, as a player drives
// them, and the pictures of them for the docs.
#include <gtest/gtest.h>

#include <QDesktopServices>
#include <QUrl>

#include "platform/virtual/TsStringTable.h"
#include "settings/SettingsKeys.h"
#include "support/RunningApp.h"

namespace uke {
namespace {

using test::RunningApp;
using test::settle;

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

QQuickItem* openSheet(RunningApp& r, const char* sheet) {
    QQuickItem* s = r.item(sheet);
    EXPECT_NE(s, nullptr) << sheet;
    if (s) {
        s->setProperty("open", true);
        settle(350);
    }
    return s;
}

QRectF sceneRect(QQuickItem* i) { return i->mapRectToScene(QRectF(0, 0, i->width(), i->height())); }

// Presses the slider's handle, drags it to `fraction` of the track and lets go.
void drag(RunningApp& r, QQuickItem* slider, double fraction) {
    QQuickItem* handle = slider->property("handle").value<QQuickItem*>();
    ASSERT_NE(handle, nullptr);
    QPointF at = handle->mapToScene(QPointF(handle->width() / 2, handle->height() / 2));
    QTest::mousePress(r.window(), Qt::LeftButton, Qt::NoModifier, at.toPoint());
    const double left = slider->property("leftPadding").toDouble() + handle->width() / 2;
    const double track = slider->property("availableWidth").toDouble() - handle->width();
    const QPointF to = slider->mapToScene(QPointF(left + fraction * track, slider->height() / 2));
    for (int step = 1; step <= 10; ++step) {
        at = at + (to - at) / (11 - step);
        QTest::mouseMove(r.window(), at.toPoint());
        settle(5);
    }
    QTest::mouseRelease(r.window(), Qt::LeftButton, Qt::NoModifier, to.toPoint());
    settle(50);
}

TEST(SettingsSheet, SliderSendsTheRawReadingAndShowsTheStoredStep) {
    RunningApp r("phone-844", "es");
    ASSERT_TRUE(r.started);
    openSheet(r, "settingsSheet");
    QQuickItem* slider = r.item("micSensitivitySlider");
    ASSERT_NE(slider, nullptr);
    EXPECT_EQ(slider->property("value").toDouble(), 5.0);

    // Below a step the core uses the lower one and stores the rounded one, so the
    // view must hand over the reading unrounded.
    drag(r, slider, 0.46);
    EXPECT_EQ(r.host->state().micSensitivityValue, 4);
    EXPECT_EQ(r.stored(keys::savedSliderValue).toInt(), 5);
    EXPECT_EQ(slider->property("value").toDouble(), 5.0);

    drag(r, slider, 1.0);
    EXPECT_EQ(r.stored(keys::savedSliderValue).toInt(), 10);
    EXPECT_EQ(slider->property("value").toDouble(), 10.0);
}

TEST(SettingsSheet, StepperStepsWholeHertzAndStopsAtItsEnds) {
    RunningApp r("phone-667", "de");
    ASSERT_TRUE(r.started);
    openSheet(r, "settingsSheet");
    r.tap("stepperPlus");
    r.tap("stepperPlus");
    r.tap("stepperMinus");
    EXPECT_EQ(r.stored(keys::savedA4Calibration).toInt(), 441);
    EXPECT_EQ(r.text("calibrationFrequencyValue"), "441");

    r.host->tunerAction("setFrequencyValue", 466.0);
    r.tap("stepperPlus");
    EXPECT_EQ(r.host->state().a4Calibration, 466);
    r.host->tunerAction("setFrequencyValue", 415.0);
    r.tap("stepperMinus");
    EXPECT_EQ(r.stored(keys::savedA4Calibration).toInt(), 415);
}

TEST(SettingsSheet, SwitchesStoreTheirStateAndDoneCloses) {
    RunningApp r;
    ASSERT_TRUE(r.started);
    QQuickItem* sheet = openSheet(r, "settingsSheet");
    const std::pair<const char*, const char*> switches[] = {
        {"freqChartSwitchControl", keys::frequencyChartEnabled},
        {"stringSoundsSwitchControl", keys::stringSoundsEnabled},
        {"soundNotificationSwitchControl", keys::soundNotificationEnabled},
    };
    for (const auto& [name, key] : switches) {
        QQuickItem* control = r.item(name);
        ASSERT_NE(control, nullptr) << name;
        const bool was = control->property("checked").toBool();
        r.tap(control);
        EXPECT_EQ(control->property("checked").toBool(), !was) << name;
        EXPECT_EQ(r.stored(key).toString(), was ? "false" : "true") << name;
    }
    r.tap(r.item("sheetDone", sheet), 350);
    EXPECT_FALSE(sheet->isVisible());
}

TEST(SettingsSheet, NamingPickerStoresATappedOrSettledRowAtOnce) {
    RunningApp r("phone-667", "ru");
    ASSERT_TRUE(r.started);
    openSheet(r, "settingsSheet");
    QQuickItem* wheel = r.item("establecerIdioma");
    ASSERT_NE(wheel, nullptr);
    EXPECT_EQ(wheel->property("count").toInt(), 6);
    EXPECT_EQ(r.text("languageRow5"), "Кириллица (До Ре Ми)");

    r.tap("languageRow2");
    EXPECT_EQ(r.stored(keys::SavedLanguage).toInt(), 2);
    EXPECT_EQ(wheel->property("currentIndex").toInt(), 2);
    ASSERT_TRUE(QMetaObject::invokeMethod(wheel, "choose", Q_ARG(QVariant, 5)));
    settle(50);
    EXPECT_EQ(r.stored(keys::SavedLanguage).toInt(), 5);
    EXPECT_EQ(wheel->property("currentIndex").toInt(), 5);
    if (demoModeEnabled)
        GTEST_SKIP() << "the demonstration picture writes the note labels itself";
    EXPECT_EQ(r.host->tunerModel().firstString.text, "Ля") << "the choice applies at once";
}

TEST(AboutSheet, ShowsItsTextsInTheAppsLanguage) {
    RunningApp r("phone-844", "de");
    ASSERT_TRUE(r.started);
    openSheet(r, "aboutSheet");
    EXPECT_TRUE(r.text("aboutCongratsMessage").startsWith("Danke"));
    EXPECT_EQ(r.text("reviewButtonText"), "App bewerten");
}

TEST(AboutSheet, ButtonsOpenTheMakerAndTheReviewAddresses) {
    // A returning player on the fourth run: the review button asks the rating prompt.
    RunningApp r("phone-844", "en", [](QSettings& ini) {
        ini.setValue(keys::NewLaunchOrvel, true);
        ini.setValue(keys::numberOfRuns, 3);
    });
    ASSERT_TRUE(r.started);
    openSheet(r, "aboutSheet");
    UrlRecorder urls;
    r.tap("makerButton");
    EXPECT_EQ(urls.opened, QStringList{UKE_MAKER_URL});

    if (demoModeEnabled)
        GTEST_SKIP() << "the demonstration build never asks for a rating";
    r.tap("reviewButton", 100);
    QObject* alert = r.host->alert();
    // Without a known network state the prompt stays away.
    if (alert->property("visible").toBool()) {
        // The desktop has no review sheet of its own: rating leads to the store's review page.
        ASSERT_TRUE(QMetaObject::invokeMethod(alert, "press", Q_ARG(int, 0)));
        settle(50);
        ASSERT_EQ(urls.opened.size(), 2);
        EXPECT_TRUE(urls.opened[1].contains(UKE_APP_ID)) << urls.opened[1].toStdString();
    }
}

// Every caption of both panels reads in full, inside the card, in every language
// and on the smallest and largest phones and a pad.
class PanelsFit : public ::testing::TestWithParam<std::string> {};

TEST_P(PanelsFit, OnEveryScreenClass) {
    for (const char* device : {"phone-480", "phone-667", "phone-844", "pad-1194"}) {
        SCOPED_TRACE(device);
        RunningApp r(device, GetParam().c_str());
        ASSERT_TRUE(r.started);
        const QRectF window(0, 0, r.window()->width(), r.window()->height());

        QQuickItem* settings = openSheet(r, "settingsSheet");
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
            EXPECT_FALSE(text->property("truncated").toBool()) << name << " \"" << r.text(name).toStdString() << "\"";
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

        QQuickItem* about = openSheet(r, "aboutSheet");
        ASSERT_NE(about, nullptr);
        const QRectF aboutCard = sceneRect(r.item("sheetCard", about));
        EXPECT_TRUE(window.contains(aboutCard));
        for (const char* name : {"reviewButtonText", "makerButtonText"})
            EXPECT_FALSE(r.item(name, about)->property("truncated").toBool()) << name;
        EXPECT_LE(sceneRect(r.item("makerButton", about)).bottom(), aboutCard.bottom()) << "the last button is cut off";
    }
}

INSTANTIATE_TEST_SUITE_P(EveryLanguage, PanelsFit, ::testing::ValuesIn(builtInLanguages()),
                         [](const ::testing::TestParamInfo<std::string>& info) { return info.param; });

TEST(Screenshots, SettingsOnPhoneAndPadAndTheNamingSystems) {
    for (const auto& [device, file] :
         {std::pair{"phone-844", "settings-phone.png"}, {"pad-1194", "settings-pad.png"}}) {
        RunningApp r(device);
        ASSERT_TRUE(r.started);
        openSheet(r, "settingsSheet");
        test::saveForDocs(r.grab(), file);
    }
    if (demoModeEnabled)
        GTEST_SKIP() << "the demonstration picture writes the note labels itself";
    const struct {
        const char* language;
        int row;
        const char* file;
    } namings[] = {{"es", 2, "tuner-solfege.png"}, {"ru", 5, "tuner-cyrillic.png"}};
    for (const auto& n : namings) {
        RunningApp r("phone-844", n.language);
        ASSERT_TRUE(r.started);
        r.host->tunerAction("didSelectRow", n.row);
        test::saveForDocs(r.grab(), n.file);
    }
}

} // namespace
} // namespace uke

#include "test_settings_sheet.moc"
