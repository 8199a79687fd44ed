// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "texts/translation.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>

#include "compiled_catalogue.h"
#include "support/temporary_folder.h"

namespace quode {
namespace {

class Translation : public testing::Test {
  protected:
    ~Translation() override { useLanguage("en", folder.path()); }

    void add(const std::string& language, const std::string& entries) {
        test::compileCatalogue(folder.path() / "locale" / (language + ".mo"), language, "nplurals=2; plural=n != 1;",
                               entries);
    }

    test::TemporaryFolder folder;
};

TEST_F(Translation, IsEnglishByDefault) {
    EXPECT_STREQ(_("Sunrise"), "Sunrise");
    EXPECT_EQ(_("in {}", 3), "in 3");
    EXPECT_EQ(_n("{0} alarm", "{0} alarms", 1), "1 alarm");
    EXPECT_EQ(_n("{0} alarm of {1}", "{0} alarms of {1}", 2, "six"), "2 alarms of six");
    EXPECT_STREQ(_c("moon", "Age"), "Age");
    EXPECT_EQ(languageInUse(), "en");
}

TEST_F(Translation, SpeaksTheChosenLanguage) {
    add("de", R"(
msgid "Sunrise"
msgstr "Sonnenaufgang"

msgid "{0} and {1}"
msgstr "{1} und {0}"

msgid "{0} alarm"
msgid_plural "{0} alarms"
msgstr[0] "{0} Wecker"
msgstr[1] "{0} Weckzeiten"

msgctxt "moon"
msgid "{} days"
msgstr "{} Tage alt"
)");
    ASSERT_TRUE(useLanguage("de", folder.path()));
    EXPECT_STREQ(_("Sunrise"), "Sonnenaufgang");
    EXPECT_STREQ(_("Sunset"), "Sunset");
    EXPECT_EQ(_("{0} and {1}", "a", std::string("b")), "b und a");
    EXPECT_EQ(_n("{0} alarm", "{0} alarms", 1), "1 Wecker");
    EXPECT_EQ(_n("{0} alarm", "{0} alarms", 2), "2 Weckzeiten");
    EXPECT_EQ(_c("moon", "{} days", 3), "3 Tage alt");
    EXPECT_EQ(languageInUse(), "de");
}

TEST_F(Translation, StaysEnglishWithoutAReadableCatalogue) {
    add("de", "");
    std::ofstream(folder.path() / "locale" / "fr.mo") << "not a catalogue";
    EXPECT_FALSE(useLanguage("fr", folder.path()));
    EXPECT_FALSE(useLanguage("xx", folder.path()));
    EXPECT_FALSE(useLanguage("../locale/de", folder.path()));
    ASSERT_EQ(mkfifo((folder.path() / "locale" / "tr.mo").c_str(), 0600), 0);
    EXPECT_FALSE(useLanguage("tr", folder.path())) << "and does not wait for a writer";
    EXPECT_EQ(languageInUse(), "en");
    EXPECT_STREQ(_("Sunrise"), "Sunrise");
}

TEST_F(Translation, StaysEnglishWhereATranslationHasOtherPlaceholders) {
    add("de", R"(
msgid "in {}"
msgstr "in {} und {}"
)");
    ASSERT_TRUE(useLanguage("de", folder.path()));
    EXPECT_EQ(_("in {}", 3), "in 3");
}

TEST_F(Translation, TextsOutliveAChangeOfLanguage) {
    add("de", "msgid \"Sunrise\"\nmsgstr \"Sonnenaufgang\"\n");
    ASSERT_TRUE(useLanguage("de", folder.path()));
    const char* text = _("Sunrise");
    ASSERT_TRUE(useLanguage("en", folder.path()));
    EXPECT_STREQ(text, "Sonnenaufgang");
    EXPECT_STREQ(_("Sunrise"), "Sunrise");
}

TEST_F(Translation, KeepsLatinNamesAndTimesTogetherAmidRightToLeftText) {
    add("ar", "msgid \"{} at {}\"\nmsgstr \"{} في {}\"\n");
    ASSERT_TRUE(useLanguage("ar", folder.path()));
    EXPECT_EQ(_("{} at {}", "Istanbul", "06:05"), "\u2068Istanbul\u2069 في \u206806:05\u2069");
    EXPECT_EQ(isolated("Istanbul"), "\u2068Istanbul\u2069");
    ASSERT_TRUE(useLanguage("en", folder.path()));
    EXPECT_EQ(isolated("Istanbul"), "Istanbul");
}

TEST_F(Translation, ListsTheLanguages) {
    add("tr", "");
    add("ar", "");
    EXPECT_EQ(availableLanguages(folder.path()), (std::vector<std::string>{"ar", "en", "tr"}));
    EXPECT_EQ(availableLanguages(folder.path() / "nowhere"), std::vector<std::string>{"en"});
}

}  // namespace
}  // namespace quode
