// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <span>

#include "chords/ChordCatalogue.h"
#include "support/RunningApp.h"

namespace uke {
namespace {

// The app started on a device class with the chord screen open on `chart`.
struct ChordsOnScreen : test::RunningApp {
    ChordsOnScreen(const char* device, int64_t chart) : RunningApp(device) {
        host->state().chosenUkuleleType = chart;
        tuner().act("openChords");
    }
    // What an image view shows, "" when it is hidden or empty.
    QString shown(const std::string& name) const {
        QQuickItem* i = item(name.c_str());
        return i && i->isVisible() ? i->property("source").toString().remove("image://art/") : QString();
    }
    // The centre of a view in the fretboard picture's own units.
    QPointF onBoard(const QString& name) const {
        QQuickItem* board = item("ukuleleFretboard");
        QQuickItem* view = item(name.toLatin1().constData());
        const QPointF c = view->mapToItem(board, QPointF(view->width() / 2, view->height() / 2));
        return c / (board->width() / 300.0);
    }
    // Turns a wheel to the row of `key` as a player would: a tap on the row.
    void pick(const char* picker, std::span<const std::string_view> keys, std::string_view key) {
        const int row = static_cast<int>(std::find(keys.begin(), keys.end(), key) - keys.begin());
        QQuickItem* wheel = item(picker);
        wheel->setProperty("currentIndex", row);
        ASSERT_TRUE(QMetaObject::invokeMethod(wheel, "report"));
    }
    // Every mark on the neck shows what its outlet says.
    void expectMarksFollowTheOutlets() const {
        host->chordModel().forEachOutlet([&](const char* name, const auto& outlet) {
            if constexpr (std::is_same_v<std::decay_t<decltype(outlet)>, ImageView>) {
                EXPECT_EQ(shown(name).toStdString(), outlet.hidden ? "" : outlet.image) << name;
            }
        });
    }
};

TEST(ChordsScreenView, CellsLineUpWithTheNeckOnEveryClass) {
    for (const char* device :
         {"phone-480", "phone-568", "phone-667", "phone-844", "pad-1024", "pad-1194", "pad-1366"}) {
        ChordsOnScreen s(device, 1);
        ASSERT_TRUE(s.started && s.host->chordsOpen()) << device;
        QQuickItem* board = s.item("ukuleleFretboard");
        EXPECT_NEAR(board->height() / board->width(), 420.0 / 300.0, 0.01) << device;

        // Where resources/art/geometry.json puts strings, rows and fret numbers on the neck pictures.
        const auto expectAt = [&](const QString& name, double x, double y) {
            const QPointF c = s.onBoard(name);
            EXPECT_TRUE(std::abs(c.x() - x) < 0.6 && std::abs(c.y() - y) < 0.6)
                << device << " " << name.toStdString() << " at " << c.x() << "," << c.y();
        };
        for (int str = 1; str <= 4; ++str)
            for (int r = 0; r <= 4; ++r)
                expectAt(r ? QString("Str%1Fr%2").arg(str).arg(r) : QString("string%1Status").arg(str), 300 - 60 * str,
                         40 + 80 * r);
        expectAt("rightNumberFr1", 282, 120);
        expectAt("rightNumberFr2", 282, 200);
        expectAt("leftNumberFr2", 18, 200);

        // Everything fits on the screen, top to bottom and without overlaps.
        double above = 0;
        for (const char* name :
             {"chordsTitle1", "chordsTitle2", "chordDisplay", "ukuleleFretboard", "selectRootChord"}) {
            QQuickItem* i = s.item(name);
            EXPECT_GE(i->mapToScene(QPointF(0, 0)).y() + 0.5, above) << device << " " << name;
            above = i->mapToScene(QPointF(0, i->height())).y();
        }
        EXPECT_LE(above, s.window()->height() + 0.5) << device;
    }
}

// From the wheels to the controller, and the spelling switch: the screenshots below.
TEST(ChordsScreenView, WheelsFollowTheController) {
    ChordsOnScreen s("phone-667", 3);
    ASSERT_TRUE(s.started);
    QQuickItem* roots = s.item("selectRootChord");
    EXPECT_EQ(roots->property("count").toInt(), 12);
    EXPECT_EQ(s.item("selectVariant")->property("count").toInt(), 10);
    s.pick("selectVariant", ChordCatalogue::variantKeys(3), "7");
    s.host->chords()->act("didSelectRow", 1, 4);
    EXPECT_EQ(roots->property("currentIndex").toInt(), 4);
    EXPECT_EQ(s.text("chordDisplay"), "C#7");
}

TEST(ChordsScreenView, OpensFromTheTunerOnItsChartAndGoesBack) {
    test::RunningApp s("pad-1194");
    ASSERT_TRUE(s.started);
    while (s.host->state().chosenTuning < 11)
        s.tap("showNextTuningButton");
    s.tap("goToChordsLibraryButton");
    ASSERT_TRUE(s.host->chordsOpen());
    EXPECT_EQ(s.item("ukuleleFretboard")->property("source").toString(),
              "image://art/" + QString::fromStdString(s.host->chordModel().ukuleleFretboard.image));
    EXPECT_TRUE(s.text("chordsTitle2").endsWith("D G B D")) << s.text("chordsTitle2").toStdString();

    s.tap("chordsBack");
    EXPECT_FALSE(s.host->chordsOpen());
    EXPECT_EQ(s.item("chordDisplay"), nullptr);
    EXPECT_TRUE(s.item("currentTuningName")->isVisible());
}

TEST(ChordsScreenView, Screenshots) {
    // Each shows a fret number, a status mark and dots.
    const std::tuple<const char*, const char*, int64_t, const char*, const char*, bool> shots[] = {
        {"chords-chart1-phone.png", "phone-667", 1, "G#/A♭", "-", false},
        {"chords-chart1-pad.png", "pad-1194", 1, "C#/D♭", "add9", false},
        {"chords-chart2-phone.png", "phone-667", 2, "A#/B♭", "m9", true},
        {"chords-chart3-phone.png", "phone-667", 3, "E", "m7", false},
        {"chords-chart4-phone.png", "phone-667", 4, "D#/E♭", "maj7", true},
    };
    for (const auto& [file, device, chart, root, variant, flats] : shots) {
        ChordsOnScreen s(device, chart);
        ASSERT_TRUE(s.started);
        s.pick("selectRootChord", ChordCatalogue::rootKeys, root);
        s.pick("selectVariant", ChordCatalogue::variantKeys(chart), variant);
        if (flats != (s.host->state().showFlatNames == 1))
            s.tap("buttonFlatOrSharp");
        test::saveForDocs(s.grab(), file);
        EXPECT_EQ(s.text("chordDisplay").toStdString(),
                  ChordCatalogue::chordName(root, variant, flats ? Spelling::Flats : Spelling::Sharps));
        s.expectMarksFollowTheOutlets();
    }
}

} // namespace
} // namespace uke
