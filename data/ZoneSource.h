// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "data/zone_days.h"

struct sqlite3;

namespace quode {

/// Tells what is known of zones: from the city database, or from the zone data of this machine where these are of a
/// newer edition. A zone is read when it is first asked for.
class ZoneSource {
  public:
    /// The city database must outlive the object. zoneFolder: where this machine keeps its zone data.
    ZoneSource(sqlite3* cities, std::filesystem::path zoneFolder);

    /// What is known of a zone.
    /// name   its IANA name
    /// days   the days of the city database on which it differs from its yearly rule, see `zoneDaysText`
    std::shared_ptr<const ZoneKnowledge> of(const std::string& name, std::string_view days);

  private:
    ZoneKnowledge read(const std::string& name, std::string_view days);
    void readEditions();

    sqlite3* cities_;
    std::filesystem::path zoneFolder_;
    std::optional<std::string> edition_;  // of the city database; nothing before it is read
    std::string systemEdition_;
    std::map<std::string, std::shared_ptr<const ZoneKnowledge>> known_;
};

}  // namespace quode
