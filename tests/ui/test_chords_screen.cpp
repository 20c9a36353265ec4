#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <algorithm>
#include <memory>
#include <span>

#include "AppHost.h"
#include "chords/ChordCatalogue.h"
#include "chords/ChordShapeTable.h"
#include "chords/ChordsViewController.h"
#include "support/QtApp.h"

namespace uke {
namespace {

// The app started on a device class, showing the tuner.
struct AppOnScreen {
    explicit AppOnScreen(const char* device) {
        AppHost::Options o;
        o.device = *DeviceClass::parse(device);
        o.settingsPath = dir.filePath("settings.ini");
        o.quietLog = true;
        o.language = "en";
        host = std::make_unique<AppHost>(o);
        started = host->start();
        settle();
    }
    static void settle(int milliseconds = 0) {
        QElapsedTimer clock;
        clock.start();
        do
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        while (clock.elapsed() < milliseconds);
    }
    // Searched along the visual tree: the loader's screen is not a QObject child of the window's items.
    QQuickItem* item(const QString& name) const {
        return host->window() ? find(host->window()->contentItem(), name) : nullptr;
    }
    static QQuickItem* find(QQuickItem* under, const QString& name) {
        for (QQuickItem* child : under->childItems()) {
            if (child->objectName() == name)
                return child;
            if (QQuickItem* found = find(child, name))
                return found;
        }
        return nullptr;
    }
    // Presses a button of the screens the way its mouse area does.
    void click(const QString& name) {
        QQuickItem* button = item(name);
        ASSERT_TRUE(button) << name.toStdString();
        ASSERT_TRUE(QMetaObject::invokeMethod(button, "clicked")) << name.toStdString();
        settle();
    }
    // Opens the chord screen from the tuner's toolbar.
    void openChords() {
        click("goToChordsLibraryButton");
        ASSERT_TRUE(host->chordsOpen());
    }
    QString text(const QString& name) const {
        QQuickItem* i = item(name);
        return i ? i->property("text").toString() : QString("<missing " + name + ">");
    }
    // What an image view shows, "" when it is hidden or empty.
    QString shown(const QString& name) const {
        QQuickItem* i = item(name);
        if (!i || !i->isVisible())
            return {};
        return i->property("source").toString().remove("image://art/");
    }
    // The centre of a view in the fretboard picture's own units.
    QPointF onBoard(const QString& name) const {
        QQuickItem* board = item("ukuleleFretboard");
        QQuickItem* view = item(name);
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
    // Steps the tuner to tuning `tuning` with its arrows.
    void tuneTo(int64_t tuning) {
        while (host->state().chosenTuning < tuning)
            click("showNextTuningButton");
        while (host->state().chosenTuning > tuning)
            click("showPreviousTuningButton");
    }

    QTemporaryDir dir;
    std::unique_ptr<AppHost> host;
    bool started = false;
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
    test::ensureQtApp();
    for (const char* device :
         {"phone-480", "phone-568", "phone-667", "phone-844", "pad-1024", "pad-1194", "pad-1366"}) {
        ChordsOnScreen s(device, 1);
        ASSERT_TRUE(s.started) << device;
        ASSERT_TRUE(s.host->chordsOpen());
        QQuickItem* board = s.item("ukuleleFretboard");
        ASSERT_TRUE(board) << device;
        EXPECT_NEAR(board->height() / board->width(), 420.0 / 300.0, 0.01) << device;

        // Where resources/art/geometry.json puts strings and rows on the neck pictures.
        const double x[] = {0, 240, 180, 120, 60};
        const double rowY[] = {0, 120, 200, 280, 360};
        for (int str = 1; str <= 4; ++str) {
            const QPointF status = s.onBoard(QString("string%1Status").arg(str));
            EXPECT_NEAR(status.x(), x[str], 0.6) << device << " string " << str;
            EXPECT_NEAR(status.y(), 40, 0.6) << device;
            for (int r = 1; r <= 4; ++r) {
                const QPointF c = s.onBoard(QString("Str%1Fr%2").arg(str).arg(r));
                EXPECT_NEAR(c.x(), x[str], 0.6) << device << " Str" << str << "Fr" << r;
                EXPECT_NEAR(c.y(), rowY[r], 0.6) << device << " Str" << str << "Fr" << r;
            }
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
        EXPECT_LE(bottom(wheel), s.host->window()->height() + 0.5) << device;
    }
}

// Every shape of a chart, picked on the wheels, lands on the cells of its strings and rows.
TEST(ChordsScreenView, PickedRowsShowTheirShapeOnTheRightCells) {
    test::ensureQtApp();
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
    test::ensureQtApp();
    ChordsOnScreen s("phone-844", 1);
    ASSERT_TRUE(s.started);
    EXPECT_EQ(s.text("chordsTitle1"), "Chord library");
    QQuickItem* roots = s.item("selectRootChord");
    QQuickItem* types = s.item("selectVariant");
    ASSERT_TRUE(roots && types);
    EXPECT_EQ(roots->property("count").toInt(), 12);
    EXPECT_EQ(types->property("count").toInt(), 15);

    // The first chord is drawn at random among the first eight rows of each wheel,
    // and the wheels stand on it.
    const ChordScreenModel& m = s.host->chordModel();
    EXPECT_LT(m.selectRootChord.selectedRow, 8);
    EXPECT_LT(m.selectVariant.selectedRow, 8);
    EXPECT_EQ(roots->property("currentIndex").toInt(), m.selectRootChord.selectedRow);
    EXPECT_EQ(types->property("currentIndex").toInt(), m.selectVariant.selectedRow);

    s.host->chordsAction("didSelectRow", 4, 1); // C#/D♭
    s.host->chordsAction("didSelectRow", 9, 2); // add9
    AppOnScreen::settle();
    EXPECT_EQ(s.text("chordDisplay"), "C#add9");
    EXPECT_EQ(roots->property("currentIndex").toInt(), 4);
    EXPECT_EQ(types->property("currentIndex").toInt(), 9);
    expectShapeOnScreen(s, *ChordShapeTable::find(1, "C#/D♭", "add9"), "C# add9");

    // Nonsense from the view changes nothing and does not crash.
    s.host->chordsAction("didSelectRow", QVariant(), 1);
    s.host->chordsAction("didSelectRow", 2, QVariant());
    s.host->chordsAction("didSelectRow", 99, 1);
    s.host->chordsAction("noSuchAction");
    AppOnScreen::settle();
    EXPECT_EQ(s.text("chordDisplay"), "C#add9");
}

TEST(ChordsScreenView, SpellingSwitchRenamesTheChordAndOffersTheOtherSpelling) {
    test::ensureQtApp();
    ChordsOnScreen s("phone-667", 1);
    ASSERT_TRUE(s.started);
    s.pick("selectRootChord", ChordCatalogue::rootKeys, "A#/B♭");
    s.pick("selectVariant", ChordCatalogue::fullVariantKeys, "7sus4");
    EXPECT_EQ(s.text("chordDisplay"), "A#7sus4");

    QQuickItem* button = s.item("buttonFlatOrSharp");
    ASSERT_TRUE(button);
    const auto icon = [&] { return button->property("icon").toString().remove("image://art/"); };
    EXPECT_EQ(icon(), "flat.png");

    s.click("buttonFlatOrSharp");
    EXPECT_EQ(s.text("chordDisplay"), "B♭7sus4");
    EXPECT_EQ(icon(), "sharp.png");
    expectShapeOnScreen(s, *ChordShapeTable::find(1, "A#/B♭", "7sus4"), "B♭ 7sus4");
    // The spelling stays with the wheels' next choice.
    s.pick("selectRootChord", ChordCatalogue::rootKeys, "G#/A♭");
    EXPECT_EQ(s.text("chordDisplay"), "A♭7sus4");

    s.click("buttonFlatOrSharp");
    EXPECT_EQ(s.text("chordDisplay"), "G#7sus4");
    EXPECT_EQ(icon(), "flat.png");
}

// The tuner hands over the chart of its tuning; the chart picks the neck picture on
// the classes that have one and leaves the standard picture elsewhere.
TEST(ChordsScreenView, TheTunersTuningPicksTheChartAndItsNeckPicture) {
    test::ensureQtApp();
    struct Case {
        const char* device;
        int64_t tuning;
        const char* openStrings;
        const char* picture;
        int types;
    };
    const Case cases[] = {
        {"phone-667", 1, "G C E A", "fretboard.png", 15},
        {"phone-667", 5, "D G B E", "bchords_iPhone6.png", 15},
        {"phone-480", 10, "G C E G", "slchords_iPhone.png", 10},
        {"phone-812", 10, "G C E G", "slchords_iPhone6Plus.png", 10},
        {"pad-1194", 11, "D G B D", "slbchords_iPad.png", 10},
        // Deliberately kept: a phone height without pictures of its own shows the standard neck.
        {"phone-844", 5, "D G B E", "fretboard.png", 15},
    };
    for (const Case& c : cases) {
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

    // Stepping back to the standard tuning hands over the standard chart again.
    AppOnScreen s("phone-667");
    s.tuneTo(11);
    s.tuneTo(1);
    s.openChords();
    EXPECT_EQ(s.shown("ukuleleFretboard"), "fretboard.png");
    EXPECT_EQ(s.item("selectVariant")->property("count").toInt(), 15);
}

TEST(ChordsScreenView, BackButtonReturnsToTheTuner) {
    test::ensureQtApp();
    AppOnScreen s("phone-667");
    ASSERT_TRUE(s.started);
    s.openChords();
    ASSERT_TRUE(s.item("chordDisplay"));

    s.click("chordsBack");
    EXPECT_FALSE(s.host->chordsOpen());
    EXPECT_EQ(s.item("chordDisplay"), nullptr);
    QQuickItem* tuning = s.item("currentTuningName");
    ASSERT_TRUE(tuning);
    EXPECT_TRUE(tuning->isVisible());
    s.host->chordsAction("toggleSharpOfFlat"); // no screen: ignored

    // The screen opens afresh, with a new first chord and the spelling kept.
    s.openChords();
    EXPECT_TRUE(s.item("chordDisplay"));
    s.click("chordsBack");
    EXPECT_FALSE(s.host->chordsOpen());
}

// Writes the pictures of docs/ when UKE_DOCS_DIR names a folder; otherwise checks
// that each chart renders.
TEST(ChordsScreenView, Screenshots) {
    test::ensureQtApp();
    const QString out = qEnvironmentVariable("UKE_DOCS_DIR");
    struct Shot {
        const char* file;
        const char* device;
        int64_t chart;
        const char* root;
        const char* variant;
        bool flats;
    };
    // Each shows a fret number, a status mark and dots.
    const Shot shots[] = {
        {"chords-chart1-phone.png", "phone-667", 1, "G#/A♭", "-", false},
        {"chords-chart1-pad.png", "pad-1194", 1, "C#/D♭", "add9", false},
        {"chords-chart2-phone.png", "phone-667", 2, "A#/B♭", "m9", true},
        {"chords-chart3-phone.png", "phone-667", 3, "E", "m7", false},
        {"chords-chart4-phone.png", "phone-667", 4, "D#/E♭", "maj7", true},
    };
    for (const Shot& shot : shots) {
        ChordsOnScreen s(shot.device, shot.chart);
        ASSERT_TRUE(s.started);
        s.pick("selectRootChord", ChordCatalogue::rootKeys, shot.root);
        s.pick("selectVariant", ChordCatalogue::variantKeys(shot.chart), shot.variant);
        if (shot.flats != (s.host->state().showFlatNames == 1))
            s.click("buttonFlatOrSharp");
        // The wheels glide to their rows.
        AppOnScreen::settle(1200);
        const QImage img = s.host->window()->grabWindow();
        ASSERT_FALSE(img.isNull()) << shot.file;
        EXPECT_EQ(s.text("chordDisplay").toStdString(),
                  ChordCatalogue::chordName(shot.root, shot.variant, shot.flats ? Spelling::Flats : Spelling::Sharps));
        if (!out.isEmpty()) {
            EXPECT_TRUE(img.save(QDir(out).filePath(shot.file))) << shot.file;
        }
    }
}

} // namespace
} // namespace uke
