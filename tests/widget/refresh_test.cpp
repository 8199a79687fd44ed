// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The widget's content: the user's cities and the day.
#include <filesystem>
#include <fstream>

#include "astro/FastAstro.h"
#include "astro/MagneticVariation.h"
#include "widget/widget_fixture.h"

namespace quode::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class Refresh : public WidgetTest {
  protected:
    // The texts of the nine times.
    std::vector<std::string> times() const {
        std::vector<std::string> texts;
        for (int code = 200; code <= 208; ++code) texts.push_back(widget->timesView(code)->labelPrayTime()->text());
        return texts;
    }

    const std::string& cityName() const { return widget->cityNameView()->labelCityName()->text(); }

    // The city shown, to set other results than those of the day.
    City& shownCity() { return const_cast<City&>(widget->userCities().at(std::size_t(widget->currentCityId()))); }

    void expectNoCity() {
        EXPECT_THAT(widget->userCities(), IsEmpty());
        EXPECT_EQ(-1, widget->currentCityId());
        EXPECT_EQ(-1, widget->nextCityId());
        EXPECT_EQ(-1, widget->prevCityId());
        EXPECT_EQ("No city selected", cityName());
        EXPECT_THAT(times(), testing::Each("00:00"));
        EXPECT_TRUE(widget->cityNameView()->buttonCompass()->isHidden());
        EXPECT_EQ("", widget->cityInfoView()->labelSunInfo()->text());
        EXPECT_EQ("21 November 2026", widget->cityInfoView()->labelMiladi()->text());
        EXPECT_EQ(80.0, widget->cityInfoView()->frame().height);
        for (int code = 200; code <= 205; ++code) {
            EXPECT_FALSE(widget->timesView(code)->buttonAlarmOnOff()->enabled());
            EXPECT_EQ(10, widget->timesView(code)->buttonAlarmOnOff()->buttonShape());
        }
        EXPECT_EQ("", log());
    }
};

// ---- the user's cities

TEST_F(Refresh, ShowsNoCityWithoutAUserDatabase) {
    makeWidget().hostDidPresent();
    expectNoCity();
    EXPECT_FALSE(std::filesystem::exists(userDatabase()));
}

TEST_F(Refresh, ShowsNoCityWhenTheUserHasNone) {
    keepCities({});
    makeWidget().hostDidPresent();
    expectNoCity();
}

TEST_F(Refresh, ShowsNoCityFromADamagedUserDatabase) {
    std::ofstream(userDatabase()) << "This is no database, and longer than the head of one, so that it is looked at.\n"
                                  << std::string(1000, '?');
    makeWidget().hostDidPresent();
    expectNoCity();
}

TEST_F(Refresh, ShowsNoCityFromAnEmptyFile) {
    std::ofstream(userDatabase()).close();
    makeWidget().hostDidPresent();
    expectNoCity();
    EXPECT_EQ(0U, std::filesystem::file_size(userDatabase()));
}

TEST_F(Refresh, ShowsNoCityWhenTheQueryFails) {
    runOnUserDatabase("CREATE TABLE USER_CITY (ID INTEGER)");
    makeWidget().hostDidPresent();
    expectNoCity();
    runOnUserDatabase("DROP TABLE USER_CITY");  // the database was closed again
}

TEST_F(Refresh, ShowsNoCityWhenAFolderStandsInThePlaceOfTheFile) {
    std::filesystem::create_directory(userDatabase());
    makeWidget().hostDidPresent();
    expectNoCity();
}

TEST_F(Refresh, ShowsTheHomeCity) {
    keepCities({{cityNamed("Ankara"), 0}, {cityNamed("Istanbul"), 1}, {cityNamed("Izmir"), 0}});
    makeWidget();
    EXPECT_THAT(widget->userCities(), SizeIs(3));
    EXPECT_EQ(1, widget->currentCityId());
    EXPECT_EQ("Istanbul", cityName());
    EXPECT_FALSE(widget->cityNameView()->buttonCompass()->isHidden());
    EXPECT_EQ(280.0, widget->cityInfoView()->frame().height);
}

TEST_F(Refresh, ShowsTheFirstOfSeveralHomeCities) {
    keepCities({{cityNamed("Ankara"), 0}, {cityNamed("Izmir"), 1}, {cityNamed("Istanbul"), 1}});
    makeWidget();
    EXPECT_EQ(1, widget->currentCityId());
    EXPECT_EQ("İzmir", cityName());
}

TEST_F(Refresh, ShowsTheFirstCityWhenNoneIsHome) {
    keepCities({{cityNamed("Ankara"), 0}, {cityNamed("Istanbul"), 0}});
    makeWidget();
    EXPECT_EQ(0, widget->currentCityId());
    EXPECT_EQ("Ankara", cityName());
}

TEST_F(Refresh, CountsOnlyTheNumberOneAsHome) {
    keepCities({{cityNamed("Ankara"), 2}, {cityNamed("Izmir"), -1}, {cityNamed("Istanbul"), 1}});
    makeWidget();
    EXPECT_EQ("Istanbul", cityName());
}

TEST_F(Refresh, ComputesOnlyTheCityShown) {
    keepCities({{cityNamed("Ankara"), 0}, {cityNamed("Istanbul"), 1}});
    makeWidget();
    EXPECT_EQ(0.0, widget->userCities()[0].getRelevantPrayerTime(202));
    EXPECT_GT(widget->userCities()[1].getRelevantPrayerTime(202), 12.0);
}

TEST_F(Refresh, ReadsTheCitiesAgainAtEveryPresentation) {
    presentWidgetFor("Istanbul");
    runOnUserDatabase("UPDATE USER_CITY SET ID = " + std::to_string(cityNamed("Mecca")));
    widget->hostDidPresent();
    EXPECT_EQ("Makkah", cityName());
    runOnUserDatabase("DELETE FROM USER_CITY");
    widget->hostDidPresent();
    expectNoCity();
}

TEST_F(Refresh, ShowsAPlaceOfTheUsersOwn) {
    keepCities({{-1, 1}});
    runOnUserDatabase(
        "CREATE TABLE USER_PLACE (ID INTEGER PRIMARY KEY, NAME TEXT, LATITUDE REAL, LONGITUDE REAL, ZONE TEXT);"
        "INSERT INTO USER_PLACE VALUES (-1, 'Summer house', 40.9, 29.1, 'Europe/Istanbul')");
    makeWidget();
    EXPECT_EQ("Summer house", cityName());
    EXPECT_THAT(times().front(), testing::StartsWith("06:0"));
}

TEST_F(Refresh, ShowsNoCityRatherThanTimesOfNowhereWhenTheDatabaseDoesNotKnowTheHome) {
    keepCities({{2000000000, 1}});
    makeWidget();
    EXPECT_THAT(widget->userCities(), SizeIs(0));
    EXPECT_EQ("No city selected", cityName());
}

TEST_F(Refresh, KeepsTheDateOfTheBuildInBothCalendars) {
    device.clock->present += std::chrono::milliseconds(250);
    makeWidgetFor("Istanbul");
    const DateInformation& info = widget->currentInfo();
    EXPECT_EQ(6, info.dayofWeek);
    const VAKDate& miladi = info.MiladiDate;
    EXPECT_EQ((std::array{2026, 11, 21, 11, 30, 20}),
              (std::array{miladi.Years, miladi.Months, miladi.Days, miladi.Hours, miladi.Minutes, miladi.Seconds}));
    EXPECT_NEAR(0.25, miladi.MSeconds, 1e-6);
    EXPECT_EQ((std::array{1448, 6, 12}),
              (std::array{info.HijriDate.Years, info.HijriDate.Months, info.HijriDate.Days}));
}

TEST_F(Refresh, WritesBothDatesWithTheDayFirst) {
    device.clock->show(2027, 3, 5, 23, 59, 58);
    makeWidgetFor("Istanbul");
    EXPECT_EQ("5 March 2027", widget->cityInfoView()->labelMiladi()->text());
    EXPECT_EQ("26 Ramadan 1448", widget->cityInfoView()->labelHijri()->text());
}

TEST_F(Refresh, TakesTheHijriDateOfTheWholeDay) {
    device.clock->show(2026, 11, 21, 23, 59, 59);
    makeWidgetFor("Istanbul");
    EXPECT_EQ("12 Jumada al-Akhirah 1448", widget->cityInfoView()->labelHijri()->text());
}

// ---- the day of the city

TEST_F(Refresh, WritesTheNineTimesOfTheDay) {
    makeWidgetFor("Istanbul");
    EXPECT_THAT(times(), ElementsAre("06:06", "07:52", "13:01", "15:32", "17:50", "19:23", "08:45", "16:11", "17:06"));
}

TEST_F(Refresh, WritesTheFactsOfTheCity) {
    makeWidgetFor("Istanbul");
    const UICityInfoView& info = *widget->cityInfoView();
    EXPECT_EQ("Time zone : (+) 03:00", info.labelGMT()->text());
    EXPECT_EQ("Qibla : 151°34'", info.labelQibla()->text());
    EXPECT_EQ("Sun : 07:58 / 17:41", info.labelSunInfo()->text());
    EXPECT_EQ("Moon : 15:23 / 04:03", info.labelMoonInfo()->text());
    EXPECT_EQ("Moon at sunset : +24°40'", info.labelMoonOnSunSet()->text());
}

// The engine's results for the moment of the build, computed without the widget's code.
TEST_F(Refresh, KeepsExactlyWhatTheEngineFindsForTheMomentOfTheBuild) {
    for (const auto& [name, month] : {std::pair{"Istanbul", 11}, {"Berlin", 7}, {"New York City", 3}, {"Sydney", 1}}) {
        std::filesystem::remove(userDatabase());
        device.clock->show(2026, month, 21, 17, 45, 33);
        makeWidgetFor(name);
        const City& city = widget->userCities().front();
        const auto number = [](const std::string& text) { return std::stod(text); };
        const auto integer = [](const std::string& text) { return std::stoi(text); };
        FastAstro engine;
        engine.SetCurrentDateTime(widget->currentInfo().MiladiDate);
        engine.SetPlace(number(city.latitude()), number(city.longitude()), number(city.GMT()), integer(city.DST()),
                        integer(city.startMonth()), integer(city.startDay()), integer(city.stopMonth()),
                        integer(city.stopDay()), integer(city.hour()), integer(city.temkin()));
        const Place place = engine.CalculatePrayTimes();
        EXPECT_EQ(place.TodayPrayTimes.Imsak, city.getRelevantPrayerTime(200)) << name;
        EXPECT_EQ(place.TodayPrayTimes.IsaEvvel, city.getRelevantPrayerTime(205)) << name;
        EXPECT_EQ(place.TodayPrayTimes.IsfirariSems, city.getRelevantPrayerTime(208)) << name;
        EXPECT_EQ(place.KibleAngle.K, city.getQiblaAngle()) << name;
        EXPECT_EQ(GlobalFuncs::globalFuncs().GetGMTValueStr(place.isDSTTime, place.GMTValue), city.GMTStr()) << name;
        const WidgetSkyInfo sky = engine.getSomeInfoForQuodeWidget();
        EXPECT_EQ(sky.SunRise, city.getSomeAstroInfo().SunRise) << name;
        EXPECT_EQ(sky.MoonSet, city.getSomeAstroInfo().MoonSet) << name;
        EXPECT_EQ(sky.MoonAltitudeOnSunSet, city.getSomeAstroInfo().MoonAltitudeOnSunSet) << name;
        EXPECT_EQ(MagneticVariation().getMagneticVariation(21, month, 2026, number(city.latitude()),
                                                           number(city.longitude()), 500.0),
                  city.getMagneticVariation())
            << name;
    }
}

TEST_F(Refresh, CountsSummerTime) {
    device.clock->show(2026, 7, 21, 12, 0, 0);
    makeWidgetFor("Berlin");
    EXPECT_EQ("Time zone : " + widget->userCities().front().GMTStr(), widget->cityInfoView()->labelGMT()->text());
    EXPECT_THAT(widget->cityInfoView()->labelGMT()->text(), testing::HasSubstr("02:00"));
}

TEST_F(Refresh, ShowsNoRiseAndSetOfASunThatStaysUp) {
    device.clock->show(2026, 6, 21, 12, 0, 0);
    makeWidgetFor("Longyearbyen");
    EXPECT_EQ("Sun : --:-- / --:--", widget->cityInfoView()->labelSunInfo()->text());
    EXPECT_EQ("Moon at sunset : --:--", widget->cityInfoView()->labelMoonOnSunSet()->text());
    EXPECT_THAT(times(), testing::Not(testing::Contains("-1:00")));
}

TEST_F(Refresh, ShowsNoRiseAndSetOfASunThatStaysDown) {
    device.clock->show(2026, 12, 21, 12, 0, 0);
    makeWidgetFor("Longyearbyen");
    EXPECT_EQ("Sun : --:-- / --:--", widget->cityInfoView()->labelSunInfo()->text());
    EXPECT_EQ("Moon at sunset : --:--", widget->cityInfoView()->labelMoonOnSunSet()->text());
    EXPECT_THAT(widget->cityInfoView()->labelMoonInfo()->text(), testing::HasSubstr("--:--"));
}

TEST_F(Refresh, ShowsZeroAsATimeAndWhatIsNegativeAsNone) {
    makeWidgetFor("Istanbul");
    shownCity().setSomeAstroIfo({0.0, -0.25, -1650.0, 0.0, 0.0});
    widget->updateCityInfo();
    EXPECT_EQ("Sun : 00:00 / --:--", widget->cityInfoView()->labelSunInfo()->text());
    EXPECT_EQ("Moon : --:-- / 00:00", widget->cityInfoView()->labelMoonInfo()->text());
    EXPECT_EQ("Moon at sunset : " + GlobalFuncs::globalFuncs().getDegMinStrWithMinusPlus(0.0),
              widget->cityInfoView()->labelMoonOnSunSet()->text());
    shownCity().setSomeAstroIfo({6.0, 18.0, 1.0, 2.0, -12.5});
    widget->updateCityInfo();
    EXPECT_EQ("Moon at sunset : -12°30'", widget->cityInfoView()->labelMoonOnSunSet()->text());
}

TEST_F(Refresh, ShowsAPrayerThatDoesNotExistAsNone) {
    makeWidgetFor("Istanbul");
    PrayTimes day;
    day.Imsak = -1.0;
    day.Gunes = 0.0;
    day.IsfirariSems = -1.0;
    shownCity().setPrayerTimes(day);
    widget->updatePrayerTimes();
    EXPECT_THAT(times(), ElementsAre("--:--", "00:00", "00:00", "00:00", "00:00", "00:00", "00:00", "00:00", "--:--"));
}

// ---- language and clock

TEST_F(Refresh, FollowsTheLocaleAtEveryPresentation) {
    presentWidgetFor("Istanbul");
    device.locale->am = "ÖÖ";
    device.locale->pm = "ÖS";
    device.locale->pattern = "h a";
    widget->hostDidPresent();
    EXPECT_EQ("İmsak", widget->timesImsakView()->labelPrayName()->text());
    EXPECT_EQ("03:32 ös", widget->timesIkindiView()->labelPrayTime()->text());
    EXPECT_EQ("Tüm vakitler", widget->footerView()->buttonShowAll()->text()->text());
}

TEST_F(Refresh, KeepsToTheLanguageThatTheUserChose) {
    presentWidgetFor("Istanbul");
    ASSERT_TRUE(GlobalFuncs::globalFuncs().chooseLanguage("de"));
    for (int i = 0; i < 2; ++i) {
        widget->hostDidPresent();
        EXPECT_EQ(languageGerman, GlobalFuncs::globalFuncs().languageId());
        EXPECT_EQ("Fadschr", widget->timesImsakView()->labelPrayName()->text());
    }
    GlobalFuncs::globalFuncs().chooseLanguage("");
    widget->hostDidPresent();
    EXPECT_EQ("Fajr", widget->timesImsakView()->labelPrayName()->text());
}

}  // namespace
}  // namespace quode::test
