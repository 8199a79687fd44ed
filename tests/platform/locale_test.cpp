// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The facts of real locales.
#include <gtest/gtest.h>
#include <unicode/dtptngen.h>
#include <unicode/locid.h>

#include <memory>
#include <string>

#include "common/GlobalFuncs.h"
#include "platform/system_platform.h"
#include "support/environment_of.h"
#include "support/fake_platform.h"
#include "support/scoped_variable.h"

namespace quode {
namespace {

using test::environmentOf;

struct LocaleCase {
    std::string name;
    std::string am, pm;
    std::string february, august;
    std::string shortFebruary, shortAugust;
    bool is24Hour;
    int languageId;
};

class LocaleFacts : public testing::TestWithParam<LocaleCase> {};

TEST_P(LocaleFacts, AreThoseOfThePeople) {
    const LocaleCase& expected = GetParam();
    const auto locale = icuLocale(expected.name);
    EXPECT_EQ(locale->amSymbol(), expected.am);
    EXPECT_EQ(locale->pmSymbol(), expected.pm);
    EXPECT_EQ(locale->monthName(2), expected.february);
    EXPECT_EQ(locale->monthName(8), expected.august);
    EXPECT_EQ(locale->shortMonthName(2), expected.shortFebruary);
    EXPECT_EQ(locale->shortMonthName(8), expected.shortAugust);
    EXPECT_EQ(locale->monthName(0) + locale->monthName(13) + locale->shortMonthName(-1), "");

    test::FakePlatform fake;
    Platform platform = fake.platform();
    platform.locale = locale;
    const GlobalFuncs& services = GlobalFuncs::startUp(platform);
    EXPECT_EQ(services.is24Hour(), expected.is24Hour);
    EXPECT_EQ(services.languageId(), expected.languageId);
    EXPECT_EQ(services.GetTextGregorianMonth(8), expected.august);
}

INSTANTIATE_TEST_SUITE_P(
    Countries, LocaleFacts,
    testing::Values(LocaleCase{"tr_TR.UTF-8", "ÖÖ", "ÖS", "Şubat", "Ağustos", "Şub", "Ağu", true, 0},
                    LocaleCase{"en_US.UTF-8", "AM", "PM", "February", "August", "Feb", "Aug", false, 1},
                    LocaleCase{"en_GB", "am", "pm", "February", "August", "Feb", "Aug", true, 1},
                    LocaleCase{"fr_FR.UTF-8", "AM", "PM", "février", "août", "févr.", "août", true, 1},
                    LocaleCase{"de_DE@euro", "AM", "PM", "Februar", "August", "Feb.", "Aug.", true, 1},
                    LocaleCase{"C.UTF-8", "AM", "PM", "February", "August", "Feb", "Aug", true, 1},
                    LocaleCase{"POSIX", "AM", "PM", "February", "August", "Feb", "Aug", true, 1}),
    [](const auto& tested) { return tested.param.name.substr(0, tested.param.name.find_first_of(".@")); });

TEST(LocaleOfTurkey, HasTheSmallSymbolsOfTheServices) {
    const auto locale = icuLocale("tr_TR");
    EXPECT_EQ(locale->lowerCased(locale->amSymbol()), "öö");
    EXPECT_EQ(locale->lowerCased(locale->pmSymbol()), "ös");
}

TEST(LowerCase, IsTheSameInEveryLocale) {
    for (const char* name : {"tr_TR", "en_US", "POSIX"}) {
        EXPECT_EQ(icuLocale(name)->lowerCased("IŞIK ÖÄ Am"), "işik öä am") << name;
        EXPECT_EQ(icuLocale(name)->lowerCased(""), "");
    }
}

TEST(LocaleNames, OfWeekdaysAreThoseOfThePeople) {
    EXPECT_EQ(icuLocale("de_DE")->weekdayName(6), "Samstag");
    EXPECT_EQ(icuLocale("tr")->weekdayName(0), "Pazar");
    EXPECT_EQ(icuLocale("fr")->shortWeekdayName(1), "lun.");
    EXPECT_EQ(icuLocale("de")->shortWeekdayName(1), "Mo");
    EXPECT_EQ(icuLocale("ar")->weekdayName(5), "الجمعة");
    EXPECT_EQ(icuLocale("en")->weekdayName(7) + icuLocale("en")->weekdayName(-1), "");
}

TEST(DecimalMark, GoesWithLatinDigits) {
    EXPECT_EQ(icuLocale("de")->decimalMark(), ",");
    EXPECT_EQ(icuLocale("en")->decimalMark(), ".");
    EXPECT_EQ(icuLocale("tr_TR.UTF-8")->decimalMark(), ",");
    EXPECT_EQ(icuLocale("fa")->decimalMark(), ".");
}

TEST(MalformedLocale, IsTakenForPosix) {
    for (const char* name :
         {"american english", "@@@", "x\xFFy", "a_very_long_name_that_no_locale_in_this_world_could_have"}) {
        const auto locale = icuLocale(name);
        EXPECT_EQ(locale->monthName(2), "February") << name;
        EXPECT_EQ(locale->weekdayName(6), "Saturday") << name;
        EXPECT_EQ(locale->amSymbol(), "AM") << name;
        EXPECT_FALSE(locale->decimalMark().empty()) << name;
    }
    EXPECT_EQ(icuLocale("american english")->hourPattern(), icuLocale("POSIX")->hourPattern());
}

TEST(HoursOfLocales, AreThoseThatThePatternGeneratorOfIcuTakes) {
    std::int32_t count = 0;
    const icu::Locale* const all = icu::Locale::getAvailableLocales(count);
    ASSERT_GT(count, 500);
    for (std::int32_t i = 0; i < count; i += 3) {
        UErrorCode status = U_ZERO_ERROR;
        const std::unique_ptr<icu::DateTimePatternGenerator> generator(
            icu::DateTimePatternGenerator::createInstance(all[i], status));
        ASSERT_TRUE(U_SUCCESS(status)) << all[i].getName();
        const bool hasSign = generator->getBestPattern("j", status).indexOf(u'a') >= 0;
        EXPECT_EQ(icuLocale(all[i].getName())->hourPattern().find('a') != std::string::npos, hasSign)
            << all[i].getName();
    }
    EXPECT_EQ(icuLocale("en_US@hours=h23")->hourPattern(), "HH");
    EXPECT_NE(icuLocale("de_DE@hours=h12")->hourPattern().find('a'), std::string::npos);
}

TEST(LocaleOfTheProcess, ComesFromTheFirstVariableThatIsSet) {
    EXPECT_EQ(localeNameFrom(environmentOf({{"LC_ALL", "tr_TR"}, {"LC_TIME", "fr_FR"}, {"LANG", "de_DE"}})), "tr_TR");
    EXPECT_EQ(localeNameFrom(environmentOf({{"LC_ALL", ""}, {"LC_TIME", "fr_FR"}, {"LANG", "de_DE"}})), "fr_FR");
    EXPECT_EQ(localeNameFrom(environmentOf({{"LANG", "de_DE.UTF-8"}})), "de_DE.UTF-8");
    EXPECT_EQ(localeNameFrom(environmentOf({})), "POSIX");
}

TEST(LocaleOfTheProcess, IsUsedWhenNoneIsNamed) {
    const test::ScopedVariable all("LC_ALL", "de_DE.UTF-8");
    EXPECT_EQ(icuLocale()->monthName(2), "Februar");
}

}  // namespace
}  // namespace quode
