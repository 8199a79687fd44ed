// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "tools/places/source_data.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <tuple>
#include <unordered_map>

#include "common/numbers.h"
#include "data/posix_zone.h"
#include "tools/places/place_id.h"
#include "tools/places/tsv.h"
#include "tools/places/zone_encoding.h"

namespace quode::places {
namespace {

// Rules that the engine cannot express exactly are fitted to the ten years after this edition of the zone data.
constexpr Years fittedYears{2027, 2036};

using Rows = std::vector<std::vector<std::string>>;
using RegionKey = std::tuple<std::string, std::string, std::string>;  // country, code, zone

long wholeNumber(const std::string& text, const std::string& what) {
    const std::optional<long> value = numberOf<long>(text);
    if (!value) throw std::runtime_error(what + ": \"" + text + "\" is not a whole number");
    return *value;
}

// Decimal degrees with at most five decimals, in hundred-thousandths; exact.
long hundredThousandths(const std::string& text, long limitDegrees) {
    const bool negative = text.starts_with('-');
    const std::size_t start = negative ? 1 : 0;
    const std::size_t point = std::min(text.find('.'), text.size());
    const std::string decimals = point < text.size() ? text.substr(point + 1) : "";
    if (decimals.size() > 5) throw std::runtime_error("the coordinate " + text + " has more than five decimals");
    const std::string digits = text.substr(start, point - start) + decimals + std::string(5 - decimals.size(), '0');
    const long value = wholeNumber(digits, "the coordinate " + text);
    if (value < 0 || value > limitDegrees * 100000)
        throw std::runtime_error("the coordinate " + text + " is too large");
    return negative ? -value : value;
}

template <typename Map>
const typename Map::mapped_type& required(const Map& map, const typename Map::key_type& key, const std::string& what) {
    const auto found = map.find(key);
    if (found == map.end()) throw std::runtime_error(what);
    return found->second;
}

std::map<std::string, Country> readCountries(const std::filesystem::path& file) {
    std::map<std::string, Country> countries;
    for (const auto& row : readTable(file, 3)) countries[row[0]] = {row[1], row[2]};
    return countries;
}

// "2026-11-01T06:00:00Z"
std::chrono::sys_seconds momentOf(const std::string& text) {
    using namespace std::chrono;
    std::string_view rest = text;
    const auto part = [&rest]() {
        const int value = takeNumber<int>(rest).value_or(0);
        if (!rest.empty()) rest.remove_prefix(1);  // the sign after it
        return value;
    };
    const int year = part(), month = part(), day = part(), hour = part(), minute = part(), second = part();
    const auto date = std::chrono::year(year) / month / day;
    if (!date.ok() || !rest.empty() || !text.ends_with('Z')) throw std::runtime_error("\"" + text + "\" is no moment");
    return sys_days(date) + hours(hour) + minutes(minute) + seconds(second);
}

// The text of each zone for the city database.
std::map<std::string, std::string> readZoneClocks(const std::filesystem::path& folder) {
    const std::filesystem::path file = folder / "zone_changes.tsv";
    std::map<std::string, std::string> clocks = readZoneRules(folder), changes;
    for (const auto& row : readTable(file, 4)) {
        required(clocks, row[0], "no zone is called " + row[0]);
        const auto offset = wholeNumber(row[2], "the offset of " + row[0]);
        changes[row[0]] += numberText(momentOf(row[1]).time_since_epoch().count()) + ' ' + numberText(offset) + ' ' +
                           (row[3] == "1" ? "1;" : "0;");
    }
    for (auto& [name, text] : clocks) {
        text.insert(0, changes[name]);
        if (!SystemZone::parseText(text)) throw std::runtime_error("the clock of " + name + " is not understood");
    }
    return clocks;
}

std::map<std::string, std::string> readPairs(const std::filesystem::path& file) {
    std::map<std::string, std::string> pairs;
    for (const auto& row : readTable(file, 2)) pairs[row[0]] = row[1];
    return pairs;
}

Place placeFrom(const std::vector<std::string>& row, int region) {
    Place place;
    place.id = row[0].empty() ? derivedId(row[5], row[1], row[3], row[4])
                              : static_cast<std::int32_t>(wholeNumber(row[0], "the id of " + row[1]));
    place.name = row[1];
    place.asciiName = row[2];
    place.latitude = hundredThousandths(row[3], 90);
    place.longitude = hundredThousandths(row[4], 180);
    place.region = region;
    if (!row[8].empty()) place.population = wholeNumber(row[8], "the population of " + row[1]);
    if (!row[9].empty()) place.elevation = static_cast<int>(wholeNumber(row[9], "the elevation of " + row[1]));
    return place;
}

// One region for each pair of region and zone that a place lies in, numbered in order.
std::map<RegionKey, int> addRegions(const Rows& placeRows, const std::filesystem::path& file, SourceData& data) {
    std::map<std::pair<std::string, std::string>, std::string> names;
    for (const auto& row : readTable(file, 3)) names[{row[0], row[1]}] = row[2];
    std::map<RegionKey, int> numbers;
    for (const auto& row : placeRows) numbers[{row[5], row[6], row[7]}] = 0;
    for (auto& [key, number] : numbers) {
        const auto& [country, code, zone] = key;
        required(data.countries, country, "no country has the code " + country);
        required(data.zones, zone, "no zone is called " + zone);
        number = static_cast<int>(data.regions.size());
        data.regions.push_back({country, code,
                                required(names, {country, code}, "no region of " + country + " has the code " + code),
                                zone});
    }
    return numbers;
}

void addPlaces(const std::filesystem::path& folder, SourceData& data) {
    Rows rows = readTable(folder / "places.tsv.gz", 10);
    Rows extra = readTable(folder / "places_extra.tsv.gz", 10);
    std::move(extra.begin(), extra.end(), std::back_inserter(rows));
    const std::map<RegionKey, int> regions = addRegions(rows, folder / "regions.tsv", data);
    data.places.reserve(rows.size());
    for (const auto& row : rows) data.places.push_back(placeFrom(row, regions.at({row[5], row[6], row[7]})));
    std::sort(data.places.begin(), data.places.end(), [](const Place& a, const Place& b) { return a.id < b.id; });
    const auto twin = std::adjacent_find(data.places.begin(), data.places.end(),
                                         [](const Place& a, const Place& b) { return a.id == b.id; });
    if (twin != data.places.end()) {
        throw std::runtime_error("two places have the id " + std::to_string(twin->id) + ", one is " + twin->name);
    }
}

// The most populous place of a country with a given name.
/// The most populous place of a name in a country.
class LargestPlaces {
  public:
    explicit LargestPlaces(const SourceData& data) {
        for (const Place& place : data.places) {
            const std::string& country = data.regions[static_cast<std::size_t>(place.region)].country;
            const Place*& largest = places_[country + '\t' + place.name];
            if (largest == nullptr || place.population > largest->population) largest = &place;
        }
    }

    std::int32_t id(const std::string& country, const std::string& name) const {
        const auto found = places_.find(country + '\t' + name);
        if (found == places_.end()) throw std::runtime_error("no place of " + country + " is called " + name);
        return found->second->id;
    }

  private:
    std::unordered_map<std::string, const Place*> places_;
};

void addOtherNames(const std::filesystem::path& folder, SourceData& data) {
    for (const auto& row : readTable(folder / "former_names.tsv", 3)) {
        data.otherNames.push_back({static_cast<std::int32_t>(wholeNumber(row[0], "former_names.tsv")), row[1], row[2]});
    }
    for (const auto& row : readTable(folder / "alternate_names.tsv.gz", 2)) {
        data.otherNames.push_back(
            {static_cast<std::int32_t>(wholeNumber(row[0], "alternate_names.tsv.gz")), row[1], row[1]});
    }
    const LargestPlaces largest(data);
    for (const char* const file : {"other_names.tsv", "native_names.tsv"}) {
        for (const auto& row : readTable(folder / file, 3)) {
            data.otherNames.push_back({largest.id(row[0], row[1]), row[2], row[2]});
        }
    }
    const auto key = [](const OtherName& name) { return std::tie(name.id, name.name); };
    std::sort(data.otherNames.begin(), data.otherNames.end(),
              [&](const OtherName& a, const OtherName& b) { return key(a) < key(b); });
    const auto twins = std::unique(data.otherNames.begin(), data.otherNames.end(),
                                   [&](const OtherName& a, const OtherName& b) { return key(a) == key(b); });
    data.otherNames.erase(twins, data.otherNames.end());
}

// The rules as the engine takes them.
std::map<std::string, ZoneRule> readEngineRules(const std::filesystem::path& folder) {
    const std::filesystem::path file = folder / "zones.tsv";
    std::map<std::string, ZoneRule> zones;
    for (const auto& row : readTable(file, 4)) {
        const auto zone = parsePosixZone(row[2]);
        if (!zone) throw std::runtime_error(file.string() + ": the rule " + row[2] + " is not understood");
        const ZoneRule rule = encoded(*zone, fittedYears);
        if (std::abs(rule.gmt - numberOf<double>(row[1]).value_or(100.0)) > 1e-9 || rule.dst != (row[3] == "1")) {
            throw std::runtime_error(file.string() + ": the columns of " + row[0] + " contradict each other");
        }
        zones[row[0]] = rule;
    }
    return zones;
}

}  // namespace

std::map<std::string, std::string> readZoneRules(const std::filesystem::path& folder) {
    std::map<std::string, std::string> rules;
    for (const auto& row : readTable(folder / "zones.tsv", 4)) rules[row[0]] = row[2];
    return rules;
}

std::map<std::string, std::string> readEditions(const std::filesystem::path& folder) {
    return readPairs(folder / "edition.tsv");
}

SourceData readSourceData(const std::filesystem::path& folder) {
    SourceData data;
    data.edition = readEditions(folder);
    data.countries = readCountries(folder / "countries.tsv");
    data.zones = readEngineRules(folder);
    data.zoneClocks = readZoneClocks(folder);
    data.zoneAliases = readPairs(folder / "zone_aliases.tsv");
    for (const auto& [alias, zone] : data.zoneAliases) {
        required(data.zones, zone, "the zone " + alias + " points to " + zone + ", which no place lies in");
    }
    addPlaces(folder, data);
    addOtherNames(folder, data);
    return data;
}

}  // namespace quode::places
