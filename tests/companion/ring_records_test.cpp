// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "companion/RingRecords.h"

#include <gmock/gmock.h>

#include "fixture.h"

namespace quode::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RingRecordsTest : public CompanionTest {
  protected:
    RingRecord record(int code, const std::string& due, RingState state) const {
        const AlarmOccurrence alarm{code, utc(due), utc(due) + std::chrono::minutes(15), 5.5,
                                    VAKDateMake(17, 10, 2026, 0, 0, 0)};
        return {alarm, state, utc(due), 4000000000U};
    }
};

TEST_F(RingRecordsTest, KeepARing) {
    UserDatabase database = open();
    RingRecords records(database);
    const RingRecord ring = record(203, "2026-10-17 13:05", RingState::shown);
    records.keep(ring);
    EXPECT_EQ(records.find(203, ring.alarm.due), ring);
    EXPECT_FALSE(records.find(202, ring.alarm.due));
    EXPECT_FALSE(records.find(203, ring.alarm.due + std::chrono::minutes(1)));
}

TEST_F(RingRecordsTest, ReplaceWhatWasKept) {
    UserDatabase database = open();
    RingRecords records(database);
    records.keep(record(203, "2026-10-17 13:05", RingState::begun));
    records.keep(record(203, "2026-10-17 13:05", RingState::finished));
    EXPECT_EQ(records.find(203, utc("2026-10-17 13:05"))->state, RingState::finished);
    EXPECT_THAT(records.unfinished(), IsEmpty());
}

TEST_F(RingRecordsTest, ListWhatIsUnfinished) {
    UserDatabase database = open();
    RingRecords records(database);
    const RingRecord begun = record(200, "2026-10-17 03:05", RingState::begun);
    const RingRecord shown = record(202, "2026-10-17 09:05", RingState::shown);
    const RingRecord snoozed = record(203, "2026-10-17 13:05", RingState::snoozed);
    for (const RingRecord& each : {snoozed, begun, shown}) records.keep(each);
    records.keep(record(204, "2026-10-17 15:05", RingState::dropped));
    EXPECT_THAT(records.unfinished(), ElementsAre(begun, shown, snoozed));
}

TEST_F(RingRecordsTest, ForgetWhatIsFarAway) {
    UserDatabase database = open();
    RingRecords records(database);
    records.keep(record(200, "2026-10-01 03:05", RingState::shown));
    records.keep(record(200, "2026-10-16 03:05", RingState::shown));
    records.keep(record(200, "2031-10-16 03:05", RingState::shown));
    records.forgetFarFrom(utc("2026-10-17 12:00"));
    EXPECT_EQ(records.unfinished().size(), 1U);
}

TEST_F(RingRecordsTest, KeepHowFarAllIsDecided) {
    UserDatabase database = open();
    RingRecords records(database);
    EXPECT_FALSE(records.decidedUntil());
    records.setDecidedUntil(utc("2026-10-17 13:05:07"));
    EXPECT_EQ(records.decidedUntil(), utc("2026-10-17 13:05:07"));
    database.setSetting("alarm.decided", "soon");
    EXPECT_FALSE(records.decidedUntil());
}

}  // namespace
}  // namespace quode::test
