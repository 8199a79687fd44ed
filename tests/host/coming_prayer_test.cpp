// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/coming_prayer.h"

#include <gtest/gtest.h>

#include "companion/UserDatabase.h"
#include "host/places.h"
#include "host/user_choices.h"
#include "support/environment_of.h"
#include "support/temporary_folder.h"
#include "support/zoned_clock.h"

namespace quode::test {
namespace {

using namespace std::chrono_literals;
using app::Session;
using host::boundOf;
using host::comingPrayer;

class ComingPrayerTest : public testing::Test {
  protected:
    std::unique_ptr<Session> session(const std::string& now, const std::string& language = "en") {
        return std::make_unique<Session>(environmentOf({{"QUODE_DATA_DIR", folder.path().string()},
                                                        {"QUODE_BUNDLE_DIR", QUODE_TEST_BUNDLE},
                                                        {"QUODE_NOW", now},
                                                        {"QUODE_LANG", language},
                                                        {"LC_ALL", "en_GB.UTF-8"}}),
                                         Session::Options{});
    }

    /// The same with Istanbul as the only city.
    std::unique_ptr<Session> inIstanbul(const std::string& now, const std::string& language = "en") {
        auto made = session(now, language);
        const auto city = made->cities().city(istanbul);
        EXPECT_TRUE(city && city->name == "Istanbul");
        host::makeUserDatabase(*made, *city);
        return made;
    }

    TemporaryFolder folder;
};

TEST_F(ComingPrayerTest, TellsTheTimeLeftExactlyAndBounded) {
    const auto morning = inIstanbul("2026-11-21T04:00:00Z");
    const auto coming = comingPrayer(*morning);
    EXPECT_EQ(coming.exact, "Sunrise 07:52, in 52 min");
    EXPECT_EQ(coming.lasting, "Istanbul: Sunrise 07:52, within 1 h");
    EXPECT_EQ(coming.changesAt, utc("2026-11-21 04:22"));  // half an hour before
}

TEST_F(ComingPrayerTest, LooksIntoTheNextDay) {
    const auto night = inIstanbul("2026-11-21T18:00:00Z");
    const auto coming = comingPrayer(*night);
    EXPECT_EQ(coming.exact, "Fajr 06:07, tomorrow, in 9 h 7 min");
    EXPECT_EQ(coming.lasting, "Istanbul: Fajr 06:07, within 10 h");
    EXPECT_EQ(coming.changesAt, utc("2026-11-21 18:07"));
}

TEST_F(ComingPrayerTest, ChangesAtThePrayerItselfInTheEnd) {
    const auto before = inIstanbul("2026-11-21T04:45:00Z");
    EXPECT_EQ(comingPrayer(*before).lasting, "Istanbul: Sunrise 07:52, within 10 min");
    EXPECT_EQ(comingPrayer(*before).changesAt, utc("2026-11-21 04:52"));
    const auto then = inIstanbul("2026-11-21T04:52:00Z");
    EXPECT_EQ(comingPrayer(*then).exact, "Dhuhr 13:01, in 5 h 9 min");
}

TEST_F(ComingPrayerTest, SpeaksTheLanguageThatWasChosen) {
    const auto turkish = inIstanbul("2026-11-21T04:00:00Z", "tr");
    EXPECT_EQ(comingPrayer(*turkish).exact, "Güneş 07:52, 52 dk sonra");
    EXPECT_EQ(comingPrayer(*turkish).lasting, "Istanbul: Güneş 07:52, 1 sa içinde");
}

TEST_F(ComingPrayerTest, SaysThatThereIsNoCity) {
    const auto fresh = session("2026-11-21T04:00:00Z");
    const auto coming = comingPrayer(*fresh);
    EXPECT_EQ(coming.exact, "No city is chosen");
    EXPECT_EQ(coming.lasting, "No city is chosen");
    EXPECT_EQ(coming.changesAt, utc("2026-11-22 04:00"));  // to look again
}

TEST_F(ComingPrayerTest, TellsThatTheCitiesCannotBeRead) {
    Session broken(environmentOf({{"QUODE_DATA_DIR", folder.path().string()}, {"QUODE_BUNDLE_DIR", "/nowhere"}}), {});
    EXPECT_NE(comingPrayer(broken).exact.find("/nowhere"), std::string::npos) << comingPrayer(broken).exact;
}

TEST(TimeBound, IsTheSmallestOfFewThatIsNotExceeded) {
    const auto expect = [](std::chrono::seconds left, std::chrono::minutes bound, std::chrono::minutes next) {
        EXPECT_EQ(boundOf(left).bound, bound) << left.count();
        EXPECT_EQ(boundOf(left).next, next) << left.count();
    };
    expect(1s, 10min, 0min);
    expect(10min, 10min, 0min);
    expect(10min + 1s, 30min, 10min);
    expect(30min, 30min, 10min);
    expect(30min + 1s, 1h, 30min);
    expect(1h, 1h, 30min);
    expect(1h + 1s, 2h, 1h);
    expect(2h, 2h, 1h);
    expect(9h + 7min, 10h, 9h);
}

}  // namespace
}  // namespace quode::test
