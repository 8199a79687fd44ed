// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QSlider>
#include <QSpinBox>

#include "app/alarm_habits.h"
#include "companion/AlarmHabits.h"
#include "companion/UserSettings.h"
#include "fixture.h"

namespace quode::test {
namespace {

constexpr int asr = 203;

class AlarmsPage : public WindowTest {
  protected:
    AlarmsPage() {
        open("alarms");
        press(name + ": details");
    }

    UserAlarm stored() { return database().alarm(asr); }

    const QString name = QString::fromStdString(session.prayerName(asr));
};

TEST_F(AlarmsPage, SwitchesAnAlarmAndSaysWhenItRings) {
    EXPECT_TRUE(shows("No alarm is on."));
    press(name);
    EXPECT_TRUE(stored().isOn);
    EXPECT_TRUE(shows(name + " rings next"));
    press(name);
    EXPECT_FALSE(stored().isOn);
}

TEST_F(AlarmsPage, SetsMinutesAndASecondRing) {
    control<QSpinBox>(name + ": rings: minutes")->setValue(10);
    EXPECT_EQ(stored().offset, -10);
    press(name + ": rings a second time");
    EXPECT_EQ(stored().reminder, -15);
    control<QSpinBox>(name + ": second ring: minutes")->setValue(30);
    EXPECT_EQ(stored().reminder, -30);
    auto* const side = control<QComboBox>(name + ": second ring: before or after the time");
    QTest::keyClick(side, Qt::Key_Down);
    EXPECT_EQ(stored().reminder, 30);
    EXPECT_EQ(stored().offset, -10);
    press(name + ": rings a second time");
    EXPECT_FALSE(stored().reminder);
}

TEST_F(AlarmsPage, RingsOnChosenDaysOnly) {
    press(name);
    press(name + ": Saturday");
    press(name + ": Sunday");
    EXPECT_EQ(stored().days, 0b0111110U);
    const auto next = app::nextRing(*database().home()->city, stored(), session.now(), true);
    ASSERT_TRUE(next);  // the moment is a Saturday
    EXPECT_EQ(std::chrono::weekday(std::chrono::floor<std::chrono::days>(next->due)), std::chrono::Monday);
    for (const char* day : {"Monday", "Tuesday", "Wednesday", "Thursday", "Friday"}) press(name + ": " + day);
    EXPECT_EQ(stored().days, 0b0100000U) << "one day stays";
    EXPECT_TRUE(told.join(' ').contains("at least one day"));
}

TEST_F(AlarmsPage, SkipsTheNextRing) {
    press(name);
    const auto due = app::nextRing(*database().home()->city, stored(), session.now(), true)->due;
    press(name + ": Skip the next ring");
    const auto later = app::nextRing(*database().home()->city, stored(), session.now(), true)->due;
    EXPECT_EQ(std::chrono::round<std::chrono::days>(later - due), std::chrono::days(1));
    press(name + ": Do not skip");
    EXPECT_EQ(app::nextRing(*database().home()->city, stored(), session.now(), true)->due, due);
}

TEST_F(AlarmsPage, MutesAllUntilTomorrow) {
    press(name);
    press("Mute until tomorrow");
    // Midnight in Kathmandu is 18:15 of the day before.
    EXPECT_EQ(mutedUntil(database()), std::chrono::sys_days(std::chrono::year(2026) / 11 / 21) +
                                          std::chrono::hours(18) + std::chrono::minutes(15));
    EXPECT_TRUE(shows("All alarms are muted until Sun 00:00."));
    press("Ring again");
    EXPECT_FALSE(shows("muted until"));
}

TEST_F(AlarmsPage, KeepsTheOrderOfDateAndClockInLanguagesFromRightToLeft) {
    const QString usual = control<QDateTimeEdit>("Mute until")->text();
    shown.reset();
    QApplication::setLayoutDirection(Qt::RightToLeft);
    open("alarms");
    EXPECT_EQ(control<QDateTimeEdit>("Mute until")->text(), usual);
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

TEST_F(AlarmsPage, ChoosesASound) {
    auto* const sounds = control<QComboBox>(name + ": sound");
    sounds->setCurrentIndex(sounds->findData("gong"));
    Q_EMIT sounds->activated(sounds->currentIndex());
    EXPECT_EQ(stored().sound, "gong");
}

TEST_F(AlarmsPage, StoresHowAlarmsRing) {
    auto* const volume = control<QSlider>("Volume of alarms, percent");
    EXPECT_EQ(volume->value(), 100);
    QTest::keyClick(volume, Qt::Key_PageDown);
    auto* const fadeIn = control<QComboBox>("Becomes louder");
    fadeIn->setCurrentIndex(fadeIn->findData(20));
    Q_EMIT fadeIn->activated(fadeIn->currentIndex());
    press("Pause music and films");
    press("Show alarms urgently");
    EXPECT_EQ(loadSettings(database()).manner, (RingManner{90, 20, true, false}));
    EXPECT_TRUE(shows("90 %"));
}

}  // namespace
}  // namespace quode::test
