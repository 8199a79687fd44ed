// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "published_rows.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include "conventions/JakimZones.h"

namespace quode::conventions {
namespace {

std::vector<std::string> fieldsOf(const std::string& line) {
    std::vector<std::string> fields(1);
    bool isQuoted = false;
    for (const char c : line) {
        if (c == '"') {
            isQuoted = !isQuoted;
        } else if (c == ',' && !isQuoted) {
            fields.emplace_back();
        } else {
            fields.back() += c;
        }
    }
    return fields;
}

std::optional<int> minuteOf(const std::string& text) {
    if (text.empty()) return std::nullopt;
    return std::stoi(text) * 60 + std::stoi(text.substr(text.find(':') + 1));
}

/// Standard offset of the zones in the rows, and whether they have European summer time.
struct Clock {
    double offset;
    bool isEuropean;
};
const std::map<std::string, Clock> clocks = {
    {"Europe/Istanbul", {3, false}}, {"Europe/Stockholm", {1, true}}, {"Asia/Kuala_Lumpur", {8, false}},
    {"Asia/Singapore", {8, false}},  {"Asia/Qatar", {3, false}},      {"Asia/Colombo", {5.5, false}},
    {"Europe/Sarajevo", {1, true}},  {"Asia/Jakarta", {7, false}},    {"Asia/Makassar", {8, false}},
    {"Africa/Tunis", {1, false}},    {"Africa/Algiers", {1, false}},  {"Etc/UTC", {0, false}},
    {"Asia/Riyadh", {3, false}},     {"Asia/Dubai", {4, false}},      {"Asia/Kuwait", {3, false}},
    {"Europe/London", {0, true}},
};

/// The last Sunday of March or October, the 31st at the latest.
int lastSunday(int year, int month) {
    using namespace std::chrono;
    return int(unsigned(
        year_month_day(sys_days(std::chrono::year(year) / std::chrono::month(unsigned(month)) / Sunday[last])).day()));
}

bool isEuropeanSummer(int year, int month, int day) {
    if (month == 3) return day >= lastSunday(year, 3);
    if (month == 10) return day < lastSunday(year, 10);
    return month > 3 && month < 10;
}

/// Heights of the Tunisian places in metres, from a terrain model.
double heightOf(const std::string& place) {
    return place == "Gafsa" ? 295.0 : place == "Tunis" ? 23.0 : 0.0;
}

}  // namespace

std::vector<PublishedRow> readPublishedRows(const std::string& file) {
    std::ifstream stream(file);
    std::string line;
    if (!std::getline(stream, line)) throw std::runtime_error("cannot read " + file);
    std::vector<PublishedRow> rows;
    while (std::getline(stream, line)) {
        const auto f = fieldsOf(line);
        PublishedRow row;
        row.authority = f.at(0), row.place = f.at(1), row.zone = f.at(4), row.date = f.at(5), row.source = f.at(13);
        row.latitude = std::stod(f[2]);
        row.longitude = std::stod(f[3]);
        row.year = std::stoi(f[5]);
        row.month = std::stoi(f[5].substr(5));
        row.day = std::stoi(f[5].substr(8));
        row.minutes = {minuteOf(f[6]), minuteOf(f[7]),  minuteOf(f[8]),
                       minuteOf(f[9]), minuteOf(f[11]), minuteOf(f[12])};
        row.asrHanafi = minuteOf(f[10]);
        rows.push_back(row);
    }
    return rows;
}

void Agreement::add(int difference) {
    const int off = std::abs(difference);
    ++rows;
    if (off == 0) ++exact;
    if (off <= 1) ++withinOne;
    if (off <= 2) ++withinTwo;
    worst = std::max(worst, off);
}

Request requestOf(const PublishedRow& row) {
    const Clock& clock = clocks.at(row.zone);
    const bool isSummer = clock.isEuropean && isEuropeanSummer(row.year, row.month, row.day);
    return {row.latitude,
            row.longitude,
            heightOf(row.place),
            false,
            row.year,
            row.month,
            row.day,
            clock.offset + (isSummer ? 1.0 : 0.0)};
}

std::vector<PublishedRow> rowsOf(const Convention& convention, const std::vector<PublishedRow>& rows) {
    std::vector<PublishedRow> own;
    const auto framed = [](std::string_view text) { return std::string(1, ';').append(text).append(1, ';'); };
    const std::string names = framed(convention.sampleAuthority);
    std::ranges::copy_if(rows, std::back_inserter(own),
                         [&](const auto& row) { return names.find(framed(row.authority)) != std::string::npos; });
    return own;
}

ConventionAgreement agreementOf(const Convention& convention, const std::vector<PublishedRow>& rows) {
    ConventionAgreement result;
    for (const PublishedRow& row : rows) {
        ++result.rows;
        const ConventionDay day = computeDay(convention, requestOf(row));
        for (std::size_t i = 0; i < mainPrayerCount; ++i) {
            if (!row.minutes[i]) continue;
            const int computed = int(std::lround(day.times[i].hours * 60.0));
            const int half = 720, whole = 1440;
            int difference = (computed - *row.minutes[i]) % whole;
            if (difference > half) difference -= whole;
            if (difference < -half) difference += whole;
            result.prayers[i].add(difference);
        }
        if (row.asrHanafi && !row.minutes[3]) {
            result.prayers[3].add(int(std::lround(day.asrHanafi.hours * 60.0)) - *row.asrHanafi);
        }
    }
    return result;
}

}  // namespace quode::conventions
