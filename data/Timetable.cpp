// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/Timetable.h"

#include <chrono>
#include <vector>

#include "common/civil_date.h"
#include "common/numbers.h"

namespace quode {
namespace {

constexpr int smallestMinute = -minutesPerDay, largestMinute = 2 * minutesPerDay;

std::string minuteText(const std::optional<int>& minute) {
    return minute ? numberText(*minute) : "-";
}

std::string iqamaText(const std::optional<Iqama>& iqama) {
    if (!iqama) return "-";
    std::string text(1, iqama->isFixed ? '=' : '+');
    return text.append(numberText(iqama->minutes));
}

std::vector<std::string_view> wordsOf(std::string_view text) {
    std::vector<std::string_view> words;
    while (!text.empty()) {
        const std::size_t end = text.find(' ');
        if (end != 0) words.push_back(text.substr(0, end));
        if (end == std::string_view::npos) break;
        text.remove_prefix(end + 1);
    }
    return words;
}

/// Reads a minute, or "-" for no value.
/// @return false when the word is neither
bool readMinute(std::string_view word, std::optional<int>& minute) {
    if (word == "-") return true;
    minute = numberOf<int>(word);
    return minute && *minute >= smallestMinute && *minute <= largestMinute;
}

bool readIqama(std::string_view word, std::optional<Iqama>& iqama) {
    if (word == "-") return true;
    if (word.size() < 2 || (word[0] != '=' && word[0] != '+')) return false;
    const std::optional<int> minutes = numberOf<int>(word.substr(1));
    if (minutes) iqama = Iqama{word[0] == '=', *minutes};
    return iqama.has_value();
}

}  // namespace

int dayNumber(const VAKDate& date) {
    using namespace std::chrono;
    const sys_days day =
        year_month_day(year(date.Years), month(unsigned(date.Months)), std::chrono::day(unsigned(date.Days)));
    return int(day.time_since_epoch().count());
}

const TimetableRow* Timetable::rowOf(const VAKDate& date) const {
    const auto found = rows.find(dayNumber(date));
    return found == rows.end() ? nullptr : &found->second;
}

std::string textOf(const TimetableRow& row) {
    std::string text;
    for (const auto& minute : row.minutes) text.append(minuteText(minute)).append(" ");
    text += minuteText(row.asrHanafi);
    for (const auto& iqama : row.iqama) text.append(" ").append(iqamaText(iqama));
    return text;
}

std::optional<TimetableRow> timetableRowOf(std::string_view text) {
    const auto words = wordsOf(text);
    constexpr std::size_t count = mainPrayerCount;
    if (words.size() != 2 * count + 1) return std::nullopt;
    TimetableRow row;
    for (std::size_t i = 0; i < count; ++i) {
        if (!readMinute(words[i], row.minutes[i]) || !readIqama(words[count + 1 + i], row.iqama[i]))
            return std::nullopt;
    }
    if (!readMinute(words[count], row.asrHanafi)) return std::nullopt;
    return row;
}

std::string textOf(const IqamaRules& rules) {
    std::string text;
    for (const auto& iqama : rules) text.append(text.empty() ? "" : " ").append(iqamaText(iqama));
    return text;
}

std::optional<IqamaRules> iqamaRulesOf(std::string_view text) {
    const auto words = wordsOf(text);
    IqamaRules rules;
    if (words.size() != rules.size()) return std::nullopt;
    for (std::size_t i = 0; i < rules.size(); ++i) {
        if (!readIqama(words[i], rules[i])) return std::nullopt;
    }
    return rules;
}

}  // namespace quode
