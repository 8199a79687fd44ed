// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/CityDatabase.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "common/numbers.h"
#include "data/city_connection.h"

namespace quode {
namespace {

constexpr double radiansPerDegree = std::numbers::pi / 180.0;
constexpr double kmPerDegree = 6371.0088 * radiansPerDegree;  // on a sphere of the Earth's mean radius

double sinOf(double degrees) {
    return std::sin(degrees * radiansPerDegree);
}
double cosOf(double degrees) {
    return std::cos(degrees * radiansPerDegree);
}

// Great-circle distance in degrees (haversine).
double distanceDegrees(double latitude1, double longitude1, double latitude2, double longitude2) {
    const double halfLatitude = sinOf((latitude2 - latitude1) / 2.0);
    const double halfLongitude = sinOf((longitude2 - longitude1) / 2.0);
    const double h = halfLatitude * halfLatitude + cosOf(latitude1) * cosOf(latitude2) * halfLongitude * halfLongitude;
    return 2.0 * std::asin(std::min(1.0, std::sqrt(h))) / radiansPerDegree;
}

struct Nearest {
    int id = 0;
    int latitude = 0;  // hundred-thousandths of a degree
    int longitude = 0;
    double degrees = 360.0;
};

// The nearest place among those within `reach` degrees of latitude.
Nearest nearestWithin(const CityConnection& connection, double latitude, double longitude, double reach) {
    const sqlite::Statement row =
        connection.query("SELECT LATITUDE, LONGITUDE, ID FROM CITY_POINT WHERE LATITUDE BETWEEN ?1 AND ?2");
    sqlite3_bind_double(row.get(), 1, (latitude - reach) * 1e5);
    sqlite3_bind_double(row.get(), 2, (latitude + reach) * 1e5);
    Nearest nearest;
    while (connection.next(row)) {
        const int pointLatitude = sqlite3_column_int(row.get(), 0);
        const int pointLongitude = sqlite3_column_int(row.get(), 1);
        const double degrees = distanceDegrees(latitude, longitude, pointLatitude / 1e5, pointLongitude / 1e5);
        if (degrees < nearest.degrees) {
            nearest = {sqlite3_column_int(row.get(), 2), pointLatitude, pointLongitude, degrees};
        }
    }
    return nearest;
}

}  // namespace

CityDatabase::CityDatabase(const std::filesystem::path& file, const std::filesystem::path& zoneFolder)
    : connection_(std::make_unique<CityConnection>(file, zoneFolder)) {}
CityDatabase::~CityDatabase() = default;
CityDatabase::CityDatabase(CityDatabase&&) noexcept = default;
CityDatabase& CityDatabase::operator=(CityDatabase&&) noexcept = default;

std::filesystem::path CityDatabase::fileIn(const std::filesystem::path& bundle) {
    return bundle / "database" / "cities.sqlite";
}

std::optional<CityRecord> CityDatabase::city(int id) const {
    return connection_->record(id);
}

void CityDatabase::forEach(const std::function<void(const CityRecord&)>& take) const {
    connection_->forEachRecord(take);
}

std::optional<NearestCity> CityDatabase::nearest(double latitude, double longitude) const {
    if (!(std::abs(latitude) <= 90.0 && std::abs(longitude) <= 180.0)) return std::nullopt;
    // A place nearer than the reach is the nearest of all, because every place within its distance was compared. The
    // steps limit the work where places are sparse, as near the poles.
    for (const double reach : {0.1, 0.5, 2.0, 8.0, 20.0, 40.0, 60.0, 180.0}) {
        const Nearest nearest = nearestWithin(*connection_, latitude, longitude, reach);
        if (nearest.degrees > reach) continue;
        return NearestCity{connection_->recordAt(nearest.id, nearest.latitude, nearest.longitude),
                           nearest.degrees * kmPerDegree};
    }
    return std::nullopt;
}

std::optional<CityRecord> CityDatabase::largestCityOfZone(std::string_view zone) const {
    return connection_->largestCityOfZone(zone);
}

std::vector<StoredZone> CityDatabase::zones() const {
    const sqlite::Statement row = connection_->query(
        "SELECT Z.NAME, Z.GMT, D.DST, D.STARTMONTH, D.STARTDAY, D.STOPMONTH, D.STOPDAY, D.HOUR, Z.CLOCK "
        "FROM ZONE Z JOIN DST D ON D.DSTID = Z.DSTID ORDER BY Z.NAME");
    std::vector<StoredZone> zones;
    const auto integer = [&row](int column) { return sqlite3_column_int(row.get(), column); };
    while (connection_->next(row)) {
        const std::string name = sqlite::text(row.get(), 0);
        zones.push_back({name,
                         {leadingNumber<double>(sqlite::text(row.get(), 1)), integer(2) != 0, integer(3), integer(4),
                          integer(5), integer(6), integer(7)},
                         connection_->zones().of(name, sqlite::text(row.get(), 8))});
    }
    return zones;
}

void CityDatabase::verify() const {
    connection_->verify();
}

std::string CityDatabase::edition() const {
    const sqlite::Statement row = connection_->query("SELECT WHAT, EDITION FROM EDITION ORDER BY WHAT");
    std::string text;
    while (connection_->next(row)) {
        if (!text.empty()) text += ", ";
        text += sqlite::text(row.get(), 0) + " " + sqlite::text(row.get(), 1);
    }
    return text;
}

}  // namespace quode
