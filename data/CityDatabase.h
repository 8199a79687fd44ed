// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "data/CityMatch.h"
#include "data/SiteChoice.h"
#include "data/zone_clock.h"
#include "data/zone_rules.h"

namespace quode {

class CityConnection;

/// All facts of one place.
struct CityRecord {
    int id = 0;
    std::string name;
    std::string region;       ///< first-level division; without one the country's name
    std::string regionCode;   ///< within the country; "00" without a division
    std::string countryCode;  ///< ISO 3166-1 alpha-2, and XK
    std::string countryNameEn;
    std::string countryNameTr;
    double latitude = 0.0;   ///< degrees, north positive
    double longitude = 0.0;  ///< degrees, east positive
    std::string zone;        ///< IANA name
    ZoneRule rule;
    bool temkin = true;                               ///< true: the margin of 500 m height, else of 250 m
    long population = 0;                              ///< 0: unknown
    std::optional<int> elevation;                     ///< metres above sea level
    SiteChoice choice = {};                           ///< for a city of the user: the method of its times
    std::shared_ptr<const ZoneKnowledge> known = {};  ///< facts of the zone's clock beyond the rule
    std::string nearestCountry = {};                  ///< of a point: the code of the nearest place's country
};

/// A place found by a search.
struct CityHit {
    CityRecord city;
    CityMatch match = CityMatch::exact;
    std::string otherName;  ///< the former or alternative name that matched; empty when its main name did
};

/// A place near a point.
struct NearestCity {
    CityRecord city;
    double distanceKm = 0.0;  ///< along the great circle
};

/// A zone with its stored rule.
struct StoredZone {
    std::string name;  ///< IANA name
    ZoneRule rule;
    std::shared_ptr<const ZoneKnowledge> known = {};  ///< facts of its clock beyond the rule
};

/// Why the city database cannot be used. The message names the file and says what to do.
class CityDatabaseError : public std::runtime_error {
  public:
    /// wrongEdition: made for another version of this program.
    enum class Reason { missing, damaged, wrongEdition };

    /// @param message  for the user: the file, the problem and what to do
    CityDatabaseError(Reason reason, const std::string& message) : std::runtime_error(message), reason_(reason) {}
    Reason reason() const { return reason_; }

  private:
    Reason reason_;
};

/// The shipped database of places, opened once and only read. Use one object from one thread at a time.
///
/// @code
///   const quode::CityDatabase cities(quode::CityDatabase::fileIn("/usr/lib/quode/Quode.bundle"));
///   for (const quode::CityHit& hit : cities.search("london, gb")) std::printf("%s\n", hit.city.name.c_str());
///   const std::optional<quode::NearestCity> near = cities.nearest(41.01, 28.95);
///   if (near) std::printf("%s, %.1f km\n", near->city.name.c_str(), near->distanceKm);
/// @endcode
///
/// @throw CityDatabaseError  from every operation, when the file turns out to be damaged
class CityDatabase {
  public:
    /// Opens a file; a missing file is not created.
    /// @param file        see `fileIn`
    /// @param zoneFolder  the machine's zone data, which replace those of the file where they are newer; empty: not used
    /// @throw CityDatabaseError  when the file is missing, damaged or of an edition that this program cannot read
    explicit CityDatabase(const std::filesystem::path& file, const std::filesystem::path& zoneFolder = {});
    ~CityDatabase();
    CityDatabase(CityDatabase&&) noexcept;
    CityDatabase& operator=(CityDatabase&&) noexcept;

    /// The path of the database in a bundle.
    static std::filesystem::path fileIn(const std::filesystem::path& bundle);

    /// The place with an id; nothing for an unknown id.
    std::optional<CityRecord> city(int id) const;

    /// Places by name, the best first, each once.
    /// @param text   a name or its beginning; case, diacritics, apostrophes and hyphens are ignored. A comma may follow, with
    ///               a country (name or code) or a region (name or code): "London, CA".
    /// @param limit  the largest number of results
    /// @return exact names, beginnings and single words, ranked by fit and population; names with typing mistakes only
    ///         when there are few other results. Empty for a text without any letter or digit.
    std::vector<CityHit> search(std::string_view text, int limit = 10) const;

    /// Calls `take` with every place, ordered by id.
    void forEach(const std::function<void(const CityRecord&)>& take) const;

    /// The places with exactly this name, the most populous first. It finds a short name too, however many longer names
    /// begin with it.
    /// @param text   as for `search`
    /// @param limit  the largest number of results
    std::vector<CityHit> named(std::string_view text, int limit = 10) const;

    /// The place nearest to a point.
    /// @param latitude   degrees, -90..90, north positive
    /// @param longitude  degrees, -180..180, east positive
    /// @return nothing outside these ranges
    std::optional<NearestCity> nearest(double latitude, double longitude) const;

    /// The most populous place of an IANA zone.
    /// @param zone  its name; older names are accepted
    /// @return nothing for zones without places ("Etc/UTC")
    std::optional<CityRecord> largestCityOfZone(std::string_view zone) const;

    /// All zones with their stored rules, ordered by name.
    std::vector<StoredZone> zones() const;

    /// Reads the whole file. Other operations verify only what they read.
    /// @throw CityDatabaseError  when any part of it is damaged
    void verify() const;

    /// The edition of the data, for example "2026-09 (time zones 2026f)".
    std::string edition() const;

  private:
    std::unique_ptr<CityConnection> connection_;
};

}  // namespace quode
