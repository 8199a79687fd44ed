// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Two thousand damaged files: each is imported rightly or refused with a message, and no wrong time comes through.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <random>

#include "timetables/import.h"
#include "timetables_support.h"

namespace quode::timetables {
namespace {

using Random = std::mt19937;

std::size_t anywhere(const std::string& text, Random& random) {
    return text.empty() ? 0 : random() % text.size();
}

/// Positions of a character.
std::vector<std::size_t> positionsOf(const std::string& text, char wanted) {
    std::vector<std::size_t> positions;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == wanted) positions.push_back(i);
    }
    return positions;
}

std::string truncated(std::string text, Random& random) {
    return text.substr(0, anywhere(text, random));
}

std::string withByteReplaced(std::string text, Random& random) {
    text[anywhere(text, random)] = char(random() % 256);
    return text;
}

std::string withByteRemoved(std::string text, Random& random) {
    return text.erase(anywhere(text, random), 1);
}

std::string withByteDoubled(std::string text, Random& random) {
    const std::size_t at = anywhere(text, random);
    return text.insert(at, 1, text[at]);
}

std::string withLineRemoved(std::string text, Random& random) {
    const auto ends = positionsOf(text, '\n');
    const std::size_t i = 1 + random() % (ends.size() - 1);
    return text.erase(ends[i - 1], ends[i] - ends[i - 1]);
}

std::string withLineRepeated(std::string text, Random& random) {
    const auto ends = positionsOf(text, '\n');
    const std::size_t i = 1 + random() % (ends.size() - 1);
    return text.insert(ends[i], text.substr(ends[i - 1], ends[i] - ends[i - 1]));
}

std::string withCellEmptied(std::string text, Random& random) {
    const auto commas = positionsOf(text, ',');
    const std::size_t at = commas[random() % commas.size()] + 1;
    return text.erase(at, text.find_first_of(",\n", at) - at);
}

std::string withCellsSwapped(std::string text, Random& random) {
    const auto commas = positionsOf(text, ',');
    const std::size_t i = random() % (commas.size() - 1);
    const std::size_t a = commas[i] + 1, b = commas[i + 1] + 1;
    const std::string first = text.substr(a, text.find_first_of(",\n", a) - a);
    const std::string second = text.substr(b, text.find_first_of(",\n", b) - b);
    text.replace(b, second.size(), first);
    return text.replace(a, first.size(), second);
}

std::string withSeparatorsMixed(std::string text, Random& random) {
    const auto commas = positionsOf(text, ',');
    text[commas[random() % commas.size()]] = ";|\t."[random() % 4];
    return text;
}

std::string withHourShifted(std::string text, Random& random) {
    const auto colons = positionsOf(text, ':');
    char& tens = text[colons[random() % colons.size()] - 2];
    tens = tens == '1' ? '0' : '1';
    return text;
}

std::string withQuoteOpened(std::string text, Random& random) {
    return text.insert(anywhere(text, random), 1, '"');
}

/// A time of some neighbouring days, all wrong by the same minutes.
std::string withDaysShifted(std::string text, Random& random) {
    constexpr int header = 1, shortest = 2, longest = 7, smallest = 10, largest = 40;
    const auto ends = positionsOf(text, '\n');
    const std::size_t count = shortest + random() % (longest - shortest + 1);
    const std::size_t first = header + random() % (ends.size() - header - count + 1), prayer = random() % 6;
    const int minutes = (smallest + int(random() % (largest - smallest + 1))) * (random() % 2 == 0 ? 1 : -1);
    for (std::size_t line = first; line < first + count; ++line) {
        std::size_t at = ends[line - 1];
        for (std::size_t i = 0; i <= prayer; ++i) at = text.find(',', at) + 1;
        const int time = std::stoi(text.substr(at, 2)) * 60 + std::stoi(text.substr(at + 3, 2)) + minutes + 1440;
        text.replace(at, 5, fmt::format("{:02}:{:02}", time / 60 % 24, time % 60));
    }
    return text;
}

std::string asSixteenBits(std::string text, Random&) {
    std::string wide = "\xff\xfe";
    for (const char c : text) wide.append(1, c).append(1, '\0');
    return wide;
}

/// Times that the file still holds in whole, whatever else happened: what may come through for a day.
class DamagedFiles : public testing::Test {
  protected:
    void checkAll(const Timetable& right, SunCheck& check, unsigned seed, int count) {
        const std::vector<std::function<std::string(std::string, Random&)>> damages = {
            truncated,       withByteReplaced, withByteRemoved,     withByteDoubled, withLineRemoved, withLineRepeated,
            withCellEmptied, withCellsSwapped, withSeparatorsMixed, withHourShifted, withQuoteOpened, asSixteenBits};
        Random random(seed);
        const std::string whole = csvOf(right);
        for (int i = 0; i < count; ++i) {
            std::string content = whole;
            const int times = 1 + int(random() % 2);
            for (int j = 0; j < times && content.size() > 200; ++j)
                content = damages[random() % damages.size()](content, random);
            checkFile(content, right, check);
            if (HasFailure()) return;
        }
    }

    /// Each file has some neighbouring days that are wrong together.
    void checkShiftedDays(const Timetable& right, SunCheck& check, unsigned seed, int count) {
        Random random(seed);
        const std::string whole = csvOf(right);
        for (int i = 0; i < count && !HasFailure(); ++i) checkFile(withDaysShifted(whole, random), right, check);
    }

    int imported = 0, refused = 0;

  private:
    void checkFile(const std::string& content, const Timetable& right, SunCheck& check) {
        try {
            const Import import = importTable(readRawTable(content, istanbul().clock()), {}, check);
            for (const ImportProblem& problem : import.problems) {
                EXPECT_GT(problem.line, 0);
                EXPECT_FALSE(problem.text.empty());
            }
            if (!import.problems.empty()) {  // nothing is stored of such a file
                ++refused;
                return;
            }
            ++imported;
            for (const auto& [day, row] : import.table.rows) checkRow(day, row, right, content);
        } catch (const ImportError& error) {
            ++refused;
            EXPECT_GT(std::string(error.what()).size(), 20U);
        }
    }

    // A minute or two cannot be told from the rounding of the table itself.
    static void checkRow(int day, const TimetableRow& row, const Timetable& right, const std::string& content) {
        constexpr int undetectable = 2;
        const auto known = right.rows.find(day);
        ASSERT_NE(known, right.rows.end()) << content;
        for (std::size_t i = 0; i < row.minutes.size(); ++i) {
            if (!row.minutes[i]) continue;
            EXPECT_LE(std::abs(*row.minutes[i] - *known->second.minutes[i]), undetectable) << content;
        }
    }
};

TEST_F(DamagedFiles, giveRightTimesOrAMessage) {
    SunCheck check(istanbul());
    checkAll(tableBy("diyanet", 2026, 3), check, 1, 1000);
    checkAll(tableBy("mwl", 2026, 6), check, 2, 1000);
    EXPECT_EQ(imported + refused, 2000);
    EXPECT_GT(imported, 100);
    EXPECT_GT(refused, 1000);
}

TEST_F(DamagedFiles, areRefusedForNeighbouringDaysThatAreWrongTogether) {
    SunCheck check(istanbul());
    checkShiftedDays(tableBy("diyanet", 2026, 3), check, 3, 300);
    checkShiftedDays(tableBy("mwl", 2026, 6), check, 4, 300);
    EXPECT_EQ(refused, 600);
}

}  // namespace
}  // namespace quode::timetables
