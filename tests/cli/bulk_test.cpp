// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode bulk.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <span>

#include "program.h"

namespace quode::test {
namespace {

/// What stands behind some commas of a line.
std::string behindCommas(const std::string& line, int count) {
    std::size_t at = 0;
    for (int i = 0; i < count; ++i) at = line.find(',', at) + 1;
    return line.substr(at);
}

TEST(Bulk, HasTheTimesOfTheTimetable) {
    const auto bulk =
        Program().run({"bulk", "--cities", "3143244", "--date", "2026-06-01", "--to", "2026-06-30"}).lines();
    const auto month = Program().run({"month", "2026-06", "--city", "3143244", "--format", "csv"}).lines();
    ASSERT_EQ(bulk.size(), 31U);
    ASSERT_EQ(month.size(), 31U);
    for (std::size_t i = 0; i < bulk.size(); ++i) EXPECT_EQ(behindCommas(bulk[i], 5), behindCommas(month[i], 3));
    EXPECT_TRUE(bulk[1].starts_with("3143244,Oslo,Oslo,NO,2026-06-01,")) << bulk[1];
}

TEST(Bulk, ComputesByTheMethodOfTheCall) {
    const auto bulk = Program().run(
        {"bulk", "--cities", "745044", "--date", "2026-06-01", "--to", "2026-06-30", "--method", "diyanet"});
    const auto month =
        Program().run({"month", "2026-06", "--city", "745044", "--method", "diyanet", "--format", "csv"});
    ASSERT_EQ(bulk.lines().size(), 31U) << bulk.err;
    for (std::size_t i = 0; i < 31; ++i) {
        EXPECT_EQ(behindCommas(bulk.lines()[i], 5), behindCommas(month.lines()[i], 3));
    }
}

TEST(Bulk, LeavesTheMethodsOfSingleCitiesAside) {
    const Program program;
    const std::vector<std::string> bulk{"bulk", "--cities", "745044", "--date", "2026-06-01"};
    const std::string before = program.run(bulk).out;
    ASSERT_EQ(program.run({"method", "set", "diyanet", "--city", "745044"}).code, 0);
    EXPECT_EQ(program.run(bulk).out, before);
}

TEST(Bulk, TakesCountriesAndIdsAndTheLargest) {
    const auto lines = Program().run({"bulk", "--cities", "km,745044", "--format", "csv"}).lines();
    ASSERT_GT(lines.size(), 10U);
    const auto isIn = [](const char* country) {
        return [country](const std::string& line) {
            return line.find(std::string(",") + country + ",2026-11-21,") != std::string::npos;
        };
    };
    EXPECT_EQ(std::count_if(lines.begin(), lines.end(), isIn("TR")), 1);
    EXPECT_EQ(std::count_if(lines.begin(), lines.end(), isIn("KM")), static_cast<long>(lines.size()) - 2);
    const auto two = Program().run({"bulk", "--cities", "KM,745044", "--largest", "2"}).lines();
    ASSERT_EQ(two.size(), 3U);
    EXPECT_TRUE(two[1].starts_with("745044,Istanbul,")) << two[1];
    EXPECT_TRUE(two[2].starts_with("921772,Moroni,")) << two[2];
}

TEST(Bulk, HasPlacesOfTheSameSizeInTheOrderOfTheirNumbers) {
    const auto all = Program().run({"bulk", "--cities", "KM", "--largest", "100000"}).lines();
    const auto some = Program().run({"bulk", "--cities", "KM", "--largest", "40"}).lines();
    ASSERT_EQ(some.size(), 41U);
    ASSERT_GT(all.size(), 90U);
    EXPECT_TRUE(std::equal(some.begin(), some.end(), all.begin()));
    // Of the last places no size is known.
    const auto id = [](const std::string& line) { return std::stol(line.substr(0, line.find(','))); };
    const auto last = std::span(all).last(4);
    EXPECT_TRUE(std::ranges::is_sorted(last, {}, id));
}

TEST(Bulk, OfAllPlacesHasEachOnce) {
    const auto lines = Program().run({"bulk", "--date", "2026-03-28"}).lines();
    EXPECT_GT(lines.size(), 170000U);
    std::set<std::string> ids;
    for (const std::string& line : lines) ids.insert(line.substr(0, line.find(',')));
    EXPECT_EQ(ids.size(), lines.size());
}

TEST(Bulk, SaysWhatIsWrong) {
    const auto expect = [](const std::vector<std::string>& arguments, int code, const std::string& message) {
        const Outcome run = Program().run(arguments);
        EXPECT_EQ(run.code, code) << message;
        EXPECT_NE(run.err.find(message), std::string::npos) << run.err;
        EXPECT_EQ(run.out, "");
    };
    expect({"bulk", "--cities", "Oslo"}, 2, "neither");
    expect({"bulk", "--cities", "XX"}, 1, "No place");
    expect({"bulk", "--cities", "745044,99999999"}, 1, "99999999");
    expect({"bulk", "--cities", "TR,qq"}, 1, "QQ");
    expect({"bulk", "--largest", "0"}, 2, "--largest");
    expect({"bulk", "--date", "2026-02-02", "--to", "2026-02-01"}, 2, "before");
    expect({"bulk", "--date", "2026-01-01", "--to", "2026-12-31"}, 2, "fewer");
    expect({"bulk", "--format", "json"}, 2, "--format");
    expect({"bulk", "--json"}, 2, "CSV");
    expect({"bulk", "--method", "nobody"}, 1, "nobody");
    expect({"bulk", "--method", "diyanet", "--height", "-5"}, 2, "height");
}

}  // namespace
}  // namespace quode::test
