// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>

#include "program.h"
#include "support/file_content.h"

namespace quode::test {
namespace {

using nlohmann::json;

std::vector<std::string> fieldsOf(const std::string& line) {
    std::vector<std::string> fields(1);
    for (const char c : line) {
        if (c == ',') {
            fields.emplace_back();
        } else {
            fields.back() += c;
        }
    }
    return fields;
}

TEST(Timetable, OfAMonthHasARowForEachDay) {
    const Outcome run = Program().run({"month", "2024-02", "--city", "Ankara", "--format", "csv"});
    const auto lines = run.lines();
    ASSERT_EQ(lines.size(), 30u);
    EXPECT_EQ(lines[0],
              "date,weekday,hijri,fajr,sunrise,dhuhr,asr,maghrib,isha,ishraq,asr_hanafi,isfirar,utc_offset,notes");
    EXPECT_TRUE(lines[29].starts_with("2024-02-29,4,1445-08-19,")) << lines[29];
    for (const std::string& line : lines) EXPECT_EQ(fieldsOf(line).size(), 14u) << line;
}

TEST(Timetable, OfAYearHoldsItsMonths) {
    const auto year = Program().run({"year", "2026", "--city", "Oslo", "--format", "csv"}).lines();
    const auto june = Program().run({"month", "2026-06", "--city", "Oslo", "--format", "csv"}).lines();
    EXPECT_EQ(year.size(), 366u);
    EXPECT_NE(std::search(year.begin(), year.end(), june.begin() + 1, june.end()), year.end());
}

TEST(Timetable, HasTheTimesOfTheDayPage) {
    const json month = Program().run({"month", "2026-06", "--city", "Oslo", "--json"}).json();
    const json day = Program().run({"today", "--date", "2026-06-21", "--city", "Oslo", "--json"}).json();
    const json& row = month.at("days")[20];
    EXPECT_EQ(row.at("date"), "2026-06-21");
    for (const json& prayer : day.at("prayers")) {
        const json& cell = row.at("prayers").at(prayer.at("key").get<std::string>());
        EXPECT_EQ(cell.at("hours"), prayer.at("hours"));
        EXPECT_EQ(cell.at("time"), prayer.at("time"));
    }
    EXPECT_EQ(row.at("notes"), json({"fajr_of_earlier_day", "isha_of_earlier_day", "isha_after_midnight"}));
}

TEST(Timetable, LeavesAMissingTimeEmpty) {
    const auto lines = Program().run({"month", "2026-12", "--city", "Tromsø", "--format", "csv"}).lines();
    const auto fields = fieldsOf(lines[21]);
    EXPECT_EQ(fields[0], "2026-12-21");
    EXPECT_EQ(fields[9], "");
    EXPECT_NE(fields[13].find("other_latitude"), std::string::npos);
}

TEST(Timetable, NamesTheDayOfTheClockChange) {
    const Outcome run = Program().run({"month", "2026-03", "--city", "London"});
    EXPECT_NE(run.out.find("clocks go forward on 29 March 2026"), std::string::npos) << run.out;
    EXPECT_EQ(Program().run({"month", "2026-04", "--city", "London"}).out.find("clocks go"), std::string::npos);
}

TEST(Timetable, KeepsItsTimesBelowEachOther) {
    for (const char* locale : {"en_GB.UTF-8", "en_US.UTF-8", "tr_TR.UTF-8", "fr_FR.UTF-8", "de_DE.UTF-8"}) {
        for (const char* city : {"Ankara", "Tromsø"}) {
            Program program;
            const Outcome run = program.with("LC_ALL", locale).run({"month", "2026-06", "--city", city});
            std::set<int> columns;
            int rows = 0;
            for (const std::string& line : run.lines()) {
                EXPECT_LE(widthOf(line), 80) << line;
                const std::size_t colon = line.find(':');
                const bool isRow = colon != std::string::npos && colon > 1 && std::isdigit(line[colon - 1]) != 0 &&
                                   line.find(':', colon + 1) != std::string::npos;
                if (!isRow) continue;
                ++rows;
                columns.insert(widthOf(line.substr(0, colon)));
            }
            EXPECT_EQ(rows, 30) << run.out;
            EXPECT_EQ(columns.size(), 1u) << run.out;
        }
    }
}

TEST(Timetable, ShowsAllNineTimesOnRequest) {
    const std::vector<std::string> words{"month", "2026-06", "--city", "Ankara"};
    EXPECT_EQ(Program().run(words).out.find("Ishraq"), std::string::npos);
    EXPECT_NE(Program().run({"month", "2026-06", "--city", "Ankara", "--all"}).out.find("Ishraq"), std::string::npos);
}

TEST(Timetable, OfAllNineTimesFitsATerminal) {
    for (const char* language : {"tr", "en", "fr", "de"}) {
        for (const char* locale : {"en_GB.UTF-8", "en_US.UTF-8"}) {
            Program program;
            const Outcome run = program.with("LC_ALL", locale)
                                    .run({"month", "2026-06", "--city", "Tromsø", "--all", "--lang", language});
            for (const std::string& line : run.lines()) EXPECT_LE(widthOf(line), 80) << line;
        }
    }
}

TEST(Timetable, OfAllNineTimesHoldsEachDayTwiceWhereItIsBroken) {
    const Outcome run = Program().run({"month", "2026-11", "--city", "Ankara", "--all"});
    const std::vector<std::string> lines = run.lines();
    const auto rows =
        std::count_if(lines.begin(), lines.end(), [](const auto& line) { return line.starts_with("Sat 21"); });
    EXPECT_EQ(rows, 2) << run.out;
    EXPECT_LT(run.out.find("Isha"), run.out.find("Ishraq"));
    const auto whole = Program().run({"--city", "Ankara"});
    const std::string duha = whole.lineWith("Ishraq");
    const std::string time = duha.substr(duha.find(':') - 2, 5);
    const std::string second = run.out.substr(run.out.find("Ishraq"));
    const std::string row = second.substr(second.find("Sat 21"));
    EXPECT_LT(row.find(time), row.find('\n')) << run.out;
}

TEST(Timetable, IsThatOfThePresentWhenNothingElseIsAsked) {
    EXPECT_EQ(Program().run({"month", "--json"}).json().at("days")[0].at("date"), "2026-11-01");
    EXPECT_EQ(Program().run({"year", "--json"}).json().at("days")[0].at("date"), "2026-01-01");
}

TEST(TimetableInAFile, IsWhatIsPrintedOtherwise) {
    const Program program;
    for (const char* format : {"csv", "json", "ics", "html"}) {
        const std::filesystem::path file = program.folder() / format;
        const std::vector<std::string> words{"month", "2026-03", "--city", "London", "--format", format};
        std::vector<std::string> written = words;
        written.insert(written.end(), {"--output", file.string()});
        EXPECT_EQ(program.run(written).out, "Written: " + file.string() + "\n") << format;
        EXPECT_EQ(contentOf(file), program.run(words).out) << format;
    }
}

TEST(TimetableInAFile, IsRefusedForTheTable) {
    const Program program;
    const std::filesystem::path file = program.folder() / "table";
    const Outcome run = program.run({"month", "--output", file.string()});
    EXPECT_EQ(run.code, 2);
    EXPECT_NE(run.err.find("Name a format for the file"), std::string::npos) << run.err;
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST(TimetableInAFile, LeavesAPipeWhatItIs) {
    const Program program;
    const Outcome run =
        program.runShell("cd '" + program.folder().string() +
                         "' && mkfifo pipe && exec 9<>pipe && quode month --format csv --output pipe && "
                         "test -p pipe && head -n 1 <&9");
    EXPECT_EQ(run.code, 0) << run.err;
    EXPECT_NE(run.out.find("Written: pipe\ndate,weekday,hijri"), std::string::npos) << run.out;
}

TEST(TimetableInAFile, DoesNotWaitForTheReaderOfAPipe) {
    const Program program;
    const std::filesystem::path pipe = program.folder() / "pipe";
    const Outcome run =
        program.runShell("mkfifo '" + pipe.string() + "'; quode month --format pdf --output '" + pipe.string() + "'");
    EXPECT_EQ(run.code, 4) << run.err;
    EXPECT_NE(run.err.find("Cannot write to"), std::string::npos) << run.err;
    EXPECT_TRUE(std::filesystem::is_fifo(pipe));
}

}  // namespace
}  // namespace quode::test
