// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "data/CityDatabase.h"
#include "data/ZoneSource.h"
#include "data/sqlite_reading.h"

namespace quode {

/// The open database behind `CityDatabase`. Every failure is a `CityDatabaseError`.
class CityConnection {
  public:
    /// zoneFolder: where this machine keeps its zone data; empty: they are not looked at.
    CityConnection(const std::filesystem::path& file, const std::filesystem::path& zoneFolder);

    sqlite::Statement query(const std::string& sql) const;

    /// Goes to the next row; false after the last one.
    bool next(const sqlite::Statement& statement) const;

    /// The record of a place, its checksum verified.
    std::optional<CityRecord> record(int id);

    /// The records of all places in the order of their ids, their checksums verified.
    void forEachRecord(const std::function<void(const CityRecord&)>& take) const;

    /// The record of the place that the table of points has at a point, in hundred-thousandths of a degree.
    CityRecord recordAt(int id, int latitude, int longitude);

    /// The largest place of a zone or of an older name of it.
    std::optional<CityRecord> largestCityOfZone(std::string_view zone);
    ZoneSource& zones() { return *zones_; }

  private:
    [[noreturn]] void failDamaged(const std::string& detail) const;
    CityRecord recordOf(sqlite3_stmt* row) const;
    void checkEdition() const;

    std::filesystem::path file_;
    sqlite::Database database_;
    sqlite::Statement recordQuery_;  // kept, for a search reads many records
    mutable std::optional<ZoneSource> zones_;
};

}  // namespace quode
