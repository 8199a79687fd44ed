// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Published rows of authorities, and the agreement of a convention with them.
#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "conventions/times.h"

namespace quode::conventions {

/// A row of a published timetable, in minutes of the local clock.
struct PublishedRow {
    std::string authority, place, zone, date, source;
    double latitude = 0.0, longitude = 0.0;
    int year = 0, month = 0, day = 0;
    std::array<std::optional<int>, mainPrayerCount> minutes;
    std::optional<int> asrHanafi;
};

std::vector<PublishedRow> readPublishedRows(const std::string& file);

/// The agreement of one prayer.
struct Agreement {
    int rows = 0, exact = 0, withinOne = 0, withinTwo = 0, worst = 0;
    void add(int difference);
};

struct ConventionAgreement {
    int rows = 0;
    std::array<Agreement, mainPrayerCount> prayers;
};

/// The agreement of a convention with rows. The clock of a row is that of its zone. Heights by name of the place.
ConventionAgreement agreementOf(const Convention& convention, const std::vector<PublishedRow>& rows);

/// The rows of a convention's authorities.
std::vector<PublishedRow> rowsOf(const Convention& convention, const std::vector<PublishedRow>& rows);

/// The request for computing a row.
Request requestOf(const PublishedRow& row);

}  // namespace quode::conventions
