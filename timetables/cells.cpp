// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "timetables/cells.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "common/numbers.h"
#include "timetables/columns.h"

namespace quode::timetables {
namespace {

using Half = ClockTime::Half;

struct HalfName {
    std::string_view name;
    Half half;
};

constexpr HalfName halves[] = {
    {"am", Half::morning},    {"a m", Half::morning},    {"oo", Half::morning},    {"ص", Half::morning},
    {"صباحا", Half::morning}, {"pm", Half::afternoon},   {"p m", Half::afternoon}, {"os", Half::afternoon},
    {"م", Half::afternoon},   {"مساء", Half::afternoon}, {"ptg", Half::afternoon}, {"pg", Half::morning},
};

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Splits a plain text into numbers and words.
std::vector<std::string> partsOf(const std::string& plain) {
    std::vector<std::string> parts;
    bool wasDigit = false;
    for (const char c : plain) {
        const bool digit = isDigit(c);
        if (c == ' ') {
            wasDigit = false;
            parts.emplace_back();
        } else {
            if (parts.empty() || (!parts.back().empty() && digit != wasDigit)) parts.emplace_back();
            parts.back() += c;
            wasDigit = digit;
        }
    }
    std::erase(parts, std::string());
    return parts;
}

bool isNumber(const std::string& part) {
    return !part.empty() && std::ranges::all_of(part, isDigit);
}

/// Takes what says which half of the day is meant off the end.
/// @return false when words are left that say nothing
bool takeHalf(std::vector<std::string>& parts, Half& half) {
    std::string words;
    while (!parts.empty() && !isNumber(parts.back())) {
        words = words.empty() ? parts.back() : parts.back() + " " + words;
        parts.pop_back();
    }
    if (words.empty()) return true;
    const auto* found = std::ranges::find(halves, words, &HalfName::name);
    if (found == std::end(halves)) return false;
    half = found->half;
    return true;
}

/// A date before the time, as in "2026-01-05T05:12", is cut off.
std::string_view timePart(std::string_view text) {
    const std::size_t t = text.find('T');
    if (t == 10 && text.size() > 4 && text[4] == '-') return text.substr(11);
    return text;
}

}  // namespace

std::optional<ClockTime> clockTimeOf(std::string_view text) {
    text = timePart(trimmed(text));
    if (text.size() > 24 || text.find('-') != std::string_view::npos || text.find('+') != std::string_view::npos) {
        return std::nullopt;
    }
    auto parts = partsOf(plainText(text));
    ClockTime time;
    if (!takeHalf(parts, time.half)) return std::nullopt;
    std::erase(parts, "h");
    if (parts.size() == 1 && parts[0].size() == 4 && isNumber(parts[0])) {
        parts = {parts[0].substr(0, 2), parts[0].substr(2)};
    }
    const bool hasSeconds = parts.size() == 3;
    if ((parts.size() != 2 && !hasSeconds) || !std::ranges::all_of(parts, isNumber)) return std::nullopt;
    if (parts[0].size() > 2 || parts[1].size() != 2) return std::nullopt;
    if (hasSeconds && parts[2].size() != 2) return std::nullopt;
    if (hasSeconds) time.second = leadingNumber<int>(parts[2]);
    time.hour = leadingNumber<int>(parts[0]);
    time.minute = leadingNumber<int>(parts[1]);
    const bool isTwelveHour = time.half != Half::unknown;
    if (time.second > 59 || time.minute > 59 || time.hour > 24) return std::nullopt;
    if (time.hour == 24 && time.minute + time.second > 0) return std::nullopt;
    if (isTwelveHour && (time.hour < 1 || time.hour > 12)) return std::nullopt;
    return time;
}

std::optional<WrittenDate> writtenDateOf(std::string_view text) {
    if (text.size() > 60) return std::nullopt;
    auto parts = partsOf(plainText(text));
    WrittenDate date;
    std::vector<int> numbers;
    bool hasClock = text.find(':') != std::string_view::npos;
    if (hasClock) return std::nullopt;
    int nameAt = -1;
    for (const std::string& part : parts) {
        if (isNumber(part)) {
            if (part.size() == 3) return std::nullopt;  // a year that has lost a digit
            if (part.size() > 4 && !(part.size() == 8 && parts.size() == 1)) return std::nullopt;
            numbers.push_back(leadingNumber<int>(part));
        } else if (const auto month = monthNamed(part)) {
            if (nameAt >= 0) return std::nullopt;
            nameAt = int(numbers.size());
            numbers.push_back(*month);
        } else if (!numbers.empty()) {
            return std::nullopt;  // words are understood before the date only, as weekdays are
        }
    }
    if (numbers.size() == 1 && numbers[0] >= 10000000) {
        const int whole = numbers[0];
        return WrittenDate{whole / 10000, whole / 100 % 100, whole % 100, true, false};
    }
    if (numbers.size() < 2 || numbers.size() > 3) return std::nullopt;
    date = {numbers[0], numbers[1], numbers.size() == 3 ? numbers[2] : -1, numbers[0] > 31, nameAt == 1};
    if (nameAt == 0) {  // "January 5, 2026"
        std::swap(date.first, date.second);
        date.monthIsNamed = true;
    }
    if (nameAt == 2 || (date.yearIsFirst && date.third < 0)) return std::nullopt;
    return date;
}

}  // namespace quode::timetables
