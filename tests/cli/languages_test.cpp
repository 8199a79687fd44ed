// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "program.h"
#include "support/temporary_folder.h"
#include "texts/compiled_catalogue.h"

namespace quode::test {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::Not;

/// A bundle like the one that was built, to which a test adds a catalogue.
class OwnBundle {
  public:
    OwnBundle() {
        for (const fs::directory_entry& entry : fs::directory_iterator(QUODE_BUNDLE)) {
            if (entry.path().filename() != "locale") fs::create_symlink(entry.path(), path() / entry.path().filename());
        }
        fs::copy(fs::path(QUODE_BUNDLE) / "locale", path() / "locale");
    }
    const fs::path& path() const { return folder_.path(); }

  private:
    TemporaryFolder folder_;
};

TEST(NewLanguage, IsOneCatalogue) {
    const OwnBundle bundle;
    Program program;
    program.with("QUODE_BUNDLE_DIR", bundle.path().string()).with("LC_ALL", "C");
    EXPECT_EQ(program.run({"--lang", "eo"}).code, 2);

    compileCatalogue(bundle.path() / "locale" / "eo.mo", "eo", "nplurals=2; plural=(n != 1);", R"(
msgid "Maghrib"
msgstr "Sunsubiro"

msgid "{0} {1} {2} {3}"
msgstr "{0}, la {1}-a de {2} {3}"

msgid "no summer time"
msgstr "sen somera tempo"

msgid "Year {} is out of range (1–{})."
msgstr "La jaro {} estas ekster 1–{}."

msgid "The direction of the Kaaba"
msgstr "La direkto al la Kaaba"
)");
    const auto today = program.run({"--lang", "eo", "--city", "Istanbul"});
    EXPECT_EQ(today.code, 0) << today.err;
    EXPECT_THAT(today.out, HasSubstr("Sunsubiro"));
    EXPECT_THAT(today.out, HasSubstr("sabato, la 21-a de novembro 2026"));
    EXPECT_THAT(today.out, HasSubstr("sen somera tempo"));
    EXPECT_THAT(today.out, HasSubstr("Fajr")) << "a text without a translation is English";
    EXPECT_THAT(program.run({"--lang", "eo", "year", "0"}).err, HasSubstr("La jaro 0 estas ekster 1–9999."));
    EXPECT_THAT(program.run({"--lang", "eo", "--help"}).out, HasSubstr("La direkto al la Kaaba"));
}

TEST(Languages, WorkWithoutAnySystemLocale) {
    Program program;
    program.with("LC_ALL", "C");
    EXPECT_THAT(program.run({"--lang", "de", "--city", "Berlin"}).out, HasSubstr("Samstag, 21. November 2026"));
    EXPECT_THAT(program.run({"--lang", "ru", "--city", "Berlin"}).out, HasSubstr("суббота, 21 ноября 2026"));
    EXPECT_THAT(program.run({"--lang", "ar", "--city", "Berlin"}).out, HasSubstr("المغرب"));
    EXPECT_THAT(program.run({"--lang", "fr", "year", "0"}).err, HasSubstr("hors limites"));
}

TEST(Languages, FollowOptionEnvironmentSettingAndLocale) {
    const TemporaryFolder folder;
    Program program;
    program.with("QUODE_DATA_DIR", folder.path().string()).with("LC_ALL", "fr_FR.UTF-8");
    const auto isIn = [&](const char* word) { return HasSubstr(word); };
    EXPECT_THAT(program.run({"qibla"}).out, isIn("Boussole"));
    EXPECT_EQ(program.run({"settings", "language", "tr"}).code, 0);
    EXPECT_THAT(program.run({"qibla"}).out, isIn("Pusula"));
    EXPECT_THAT(program.run({"qibla"}).out, isIn("WMM2025, 1,9")) << "with the decimal mark of the language";
    program.with("QUODE_LANG", "de");
    EXPECT_THAT(program.run({"qibla"}).out, isIn("Kompass"));
    EXPECT_THAT(program.run({"qibla", "--lang=en"}).out, isIn("Compass"));
    program.with("QUODE_LANG", "xx");
    const auto refused = program.run({"qibla"});
    EXPECT_EQ(refused.code, 2);
    EXPECT_THAT(refused.err, HasSubstr("QUODE_LANG: there is no language \"xx\""));
    EXPECT_EQ(program.with("QUODE_LANG", "").run({"settings", "language", "xx"}).code, 2);
}

TEST(Languages, SurviveAMalformedLocale) {
    for (const char* locale : {"american english", "@", "..", "tr/../de", "\xff\xfe"}) {
        const auto today = Program().with("LC_ALL", locale).run({"--city", "Berlin"});
        EXPECT_EQ(today.code, 0) << locale << today.err;
        EXPECT_THAT(today.out, HasSubstr("Saturday 21 November 2026")) << locale;
    }
}

TEST(RightToLeftLanguages, KeepNamesAndTimesTogether) {
    const auto next = Program().run({"--lang", "ar", "--city", "Havana"});
    EXPECT_EQ(next.code, 0) << next.err;
    EXPECT_THAT(next.out, HasSubstr("\u2068")) << "names and dates in sentences are isolated";
    const auto json = Program().run({"--lang", "ar", "--city", "Havana", "--json"}).json();
    EXPECT_THAT(json.at("date").get<std::string>(), "2026-11-21");
    EXPECT_THAT(json.dump(), Not(HasSubstr("\u202e")));
}

}  // namespace
}  // namespace quode::test
