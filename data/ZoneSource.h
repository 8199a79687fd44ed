// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "data/zone_clock.h"

struct sqlite3;

namespace quode {

/// Facts of time zones, from the city database, or from the zone data of this machine where these are of a newer edition.
/// Each zone is read at its first use and kept.
///
/// @code
///   quode::ZoneSource source(database.get(), "/usr/share/zoneinfo");  // database: an open sqlite::Database
///   const std::shared_ptr<const quode::ZoneKnowledge> known = source.of("Europe/Istanbul", "");
///   const std::string edition = known->edition;                       // "2026f"
/// @endcode
class ZoneSource {
  public:
    /// @param cities      the city database, which must outlive the object
    /// @param zoneFolder  the zone data of this machine
    ZoneSource(sqlite3* cities, std::filesystem::path zoneFolder);

    /// The facts of a zone; never null.
    /// @param name   its IANA name
    /// @param clock  its clock in the city database, see `SystemZone::parseText`
    std::shared_ptr<const ZoneKnowledge> of(const std::string& name, std::string_view clock);

  private:
    ZoneKnowledge read(const std::string& name, std::string_view clock);
    void readEditions();

    sqlite3* cities_;
    std::filesystem::path zoneFolder_;
    std::optional<std::string> edition_;  // of the city database; nothing before it is read
    std::string systemEdition_;
    std::map<std::string, std::shared_ptr<const ZoneKnowledge>> known_;
};

}  // namespace quode
