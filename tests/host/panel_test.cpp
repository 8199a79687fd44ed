// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/Panel.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <algorithm>
#include <cstdlib>
#include <utility>

#include "common/Settings.h"
#include "host/fake_widget.h"
#include "host/placement.h"
#include "support/fake_platform.h"
#include "support/zoned_clock.h"
#include "views/fonts.h"

namespace quode::test {
namespace {

using host::Panel;
using host::PanelStyle;
using host::PanelWindow;

constexpr int padding = 16;  // above and below the widget together

class PanelTest : public testing::Test {
  protected:
    explicit PanelTest(PanelStyle style = PanelStyle::popover)
        : window(style, true), panel(widget, window, clock, watch, [this] { ++preparations; }) {
        clock.show(2026, 11, 21, 14, 30, 0);
    }

    void present() {
        panel.present(pointer);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    QPoint pointer{700, 790};
    FixedClock clock;
    FakeWatch watch;
    FakeWidget widget;
    PanelWindow window;
    int preparations = 0;
    Panel panel;
};

class PanelAsWindow : public PanelTest {
  protected:
    PanelAsWindow() : PanelTest(PanelStyle::window) {}
};

TEST_F(PanelTest, ShowsTheWholeWidgetBesideThePointer) {
    present();
    EXPECT_TRUE(panel.isPresented());
    EXPECT_TRUE(widget.view()->isVisible());
    const QRect available = window.screen()->availableGeometry();
    EXPECT_EQ(window.geometry(), host::popoverFrame({340, 400 + padding}, pointer, available));
    EXPECT_EQ(window.accessibleName(), "Quode");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&window)->role(), QAccessible::Window);
}

TEST_F(PanelTest, IsReadyBeforeTheWidgetReads) {
    EXPECT_EQ(preparations, 0);
    present();
    EXPECT_EQ(preparations, 1);
    EXPECT_EQ(widget.presented, 1);
}

TEST_F(PanelTest, IsDismissedByEscapeWhateverHasTheFocus) {
    present();
    widget.field()->setFocus();
    QTest::keyClick(widget.field(), Qt::Key_Escape);
    EXPECT_FALSE(panel.isPresented());
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(widget.dismissed, 1);
    EXPECT_EQ(widget.view(), nullptr);

    present();
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(PanelTest, IsDismissedWhenTheUserTurnsToAnotherProgram) {
    present();
    QApplication::setActiveWindow(nullptr);
    EXPECT_FALSE(panel.isPresented());
    EXPECT_FALSE(window.isVisible());
}

TEST_F(PanelTest, StaysWhenAWindowOfThisProgramCoversIt) {
    present();
    QWidget compass;
    compass.show();
    QApplication::setActiveWindow(&compass);
    EXPECT_TRUE(panel.isPresented());
    QApplication::setActiveWindow(&window);
    QApplication::setActiveWindow(nullptr);
    EXPECT_FALSE(panel.isPresented());
}

TEST_F(PanelAsWindow, StaysWhenTheUserTurnsToAnotherProgram) {
    present();
    QApplication::setActiveWindow(nullptr);
    EXPECT_TRUE(panel.isPresented());
    EXPECT_TRUE(window.close() || !panel.isPresented());
    EXPECT_FALSE(panel.isPresented());
}

TEST_F(PanelTest, IsOpenedAndClosedByTheIcon) {
    panel.toggle(pointer);
    EXPECT_TRUE(panel.isPresented());
    panel.toggle(pointer);
    EXPECT_FALSE(panel.isPresented());
    panel.toggle(pointer);
    EXPECT_TRUE(panel.isPresented());
}

TEST_F(PanelTest, IsNotOpenedAgainByTheClickThatTookItsFocus) {
    present();
    QApplication::setActiveWindow(nullptr);
    panel.toggle(pointer);
    EXPECT_FALSE(panel.isPresented());
    panel.toggle(pointer);
    EXPECT_TRUE(panel.isPresented());
}

TEST_F(PanelTest, ComesToTheFrontWhenItIsPresentedTwice) {
    present();
    panel.present({0, 0});
    EXPECT_EQ(widget.presented, 1);
    EXPECT_TRUE(panel.isPresented());
}

TEST_F(PanelTest, GrowsDownwardsAndKeepsItsPlace) {
    pointer = {400, 10};
    present();
    const QRect before = window.geometry();
    widget.grow(520.0);
    EXPECT_EQ(window.height(), 520 + padding);
    EXPECT_EQ(window.geometry().topLeft(), before.topLeft());
}

TEST_F(PanelTest, ScrollsRatherThanMovingAwayUnderThePointer) {
    present();
    const QRect before = window.geometry();
    widget.grow(700.0);
    EXPECT_EQ(window.geometry().top(), before.top());
    EXPECT_LE(std::abs(window.geometry().left() - before.left()), 6);  // for the scroll bar at the edge of the screen
    EXPECT_TRUE(window.screen()->availableGeometry().contains(window.geometry()));
    EXPECT_TRUE(window.findChild<QScrollArea*>()->verticalScrollBar()->isVisible());
    panel.dismiss();
    present();  // now there is a place for all of it
    EXPECT_EQ(window.height(), 700 + padding);
}

TEST_F(PanelAsWindow, KeepsTheWidgetInTheMiddleOfAWindowThatTheDesktopSizes) {
    host::PanelFacts facts;
    facts.next = "Asr in 1 h 12 min";
    panel.setFacts([&] { return facts; });
    present();
    const int around = window.height() - 400;
    window.resize(700, 780);  // as a desktop does that tiles its windows
    QCoreApplication::processEvents();
    EXPECT_EQ(widget.view()->size(), QSize(340, 400));
    EXPECT_EQ(widget.view()->mapTo(&window, QPoint()).x(), (700 - 340) / 2);
    widget.grow(520.0);
    EXPECT_EQ(window.size(), QSize(700, 780));
    EXPECT_EQ(widget.view()->mapTo(&window, QPoint()).x(), (700 - 340) / 2);
    EXPECT_GT(window.findChild<QLabel*>("nextPrayer")->mapTo(&window, QPoint()).x(), (700 - 340) / 2);
    panel.dismiss();
    present();
    EXPECT_EQ(window.size(), QSize(340, 520 + around));
}

TEST_F(PanelTest, TellsFactsAroundTheWidget) {
    host::PanelFacts facts;
    facts.next = "Asr in 1 h 12 min";
    facts.dates = "Saturday 21 November 2026";
    facts.notes = {"A note of the day."};
    panel.setFacts([&] { return facts; });
    present();
    const auto textOf = [&](const char* name) { return window.findChild<QLabel*>(name)->text(); };
    EXPECT_EQ(textOf("nextPrayer"), "Asr in 1 h 12 min");
    EXPECT_EQ(textOf("dates"), "Saturday 21 November 2026");
    EXPECT_EQ(textOf("footnotes"), "A note of the day.");
    EXPECT_GT(window.height(), 400 + padding);
    EXPECT_EQ(window.findChild<QScrollArea*>()->viewport()->height(), 400);
    facts.next = "Asr in 1 h 11 min";
    panel.refreshFacts();
    EXPECT_EQ(textOf("nextPrayer"), "Asr in 1 h 11 min");
}

TEST_F(PanelTest, BeginsItsTextsAtTheSameDistanceFromTheEdgeInEveryLanguage) {
    host::PanelFacts facts;
    facts.next = "Asr";
    facts.notes = {"A note of the day."};
    panel.setFacts([&] { return facts; });
    present();
    const auto placeOf = [&](const char* name) {
        const auto* const label = window.findChild<QLabel*>(name);
        return QRect(label->mapTo(&window, QPoint()), label->size());
    };
    EXPECT_EQ(placeOf("footnotes").left(), placeOf("nextPrayer").left());
    window.setLayoutDirection(Qt::RightToLeft);
    QCoreApplication::processEvents();
    EXPECT_EQ(placeOf("footnotes").right(), placeOf("nextPrayer").right());
}

TEST_F(PanelTest, BuildsTheWidgetAgainWhenTheDeviceGetsAnotherWidth) {
    bool isWider = true;
    panel.setFit([&] {
        EXPECT_NE(widget.view(), nullptr);
        widget.size.width = 400.0;
        return std::exchange(isWider, false);
    });
    present();
    EXPECT_EQ(widget.presented, 2);
    EXPECT_EQ(widget.view()->width(), 400);
    panel.presentAgain();
    EXPECT_EQ(widget.presented, 3);
}

TEST_F(PanelTest, HasOneFontWithTheWidget) {
    present();
    const QFont wanted = fontNamed(Settings().fontName, 15);
    EXPECT_EQ(window.font().families(), wanted.families());
    for (const char* name : {"nextPrayer", "dates", "footnotes", "notice"}) {
        EXPECT_EQ(window.findChild<QLabel*>(name)->font().families(), wanted.families()) << name;
    }
}

TEST_F(PanelTest, LooksForFactsOnlyWhileItIsPresented) {
    int looks = 0;
    panel.setFacts([&] {
        ++looks;
        return host::PanelFacts{};
    });
    panel.refreshFacts();
    EXPECT_EQ(looks, 0);
    present();
    EXPECT_EQ(looks, 1);
    const auto isRunning = [&] {
        return std::ranges::any_of(panel.findChildren<QTimer*>(),
                                   [](const QTimer* timer) { return timer->isActive(); });
    };
    panel.dismiss();
    EXPECT_FALSE(isRunning());
    panel.refreshFacts();
    EXPECT_EQ(looks, 1);
}

TEST_F(PanelTest, ScrollsWhereTheScreenIsLower) {
    widget.size.height = 3000.0;
    present();
    EXPECT_LT(window.height(), window.screen()->availableGeometry().height());
    const auto* scroll = window.findChild<QScrollArea*>();
    EXPECT_TRUE(scroll->verticalScrollBar()->isVisible());
    EXPECT_GE(scroll->viewport()->width(), 340);  // nothing is cut off beside the bar
    EXPECT_EQ(scroll->verticalScrollBar()->maximum(), 3000 - scroll->viewport()->height());
}

TEST_F(PanelTest, HasAScrollBarThatIsOnlyItsHandle) {
    widget.size.height = 3000.0;
    present();
    auto* const bar = window.findChild<QScrollArea*>()->verticalScrollBar();
    EXPECT_EQ(bar->width(), 6);
    const QImage atTop = bar->grab().toImage();
    const auto isHandle = [&](const QImage& picture, int y) {
        return picture.pixelColor(3, y) == QColor(0x76, 0x78, 0x7e);
    };
    EXPECT_TRUE(isHandle(atTop, 12));
    EXPECT_FALSE(isHandle(atTop, bar->height() - 2));
    QTest::mouseClick(bar, Qt::LeftButton, {}, {3, bar->height() - 2});
    EXPECT_EQ(bar->value(), bar->pageStep()) << "a click below the handle shows the next page";
    bar->setValue(bar->maximum());
    const QImage atEnd = bar->grab().toImage();
    EXPECT_FALSE(isHandle(atEnd, 1));
    EXPECT_TRUE(isHandle(atEnd, bar->height() - 12));
}

TEST_F(PanelTest, DrawsTheButtonOfAMenuThatFollows) {
    window.setMenu(nullptr, "Menu");
    present();
    auto* const button = window.findChild<QToolButton*>("menuButton");
    EXPECT_TRUE(button->isVisible());
    QMenu menu;
    window.setMenu(&menu, "Menu");
    EXPECT_EQ(button->menu(), &menu);
    window.setMenu(nullptr, {});
    EXPECT_FALSE(button->isVisible());
}

TEST_F(PanelTest, ShowsAMessageAboveTheWidget) {
    window.setNotice("No city is known for the time zone of this device. Please add your city.");
    present();
    EXPECT_GT(window.height(), 400 + padding);
    EXPECT_EQ(window.findChild<QScrollArea*>()->viewport()->height(), 400);
    window.setNotice("");
    panel.dismiss();
    present();
    EXPECT_EQ(window.height(), 400 + padding);
}

TEST_F(PanelTest, PresentsTheWidgetAgainWhenTheDayChanges) {
    present();
    ASSERT_EQ(watch.moment, Clock::TimePoint(utc("2026-11-22 00:00")));
    clock.show(2026, 11, 22, 0, 0, 0);
    Q_EMIT watch.happened();
    EXPECT_EQ(widget.presented, 2);
    EXPECT_EQ(widget.dismissed, 1);
    EXPECT_EQ(preparations, 2);
    EXPECT_TRUE(widget.view()->isVisible());
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(watch.moment, Clock::TimePoint(utc("2026-11-23 00:00")));
}

TEST_F(PanelTest, PresentsTheWidgetAgainWhenTheZoneChanges) {
    present();
    clock.offset = std::chrono::hours(9);
    Q_EMIT watch.happened();
    EXPECT_EQ(widget.presented, 2);
    EXPECT_EQ(watch.moment, Clock::TimePoint(utc("2026-11-21 15:00")));
}

TEST_F(PanelTest, WatchesNothingWhileItIsDismissed) {
    EXPECT_EQ(watch.moment, std::nullopt);
    present();
    panel.dismiss();
    EXPECT_EQ(watch.moment, std::nullopt);
    Q_EMIT watch.happened();
    EXPECT_EQ(widget.presented, 1);
    EXPECT_EQ(preparations, 1);
}

TEST_F(PanelTest, CanBePresentedAHundredTimes) {
    present();
    panel.dismiss();
    const auto children = window.findChildren<QObject*>().size();
    const auto windows = QApplication::topLevelWidgets().size();
    for (int time = 0; time < 100; ++time) {
        panel.present(pointer);
        panel.dismiss();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(widget.presented, 101);
    EXPECT_EQ(widget.dismissed, 101);
    EXPECT_LE(window.findChildren<QObject*>().size(), children);
    EXPECT_EQ(QApplication::topLevelWidgets().size(), windows);
}

}  // namespace
}  // namespace quode::test
