// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <stdexcept>

#include "compiled_catalogue.h"
#include "support/temporary_folder.h"
#include "texts/MessageCatalogue.h"

namespace quode {
namespace {

std::string compiled(const std::string& entries) {
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "xx.mo";
    test::compileCatalogue(file, "xx", "nplurals=3; plural=n==1 ? 0 : n<5 ? 1 : 2;", entries);
    std::ifstream stream(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(stream), {});
}

const std::string entries = R"(
msgid "Sunrise"
msgstr "Gündoğumu"

msgctxt "moon"
msgid "Age"
msgstr "Alter"

msgctxt "person"
msgid "Age"
msgstr "Jahre"

msgid "{0} alarm"
msgid_plural "{0} alarms"
msgstr[0] "ein"
msgstr[1] "wenige"
msgstr[2] "viele"

#, fuzzy
msgid "Guessed"
msgstr "Geraten"

msgid "Untranslated"
msgstr ""
)";

TEST(MessageCatalogue, GivesTheTranslation) {
    const MessageCatalogue catalogue(compiled(entries));
    EXPECT_EQ(catalogue.find("Sunrise"), "Gündoğumu");
    EXPECT_EQ(catalogue.field("Language"), "xx");
}

TEST(MessageCatalogue, TellsContextsApart) {
    const MessageCatalogue catalogue(compiled(entries));
    EXPECT_EQ(catalogue.find("Age", "moon"), "Alter");
    EXPECT_EQ(catalogue.find("Age", "person"), "Jahre");
    EXPECT_EQ(catalogue.find("Age"), std::nullopt);
}

TEST(MessageCatalogue, ChoosesThePluralForm) {
    const MessageCatalogue catalogue(compiled(entries));
    EXPECT_EQ(catalogue.findPlural("{0} alarm", 1), "ein");
    EXPECT_EQ(catalogue.findPlural("{0} alarm", 4), "wenige");
    EXPECT_EQ(catalogue.findPlural("{0} alarm", 5), "viele");
}

TEST(MessageCatalogue, LacksWhatIsUnknownGuessedOrUntranslated) {
    const MessageCatalogue catalogue(compiled(entries));
    EXPECT_EQ(catalogue.find("Sunset"), std::nullopt);
    EXPECT_EQ(catalogue.find("Guessed"), std::nullopt);
    EXPECT_EQ(catalogue.find("Untranslated"), std::nullopt);
}

TEST(MessageCatalogue, RejectsOtherFiles) {
    EXPECT_THROW(MessageCatalogue(""), std::runtime_error);
    EXPECT_THROW(MessageCatalogue(std::string(1000, 'x')), std::runtime_error);
    EXPECT_THROW(MessageCatalogue("\xde\x12\x04\x95"), std::runtime_error);
}

TEST(MessageCatalogue, SurvivesDamage) {
    const std::string good = compiled(entries);
    for (std::size_t size = 0; size < good.size(); size += 3) {
        try {
            const MessageCatalogue cut(good.substr(0, size));
            EXPECT_LE(cut.find("Sunrise").value_or("").size(), good.size());
        } catch (const std::runtime_error&) {  // too much is missing for a catalogue
        }
    }
    for (std::size_t at = 4; at < good.size(); ++at) {
        std::string bent = good;
        bent[at] = static_cast<char>(bent[at] ^ 0xFF);
        try {
            const MessageCatalogue catalogue(bent);
            EXPECT_LE(catalogue.find("Sunrise").value_or("").size(), good.size());
            EXPECT_LE(catalogue.findPlural("{0} alarm", 4).value_or("").size(), good.size());
        } catch (const std::runtime_error&) {
        }
    }
}

}  // namespace
}  // namespace quode
