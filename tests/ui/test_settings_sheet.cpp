// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// The settings and about panels driven through the window, as a player drives
// them, and the pictures of them for the docs.
#include <gtest/gtest.h>

#include <QDesktopServices>
#include <QUrl>

#include "base/SettingsKeys.h"
#include "platform/virtual/TsStringTable.h"
#include "support/RunningApp.h"

namespace uke {
namespace {

using test::RunningApp;

// Whatever the app asks the desktop to open lands here instead of in a browser.
class UrlRecorder : public QObject {
    Q_OBJECT
public:
    UrlRecorder() { QDesktopServices::setUrlHandler("https", this, "open"); }
    ~UrlRecorder() override { QDesktopServices::unsetUrlHandler("https"); }
    QStringList opened;
public slots:
    void open(const QUrl& url) { opened << url.toString(); }
};

QRectF sceneRect(QQuickItem* i) { return i->mapRectToScene(QRectF(0, 0, i->width(), i->height())); }

// Each control sends its action and shows what the controller made of it.
TEST(Panels, ControlsAreWiredToTheirActions) {
    RunningApp r("phone-667", "ru");
    ASSERT_TRUE(r.started);
    QQuickItem* sheet = r.openSheet("settingsSheet");
    // The slider hands over its raw reading: dragged to 4.6 the core uses step 4 and stores (and shows) 5.
    QQuickItem* slider = r.item("micSensitivitySlider");
    QQuickItem* handle = slider->property("handle").value<QQuickItem*>();
    const double left = slider->property("leftPadding").toDouble() + handle->width() / 2;
    const double track = slider->property("availableWidth").toDouble() - handle->width();
    const QPointF at = handle->mapToScene(QPointF(handle->width() / 2, handle->height() / 2));
    const QPointF to = slider->mapToScene(QPointF(left + 0.46 * track, slider->height() / 2));
    QTest::mousePress(r.window(), Qt::LeftButton, Qt::NoModifier, at.toPoint());
    for (int step = 1; step <= 10; ++step)
        QTest::mouseMove(r.window(), (at + (to - at) * step / 10).toPoint());
    QTest::mouseRelease(r.window(), Qt::LeftButton, Qt::NoModifier, to.toPoint());
    EXPECT_EQ(r.host->state().micSensitivityValue, 4);
    EXPECT_EQ(r.stored(keys::savedSliderValue).toInt(), 5);
    EXPECT_EQ(slider->property("value").toDouble(), 5.0);

    for (const char* button : {"stepperPlus", "stepperPlus", "stepperMinus"})
        r.tap(button);
    EXPECT_EQ(r.stored(keys::savedA4Calibration).toInt(), 441);
    EXPECT_EQ(r.text("calibrationFrequencyValue"), "441");

    for (const auto& [name, key] : {std::pair{"freqChartSwitchControl", keys::frequencyChartEnabled},
                                    {"stringSoundsSwitchControl", keys::stringSoundsEnabled},
                                    {"soundNotificationSwitchControl", keys::soundNotificationEnabled}}) {
        QQuickItem* control = r.item(name);
        const bool was = control->property("checked").toBool();
        r.tap(control);
        EXPECT_EQ(control->property("checked").toBool(), !was) << name;
        EXPECT_EQ(r.stored(key).toString(), was ? "false" : "true") << name;
    }

    EXPECT_EQ(r.text("languageRow5"), "Кириллица (До Ре Ми)");
    r.tap("languageRow2");
    EXPECT_EQ(r.stored(keys::SavedLanguage).toInt(), 2);
    EXPECT_EQ(r.item("establecerIdioma")->property("currentIndex").toInt(), 2);

    r.tap(r.item("sheetDone", sheet));
    EXPECT_TRUE(test::settleUntil([&] { return !sheet->isVisible(); }));

    r.openSheet("aboutSheet");
    UrlRecorder urls;
    r.tap("makerButton");
    EXPECT_EQ(urls.opened, QStringList{UKE_MAKER_URL});
}

// Every caption of both panels reads in full, inside the card, in every language
// and on the smallest and largest phones and a pad; the docs' pictures of the
// settings panel are the English phone's and pad's.
class PanelsFit : public ::testing::TestWithParam<std::string> {};

TEST_P(PanelsFit, OnEveryScreenClass) {
    for (const auto& [device, picture] : {std::pair<const char*, const char*>{"phone-480", nullptr},
                                          {"phone-667", nullptr},
                                          {"phone-844", "settings-phone.png"},
                                          {"pad-1194", "settings-pad.png"}}) {
        SCOPED_TRACE(device);
        RunningApp r(device, GetParam().c_str());
        ASSERT_TRUE(r.started);
        const QRectF window(0, 0, r.window()->width(), r.window()->height());
        for (const char* sheetName : {"settingsSheet", "aboutSheet"}) {
            QQuickItem* sheet = r.openSheet(sheetName);
            const QRectF card = sceneRect(r.item("sheetCard", sheet));
            EXPECT_TRUE(window.contains(card)) << sheetName;
            if (picture && GetParam() == "en" && sheetName == std::string("settingsSheet"))
                test::saveForDocs(r.grab(), picture);
            for (const char* name : {"micSensitivityLabel", "calibrationLabel", "soundNotificationLabel",
                                     "stringSoundsLabel", "frequencyChartLabel", "noteNamesCaption", "languageRow0",
                                     "languageRow3", "languageRow5", "reviewButtonText", "makerButtonText"})
                if (QQuickItem* text = r.item(name, sheet)) {
                    EXPECT_FALSE(text->property("text").toString().isEmpty()) << name;
                    EXPECT_FALSE(text->property("truncated").toBool()) << name;
                }
            for (const char* name : {"micSensitivitySlider", "setFrequencyValueStepper", "freqChartSwitchControl",
                                     "establecerIdioma", "makerButton"})
                if (QQuickItem* control = r.item(name, sheet)) {
                    EXPECT_GE(sceneRect(control).left(), card.left()) << name;
                    EXPECT_LE(sceneRect(control).right(), card.right()) << name;
                }
            // Content that does not fit scrolls, so nothing is out of reach.
            QQuickItem* scroller = r.item("sheetScroller", sheet);
            EXPECT_EQ(scroller->property("interactive").toBool(),
                      scroller->property("contentHeight").toDouble() > scroller->height());
            r.closeSheet();
        }
        // The read-out and its unit stay clear of the stepper's buttons.
        EXPECT_LE(sceneRect(r.item("hZLabel")).right(), sceneRect(r.item("setFrequencyValueStepper")).left());
    }
}

INSTANTIATE_TEST_SUITE_P(EveryLanguage, PanelsFit, ::testing::ValuesIn(builtInLanguages()),
                         [](const ::testing::TestParamInfo<std::string>& info) { return info.param; });

// The naming systems over the tuner, for the docs.
TEST(Screenshots, TheNamingSystems) {
    if (demoModeEnabled)
        GTEST_SKIP() << "the demonstration picture writes the note labels itself";
    for (const auto& [language, namingRow, file] :
         {std::tuple{"es", 2, "tuner-solfege.png"}, {"ru", 5, "tuner-cyrillic.png"}}) {
        RunningApp r("phone-844", language);
        ASSERT_TRUE(r.started);
        r.tuner().act("didSelectRow", namingRow);
        test::saveForDocs(r.grab(), file);
    }
}

} // namespace
} // namespace uke

#include "test_settings_sheet.moc"
