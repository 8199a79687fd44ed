// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The user's choice for the times of a city: a method, and optionally a timetable of a mosque. The user database stores
// it; without a choice the engine's own method applies.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "conventions/Method.h"
#include "data/Timetable.h"

struct sqlite3;

namespace quode {

/// The choice for one city.
struct SiteChoice {
    conventions::Method method;
    double height = 0.0;                     ///< metres above sea level, from the city database
    std::shared_ptr<const Timetable> table;  ///< nullptr: no table is imported
    IqamaRules iqama;                        ///< for days without one in the table
    bool isChosen = false;                   ///< the user has chosen a method, be it the default, or imported a table
    bool isUnreadable = false;               ///< a choice may be stored, but it cannot be read
    bool isLocked = false;                   ///< because another program writes the database

    /// True when the engine's own method applies to every day. The congregation's times do not matter.
    bool isDefault() const { return method.isDefault() && !table; }

    friend bool operator==(const SiteChoice& a, const SiteChoice& b) {
        const bool sameTable = a.table == b.table || (a.table && b.table && *a.table == *b.table);
        return a.method == b.method && a.height == b.height && a.isChosen == b.isChosen &&
               a.isUnreadable == b.isUnreadable && sameTable && a.iqama == b.iqama;
    }
};

/// Reads the choice for a city; the default when none is stored.
SiteChoice readSiteChoice(sqlite3* userDatabase, int cityId);

/// The same from a file that is not open yet; the default when there is none.
SiteChoice readSiteChoice(const std::filesystem::path& userDatabase, int cityId);

}  // namespace quode
