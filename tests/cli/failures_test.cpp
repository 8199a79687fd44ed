// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Bad input and a damaged installation: a message that says what to do, and the documented exit code.
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <unistd.h>

#include <fstream>
#include <nlohmann/json.hpp>

#include "program.h"

namespace quode::test {
namespace {

namespace fs = std::filesystem;

void expectFailure(const std::vector<std::string>& arguments, int code, const std::string& message) {
    const Outcome run = Program().run(arguments);
    EXPECT_EQ(run.code, code) << run.err;
    EXPECT_EQ(run.out, "");
    EXPECT_TRUE(run.err.starts_with("quode: ")) << run.err;
    EXPECT_NE(run.err.find(message), std::string::npos) << run.err;
}

TEST(Failures, OfUnknownCitiesComeWithSuggestions) {
    expectFailure({"--city", "Istambul"}, 1, "No city is called \"Istambul\". Did you mean");
    expectFailure({"--city", "Istambul"}, 1, "745044");
    expectFailure({"--city", "Xqzvwk"}, 1, "No city is called");
    expectFailure({"--city", "999999999"}, 1, "No city has the id");
    expectFailure({"city", "search", "Xqzvwk"}, 1, "No city is called");
}

TEST(Failures, OfImpossiblePlaces) {
    expectFailure({"--city", "91,0"}, 2, "Latitude 91 is out of range (-90 to 90)");
    expectFailure({"--city", "-90.5,0"}, 2, "Latitude -90.5 is out of range");
    expectFailure({"city", "show", "10,181"}, 2, "Longitude 181 is out of range");
    expectFailure({"--city", ""}, 2, "The name of the city is empty.");
    expectFailure({"city", "search", ""}, 2, "The name of the city is empty.");
    expectFailure({"city", "search", " "}, 2, "The name of the city is empty.");
    expectFailure({"--city", "nan,0"}, 2, "Latitude \"nan\" is not a number. Write LATITUDE,LONGITUDE");
    expectFailure({"--city", "41.0, east"}, 2, "Longitude \"east\" is not a number.");
    expectFailure({"--city", "Nowhere, Land"}, 1, "No city is called \"Nowhere, Land\"");
}

TEST(Failures, OfImpossibleDates) {
    expectFailure({"--date", "2026-02-30"}, 2, "2026-02 has 28 days");
    expectFailure({"--date", "tomorrow"}, 2, "YYYY-MM-DD");
    expectFailure({"--date", "10000-01-01"}, 2, "out of range (1–9999)");
    expectFailure({"month", "2026-13"}, 2, "Month 13 is out of range");
    expectFailure({"year", "0"}, 2, "out of range (1–9999)");
    expectFailure({"hijri", "1582-10-10"}, 2, "1582-10-15");
    expectFailure({"hijri", "2008-11-28"}, 1, "2008-11-29");
    expectFailure({"hijri", "--to-gregorian", "1445-12-29"}, 2, "28 days");
    expectFailure({"hijri", "--to-gregorian", "1471-01-01"}, 1, "(1429-12-01 to 1470-12-30)");
    EXPECT_EQ(Program().run({"hijri", "--to-gregorian", "1470-12-30"}).code, 0);
}

TEST(Failures, OfTheCommandLine) {
    expectFailure({"prayers"}, 2, "does not know \"prayers\". Try: quode --help");
    expectFailure({"month", "--fromat", "csv"}, 2, "quode month does not know \"--fromat\"");
    expectFailure({"month", "--format", "xml"}, 2, "table, csv, json");
    expectFailure({"--lang", "es"}, 2, "ar, de, en");
    expectFailure({"city"}, 2, "quode city --help");
    expectFailure({"city", "search"}, 2, "quode city search needs TEXT. Try: quode city search --help");
    expectFailure({"today", "--city"}, 2, "--city needs a value: --city NAME|ID|LAT,LON. Try: quode today --help");
    expectFailure({"today", "--city", "Rome", "--city", "Bern"}, 2, "--city was given more than once.");
    expectFailure({"today", "--citty", "Rome"}, 2, "does not know \"--citty\". Did you mean \"--city\"?");
    expectFailure({"month", "--formt=csv"}, 2, "Did you mean \"--format\"?");
    expectFailure({"--city"}, 2, "--city");
    expectFailure({"--date", "2026-01-01", "month"}, 2, "quode month has no option --date");
    expectFailure({"city", "search", "Ankara", "--limit", "0"}, 2, "--limit");
    expectFailure({"--city", "\xff\xfe"}, 2, "\\xff\\xfe");
}

TEST(Failures, OfTheEnvironment) {
    EXPECT_EQ(Program().with("QUODE_NOW", "soon").run({}).code, 2);
    EXPECT_EQ(Program().with("QUODE_LANG", "es").run({}).code, 2);
    const Outcome city = Program().with("QUODE_CITY", "Xqzvwk").run({});
    EXPECT_EQ(city.code, 1);
    EXPECT_NE(city.err.find("QUODE_CITY"), std::string::npos) << city.err;
}

TEST(Failures, OfAMissingCityDatabase) {
    Program program;
    program.with("QUODE_BUNDLE_DIR", (program.folder() / "nowhere").string());
    const Outcome run = program.run({});
    EXPECT_EQ(run.code, 3);
    EXPECT_EQ(run.out, "");
    EXPECT_NE(run.err.find("cities.sqlite"), std::string::npos) << run.err;
    EXPECT_NE(run.err.find("Install Quode again"), std::string::npos) << run.err;
    EXPECT_FALSE(fs::exists(program.folder() / "nowhere"));
    EXPECT_EQ(program.run({"--version"}).code, 0);
    EXPECT_EQ(program.run({"hijri", "2026-01-01", "--json"}).code, 3) << "the names of the months are missing";
}

TEST(Failures, OfADamagedCityDatabase) {
    Program program;
    const fs::path file = program.copyBundle() / "database" / "cities.sqlite";
    fs::resize_file(file, fs::file_size(file) / 2);
    for (const std::vector<std::string>& words : {std::vector<std::string>{}, {"city", "search", "Ankara"}, {"next"}}) {
        const Outcome run = program.run(words);
        EXPECT_EQ(run.code, 3) << run.out << run.err;
        EXPECT_NE(run.err.find("damaged"), std::string::npos) << run.err;
    }
    std::ofstream(file) << "not a database";
    EXPECT_EQ(program.run({}).code, 3);
}

TEST(Failures, OfADamagedNameOfACityAreNotAnotherCity) {
    Program program;
    const fs::path file = program.copyBundle() / "database" / "cities.sqlite";
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database, "UPDATE CITY_NAME SET FOLDED = 'londom' WHERE FOLDED = 'london' AND ID = 2643743",
                           nullptr, nullptr, nullptr),
              SQLITE_OK);
    sqlite3_close(database);
    const Outcome run = program.run({"--city", "London"});
    EXPECT_EQ(run.code, 3) << run.out;
    EXPECT_EQ(run.out, "");
    EXPECT_NE(run.err.find("damaged: a part of it has a wrong checksum. Install Quode again"), std::string::npos)
        << run.err;
    EXPECT_NE(program.run({"doctor"}).out.find("wrong checksum"), std::string::npos);
}

TEST(Failures, OfALanguageFileLeaveTheTimesReadable) {
    Program program;
    const fs::path file = program.copyBundle() / "en.lproj" / "en.plist";
    std::ofstream(file) << "<plist><dict>";
    const Outcome damaged = program.run({"--city", "Ankara"});
    EXPECT_EQ(damaged.code, 3);
    EXPECT_NE(damaged.err.find("en.plist"), std::string::npos) << damaged.err;
    const Outcome whole = Program().run({"--city", "Ankara"});
    const auto timeIn = [](const std::string& line) { return line.substr(line.find(':') - 2, 5); };
    EXPECT_EQ(timeIn(damaged.lineWith("Dhuhr")), timeIn(whole.lineWith("Dhuhr")));
    for (const char* label : {"Sun ", "Moon ", "Moon at sunset", "Time zone", "Qibla", "Declination"}) {
        EXPECT_EQ(damaged.lineWith(label), whole.lineWith(label));
    }
    fs::remove(file);
    EXPECT_EQ(program.run({"--city", "Ankara"}).code, 3);
    EXPECT_EQ(program.run({"--city", "Ankara", "--lang", "tr"}).code, 0);
}

TEST(Failures, OfAHomeThatCannotBeWrittenAreReportedOnceAndTimesAreShown) {
    Program program;
    const fs::path file = program.folder() / "file";
    std::ofstream(file) << "";
    program.with("QUODE_DATA_DIR", (file / "below").string());
    const Outcome run = program.run({"--city", "Ankara"});
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(run.out, Program().run({"--city", "Ankara"}).out);
    const std::size_t first = run.err.find("QUODE_DATA_DIR");
    EXPECT_NE(first, std::string::npos) << run.err;
    EXPECT_EQ(run.err.find("QUODE_DATA_DIR", first + 1), std::string::npos) << run.err;
}

TEST(Failures, OfTheOutput) {
    Program program;
    const Outcome full = program.runShell("quode year > /dev/full");
    EXPECT_EQ(full.code, 4);
    EXPECT_NE(full.err.find("cannot be written"), std::string::npos) << full.err;
    const Outcome closed = program.runShell("quode year >&-");
    EXPECT_EQ(closed.code, 4);
    EXPECT_NE(closed.err.find("cannot be written"), std::string::npos) << closed.err;
    const Outcome gone = program.runShell("quode year --json | true; echo ${PIPESTATUS[0]}");
    EXPECT_EQ(gone.out, "4\n") << "a reader who went away";
    EXPECT_EQ(gone.err, "");
    EXPECT_EQ(program.runShell("quode year 2>&- | tail -n 1 > /dev/null").code, 0);
}

}  // namespace
}  // namespace quode::test
