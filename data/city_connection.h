// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/CityDatabase.h"
#include "data/ZoneSource.h"
#include "data/sqlite_reading.h"

namespace quode {

/// The open database behind `CityDatabase`. Every failure is a `CityDatabaseError`.
class CityConnection {
  public:
    /// @param zoneFolder  the machine's zone data; empty: not used
    CityConnection(const std::filesystem::path& file, const std::filesystem::path& zoneFolder);

    /// Prepares a query.
    sqlite::Statement query(const std::string& sql) const;

    /// Advances to the next row; false after the last one.
    bool next(const sqlite::Statement& statement) const;

    /// The record of a place, with its checksum verified; nothing for an unknown id.
    std::optional<CityRecord> record(int id);

    /// Calls `take` with the records of all places, ordered by id, with their checksums verified.
    void forEachRecord(const std::function<void(const CityRecord&)>& take) const;

    /// The record of a place that the table of points lists; damaged when the record has another point.
    /// @param latitude,longitude  hundred-thousandths of a degree
    CityRecord recordAt(int id, int latitude, int longitude);

    /// The most populous place of a zone, which may have an older name; nothing without one.
    std::optional<CityRecord> largestCityOfZone(std::string_view zone);

    ZoneSource& zones() { return *zones_; }

    /// Reads the whole file and fails when any part of it is damaged.
    void verify() const;

  private:
    [[noreturn]] void failDamaged(const std::string& detail) const;
    CityRecord recordOf(sqlite3_stmt* row) const;
    [[noreturn]] void failReading() const;
    void checkHeader() const;

    std::filesystem::path file_;
    sqlite::Database database_;
    sqlite::Statement recordQuery_;  // kept, because a search reads many records
    mutable std::optional<ZoneSource> zones_;
};

}  // namespace quode
