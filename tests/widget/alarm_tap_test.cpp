// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The alarm buttons of the prayer rows.
#include <sqlite3.h>

#include <chrono>

#include "data/sqlite_reading.h"
#include "views/MessageView.h"
#include "widget/widget_fixture.h"

namespace quode::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A clock that never advances a toast.
class StandingClock : public AnimationClock {
  public:
    Duration now() const override { return {}; }
    void wakeAfter(Duration, QObject&, std::function<void()>) override {}
};

class AlarmTap : public WidgetTest {
  protected:
    AlarmTap() {
        MessageView::setAnimationClock(&clock);
        presentWidgetFor("Istanbul");
    }
    ~AlarmTap() override {
        widget.reset();
        MessageView::setAnimationClock(nullptr);
    }

    void setUpAlarm(int timeId, double prayTime) {
        runOnUserDatabase("UPDATE USER_ALARMS SET MELODYNAME = 'bell', MINUTE = -10, PRAYTIME = " +
                          std::to_string(prayTime) + " WHERE TIMEID = " + std::to_string(timeId));
    }

    // The columns of an alarm changed by a tap.
    std::string storedAlarm(int timeId) {
        return readFromUserDatabase("SELECT ACTIVE || ' ' || EVENTID FROM USER_ALARMS WHERE TIMEID = " +
                                    std::to_string(timeId));
    }

    std::vector<std::string> toasts() const {
        std::vector<std::string> texts;
        for (const auto* toast : widget->view()->findChildren<MessageView*>()) {
            texts.push_back(toast->textLabel()->text());
        }
        return texts;
    }

    void expectOff(const UIButtonX& alarm) {
        EXPECT_EQ(10, alarm.buttonShape());
        EXPECT_FALSE(alarm.selected());
    }

    StandingClock clock;
};

TEST_F(AlarmTap, SwitchesAnAlarmOn) {
    setUpAlarm(4, 15.53);
    UIButtonX& alarm = button("Alarm for Asr");
    click(alarm);
    EXPECT_EQ(9, alarm.buttonShape());
    EXPECT_TRUE(alarm.selected());
    EXPECT_EQ("1 event-1", storedAlarm(4));
    ASSERT_EQ(1U, calendar->events.size());
    const CalendarEvent& event = calendar->events.at("event-1");
    EXPECT_EQ("Prayer Alarm", event.title);
    EXPECT_EQ("Quode", event.location);
    const auto today = std::chrono::sys_days(std::chrono::November / 21 / 2026);
    EXPECT_EQ(today + std::chrono::hours(12) + std::chrono::minutes(21),
              std::chrono::floor<std::chrono::minutes>(event.start));
    EXPECT_THAT(toasts(), IsEmpty());
    EXPECT_EQ("", log());
}

TEST_F(AlarmTap, SwitchesAnAlarmOffAgain) {
    setUpAlarm(4, 15.53);
    UIButtonX& alarm = button("Alarm for Asr");
    click(alarm);
    click(alarm);
    expectOff(alarm);
    EXPECT_EQ("0 ", storedAlarm(4));
    EXPECT_THAT(calendar->events, IsEmpty());
}

TEST_F(AlarmTap, SwitchesOffAnAlarmThatWasStoredAsOn) {
    setUpAlarm(1, 6.1);
    click(button("Alarm for Fajr"));
    widget->hostDidDismiss();
    widget->hostDidPresent();
    UIButtonX& alarm = button("Alarm for Fajr");
    EXPECT_EQ(9, alarm.buttonShape());
    EXPECT_TRUE(alarm.selected());
    EXPECT_TRUE(spokenAs(*widget->view(), "Alarm for Fajr").state().checked);
    click(alarm);
    expectOff(alarm);
    EXPECT_EQ("0 ", storedAlarm(1));
    EXPECT_THAT(calendar->events, IsEmpty());
}

TEST_F(AlarmTap, WorksOnThePrayerOfItsRow) {
    for (int timeId = 1; timeId <= 6; ++timeId) setUpAlarm(timeId, 12.0 + timeId);
    const std::vector<std::string> prayers{"Fajr", "Sunrise", "Dhuhr", "Asr", "Maghrib", "Isha"};
    for (std::size_t i = 0; i < prayers.size(); ++i) {
        click(button("Alarm for " + prayers[i]));
        EXPECT_EQ(std::to_string(i + 1),
                  readFromUserDatabase("SELECT group_concat(TIMEID) FROM USER_ALARMS WHERE ACTIVE = 1"));
        click(button("Alarm for " + prayers[i]));
    }
}

TEST_F(AlarmTap, AsksForASoundWhenTheAlarmIsNotSetUp) {
    UIButtonX& alarm = button("Alarm for Maghrib");
    click(alarm);
    EXPECT_THAT(toasts(), ElementsAre("Choose a sound for this alarm first."));
    expectOff(alarm);
    EXPECT_EQ("0 ", storedAlarm(5));
    EXPECT_EQ(0, calendar->saves);
    const auto* spoken = QAccessible::queryAccessibleInterface(widget->view()->findChild<MessageView*>());
    EXPECT_EQ(QAccessible::AlertMessage, spoken->role());
}

TEST_F(AlarmTap, AsksForASoundWhenTheDatabaseHasNoSuchAlarm) {
    runOnUserDatabase("DELETE FROM USER_ALARMS");
    click(button("Alarm for Isha"));
    EXPECT_THAT(toasts(), ElementsAre("Choose a sound for this alarm first."));
    expectOff(button("Alarm for Isha"));
}

TEST_F(AlarmTap, AsksForASoundForAnActiveAlarmWithoutOne) {
    runOnUserDatabase("UPDATE USER_ALARMS SET ACTIVE = 1 WHERE TIMEID = 2");
    widget->hostDidPresent();
    EXPECT_EQ(9, button("Alarm for Sunrise").buttonShape());
    click(button("Alarm for Sunrise"));
    expectOff(button("Alarm for Sunrise"));
    EXPECT_THAT(toasts(), ElementsAre("Choose a sound for this alarm first."));
    EXPECT_EQ("1 ", storedAlarm(2));
}

TEST_F(AlarmTap, IsDisabledWithoutACity) {
    setUpAlarm(3, 13.0);
    runOnUserDatabase("DELETE FROM USER_CITY");
    widget->hostDidPresent();
    click(button("Alarm for Dhuhr"));
    expectOff(button("Alarm for Dhuhr"));
    EXPECT_THAT(toasts(), IsEmpty());
    EXPECT_EQ("0 ", storedAlarm(3));
}

TEST_F(AlarmTap, AsksForACityWhenItComesAllTheSame) {
    setUpAlarm(3, 13.0);
    runOnUserDatabase("DELETE FROM USER_CITY");
    widget->hostDidPresent();
    UIButtonX& alarm = button("Alarm for Dhuhr");
    alarm.setEnabled(true);
    click(alarm);
    EXPECT_THAT(toasts(), ElementsAre("Choose a city first."));
    expectOff(alarm);
    EXPECT_EQ("0 ", storedAlarm(3));
    EXPECT_EQ(0, calendar->saves);
}

TEST_F(AlarmTap, AsksForASoundBeforeACity) {
    runOnUserDatabase("DELETE FROM USER_CITY");
    widget->hostDidPresent();
    button("Alarm for Dhuhr").setEnabled(true);
    click(button("Alarm for Dhuhr"));
    EXPECT_THAT(toasts(), ElementsAre("Choose a sound for this alarm first."));
}

TEST_F(AlarmTap, SaysItInTheLanguageOfTheWidget) {
    GlobalFuncs::globalFuncs().chooseLanguage("de");
    widget->hostDidPresent();
    click(*widget->timesOgleView()->buttonAlarmOnOff());
    EXPECT_THAT(toasts(), ElementsAre(*GlobalFuncs::globalFuncs().GetKeyValue(1021)));
    EXPECT_THAT(toasts(), testing::Not(ElementsAre("Choose a sound for this alarm first.")));
}

TEST_F(AlarmTap, StaysOnWhenTheCalendarFails) {
    setUpAlarm(6, 19.0);
    calendar->failing = true;
    click(button("Alarm for Isha"));
    EXPECT_EQ(9, button("Alarm for Isha").buttonShape());
    EXPECT_EQ("1 ", storedAlarm(6));
}

// As with another program's lock, a full disk or a read-only file.
TEST_F(AlarmTap, ShowsTheStoredStateAndAMessageWhenTheAlarmCannotBeStored) {
    setUpAlarm(3, 13.0);
    runOnUserDatabase("CREATE TRIGGER refuse BEFORE UPDATE ON USER_ALARMS BEGIN SELECT raise(ABORT, 'refused'); END");
    click(button("Alarm for Dhuhr"));
    expectOff(button("Alarm for Dhuhr"));
    EXPECT_THAT(toasts(), ElementsAre("The alarm could not be changed. Please try again."));
    EXPECT_EQ("0 ", storedAlarm(3));
}

TEST_F(AlarmTap, StaysOnWithAMessageWhenSwitchingOffCannotBeStored) {
    setUpAlarm(3, 13.0);
    click(button("Alarm for Dhuhr"));
    runOnUserDatabase("CREATE TRIGGER refuse BEFORE UPDATE ON USER_ALARMS BEGIN SELECT raise(ABORT, 'refused'); END");
    click(button("Alarm for Dhuhr"));
    EXPECT_EQ(9, button("Alarm for Dhuhr").buttonShape());
    EXPECT_TRUE(button("Alarm for Dhuhr").selected());
    EXPECT_THAT(toasts(), ElementsAre("The alarm could not be changed. Please try again."));
}

// The widget draws on the same thread: it waits a fifth of a second at most.
TEST_F(AlarmTap, DoesNotWaitLongForALockedDatabase) {
    setUpAlarm(3, 13.0);
    sqlite3* opened = nullptr;
    ASSERT_EQ(sqlite3_open(userDatabase().c_str(), &opened), SQLITE_OK);
    const sqlite::Database other(opened);
    ASSERT_EQ(sqlite3_exec(other.get(), "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    const auto start = std::chrono::steady_clock::now();
    click(button("Alarm for Dhuhr"));
    using namespace std::chrono_literals;
    EXPECT_LT(std::chrono::steady_clock::now() - start, 200ms + 150ms);  // and the tap itself on a busy machine
    expectOff(button("Alarm for Dhuhr"));
    EXPECT_THAT(toasts(), ElementsAre("The alarm could not be changed. Please try again."));
}

TEST_F(AlarmTap, LeavesNoToastBehindWhenTheWidgetIsDismissed) {
    click(button("Alarm for Maghrib"));
    click(button("Alarm for Isha"));
    EXPECT_EQ(2U, MessageView::queueLength());
    widget->hostDidDismiss();
    EXPECT_EQ(0U, MessageView::queueLength());
    widget->hostDidPresent();
    EXPECT_THAT(toasts(), IsEmpty());
    click(button("Alarm for Isha"));
    EXPECT_THAT(toasts(), ElementsAre("Choose a sound for this alarm first."));
}

}  // namespace
}  // namespace quode::test
