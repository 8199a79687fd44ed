// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// A timetable as it is printed: every text in the language of the reader, nothing left to be computed.
#pragma once

#include <string>
#include <vector>

namespace quode::printing {

struct Column {
    enum class Kind { weekday, day, hijri, prayer, iqama, night };
    Kind kind = Kind::prayer;
    std::string heading;
};

struct Row {
    std::vector<std::string> cells;  ///< one for each column
    std::string date;                ///< YYYY-MM-DD
    bool isFriday = false;
    bool isReligiousDay = false;
};

/// One month.
struct Page {
    std::string heading;               ///< "November 2026"
    std::string hijriHeading;          ///< "Jumada al-Ula / Jumada al-Akhirah 1448"
    std::vector<Row> rows;             ///< the days
    std::vector<std::string> remarks;  ///< what the marks in the rows mean: religious days, fallbacks, clock changes
};

struct Timetable {
    std::string title;           ///< "Prayer times"
    std::string place;           ///< "Istanbul"
    std::string placeDetails;    ///< region, country and coordinates
    std::string year;            ///< "2026", the heading of a sheet that holds the whole year
    std::string language;        ///< such as "tr"
    bool isRightToLeft = false;  ///< columns begin at the right
    std::vector<Column> columns;
    std::vector<Page> pages;
    std::vector<std::string> remarks;  ///< of a sheet: what the marks in the rows of all pages mean
    std::vector<std::string> notes;    ///< the method, the zone, notes of the user; below every page
    std::string made;                  ///< YYYY-MM-DDThh:mm:ssZ, when it was computed
};

}  // namespace quode::printing
