// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cstdlib>
#include <set>

#include "data/write_file.h"
#include "support/file_content.h"
#include "tools/places/place_id.h"
#include "tools/places/source_data.h"
#include "tools/places/tsv.h"

namespace quode::places {
namespace {

using test::contentOf;

using test::TemporaryFolder;

int run(const std::string& command) {
    return std::system((command + " 2>/dev/null").c_str());
}

TEST(DerivedId, IsTheSameInEveryEdition) {
    // FNV-1a of the four texts, each followed by a tab, worked out apart from this program
    EXPECT_EQ(derivedId("AD", "Anyós", "42.53465", "1.5251"), 2091534964);
}

TEST(DerivedId, DependsOnEveryPart) {
    const std::set<std::int32_t> ids = {derivedId("AD", "A", "1", "2"), derivedId("AE", "A", "1", "2"),
                                        derivedId("AD", "B", "1", "2"), derivedId("AD", "A", "3", "2"),
                                        derivedId("AD", "A", "1", "3"), derivedId("A", "DA", "1", "2")};
    EXPECT_EQ(ids.size(), 6U);
}

TEST(DerivedId, LiesAboveAllOtherIds) {
    for (int i = 0; i < 10000; ++i) EXPECT_GE(derivedId("XX", std::to_string(i), "0", "0"), firstDerivedId);
}

TEST(Table, ReadsPlainAndPackedFilesAlike) {
    const TemporaryFolder folder;
    const auto file = test::writeFile(folder, "a.tsv", "x\ty\n1\t\n\t2\n");
    const std::vector<std::vector<std::string>> rows = {{"1", ""}, {"", "2"}};
    EXPECT_EQ(readTable(file, 2), rows);
    ASSERT_EQ(run("gzip -k " + file.string()), 0);
    EXPECT_EQ(readTable(folder.path() / "a.tsv.gz", 2), rows);
}

TEST(Table, NamesTheLineThatIsWrong) {
    const TemporaryFolder folder;
    try {
        readTable(test::writeFile(folder, "a.tsv", "x\ty\n1\t2\n1\n"), 2);
        FAIL();
    } catch (const std::runtime_error& error) {
        EXPECT_NE(std::string(error.what()).find("a.tsv, line 3: 1 columns instead of 2"), std::string::npos)
            << error.what();
    }
    EXPECT_THROW(readTable(folder.path() / "missing.tsv", 2), std::runtime_error);
    EXPECT_THROW(readTable(test::writeFile(folder, "empty.tsv", ""), 2), std::runtime_error);
}

TEST(Builder, GivesTheSameBytesEachTime) {
    const TemporaryFolder folder;
    const std::string again = (folder.path() / "again.sqlite").string();
    ASSERT_EQ(run(std::string(QUODE_BUILD_CITIES) + " " + QUODE_PLACE_DATA + " " + again), 0);
    EXPECT_GT(std::filesystem::file_size(again), 1'000'000U);
    EXPECT_TRUE(contentOf(again) == contentOf(QUODE_CITY_DATABASE));
}

// A folder with one place, for data that is not as it must be.
class SmallData : public testing::Test {
  protected:
    TemporaryFolder folder;

    SmallData() {
        places("7\tX\tX\t1.5\t-2.25\tTR\t01\tEurope/Istanbul\t5\t6\n");
        test::writeFile(folder, "places_extra.tsv.gz", header + "\tY\tY\t1\t2\tTR\t01\tEurope/Istanbul\t\t\n");
        test::writeFile(folder, "regions.tsv", "country\tadmin1\tname\nTR\t01\tAdana\n");
        test::writeFile(folder, "countries.tsv", "country\ten\ttr\nTR\tTurkey\tTürkiye\n");
        test::writeFile(folder, "zones.tsv", "zone\tstd\tposix\tdst\nEurope/Istanbul\t3\t<+03>-3\t0\n");
        test::writeFile(folder, "zone_changes.tsv",
                        "zone\tmoment\toffset\tsummer\nEurope/Istanbul\t2026-01-01T00:00:00Z\t7200\t0\n");
        test::writeFile(folder, "former_names.tsv", "id\tname\tascii\n7\tZ\tZ\n");
        test::writeFile(folder, "other_names.tsv", "country\tplace\tother\nTR\tX\tW\n");
        test::writeFile(folder, "native_names.tsv", "country\tplace\tother\nTR\tX\tЖ\n");
        test::writeFile(folder, "alternate_names.tsv.gz", "id\tname\n7\tЖ\n7\tЩ\n");
        test::writeFile(folder, "zone_aliases.tsv", "alias\tzone\nTurkey\tEurope/Istanbul\n");
        test::writeFile(folder, "edition.tsv", "key\tvalue\nplaces\ttest\n");
    }

    void places(const std::string& rows) { test::writeFile(folder, "places.tsv.gz", header + rows); }

    std::string complaint() const {
        try {
            readSourceData(folder.path());
            return "none";
        } catch (const std::runtime_error& error) {
            return error.what();
        }
    }

    const std::string header = "id\tname\tascii\tlat\tlon\tcountry\tadmin1\tzone\tpopulation\televation\n";
};

TEST_F(SmallData, IsRead) {
    const SourceData data = readSourceData(folder.path());
    ASSERT_EQ(data.places.size(), 2U);
    EXPECT_EQ(data.places[0].id, 7);
    EXPECT_EQ(data.places[0].latitude, 150000);
    EXPECT_EQ(data.places[0].longitude, -225000);
    EXPECT_EQ(data.places[0].population, 5);
    EXPECT_EQ(data.places[0].elevation, 6);
    EXPECT_EQ(data.places[1].id, derivedId("TR", "Y", "1", "2"));
    EXPECT_EQ(data.places[1].population, 0);
    EXPECT_FALSE(data.places[1].elevation);
    ASSERT_EQ(data.otherNames.size(), 4U);
    EXPECT_EQ(data.otherNames[0].name, "W");
    EXPECT_EQ(data.otherNames[1].name, "Z");
    EXPECT_EQ(data.otherNames[2].name, "Ж");
    EXPECT_EQ(data.otherNames[3].name, "Щ");
    EXPECT_EQ(data.zoneClocks.at("Europe/Istanbul"), "1767225600 7200 0;<+03>-3");
}

TEST_F(SmallData, MustNotContradictItself) {
    const std::pair<const char*, const char*> cases[] = {
        {"7\tX\tX\t91\t2\tTR\t01\tEurope/Istanbul\t\t\n", "the coordinate 91 is too large"},
        {"7\tX\tX\t1.123456\t2\tTR\t01\tEurope/Istanbul\t\t\n", "more than five decimals"},
        {"7\tX\tX\tnorth\t2\tTR\t01\tEurope/Istanbul\t\t\n", "not a whole number"},
        {"7\tX\tX\t1\t2\tQQ\t01\tEurope/Istanbul\t\t\n", "no country has the code QQ"},
        {"7\tX\tX\t1\t2\tTR\t99\tEurope/Istanbul\t\t\n", "no region of TR has the code 99"},
        {"7\tX\tX\t1\t2\tTR\t01\tEurope/Nowhere\t\t\n", "no zone is called Europe/Nowhere"},
        {"7\tX\tX\t1\t2\tTR\t01\tEurope/Istanbul\t\t\n7\tV\tV\t1\t2\tTR\t01\tEurope/Istanbul\t\t\n",
         "two places have the id 7"},
    };
    for (const auto& [row, expected] : cases) {
        places(row);
        EXPECT_NE(complaint().find(expected), std::string::npos) << complaint();
    }
}

TEST_F(SmallData, OtherNamesMustBelongToAPlace) {
    test::writeFile(folder, "other_names.tsv", "country\tplace\tother\nTR\tMissing\tW\n");
    EXPECT_NE(complaint().find("no place of TR is called Missing"), std::string::npos) << complaint();
}

TEST_F(SmallData, ZoneColumnsMustAgree) {
    test::writeFile(folder, "zones.tsv", "zone\tstd\tposix\tdst\nEurope/Istanbul\t2\t<+03>-3\t0\n");
    EXPECT_NE(complaint().find("contradict"), std::string::npos) << complaint();
}

TEST(Builder, SaysWhatIsWrongAndLeavesNoHalfDatabase) {
    const TemporaryFolder folder;
    const std::string command =
        std::string(QUODE_BUILD_CITIES) + " " + folder.path().string() + " " + (folder.path() / "out.sqlite").string();
    EXPECT_NE(run(command), 0);
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "out.sqlite"));
    EXPECT_NE(run(QUODE_BUILD_CITIES), 0);
}

}  // namespace
}  // namespace quode::places
