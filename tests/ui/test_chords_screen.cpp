#include <gtest/gtest.h>

#include <algorithm>
#include <span>

#include "chords/ChordCatalogue.h"
#include "chords/ChordShapeTable.h"
#include "chords/ChordsViewController.h"
#include "support/RunningApp.h"

namespace uke {
namespace {

using test::settle;

// The app started on a device class, showing the tuner.
struct AppOnScreen : test::RunningApp {
    explicit AppOnScreen(const char* device) : RunningApp(device) {}
    void openChords() {
        tap("goToChordsLibraryButton");
        ASSERT_TRUE(host->chordsOpen());
    }
    // What an image view shows, "" when it is hidden or empty.
    QString shown(const QString& name) const {
        QQuickItem* i = item(name.toLatin1().constData());
        if (!i || !i->isVisible())
            return {};
        return i->property("source").toString().remove("image://art/");
    }
    // The centre of a view in the fretboard picture's own units.
    QPointF onBoard(const QString& name) const {
        QQuickItem* board = item("ukuleleFretboard");
        QQuickItem* view = item(name.toLatin1().constData());
        if (!board || !view)
            return {-1, -1};
        const QPointF c = view->mapToItem(board, QPointF(view->width() / 2, view->height() / 2));
        const double scale = board->width() / 300.0;
        return {c.x() / scale, c.y() / scale};
    }
    // Turns a picker of the chord screen to the row of `key`, as a settled wheel reports it.
    void pick(const char* picker, std::span<const std::string_view> keys, std::string_view key) {
        const auto row = std::find(keys.begin(), keys.end(), key) - keys.begin();
        ASSERT_LT(row, static_cast<long>(keys.size())) << key;
        QQuickItem* wheel = item(picker);
        ASSERT_TRUE(wheel) << picker;
        wheel->setProperty("currentIndex", static_cast<int>(row));
        ASSERT_TRUE(QMetaObject::invokeMethod(wheel, "report"));
        settle();
    }
    void tuneTo(int64_t tuning) {
        while (host->state().chosenTuning < tuning)
            tap("showNextTuningButton");
    }
};

// The chord screen opened on `chart`, whatever tuning would hand over.
struct ChordsOnScreen : AppOnScreen {
    ChordsOnScreen(const char* device, int64_t chart) : AppOnScreen(device) {
        host->state().chosenUkuleleType = chart;
        host->openChords();
        settle();
    }
};

// The marks a view of the screen must show for `shape`.
void expectShapeOnScreen(const AppOnScreen& s, const ChordShape& shape, const std::string& what) {
    for (int str = 1; str <= 4; ++str) {
        const StringMarks& m = shape.onString(str);
        const QString status = m.open ? "circle.png" : m.muted ? "x.png" : "";
        EXPECT_EQ(s.shown(QString("string%1Status").arg(str)), status) << what << " string " << str;
        for (int r = 1; r <= 4; ++r)
            EXPECT_EQ(s.shown(QString("Str%1Fr%2").arg(str).arg(r)), m.hasDot(r) ? "dot.png" : "")
                << what << " Str" << str << "Fr" << r;
    }
    const auto number = [&](FretLabelPosition p) {
        return shape.label && shape.label->position == p ? QString("%1.png").arg(shape.label->number) : QString();
    };
    EXPECT_EQ(s.shown("rightNumberFr1"), number(FretLabelPosition::R1)) << what;
    EXPECT_EQ(s.shown("rightNumberFr2"), number(FretLabelPosition::R2)) << what;
    EXPECT_EQ(s.shown("leftNumberFr2"), number(FretLabelPosition::L2)) << what;
}

TEST(ChordsScreenView, CellsLineUpWithTheNeckOnEveryClass) {
    for (const char* device :
         {"phone-480", "phone-568", "phone-667", "phone-844", "pad-1024", "pad-1194", "pad-1366"}) {
        ChordsOnScreen s(device, 1);
        ASSERT_TRUE(s.started && s.host->chordsOpen()) << device;
        QQuickItem* board = s.item("ukuleleFretboard");
        ASSERT_TRUE(board) << device;
        EXPECT_NEAR(board->height() / board->width(), 420.0 / 300.0, 0.01) << device;

        // Where resources/art/geometry.json puts strings and rows on the neck pictures.
        const double x[] = {0, 240, 180, 120, 60};
        const double rowY[] = {40, 120, 200, 280, 360};
        for (int str = 1; str <= 4; ++str)
            for (int r = 0; r <= 4; ++r) {
                const QString name = r ? QString("Str%1Fr%2").arg(str).arg(r) : QString("string%1Status").arg(str);
                const QPointF c = s.onBoard(name);
                EXPECT_NEAR(c.x(), x[str], 0.6) << device << " " << name.toStdString();
                EXPECT_NEAR(c.y(), rowY[r], 0.6) << device << " " << name.toStdString();
            }
        EXPECT_NEAR(s.onBoard("rightNumberFr1").x(), 282, 0.6) << device;
        EXPECT_NEAR(s.onBoard("rightNumberFr1").y(), 120, 0.6) << device;
        EXPECT_NEAR(s.onBoard("rightNumberFr2").y(), 200, 0.6) << device;
        EXPECT_NEAR(s.onBoard("leftNumberFr2").x(), 18, 0.6) << device;
        EXPECT_NEAR(s.onBoard("leftNumberFr2").y(), 200, 0.6) << device;

        // Everything fits on the screen and nothing overlaps: titles, name, board, pickers.
        const auto top = [](QQuickItem* i) { return i->mapToScene(QPointF(0, 0)).y(); };
        const auto bottom = [](QQuickItem* i) { return i->mapToScene(QPointF(0, i->height())).y(); };
        QQuickItem* title = s.item("chordsTitle2");
        QQuickItem* name = s.item("chordDisplay");
        QQuickItem* wheel = s.item("selectRootChord");
        ASSERT_TRUE(title && name && wheel) << device;
        EXPECT_GE(top(s.item("chordsTitle1")), 0) << device;
        EXPECT_LE(bottom(title), top(name) + 0.5) << device;
        EXPECT_LE(bottom(name), top(board) + 0.5) << device;
        EXPECT_LE(bottom(board), top(wheel) + 0.5) << device;
        EXPECT_LE(bottom(wheel), s.window()->height() + 0.5) << device;
    }
}

// Every shape of a chart, picked on the wheels, lands on the cells of its strings and rows.
TEST(ChordsScreenView, PickedRowsShowTheirShapeOnTheRightCells) {
    for (int64_t chart : {1, 3}) {
        ChordsOnScreen s("phone-667", chart);
        ASSERT_TRUE(s.started);
        const auto variants = ChordCatalogue::variantKeys(chart);
        for (std::string_view root : ChordCatalogue::rootKeys) {
            s.pick("selectRootChord", ChordCatalogue::rootKeys, root);
            for (std::string_view variant : variants) {
                s.pick("selectVariant", variants, variant);
                const ChordShape* shape = ChordShapeTable::find(chart, root, variant);
                ASSERT_TRUE(shape);
                const std::string what = std::to_string(chart) + " " + std::string(root) + " " + std::string(variant);
                expectShapeOnScreen(s, *shape, what);
                EXPECT_EQ(s.text("chordDisplay").toStdString(),
                          ChordCatalogue::chordName(root, variant, Spelling::Sharps))
                    << what;
            }
        }
    }
}

TEST(ChordsScreenView, WheelsShowTheListsAndFollowTheController) {
    ChordsOnScreen s("phone-844", 1);
    ASSERT_TRUE(s.started);
    QQuickItem* roots = s.item("selectRootChord");
    QQuickItem* types = s.item("selectVariant");
    ASSERT_TRUE(roots && types);
    EXPECT_EQ(roots->property("count").toInt(), 12);
    EXPECT_EQ(types->property("count").toInt(), 15);
    // The wheels stand on the first chord the controller drew.
    const ChordScreenModel& m = s.host->chordModel();
    EXPECT_EQ(roots->property("currentIndex").toInt(), m.selectRootChord.selectedRow);
    EXPECT_EQ(types->property("currentIndex").toInt(), m.selectVariant.selectedRow);

    s.host->chordsAction("didSelectRow", 4, 1); // C#/D♭
    s.host->chordsAction("didSelectRow", 9, 2); // add9
    settle();
    EXPECT_EQ(s.text("chordDisplay"), "C#add9");
    EXPECT_EQ(roots->property("currentIndex").toInt(), 4);
    EXPECT_EQ(types->property("currentIndex").toInt(), 9);

    // Nonsense from the view changes nothing and does not crash.
    s.host->chordsAction("didSelectRow", QVariant(), 1);
    s.host->chordsAction("didSelectRow", 2, QVariant());
    s.host->chordsAction("didSelectRow", 99, 1);
    s.host->chordsAction("noSuchAction");
    settle();
    EXPECT_EQ(s.text("chordDisplay"), "C#add9");
}

TEST(ChordsScreenView, SpellingSwitchRenamesTheChordAndShowsTheOtherSpelling) {
    ChordsOnScreen s("phone-667", 1);
    ASSERT_TRUE(s.started);
    s.pick("selectRootChord", ChordCatalogue::rootKeys, "A#/B♭");
    s.pick("selectVariant", ChordCatalogue::fullVariantKeys, "7sus4");
    QQuickItem* button = s.item("buttonFlatOrSharp");
    ASSERT_TRUE(button);
    const auto icon = [&] { return button->property("icon").toString().remove("image://art/"); };
    EXPECT_EQ(icon(), "flat.png");

    s.tap(button);
    EXPECT_EQ(s.text("chordDisplay"), "B♭7sus4");
    EXPECT_EQ(icon(), "sharp.png");
    expectShapeOnScreen(s, *ChordShapeTable::find(1, "A#/B♭", "7sus4"), "B♭ 7sus4");
}

// The tuner hands over the chart of its tuning; the chart picks the neck picture on
// the classes that have one and leaves the standard picture elsewhere.
TEST(ChordsScreenView, TheTunersTuningPicksTheChartAndItsNeckPicture) {
    const struct {
        const char* device;
        int64_t tuning;
        const char* openStrings;
        const char* picture;
        int types;
    } cases[] = {
        {"phone-667", 1, "G C E A", "fretboard.png", 15},
        {"phone-667", 5, "D G B E", "bchords_iPhone6.png", 15},
        {"phone-480", 10, "G C E G", "slchords_iPhone.png", 10},
        {"phone-812", 10, "G C E G", "slchords_iPhone6Plus.png", 10},
        {"pad-1194", 11, "D G B D", "slbchords_iPad.png", 10},
        // Deliberately kept: a phone height without pictures of its own shows the standard neck.
        {"phone-844", 5, "D G B E", "fretboard.png", 15},
    };
    for (const auto& c : cases) {
        AppOnScreen s(c.device);
        ASSERT_TRUE(s.started);
        s.tuneTo(c.tuning);
        s.openChords();
        const std::string what = std::string(c.device) + " tuning " + std::to_string(c.tuning);
        EXPECT_EQ(s.shown("ukuleleFretboard"), c.picture) << what;
        EXPECT_TRUE(s.text("chordsTitle2").endsWith(c.openStrings))
            << what << ": " << s.text("chordsTitle2").toStdString();
        EXPECT_EQ(s.item("selectVariant")->property("count").toInt(), c.types) << what;
    }
}

TEST(ChordsScreenView, BackButtonReturnsToTheTunerAndTheScreenOpensAfresh) {
    AppOnScreen s("phone-667");
    ASSERT_TRUE(s.started);
    s.openChords();
    s.tap("chordsBack");
    EXPECT_FALSE(s.host->chordsOpen());
    EXPECT_EQ(s.item("chordDisplay"), nullptr);
    QQuickItem* tuning = s.item("currentTuningName");
    ASSERT_TRUE(tuning);
    EXPECT_TRUE(tuning->isVisible());
    s.host->chordsAction("toggleSharpOfFlat"); // no screen: ignored

    s.openChords();
    EXPECT_TRUE(s.item("chordDisplay"));
}

TEST(ChordsScreenView, Screenshots) {
    const struct {
        const char* file;
        const char* device;
        int64_t chart;
        const char* root;
        const char* variant;
        bool flats;
    } shots[] = {
        // Each shows a fret number, a status mark and dots.
        {"chords-chart1-phone.png", "phone-667", 1, "G#/A♭", "-", false},
        {"chords-chart1-pad.png", "pad-1194", 1, "C#/D♭", "add9", false},
        {"chords-chart2-phone.png", "phone-667", 2, "A#/B♭", "m9", true},
        {"chords-chart3-phone.png", "phone-667", 3, "E", "m7", false},
        {"chords-chart4-phone.png", "phone-667", 4, "D#/E♭", "maj7", true},
        {"chords-chart2-pad.png", "pad-1194", 2, "D", "dim", false},
        {"chords-chart3-pad.png", "pad-1194", 3, "C", "7", false},
        {"chords-chart4-pad.png", "pad-1194", 4, "G", "m", false},
    };
    for (const auto& shot : shots) {
        ChordsOnScreen s(shot.device, shot.chart);
        ASSERT_TRUE(s.started);
        s.pick("selectRootChord", ChordCatalogue::rootKeys, shot.root);
        s.pick("selectVariant", ChordCatalogue::variantKeys(shot.chart), shot.variant);
        if (shot.flats != (s.host->state().showFlatNames == 1))
            s.tap("buttonFlatOrSharp");
        settle(1200); // the wheels glide to their rows
        test::saveForDocs(s.grab(), shot.file);
        EXPECT_EQ(s.text("chordDisplay").toStdString(),
                  ChordCatalogue::chordName(shot.root, shot.variant, shot.flats ? Spelling::Flats : Spelling::Sharps));
    }
}

} // namespace
} // namespace uke
