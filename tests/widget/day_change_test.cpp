// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The tick that checks for a change of day.
#include <QTest>

#include "widget/widget_fixture.h"

namespace quode::test {
namespace {

class DayChange : public WidgetTest {
  protected:
    DayChange() {
        device.clock->show(2026, 11, 21, 23, 59, 58);
        presentWidgetFor("Istanbul");
    }

    void tickAt(int day, int hour, int minute, int second) {
        device.clock->show(2026, 11, day, hour, minute, second);
        tick();
    }

    const std::string& gregorian() const { return widget->cityInfoView()->labelMiladi()->text(); }
    const std::string& hijri() const { return widget->cityInfoView()->labelHijri()->text(); }
    const std::string& dawn() const { return widget->timesImsakView()->labelPrayTime()->text(); }
};

TEST_F(DayChange, IsLookedForTenTimesASecondWithoutPrecision) {
    ASSERT_NE(nullptr, widget->timer());
    EXPECT_EQ(100, widget->timer()->interval());
    EXPECT_EQ(Qt::CoarseTimer, widget->timer()->timerType());
    EXPECT_TRUE(widget->timer()->isActive());
    EXPECT_FALSE(widget->timer()->isSingleShot());
}

TEST_F(DayChange, IsSeenByTheRunningTimer) {
    device.clock->show(2026, 11, 22, 0, 0, 0);
    EXPECT_TRUE(QTest::qWaitFor([this] { return gregorian() == "22 November 2026"; }, 5000));
}

TEST_F(DayChange, ChangesNothingBeforeMidnight) {
    tickAt(21, 23, 59, 58);
    tickAt(21, 23, 59, 59);
    EXPECT_EQ("21 November 2026", gregorian());
}

TEST_F(DayChange, RenewsBothDatesInTheFirstEvenSecond) {
    tickAt(21, 23, 59, 59);
    tickAt(22, 0, 0, 0);
    EXPECT_EQ("22 November 2026", gregorian());
    EXPECT_EQ("13 Jumada al-Akhirah 1448", hijri());
    EXPECT_EQ(0, widget->currentInfo().dayofWeek);
}

TEST_F(DayChange, IsNotSeenInAnOddSecond) {
    tickAt(22, 0, 0, 1);
    EXPECT_EQ("21 November 2026", gregorian());
    tickAt(22, 0, 0, 2);
    EXPECT_EQ("22 November 2026", gregorian());
}

TEST_F(DayChange, LeavesEverythingElseToTheNextPresentation) {
    device.clock->show(2026, 12, 30, 12, 0, 0);
    widget->hostDidPresent();
    const std::string before = dawn();
    const std::string moon = widget->cityInfoView()->labelMoonInfo()->text();
    device.clock->show(2026, 12, 31, 0, 0, 0);
    tick();
    EXPECT_EQ("31 December 2026", gregorian());
    device.clock->show(2027, 2, 1, 0, 0, 0);
    tick();
    EXPECT_EQ("1 February 2027", gregorian());
    EXPECT_EQ(before, dawn());
    EXPECT_EQ(moon, widget->cityInfoView()->labelMoonInfo()->text());
    EXPECT_TRUE(widget->religiousView()->religiousDaysArray().empty());
    widget->hostDidPresent();
    EXPECT_NE(before, dawn());
    EXPECT_NE(moon, widget->cityInfoView()->labelMoonInfo()->text());
}

TEST_F(DayChange, ComparesYearMonthAndDay) {
    for (const auto& [year, month, text] :
         {std::tuple{2026, 10, "21 October 2026"}, {2025, 10, "21 October 2025"}, {2025, 11, "21 November 2025"}}) {
        device.clock->show(year, month, 21, 0, 0, 0);
        tick();
        EXPECT_EQ(text, gregorian());
    }
}

TEST_F(DayChange, DoesNotRenewTheDateWithinADay) {
    tickAt(21, 23, 59, 58);
    widget->cityInfoView()->labelMiladi()->setText("untouched");
    tickAt(21, 0, 0, 0);
    EXPECT_EQ("untouched", gregorian());
    EXPECT_EQ(58, widget->currentInfo().MiladiDate.Seconds);
}

TEST_F(DayChange, IsLookedForNoMoreOnceDismissed) {
    widget->hostDidDismiss();
    device.clock->show(2026, 11, 22, 0, 0, 0);
    QTest::qWait(250);
    EXPECT_EQ(21, widget->currentInfo().MiladiDate.Days);
}

// A locale whose month name is read during a build, when a tick must do nothing.
class TickingLocale : public FixedLocale {
  public:
    std::string monthName(int month) const override {
        if (onMonthName) std::exchange(onMonthName, nullptr)();
        return FixedLocale::monthName(month);
    }
    mutable std::function<void()> onMonthName;
};

TEST_F(DayChange, IsIgnoredInTheMiddleOfABuild) {
    const auto locale = std::make_shared<TickingLocale>();
    device.locale = locale;
    makeWidget();
    int ticks = 0;
    locale->onMonthName = [&] {
        ++ticks;
        device.clock->show(2026, 11, 22, 0, 0, 0);
        widget->timerFireMethod(VAKDateMake(22, 11, 2026, 0, 0, 0));
    };
    widget->hostDidPresent();
    EXPECT_EQ(1, ticks);
    EXPECT_EQ(21, widget->currentInfo().MiladiDate.Days);
    widget->timerFireMethod(VAKDateMake(22, 11, 2026, 0, 0, 0));
    EXPECT_EQ(22, widget->currentInfo().MiladiDate.Days);
}

}  // namespace
}  // namespace quode::test
