// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "common/LanguagePack.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <plist/plist.h>

#include <cstdlib>
#include <string>

#include "common/GlobalFuncs.h"
#include "common/text_format.h"
#include "common/utf8.h"
#include "support/fake_platform.h"

namespace quode {
namespace {

using test::FakePlatform;
using testing::AllOf;
using testing::HasSubstr;

const std::string smallPack = R"(<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0"><dict>
  <key>PRAYERS</key><dict><key>TULU</key><string>Güneş</string><key>I-SHAMS</key><string>İsfirar</string></dict>
  <key>HIJRI MONTHS</key><dict><key>9</key><string>Ramazan</string></dict>
  <key>HIJRI MONTHS SHORT</key><dict><key>9</key><string>Ram.</string></dict>
  <key>COMMON</key><dict><key>1003</key><string>GMT : %@</string></dict>
</dict></plist>
)";

std::string inSection(const std::string& content) {
    return "<plist version=\"1.0\"><dict><key>COMMON</key>" + content + "</dict></plist>";
}

std::string asBinary(const std::string& xml) {
    plist_t root = nullptr;
    plist_from_xml(xml.data(), static_cast<std::uint32_t>(xml.size()), &root);
    char* bytes = nullptr;
    std::uint32_t size = 0;
    plist_to_bin(root, &bytes, &size);
    std::string binary(bytes, size);
    std::free(bytes);
    plist_free(root);
    return binary;
}

std::string problemOf(const std::string& bytes) {
    try {
        parseLanguagePack(bytes);
        return "";
    } catch (const std::runtime_error& error) {
        return error.what();
    }
}

TEST(LanguagePackFile, IsReadAsXml) {
    const LanguagePack pack = parseLanguagePack(smallPack);
    EXPECT_EQ(pack.text("PRAYERS", "TULU"), "Güneş");
    EXPECT_EQ(pack.text("HIJRI MONTHS", "9"), "Ramazan");
    EXPECT_EQ(pack.text("HIJRI MONTHS", "10"), std::nullopt);
    EXPECT_EQ(pack.text("NO SECTION", "9"), std::nullopt);
    EXPECT_EQ(LanguagePack().text("PRAYERS", "TULU"), std::nullopt);
}

TEST(LanguagePackFile, IsReadAsBinary) {
    const std::string binary = asBinary(smallPack);
    ASSERT_TRUE(binary.starts_with("bplist00"));
    EXPECT_EQ(parseLanguagePack(binary).sections(), parseLanguagePack(smallPack).sections());
}

TEST(LanguagePackFile, MayBeginWithAByteOrderMark) {
    EXPECT_EQ(parseLanguagePack("\xEF\xBB\xBF" + smallPack).text("PRAYERS", "TULU"), "Güneş");
}

TEST(LanguagePackFile, ThatIsDamagedIsRefusedWithAReason) {
    EXPECT_EQ(problemOf(""), "it is empty");
    EXPECT_EQ(problemOf("\xEF\xBB\xBF"), "it is empty");
    const std::string binary = asBinary(smallPack);
    for (const std::string& bytes :
         {std::string("garbage"), smallPack.substr(0, smallPack.size() / 2), binary.substr(0, binary.size() / 2),
          std::string("{\"a\": 1}"), std::string(64, '\0'), std::string("bplist00")}) {
        EXPECT_THAT(problemOf(bytes), HasSubstr("not a property list"));
    }
}

TEST(LanguagePackFile, WithOtherValuesThanTextsIsRefused) {
    EXPECT_THAT(problemOf("<plist version=\"1.0\"><array/></plist>"), HasSubstr("not a dictionary"));
    EXPECT_THAT(problemOf(inSection("<string>x</string>")), AllOf(HasSubstr("COMMON"), HasSubstr("not a dictionary")));
    EXPECT_THAT(problemOf(inSection("<dict><key>1000</key><integer>5</integer></dict>")),
                AllOf(HasSubstr("1000"), HasSubstr("not a text")));
}

TEST(LanguagePackFile, ThatIsNotUtf8IsRefused) {
    EXPECT_THAT(problemOf(inSection("<dict><key>1000</key><string>G\xFCne\xFE</string></dict>")), HasSubstr("UTF-8"));
    EXPECT_THAT(problemOf(inSection("<dict><key>\xC0\x80</key><string>x</string></dict>")), HasSubstr("UTF-8"));
}

TEST(Utf8, IsDistinguishedFromOtherBytes) {
    for (const char* good : {"", "abc", "ş", "€", "☀", "𝄞", "\xED\x9F\xBF", "\xF4\x8F\xBF\xBF"})
        EXPECT_TRUE(isUtf8(good));
    for (const char* bad :
         {"\x80", "\xC0\x80", "\xC1\xBF", "\xC3", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xF0\x8F\xBF\xBF",
          "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF", "\xE2\x82", "\xE2\x28\xA1", "a\xF0\x9D\x84"}) {
        EXPECT_FALSE(isUtf8(bad)) << bad;
    }
}

TEST(FilledFormat, PutsValuesInPlaceOfPlaceholders) {
    EXPECT_EQ(filledFormat("GMT : %@", {"(+) 03:00"}), "GMT : (+) 03:00");
    EXPECT_EQ(filledFormat("%d. Tag", {2}), "2. Tag");
    EXPECT_EQ(filledFormat("%@ %d %@ 100%%", {"a", -1, "%d"}), "a -1 %d 100%");
    EXPECT_EQ(filledFormat("plain", {}), "plain");
}

TEST(FilledFormat, RefusesWhatDoesNotFit) {
    EXPECT_THROW(filledFormat("%@", {}), std::invalid_argument);
    EXPECT_THROW(filledFormat("plain", {1}), std::invalid_argument);
    EXPECT_THROW(filledFormat("%d", {"text"}), std::invalid_argument);
    EXPECT_THROW(filledFormat("%@", {1}), std::invalid_argument);
    EXPECT_THROW(filledFormat("%s", {"x"}), std::invalid_argument);
    EXPECT_THROW(filledFormat("100 %", {}), std::invalid_argument);
    EXPECT_EQ(placeholdersOf("%d %@ %%"), "d@");
}

class LanguageOfTheServices : public testing::Test {
  protected:
    FakePlatform fake;

    GlobalFuncs& started() {
        GlobalFuncs& services = GlobalFuncs::startUp(fake.platform());
        services.setApplicationBundlePath("/bundle");
        return services;
    }

    std::string log() const { return fake.files->contents["/data/QuodeLog.txt"]; }
};

TEST_F(LanguageOfTheServices, ReadsTheFileOfEachLanguage) {
    const std::vector<std::pair<int, std::string>> files{
        {0, "/bundle/tr.lproj/tr.plist"},  {1, "/bundle/en.lproj/en.plist"}, {2, "/bundle/Languages/fr.plist"},
        {3, "/bundle/Languages/ge.plist"}, {4, "/bundle/en.lproj/en.plist"}, {-1, "/bundle/en.lproj/en.plist"}};
    GlobalFuncs& services = started();
    for (const auto& [id, path] : files) {
        fake.files->contents = {{path, smallPack}};
        services.setLanguageId(id);
        EXPECT_EQ(services.loadLanguageFile(), std::nullopt) << id;
        EXPECT_EQ(services.GetTextPrayLabels(201), "Güneş") << id;
    }
}

TEST_F(LanguageOfTheServices, LooksTextsUpByNumber) {
    fake.files->contents["/bundle/en.lproj/en.plist"] = smallPack;
    GlobalFuncs& services = started();
    services.loadLanguageFile();
    EXPECT_EQ(services.GetTextPrayLabels(208), "İsfirar");
    EXPECT_EQ(services.GetTextHijriMonth(9), "Ramazan");
    EXPECT_EQ(services.GetTextHijriMonthShort(9), "Ram.");
    EXPECT_EQ(services.GetKeyValue(1003), "GMT : %@");
    EXPECT_EQ(services.GetKeyValue(1), std::nullopt);
    EXPECT_EQ(services.GetTextHijriMonth(13), std::nullopt);
    for (const int id : {200, 199, 209, -2147483647 - 1, 2147483647}) {
        EXPECT_EQ(services.GetTextPrayLabels(id), std::nullopt) << id;
    }
}

TEST_F(LanguageOfTheServices, LogsAMissingFileAndHasNoTexts) {
    fake.clock->show(2024, 3, 31, 9, 5, 3);
    GlobalFuncs& services = started();
    const auto problem = services.loadLanguageFile();
    EXPECT_EQ(problem, "Language file not found : /bundle/en.lproj/en.plist");
    EXPECT_EQ(log(), "[09:05:03] Language file not found : /bundle/en.lproj/en.plist\n");
    EXPECT_EQ(services.GetTextPrayLabels(201), std::nullopt);
    EXPECT_EQ(services.GetTextHijriMonth(9), std::nullopt);
    EXPECT_EQ(services.GetTextHijriMonthShort(9), std::nullopt);
    EXPECT_EQ(services.GetKeyValue(1003), std::nullopt);
}

TEST_F(LanguageOfTheServices, GivesUpTheOldPackWhenTheNewOneIsDamaged) {
    fake.files->contents["/bundle/en.lproj/en.plist"] = smallPack;
    fake.files->contents["/bundle/Languages/fr.plist"] = smallPack.substr(0, 200);
    GlobalFuncs& services = started();
    services.loadLanguageFile();
    services.setLanguage("fr");
    const auto problem = services.loadLanguageFile();
    ASSERT_TRUE(problem);
    EXPECT_THAT(*problem, AllOf(HasSubstr("/bundle/Languages/fr.plist"), HasSubstr("damaged")));
    EXPECT_THAT(log(), HasSubstr(*problem));
    EXPECT_EQ(services.GetTextPrayLabels(201), std::nullopt);
}

TEST_F(LanguageOfTheServices, SurvivesAFileThatCannotBeRead) {
    class UnreadableFiles : public test::MemoryFiles {
      public:
        std::string read(const std::filesystem::path&) const override { throw std::runtime_error("unreadable"); }
    };
    fake.files = std::make_shared<UnreadableFiles>();
    fake.files->contents["/bundle/en.lproj/en.plist"] = smallPack;
    const auto problem = started().loadLanguageFile();
    ASSERT_TRUE(problem);
    EXPECT_THAT(*problem, AllOf(HasSubstr("en.plist"), HasSubstr("unreadable")));
}

TEST_F(LanguageOfTheServices, TakesGregorianMonthsFromTheLocale) {
    GlobalFuncs& services = started();
    EXPECT_EQ(services.GetTextGregorianMonth(8), "August");
    EXPECT_EQ(services.GetTextGregorianMonthShort(8), "Aug");
    EXPECT_EQ(services.GetTextGregorianMonth(0), "");
    EXPECT_EQ(services.GetTextGregorianMonthShort(13), "");
}

}  // namespace
}  // namespace quode
