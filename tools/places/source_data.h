// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "data/zone_clock.h"
#include "data/zone_rules.h"

namespace quode::places {

struct Place {
    std::int32_t id = 0;
    std::string name;
    std::string asciiName;
    long latitude = 0;    ///< hundred-thousandths of a degree
    long longitude = 0;   ///< hundred-thousandths of a degree
    int region = 0;       ///< index into `SourceData::regions`
    long population = 0;  ///< 0 = not known
    std::optional<int> elevation;
};

/// A region within one time zone; a region that lies in two zones appears twice.
struct Region {
    std::string country;
    std::string code;
    std::string name;
    std::string zone;
};

struct Country {
    std::string nameEn;
    std::string nameTr;
};

struct OtherName {
    std::int32_t id = 0;
    std::string name;
    std::string asciiName;
};

/// All that goes into the city database, checked: every country, region and zone that a place names exists, ids are
/// unique.
struct SourceData {
    std::vector<Place> places;                       ///< ordered by id
    std::vector<Region> regions;                     ///< ordered by country, code and zone
    std::map<std::string, Country> countries;        ///< by code
    std::map<std::string, ZoneRule> zones;           ///< by IANA name
    std::map<std::string, std::string> zoneClocks;   ///< the texts for the city database, by IANA name
    std::map<std::string, std::string> zoneAliases;  ///< older name to today's
    std::vector<OtherName> otherNames;               ///< ordered by id and name
    std::map<std::string, std::string> edition;
};

/// The yearly rules of the zones as TZ has them, and the editions of the data, from the files of a folder. Errors as
/// below.
std::map<std::string, std::string> readZoneRules(const std::filesystem::path& folder);
std::map<std::string, std::string> readEditions(const std::filesystem::path& folder);

/// Reads the files of a folder. Errors: std::runtime_error that names the file and what is wrong with it.
SourceData readSourceData(const std::filesystem::path& folder);

}  // namespace quode::places
