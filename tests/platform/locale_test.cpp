// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The facts of real locales.
#include <gtest/gtest.h>
#include <unicode/dtptngen.h>
#include <unicode/locid.h>

#include <memory>
#include <string>
#include <vector>

#include "common/GlobalFuncs.h"
#include "platform/system_platform.h"
#include "support/environment_of.h"
#include "support/fake_platform.h"
#include "support/scoped_variable.h"
#include "tools/locales/icu_locale.h"

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
    const auto locale = systemLocale(expected.name);
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
    const auto locale = systemLocale("tr_TR");
    EXPECT_EQ(locale->lowerAmSymbol(), "öö");
    EXPECT_EQ(locale->lowerPmSymbol(), "ös");
}

TEST(LocaleNames, OfWeekdaysAreThoseOfThePeople) {
    EXPECT_EQ(systemLocale("de_DE")->weekdayName(6), "Samstag");
    EXPECT_EQ(systemLocale("tr")->weekdayName(0), "Pazar");
    EXPECT_EQ(systemLocale("fr")->shortWeekdayName(1), "lun.");
    EXPECT_EQ(systemLocale("de")->shortWeekdayName(1), "Mo");
    EXPECT_EQ(systemLocale("ar")->weekdayName(5), "الجمعة");
    EXPECT_EQ(systemLocale("en")->weekdayName(7) + systemLocale("en")->weekdayName(-1), "");
}

TEST(DecimalMark, GoesWithLatinDigits) {
    EXPECT_EQ(systemLocale("de")->decimalMark(), ",");
    EXPECT_EQ(systemLocale("en")->decimalMark(), ".");
    EXPECT_EQ(systemLocale("tr_TR.UTF-8")->decimalMark(), ",");
    EXPECT_EQ(systemLocale("fa")->decimalMark(), ".");
}

TEST(MalformedLocale, IsTakenForPosix) {
    for (const char* name :
         {"american english", "@@@", "x\xFFy", "a_very_long_name_that_no_locale_in_this_world_could_have"}) {
        const auto locale = systemLocale(name);
        EXPECT_EQ(locale->monthName(2), "February") << name;
        EXPECT_EQ(locale->weekdayName(6), "Saturday") << name;
        EXPECT_EQ(locale->amSymbol(), "AM") << name;
        EXPECT_FALSE(locale->decimalMark().empty()) << name;
    }
    EXPECT_EQ(systemLocale("american english")->hourPattern(), systemLocale("POSIX")->hourPattern());
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
        EXPECT_EQ(systemLocale(all[i].getName())->hourPattern().find('a') != std::string::npos, hasSign)
            << all[i].getName();
    }
    EXPECT_EQ(systemLocale("en_US@hours=h23")->hourPattern(), "HH");
    EXPECT_NE(systemLocale("de_DE@hours=h12")->hourPattern().find('a'), std::string::npos);
}

std::string allOf(const Locale& locale) {
    std::string all = locale.amSymbol() + ' ' + locale.pmSymbol() + ' ' + locale.lowerAmSymbol() + ' ' +
                      locale.lowerPmSymbol() + ' ' + locale.decimalMark();
    for (int i = 0; i <= 13; ++i) all += ' ' + locale.monthName(i) + ' ' + locale.shortMonthName(i);
    for (int i = -1; i <= 7; ++i) all += ' ' + locale.weekdayName(i) + ' ' + locale.shortWeekdayName(i);
    return all + (locale.hourPattern().find('a') != std::string::npos ? " 12" : " 24");
}

TEST(TableOfLocales, IsWhatIcuSaysOfThem) {
    std::int32_t count = 0;
    const icu::Locale* const all = icu::Locale::getAvailableLocales(count);
    for (std::int32_t i = 0; i < count; ++i) {
        const std::string name = all[i].getName();
        EXPECT_EQ(allOf(*systemLocale(name)), allOf(*icuLocale(name))) << name;
    }
}

TEST(TableOfLocales, IsWhatIcuSaysOfLanguagesInOtherCountries) {
    std::vector<std::string> languages, countries;
    for (auto language = icu::Locale::getISOLanguages(); *language != nullptr; ++language) {
        if (*language != std::string_view("und")) languages.emplace_back(*language);
    }
    for (auto country = icu::Locale::getISOCountries(); *country != nullptr; ++country) {
        countries.emplace_back(*country);
    }
    for (std::size_t i = 0; i < languages.size(); ++i) {
        for (std::size_t k = 0; k < 3; ++k) {
            const std::string name = languages[i] + "_" + countries[(i * 3 + k * 83) % countries.size()];
            const auto locale = systemLocale(name);
            const auto ofIcu = icuLocale(name);
            // ICU takes the script that is usual there, even where it has no words in it.
            const bool hasOtherScript = ofIcu->monthName(1) == "M01" && locale->monthName(1) != "M01";
            if (hasOtherScript) continue;
            EXPECT_EQ(allOf(*locale), allOf(*ofIcu)) << name;
        }
    }
}

TEST(NamesOfTheCLibrary, AreUnderstood) {
    for (const char* name :
         {"zh_TW.UTF-8",    "zh_HK",      "no_NO", "nb_NO.UTF-8", "iw_IL", "he_IL",      "sr_RS", "uz_UZ",
          "ca_ES@valencia", "de_DE@euro", "pt_BR", "en_TR",       "tr_US", "ar_EG.utf8", "fa_IR", "hi_IN",
          "id_ID.UTF-8",    "C.UTF-8",    "TR_tr", "en-US",       "xx_YY", "english"}) {
        EXPECT_EQ(allOf(*systemLocale(name)), allOf(*icuLocale(name))) << name;
    }
    EXPECT_EQ(systemLocale("sr_RS@latin")->monthName(1), "januar");
    EXPECT_EQ(systemLocale("uz_UZ@cyrillic")->monthName(1), icuLocale("uz_Cyrl")->monthName(1));
}

TEST(LocaleOfTheProcess, ComesFromTheFirstVariableThatIsSet) {
    EXPECT_EQ(localeNameFrom(environmentOf({{"LC_ALL", "tr_TR"}, {"LC_TIME", "fr_FR"}, {"LANG", "de_DE"}})), "tr_TR");
    EXPECT_EQ(localeNameFrom(environmentOf({{"LC_ALL", ""}, {"LC_TIME", "fr_FR"}, {"LANG", "de_DE"}})), "fr_FR");
    EXPECT_EQ(localeNameFrom(environmentOf({{"LANG", "de_DE.UTF-8"}})), "de_DE.UTF-8");
    EXPECT_EQ(localeNameFrom(environmentOf({})), "POSIX");
}

TEST(LocaleOfTheProcess, IsUsedWhenNoneIsNamed) {
    const test::ScopedVariable all("LC_ALL", "de_DE.UTF-8");
    EXPECT_EQ(systemLocale()->monthName(2), "Februar");
}

}  // namespace
}  // namespace quode
