// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// The window as a desktop uses it: any size, the keyboard, and a screen reader.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QQmlEngine>
#include <QTest>
#include <cmath>

#include "platform/virtual/Fakes.h"
#include "support/RunningApp.h"
#include "support/SyntheticPluck.h"

namespace uke {
namespace {

using test::RunningApp;

void forEachVisible(QQuickItem* under, const std::function<void(QQuickItem*)>& f) {
    for (QQuickItem* child : under->childItems()) {
        if (!child->isVisible() || child->opacity() == 0.0)
            continue;
        f(child);
        forEachVisible(child, f);
    }
}

QRectF sceneRect(QQuickItem* i) { return i->mapRectToScene(QRectF(0, 0, i->width(), i->height())); }

// Mean brightness difference of two pictures of one size, 0 to 255.
double difference(const QImage& a, const QImage& b) {
    const QImage x = a.convertToFormat(QImage::Format_Grayscale8), y = b.convertToFormat(QImage::Format_Grayscale8);
    double sum = 0;
    for (int row = 0; row < x.height(); ++row)
        for (int col = 0; col < x.width(); ++col)
            sum += std::abs(qGray(x.pixel(col, row)) - qGray(y.pixel(col, row)));
    return sum / (x.width() * x.height());
}

// The layout is scaled to the window and centred in it, and drawn at the window's
// pixels: a bigger window shows the same screen, whole, with finer detail.
TEST(DesktopWindow, ScalesToAnySizeCentredWholeAndDrawnAtItsPixels) {
    RunningApp r("phone-844");
    ASSERT_TRUE(r.started);
    // A plucked A string: the lamp, the highlight and the ring show too.
    if (!demoModeEnabled) {
        for (int block = 0; block < 3; ++block)
            ASSERT_TRUE(r.capture->deliver(test::syntheticPluck(440.0, 14039.0, 4096)));
    }
    test::settle(100);
    const QSize base = r.window()->size();
    const QImage one = r.grab();
    QQuickItem* stage = r.item("stage");
    for (const double f : {1.0, 1.5, 2.0}) {
        // Wider than the layout: the screen is as tall as the window, with room on both sides.
        const QSize size(std::lround(base.width() * f) + 120, std::lround(base.height() * f));
        r.window()->resize(size);
        ASSERT_TRUE(test::settleUntil([&] { return r.window()->size() == size; })) << f;
        const QImage shot = r.grab();
        const QRectF placed = sceneRect(stage);
        EXPECT_NEAR(stage->scale(), f, 1e-9) << f;
        EXPECT_NEAR(placed.left(), size.width() - placed.right(), 1.0) << f << ": centred";
        EXPECT_NEAR(placed.height(), size.height(), 1.0) << f;

        const QRectF window(QPointF(0, 0), QSizeF(size));
        forEachVisible(stage, [&](QQuickItem* item) {
            const QString type = item->metaObject()->className();
            if (!type.startsWith("QQuickText") && !type.startsWith("QQuickImage"))
                return;
            const QRectF at = sceneRect(item);
            EXPECT_TRUE(window.adjusted(-1, -1, 1, 1).contains(at))
                << f << ": " << item->objectName().toStdString() << " is cut off";
            // A picture drawn at fewer pixels than it covers would be blurred.
            if (type.startsWith("QQuickImage") && item->width() > 0) {
                EXPECT_GE(item->implicitWidth(), std::floor(at.width() * 0.98))
                    << f << ": " << item->objectName().toStdString() << " is drawn too small";
            }
        });

        // The same screen as at 1x, only bigger.
        const QImage content = shot.copy(placed.toAlignedRect().intersected(shot.rect()));
        const QImage down = content.scaled(one.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        EXPECT_LT(difference(down, one), 6.0) << f;
        if (f == 2.0)
            test::saveForDocs(shot, "tuner-lit-phone-844-2x.png");
    }
}

// The keys do what the screen in front offers.
TEST(DesktopKeyboard, ShortcutsReachTheirActions) {
    RunningApp r;
    ASSERT_TRUE(r.started);
    r.tuner().act("toggleStringSounds", true);
    r.window()->requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(r.window()));
    const auto keys = [&](std::initializer_list<int> ks, Qt::KeyboardModifiers m = Qt::NoModifier) {
        for (int k : ks)
            QTest::keyClick(r.window(), static_cast<Qt::Key>(k), m);
        test::settle(20);
    };
    const auto key = [&](int k) { keys({k}); };

    keys({Qt::Key_Right, Qt::Key_Right, Qt::Key_Left});
    EXPECT_EQ(r.host->state().chosenTuning, 2);
    keys({Qt::Key_Left, Qt::Key_Left}); // the first tuning has no previous one
    EXPECT_EQ(r.host->state().chosenTuning, 1);

    if (!demoModeEnabled) {
        key(Qt::Key_3);
        ASSERT_EQ(r.sounds->played.size(), 1u);
        EXPECT_TRUE(QString::fromStdString(r.sounds->played.back()).endsWith("/C4.mp3"));
    }

    // In the tuning fork the keys play its tones instead, and Escape closes it.
    r.tap("tuningForkButton");
    QQuickItem* fork = r.item("tuningForkSheet");
    ASSERT_TRUE(fork->property("open").toBool());
    key(Qt::Key_1);
    EXPECT_EQ(r.host->tunerModel().tfnoteDisplay.text, "A4");
    key(Qt::Key_Right); // the tuner behind it stays as it is
    EXPECT_EQ(r.host->state().chosenTuning, 1);
    key(Qt::Key_Escape);
    EXPECT_FALSE(fork->property("open").toBool());
    ASSERT_TRUE(test::settleUntil([&] { return !fork->isVisible(); }));

    // On the chord screen the arrows turn the wheels; Escape goes back.
    r.tap("goToChordsLibraryButton");
    ASSERT_TRUE(r.host->chordsOpen());
    test::settle(100);
    const auto row = [&](const char* wheel) { return r.item(wheel)->property("currentIndex").toInt(); };
    const int root = row("selectRootChord"), variant = row("selectVariant");
    keys({Qt::Key_Down, Qt::Key_Down});
    EXPECT_EQ(row("selectRootChord"), root + 2);
    keys({Qt::Key_Right, Qt::Key_Down});
    EXPECT_EQ(row("selectVariant"), variant + 1);
    EXPECT_EQ(r.host->chordModel().selectVariant.selectedRow, variant + 1) << "the core hears of it";
    keys({Qt::Key_Left, Qt::Key_Up});
    EXPECT_EQ(row("selectRootChord"), root + 1);
    key(Qt::Key_Escape);
    EXPECT_FALSE(r.host->chordsOpen());

    // The engine passes a quit on to the application's event loop (not running here).
    bool quit = false;
    QObject::connect(qmlEngine(r.item("stage")), &QQmlEngine::quit, [&] { quit = true; });
    keys({Qt::Key_Q}, Qt::ControlModifier);
    EXPECT_TRUE(quit);
}

// What a screen reader says for each button and read-out.
TEST(DesktopAccessibility, ButtonsAndReadOutsHaveNamesAndRoles) {
    QAccessible::setActive(true);
    RunningApp r;
    ASSERT_TRUE(r.started);
    // Each item's role and the name it is read out by.
    const auto check = [&](std::initializer_list<std::tuple<const char*, QAccessible::Role, const char*>> expected) {
        for (const auto& [name, role, spoken] : expected) {
            QQuickItem* item = r.item(name);
            ASSERT_NE(item, nullptr) << name;
            QAccessibleInterface* a = QAccessible::queryAccessibleInterface(item);
            ASSERT_NE(a, nullptr) << name;
            EXPECT_EQ(a->role(), role) << name;
            EXPECT_EQ(a->text(QAccessible::Name), spoken) << name;
        }
    };
    check({{"showNextTuningButton", QAccessible::Button, "Next tuning"},
           {"settingsButton", QAccessible::Button, "Settings"},
           {"currentTuningName", QAccessible::StaticText, "Tuning: Standard  G C E A"},
           {"firstString", QAccessible::Button, "Play A4"}});
    if (!demoModeEnabled) {
        check({{"noteDisplay", QAccessible::StaticText, "No note"},
               {"freq_label", QAccessible::StaticText, "Pluck a string"},
               {"LEDDisplay", QAccessible::Indicator, "Not in tune"}});
        for (int block = 0; block < 3; ++block)
            ASSERT_TRUE(r.capture->deliver(test::syntheticPluck(440.0, 14039.0, 4096)));
        test::settle(100);
        check({{"noteDisplay", QAccessible::StaticText, "Note: A4"},
               {"freq_label", QAccessible::StaticText, "440.0Hz"},
               {"LEDDisplay", QAccessible::Indicator, "In tune"}});
    }
    r.tap("tuningForkButton");

    // Whatever can be pressed on any screen or panel says what it is.
    const auto everyPressableIsNamed = [&](const char* screen) {
        forEachVisible(r.window()->contentItem(), [&](QQuickItem* item) {
            if (qstrcmp(item->metaObject()->className(), "QQuickMouseArea") != 0 || item->objectName() == "blocker")
                return;
            // The control it belongs to: the nearest item a screen reader offers to press.
            const auto pressable = [](QAccessible::Role role) {
                return role == QAccessible::Button || role == QAccessible::CheckBox || role == QAccessible::ListItem ||
                       role == QAccessible::Slider;
            };
            QAccessibleInterface* control = nullptr;
            for (QQuickItem* i = item; i && !control; i = i->parentItem())
                if (QAccessibleInterface* a = QAccessible::queryAccessibleInterface(i); a && pressable(a->role()))
                    control = a;
            ASSERT_NE(control, nullptr) << screen << ": a pressable area that is no control";
            EXPECT_FALSE(control->text(QAccessible::Name).isEmpty()) << screen << ": a control without a name";
        });
    };
    everyPressableIsNamed("tuning fork");
    for (const char* panel : {"settingsSheet", "aboutSheet"}) {
        r.closeSheet();
        r.openSheet(panel);
        everyPressableIsNamed(panel);
    }
    r.closeSheet();
    r.host->tuner()->act("openChords");
    test::settle(300);
    everyPressableIsNamed("chords");
    r.host->chords()->act("closeChords");
    test::settle(300);

    // A press through the screen reader is a tap.
    QAccessibleInterface* next = QAccessible::queryAccessibleInterface(r.item("showNextTuningButton"));
    ASSERT_NE(next->actionInterface(), nullptr);
    next->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(r.host->state().chosenTuning, 2);
}

} // namespace
} // namespace uke
