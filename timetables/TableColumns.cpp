// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "timetables/TableColumns.h"

#include <algorithm>
#include <optional>

#include "astro/prayer.h"
#include "texts/translation.h"
#include "timetables/cells.h"

namespace quode::timetables {

TableColumns::TableColumns(const RawTable& raw) : raw_(raw) {
    places_.fill(-1);
    std::vector<std::optional<Column>> columns;
    for (const std::string& heading : raw.headings) columns.push_back(columnOf(heading));
    const auto isNamed = [&](Column column) { return std::ranges::find(columns, column) != columns.end(); };
    const bool hasFajr = isNamed(Column::fajr), hasImsak = isNamed(Column::imsak);
    // Imsak is Fajr in Turkish tables, and minutes before it where Fajr has a column of its own.
    const auto isLeftOut = [&](Column column) {
        return (column == Column::imsak && hasFajr) || (column == Column::sabah && (hasFajr || hasImsak)) ||
               (column == Column::day && isNamed(Column::date));
    };
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i] && !isLeftOut(*columns[i])) {
            const bool isFajr = columns[i] == Column::imsak || columns[i] == Column::sabah;
            take(isFajr ? Column::fajr : *columns[i], i);
            continue;
        }
        checkUnnamed(i);
        if (!raw.headings[i].empty()) ignored_.push_back(raw.headings[i]);
    }
    check();
}

std::string TableColumns::cell(const RawRow& row, Column column) const {
    const int place = placeOf(column);
    if (place < 0 || std::size_t(place) >= row.cells.size()) return "";
    return row.cells[static_cast<std::size_t>(place)];
}

/// Times below no name may be those of the column beside them.
void TableColumns::checkUnnamed(std::size_t index) const {
    if (!raw_.headings[index].empty()) return;
    const bool hasTimes = std::ranges::any_of(
        raw_.rows, [&](const RawRow& row) { return index < row.cells.size() && clockTimeOf(row.cells[index]); });
    if (hasTimes) {
        throw ImportError(_("Column {} holds times but has no name. Name it, or remove it.", index + 1));
    }
}

void TableColumns::take(Column column, std::size_t index) {
    int& place = places_[static_cast<std::size_t>(column)];
    if (place >= 0) {
        throw ImportError(_("Two columns name the same thing, {}: \"{}\" and \"{}\". Rename or remove one.",
                            nameOf(column), raw_.headings[static_cast<std::size_t>(place)], raw_.headings[index]));
    }
    place = int(index);
    used_.emplace_back(raw_.headings[index], column);
}

void TableColumns::check() const {
    const bool hasDate = has(Column::date) || (has(Column::day) && has(Column::month));
    if (!hasDate) throw ImportError(_("No column holds the date. Name it \"date\"."));
    int prayers = 0;
    for (int i = 0; i < mainPrayerCount; ++i) prayers += has(static_cast<Column>(i)) ? 1 : 0;
    if (prayers == 0) throw ImportError(_("No column holds a prayer. Name them fajr, dhuhr, asr, maghrib, isha."));
}

}  // namespace quode::timetables
