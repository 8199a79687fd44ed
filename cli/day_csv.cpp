// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "cli/day_csv.h"

#include <fmt/format.h>

#include "app/day_view.h"
#include "app/method_choice.h"
#include "common/civil_date.h"

namespace quode::cli {

using namespace app;

std::vector<std::string> notesOf(const CityDay& day) {
    const PrayTimes& times = day.times;
    std::vector<std::string> notes;
    if (times.isLatitudeChanged) notes.emplace_back("other_latitude");
    for (int code = firstPrayer; code <= lastPrayer; ++code) {
        const auto hours = timeOfPrayer(day, code);
        if (!hours) {
            notes.push_back(prayerKey(code) + "_missing");
            continue;
        }
        if (fallbacksOf(times, code).earlierDay) notes.push_back(prayerKey(code) + "_of_earlier_day");
        if (shownMinute(*hours) >= minutesPerDay) notes.push_back(prayerKey(code) + "_after_midnight");
        // The notes of the engine's own method stay as programs know them.
        if (*hours < 0.0 && !isByEngine(day)) notes.push_back(prayerKey(code) + "_before_midnight");
    }
    for (std::string& note : methodNotes(day)) notes.push_back(std::move(note));
    return notes;
}

std::string csvTimesHead() {
    std::string head;
    for (int code = firstPrayer; code <= lastPrayer; ++code) head.append(prayerKey(code)).append(",");
    return head + "utc_offset,notes";
}

std::string csvTimes(const CityDay& day) {
    std::string line;
    for (int code = firstPrayer; code <= lastPrayer; ++code) {
        const auto hours = timeOfPrayer(day, code);
        if (hours) line += clock24(*hours);
        line += ',';
    }
    return line + fmt::format("{},{}", day.GMTValue, fmt::join(notesOf(day), " "));
}

std::string csvText(std::string_view text) {
    // A spreadsheet would take such a text for a formula; an apostrophe marks it as a text.
    const bool looksLikeFormula =
        !text.empty() && std::string_view("=+-@\t\r").find(text.front()) != std::string_view::npos;
    const std::string safe = (looksLikeFormula ? "'" : "") + std::string(text);
    if (safe.find_first_of(",\"\r\n") == std::string::npos) return safe;
    std::string quoted = "\"";
    for (const char c : safe) quoted.append(c == '"' ? 2 : 1, c);
    return quoted + '"';
}

}  // namespace quode::cli
