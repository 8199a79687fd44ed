// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "common/GlobalFuncs.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <type_traits>

#include "support/fake_platform.h"

namespace quode {
namespace {

using test::FakePlatform;

class SharedServices : public testing::Test {
  protected:
    FakePlatform fake;

    GlobalFuncs& started() { return GlobalFuncs::startUp(fake.platform()); }

    GlobalFuncs& startedWithVersion(const std::string& version) {
        fake.device->version = version;
        return started();
    }
};

TEST(SharedServicesBeforeStartUp, AreRefused) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");  // a separate process, without started services
    EXPECT_EXIT(
        {
            try {
                GlobalFuncs::globalFuncs();
            } catch (const std::logic_error&) {
                std::exit(7);
            }
            std::exit(0);
        },
        testing::ExitedWithCode(7), "");
}

TEST_F(SharedServices, AreOneObject) {
    GlobalFuncs& first = started();
    EXPECT_EQ(&GlobalFuncs::globalFuncs(), &first);
    EXPECT_EQ(&GlobalFuncs::globalFuncs(), &GlobalFuncs::globalFuncs());
    static_assert(!std::is_default_constructible_v<GlobalFuncs> && !std::is_copy_constructible_v<GlobalFuncs> &&
                  !std::is_constructible_v<GlobalFuncs, Platform>);
}

TEST_F(SharedServices, BeginAgainInTheSamePlaceWhenStartedAgain) {
    GlobalFuncs& first = started();
    first.setDebugState(5);
    first.setApplicationBundlePath("/bundle");
    GlobalFuncs& second = started();
    EXPECT_EQ(&first, &second);
    EXPECT_EQ(second.getDebugState(), 0);
    EXPECT_EQ(second.appBundlePath(), "");
}

TEST_F(SharedServices, BeginWithTheDefaultSettings) {
    const Settings& settings = started().getSettings();
    EXPECT_EQ(settings.buttonType, 1);
    EXPECT_EQ(settings.buttonShape, 5);
    EXPECT_FALSE(settings.languageChanged);
    EXPECT_EQ(settings.language, 0);
    EXPECT_FALSE(settings.fontChanged);
    EXPECT_EQ(settings.fontName, "Verdana");
    EXPECT_EQ(settings.fontSize, 15);
    EXPECT_EQ(settings.uiControlColorId, 1);
}

TEST_F(SharedServices, KeepChangedSettingsWhenAskedToLoadThem) {
    GlobalFuncs& services = started();
    services.getSettings().fontSize = 20;
    services.loadSettings();
    EXPECT_EQ(services.getSettings().fontSize, 20);
}

TEST_F(SharedServices, BeginWithPlainState) {
    const GlobalFuncs& services = started();
    EXPECT_EQ(services.getScreenOrientation(), 0);
    EXPECT_EQ(services.getDebugState(), 0);
    EXPECT_TRUE(services.getZoomed());
    EXPECT_EQ(services.getDayButtonSize(), Size{});
    EXPECT_EQ(services.getCircleButtonSize(), Size{});
}

TEST_F(SharedServices, MeasureAPhone) {
    const GlobalFuncs& services = started();
    EXPECT_EQ(services.getDeviceType(), 0);
    EXPECT_EQ(services.getScreenWidth(), 320);
    EXPECT_EQ(services.getScreenHeight(), 480);
    EXPECT_EQ(services.getWidgetLeft(), 10);
    EXPECT_EQ(services.getWidgetWidth(), 320);
    EXPECT_EQ(services.getWidgetHeight(), 480);
}

TEST_F(SharedServices, MeasureATablet) {
    fake.device->kind = Idiom::tablet;
    fake.device->bounds = {0.0, 0.0, 768.0, 1024.0};
    const GlobalFuncs& services = started();
    EXPECT_EQ(services.getDeviceType(), 1);
    EXPECT_EQ(services.getWidgetLeft(), 144);
    EXPECT_EQ(services.getWidgetWidth(), 480);
    EXPECT_EQ(services.getWidgetHeight(), 1024);
}

TEST_F(SharedServices, TakeADeviceThatCannotTellForAPhone) {
    fake.device->kind = std::nullopt;
    EXPECT_EQ(started().getDeviceType(), 0);
}

TEST_F(SharedServices, TruncateLengths) {
    fake.device->bounds = {0.0, 0.0, 375.9, 666.99};
    const GlobalFuncs& services = started();
    EXPECT_EQ(services.getScreenWidth(), 375);
    EXPECT_EQ(services.getScreenHeight(), 666);
}

TEST_F(SharedServices, SurviveAScreenWithoutASize) {
    fake.device->bounds = {0.0, 0.0, std::nan(""), std::numeric_limits<double>::infinity()};
    const GlobalFuncs& services = started();
    EXPECT_EQ(services.getScreenWidth(), 0);
    EXPECT_EQ(services.getScreenHeight(), std::numeric_limits<std::int32_t>::max());
}

TEST_F(SharedServices, SizeTheDayButtonsByTheZoom) {
    GlobalFuncs& services = started();
    services.setZoomed(true);
    EXPECT_EQ(services.getDayButtonSize(), (Size{44.0, 18.0}));
    EXPECT_EQ(services.getCircleButtonSize(), (Size{40.0, 22.0}));
    services.setZoomed(false);
    EXPECT_FALSE(services.getZoomed());
    EXPECT_EQ(services.getDayButtonSize(), (Size{22.0, 18.0}));
}

TEST_F(SharedServices, NumberTheGenerationsOfTheSystem) {
    EXPECT_EQ(startedWithVersion("5.1.1").getIOSVersion(), 0);
    EXPECT_EQ(startedWithVersion("6.0").getIOSVersion(), 1);
    EXPECT_EQ(startedWithVersion("6.1.3").getIOSVersion(), 1);
    EXPECT_EQ(startedWithVersion("7.0.4").getIOSVersion(), 2);
    EXPECT_EQ(startedWithVersion("8.4").getIOSVersion(), 3);
    EXPECT_EQ(startedWithVersion("9.1").getIOSVersion(), 0);
    EXPECT_EQ(startedWithVersion("12").getIOSVersion(), 0);
    EXPECT_EQ(startedWithVersion("").getIOSVersion(), 0);
}

TEST_F(SharedServices, AreTurkishByTheTurkishSymbolsOnly) {
    fake.locale->am = "ÖÖ";
    fake.locale->pm = "ÖS";
    GlobalFuncs& turkish = started();
    EXPECT_EQ(turkish.languageId(), 0);
    EXPECT_EQ(turkish.amSym(), "öö");
    EXPECT_EQ(turkish.pmSym(), "ös");

    fake.locale->pm = "PM";
    EXPECT_EQ(started().languageId(), 1);
    fake.locale->am = "AM";
    EXPECT_EQ(started().languageId(), 1);
    EXPECT_EQ(started().amSym(), "am");
    EXPECT_EQ(started().pmSym(), "pm");
}

TEST_F(SharedServices, TakeALanguageByItsName) {
    GlobalFuncs& services = started();
    const std::array<const char*, 4> names{"tr", "en", "fr", "de"};
    for (std::size_t id = 0; id < names.size(); ++id) {
        EXPECT_TRUE(services.setLanguage(names[id]));
        EXPECT_EQ(services.languageId(), static_cast<int>(id));
        EXPECT_EQ(languageName(static_cast<int>(id)), names[id]);
    }
    EXPECT_FALSE(services.setLanguage("xx"));
    EXPECT_EQ(services.languageId(), 3);
}

TEST_F(SharedServices, KeepToTheLanguageThatTheUserChose) {
    fake.locale->am = "ÖÖ";
    fake.locale->pm = "ÖS";
    GlobalFuncs& services = started();
    EXPECT_TRUE(services.chooseLanguage("de"));
    EXPECT_EQ(services.languageId(), 3);
    services.getLangId();
    EXPECT_EQ(services.languageId(), 3);
    EXPECT_EQ(services.amSym(), "öö");  // the symbols are still the locale's
    EXPECT_FALSE(services.chooseLanguage("xx"));
    services.getLangId();
    EXPECT_EQ(services.languageId(), 3);
    EXPECT_TRUE(services.chooseLanguage(""));
    EXPECT_EQ(services.languageId(), 0);
    services.setLanguage("fr");  // lasts until getLangId, because it is no choice
    services.getLangId();
    EXPECT_EQ(services.languageId(), 0);
}

TEST_F(SharedServices, FindTheClockConventionInTheHourPattern) {
    fake.locale->pattern = "HH 'Uhr'";
    EXPECT_TRUE(started().is24Hour());
    fake.locale->pattern = "h a";
    EXPECT_FALSE(started().is24Hour());
}

TEST_F(SharedServices, ShowTimesByTheConvention) {
    fake.locale->pattern = "h a";
    GlobalFuncs& services = started();
    EXPECT_EQ(services.timeLeadingZero(0, 5), "00:05 am");
    EXPECT_EQ(services.timeLeadingZero(13, 5), "01:05 pm");
    EXPECT_EQ(services.timeLeadingZero(12.50875), "12:31 pm");
    services.setIs24Hour(true);
    EXPECT_EQ(services.timeLeadingZero(13, 5), "13:05");
    EXPECT_EQ(services.timeLeadingZero(23.9999), "00:00");
    EXPECT_EQ(services.timeLeadingZeroWithSeconds(4, 5, 6), "04:05:06");
}

Color rgb(int red, int green, int blue) {
    return {red / 255.0, green / 255.0, blue / 255.0, 1.0};
}

TEST_F(SharedServices, HaveTheColoursOfEveryScheme) {
    const std::array<std::array<Color, 5>, 6> schemes{{
        {rgb(239, 236, 202), rgb(230, 226, 175), rgb(167, 163, 126), rgb(4, 99, 128), rgb(0, 47, 47)},
        {rgb(219, 238, 226), rgb(230, 226, 175), rgb(119, 196, 211), rgb(234, 46, 73), rgb(51, 55, 69)},
        {rgb(255, 250, 213), rgb(255, 211, 78), rgb(219, 158, 54), rgb(189, 73, 50), rgb(16, 91, 99)},
        {rgb(242, 242, 242), rgb(198, 224, 112), rgb(145, 196, 108), rgb(40, 125, 125), rgb(28, 52, 77)},
        {rgb(245, 252, 208), rgb(227, 219, 154), rgb(199, 183, 115), rgb(177, 194, 179), rgb(19, 34, 45)},
        {rgb(242, 207, 102), rgb(4, 217, 217), rgb(242, 153, 135), rgb(170, 75, 35), rgb(1, 10, 38)},
    }};
    GlobalFuncs& services = started();
    EXPECT_EQ(services.firstColor(), schemes[1][0]);  // the default one
    for (std::size_t id = 0; id < schemes.size(); ++id) {
        services.getSettings().uiControlColorId = static_cast<int>(id);
        services.updateUIColors();
        const std::array<Color, 5> found{services.firstColor(), services.secondColor(), services.thirdColor(),
                                         services.fourthColor(), services.fifthColor()};
        EXPECT_EQ(found, schemes[id]) << id;
    }
}

TEST_F(SharedServices, FallBackToTheDefaultColoursForAnUnknownScheme) {
    GlobalFuncs& services = started();
    for (const int id : {-1, 6, 1000000}) {
        services.getSettings().uiControlColorId = id;
        services.updateUIColors();
        EXPECT_EQ(services.fifthColor(), rgb(51, 55, 69)) << id;
    }
}

TEST_F(SharedServices, KeepWhatIsSet) {
    GlobalFuncs& services = started();
    services.setFirstColor({0.1, 0.2, 0.3, 0.4});
    services.setAmSym("a");
    services.setPmSym("p");
    services.setLanguageId(2);
    services.setDebugState(3);
    services.setGeneralSettings({.fontSize = 9});
    EXPECT_EQ(services.firstColor(), (Color{0.1, 0.2, 0.3, 0.4}));
    EXPECT_EQ(services.amSym() + services.pmSym(), "ap");
    EXPECT_EQ(services.languageId(), 2);
    EXPECT_EQ(services.getDebugState(), 3);
    EXPECT_EQ(services.getSettings().fontSize, 9);
}

TEST_F(SharedServices, AppendEntriesToPickLists) {
    std::vector<UIComboboxItem> items;
    GlobalFuncs& services = started();
    services.addComboItem(items, "shown", "kept", 7);
    services.addComboItem(items, "second", "", -1);
    EXPECT_EQ(items, (std::vector<UIComboboxItem>{{7, "shown", "kept"}, {-1, "second", ""}}));
}

}  // namespace
}  // namespace quode
