// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What the user chose for the times of a city: a method, and perhaps a table of their mosque. Kept in the user database
// in tables of their own; without a choice the engine's own method holds.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "conventions/Method.h"
#include "data/Timetable.h"

struct sqlite3;

namespace quode {

struct SiteChoice {
    conventions::Method method;
    double height = 0.0;                     ///< metres above sea level, as the city database has it
    std::shared_ptr<const Timetable> table;  ///< nullptr: none was imported
    IqamaRules iqama;                        ///< where the table of a day has none
    bool isUnreadable = false;               ///< a choice is stored, but this version cannot read it

    /// Whether the times are the engine's own. The congregation's times change none of them.
    bool isDefault() const { return method.isDefault() && !table; }

    friend bool operator==(const SiteChoice& a, const SiteChoice& b) {
        const bool sameTable = a.table == b.table || (a.table && b.table && *a.table == *b.table);
        return a.method == b.method && a.height == b.height && a.isUnreadable == b.isUnreadable && sameTable &&
               a.iqama == b.iqama;
    }
};

/// The choice for a city; the default when none is stored.
SiteChoice readSiteChoice(sqlite3* userDatabase, int cityId);

/// The same from a file that is not open yet; the default when it cannot be read.
SiteChoice readSiteChoice(const std::filesystem::path& userDatabase, int cityId);

}  // namespace quode
