// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode alarm days, remind, skip, mute. The moment is Saturday, 21 November 2026, 07:00 in Istanbul.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "program.h"

namespace quode::test {
namespace {

class AlarmHabits : public testing::Test {
  protected:
    AlarmHabits() { program.run({"alarm", "on", "maghrib"}); }

    nlohmann::json maghrib() const { return program.run({"alarm", "list", "--json"}).json()["alarms"][4]; }

    const Program program;
};

TEST_F(AlarmHabits, DaysOfTheWeekDecideWhenAnAlarmRings) {
    EXPECT_EQ(program.run({"alarm", "days", "maghrib", "mon,", "fri"}).code, 0);
    EXPECT_EQ(maghrib()["days"], (nlohmann::json{"mon", "fri"}));
    EXPECT_TRUE(maghrib()["next"].is_null()) << "not within a day";
    EXPECT_NE(program.run({"alarm", "list"}).out.find("Mon 17:"), std::string::npos);
    EXPECT_EQ(program.run({"alarm", "days", "maghrib", "all"}).code, 0);
    EXPECT_EQ(maghrib()["days"].size(), 7U);
    EXPECT_FALSE(maghrib()["next"].is_null());
}

TEST_F(AlarmHabits, ASecondRingIsAddedAndTakenAway) {
    EXPECT_EQ(program.run({"alarm", "remind", "maghrib", "-20"}).code, 0);
    EXPECT_EQ(maghrib()["reminder_minutes"], -20);
    EXPECT_NE(program.run({"alarm", "list"}).out.find("also 20 min before"), std::string::npos);
    program.run({"alarm", "remind", "maghrib", "off"});
    EXPECT_TRUE(maghrib()["reminder_minutes"].is_null());
}

TEST_F(AlarmHabits, SkippingLeavesOutOneRing) {
    const std::string due = maghrib()["next"]["instant"];
    EXPECT_EQ(program.run({"alarm", "skip", "maghrib"}).code, 0);
    EXPECT_EQ(maghrib()["silent_until"], due);
    EXPECT_NE(program.run({"alarm", "list"}).out.find("Sun 17:"), std::string::npos);
    EXPECT_EQ(program.run({"alarm", "skip", "maghrib", "--undo"}).code, 0);
    EXPECT_EQ(maghrib()["next"]["instant"], due);
}

TEST_F(AlarmHabits, MutingSilencesAllUntilAMoment) {
    EXPECT_EQ(program.run({"alarm", "mute"}).code, 0);
    EXPECT_EQ(maghrib()["silent_until"], "2026-11-21T21:00:00Z") << "midnight in Istanbul";
    EXPECT_EQ(program.run({"alarm", "mute", "2026-11-21T12:00:00+03:00"}).code, 0);
    EXPECT_EQ(maghrib()["silent_until"], "2026-11-21T09:00:00Z");
    EXPECT_FALSE(maghrib()["next"].is_null()) << "it rings in the evening";
    EXPECT_EQ(program.run({"alarm", "mute", "off"}).code, 0);
    EXPECT_TRUE(maghrib()["silent_until"].is_null());
}

TEST_F(AlarmHabits, RefuseWhatMakesNoSense) {
    EXPECT_EQ(program.run({"alarm", "days", "maghrib", "someday"}).code, 2);
    EXPECT_EQ(program.run({"alarm", "remind", "maghrib", "soon"}).code, 2);
    EXPECT_EQ(program.run({"alarm", "remind", "maghrib", "999"}).code, 2);
    EXPECT_EQ(program.run({"alarm", "mute", "2020-01-01T00:00:00Z"}).code, 2);
    EXPECT_EQ(program.run({"alarm", "skip", "fajr"}).code, 1) << "it is off";
    EXPECT_EQ(maghrib()["days"].size(), 7U);
}

}  // namespace
}  // namespace quode::test
