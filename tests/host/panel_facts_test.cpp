// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/panel_facts.h"

#include <gtest/gtest.h>

#include "app/city_changes.h"
#include "app/session.h"
#include "app/user_data.h"
#include "companion/SiteChoices.h"
#include "companion/user_connection.h"
#include "host/places.h"
#include "host/user_choices.h"
#include "support/environment_of.h"
#include "support/temporary_folder.h"

namespace quode::test {
namespace {

class PanelFactsTest : public testing::Test {
  protected:
    std::unique_ptr<app::Session> session(const std::string& now) {
        return std::make_unique<app::Session>(environmentOf({{"QUODE_DATA_DIR", folder.path().string()},
                                                             {"QUODE_BUNDLE_DIR", QUODE_TEST_BUNDLE},
                                                             {"QUODE_NOW", now},
                                                             {"LC_ALL", "en_GB.UTF-8"}}),
                                              app::Session::Options{});
    }

    std::unique_ptr<app::Session> inIstanbul(const std::string& now) {
        auto made = session(now);
        host::makeUserDatabase(*made, *made->cities().city(istanbul));
        return made;
    }

    TemporaryFolder folder;
};

// Istanbul is three hours ahead of UTC.
TEST_F(PanelFactsTest, TellThePrayersOfTheMomentAndTheDates) {
    const auto morning = inIstanbul("2026-11-21T04:00:00Z");
    const host::PanelFacts facts = host::panelFacts(*morning);
    EXPECT_EQ(facts.next, "Sunrise in 52 min");
    EXPECT_EQ(facts.dates.split('\n').first(), "Saturday 21 November 2026");
    EXPECT_TRUE(facts.dates.endsWith("1448")) << facts.dates.toStdString();
    EXPECT_EQ(facts.currentCode, 200);
    EXPECT_EQ(facts.nextCode, 201);
}

TEST_F(PanelFactsTest, NameNoPresentPrayerBetweenSunriseAndNoon) {
    const auto forenoon = inIstanbul("2026-11-21T07:00:00Z");
    EXPECT_EQ(host::panelFacts(*forenoon).currentCode, std::nullopt);
    EXPECT_EQ(host::panelFacts(*forenoon).nextCode, 202);
}

TEST_F(PanelFactsTest, CountTheNightPrayerUntilDawn) {
    const auto night = inIstanbul("2026-11-21T00:00:00Z");  // 03:00
    EXPECT_EQ(host::panelFacts(*night).currentCode, 205);
    EXPECT_EQ(host::panelFacts(*night).nextCode, 200);
    const auto evening = inIstanbul("2026-11-21T17:00:00Z");  // 20:00
    EXPECT_EQ(host::panelFacts(*evening).currentCode, 205);
    EXPECT_EQ(host::panelFacts(*evening).nextCode, 200);
    EXPECT_TRUE(host::panelFacts(*evening).next.startsWith("Fajr tomorrow"));
}

TEST_F(PanelFactsTest, AreCopiedAsText) {
    const QStringList lines = host::timesAsText(*inIstanbul("2026-11-21T04:00:00Z")).split('\n');
    EXPECT_EQ(lines[0], "Istanbul");
    EXPECT_EQ(lines[1], "Saturday 21 November 2026");
    EXPECT_EQ(lines.mid(3), (QStringList{"Fajr 06:06", "Sunrise 07:52", "Dhuhr 13:01", "Asr 15:32", "Maghrib 17:50",
                                         "Isha 19:23", ""}));
}

TEST_F(PanelFactsTest, NameTheUsualMethodAndWhereToChooseItWithoutACommand) {
    const auto morning = inIstanbul("2026-11-21T04:00:00Z");
    const QString notes = host::panelFacts(*morning).notes.join('\n');
    EXPECT_TRUE(notes.contains("Usual in Turkey: Diyanet, Türkiye. To choose it, open Times in the settings."))
        << notes.toStdString();
    EXPECT_FALSE(notes.contains("quode ")) << notes.toStdString();
}

TEST_F(PanelFactsTest, NameIqamaAndTheUsersOwnMinutes) {
    const auto morning = inIstanbul("2026-11-21T04:00:00Z");
    const std::optional<CityRecord> city = app::homeCity(*morning);
    conventions::Method method;
    method.adjust[0] = 2;
    app::chooseMethod(*morning, *city, method);
    IqamaRules iqama;
    iqama[0] = Iqama{false, 20};
    storeIqama(app::userDatabaseToChange(*morning).connection(), istanbul, iqama);
    const QString notes = host::panelFacts(*morning).notes.join('\n');
    EXPECT_TRUE(notes.contains("Iqama: Fajr 06:28")) << notes.toStdString();
    EXPECT_TRUE(notes.contains("Fajr: with your adjustment of +2 minutes")) << notes.toStdString();
}

TEST_F(PanelFactsTest, AreNoneWithoutACity) {
    const auto fresh = session("2026-11-21T04:00:00Z");
    fresh->services();
    EXPECT_EQ(host::panelFacts(*fresh).next, "");
    EXPECT_EQ(host::panelFacts(*fresh).nextCode, std::nullopt);
    EXPECT_EQ(host::timesAsText(*fresh), "");
}

}  // namespace
}  // namespace quode::test
