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
#include "data/zone_days.h"
#include "data/zone_rules.h"

namespace quode {

class CityConnection;

/// All that is known of one place.
struct CityRecord {
    int id = 0;
    std::string name;
    std::string region;       ///< first-level division; the country's name where there is none
    std::string regionCode;   ///< within the country, "00" where there is none
    std::string countryCode;  ///< ISO 3166-1 alpha-2, and XK
    std::string countryNameEn;
    std::string countryNameTr;
    double latitude = 0.0;   ///< degrees, north positive
    double longitude = 0.0;  ///< degrees, east positive
    std::string zone;        ///< IANA name
    ZoneRule rule;
    bool temkin = true;                               ///< the margin is used
    long population = 0;                              ///< 0 = not known
    std::optional<int> elevation;                     ///< metres
    SiteChoice choice = {};                           ///< of one of the user's cities: the method of its times
    std::shared_ptr<const ZoneKnowledge> known = {};  ///< what is known of the zone's clock beyond the rule
};

/// A place found by a search.
struct CityHit {
    CityRecord city;
    CityMatch match = CityMatch::exact;
    std::string otherName;  ///< the former or other name that matched; empty when its own name did
};

/// A place near a point.
struct NearestCity {
    CityRecord city;
    double distanceKm = 0.0;  ///< along the great circle
};

/// A zone with the rule that is stored for it.
struct StoredZone {
    std::string name;  ///< IANA name
    ZoneRule rule;
    std::shared_ptr<const ZoneKnowledge> known = {};  ///< what is known of its clock beyond the rule
};

/// Why the city database cannot be used. The message names the file and says what to do.
class CityDatabaseError : public std::runtime_error {
  public:
    enum class Reason { missing, damaged, wrongEdition };
    CityDatabaseError(Reason reason, const std::string& message) : std::runtime_error(message), reason_(reason) {}
    Reason reason() const { return reason_; }

  private:
    Reason reason_;
};

/// The shipped database of places, opened once and only read. Every operation throws `CityDatabaseError` when the file
/// turns out to be damaged. One object is used by one thread at a time.
class CityDatabase {
  public:
    /// Opens a file. Throws `CityDatabaseError` when it is missing, damaged or of another edition than this program
    /// reads; a missing file is not created.
    /// zoneFolder   where this machine keeps its zone data, which are believed where they are newer than those of the
    ///              file; empty: they are not looked at
    explicit CityDatabase(const std::filesystem::path& file, const std::filesystem::path& zoneFolder = {});
    ~CityDatabase();
    CityDatabase(CityDatabase&&) noexcept;
    CityDatabase& operator=(CityDatabase&&) noexcept;

    /// The file within a bundle.
    static std::filesystem::path fileIn(const std::filesystem::path& bundle);

    /// A place by its id; nothing when there is none.
    std::optional<CityRecord> city(int id) const;

    /// Places by name, the best first, each once.
    /// text      a name or its beginning; case, diacritics, apostrophes and hyphens do not matter. After a comma may
    /// follow
    ///           a country (name or code) or a region (name or code): "London, CA".
    /// limit     the most places wanted
    /// Returned: exact names, beginnings and single words, ranked by how well they fit and by population; places whose
    /// name is a
    ///           typing mistake away only when there is little else. Empty for a text without any letter or digit.
    std::vector<CityHit> search(std::string_view text, int limit = 10) const;

    /// Gives every place, in the order of the ids.
    void forEach(const std::function<void(const CityRecord&)>& take) const;

    /// The places that have exactly this name, the most populous first; the text is read as by `search`. A short name
    /// is found too, however many longer ones begin with it.
    std::vector<CityHit> named(std::string_view text, int limit = 10) const;

    /// The place nearest to a point. latitude -90..90, longitude -180..180 (degrees); nothing outside these ranges.
    std::optional<NearestCity> nearest(double latitude, double longitude) const;

    /// The largest place of an IANA zone; older names of zones are understood. Nothing for zones without places
    /// ("Etc/UTC").
    std::optional<CityRecord> largestCityOfZone(std::string_view zone) const;

    /// All zones with their stored rules, ordered by name.
    std::vector<StoredZone> zones() const;

    /// Edition of the data, for example "2026-09 (time zones 2026f)".
    std::string edition() const;

  private:
    std::unique_ptr<CityConnection> connection_;
};

}  // namespace quode
