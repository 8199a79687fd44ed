// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/user_places.h"

#include "common/GlobalFuncs.h"
#include "common/civil_date.h"
#include "common/numbers.h"
#include "common/printable.h"
#include "data/city_day.h"
#include "data/sqlite_reading.h"

namespace quode {
namespace {

constexpr const char* placeQuery = "SELECT NAME, LATITUDE, LONGITUDE, ZONE FROM USER_PLACE WHERE ID = ?1";
constexpr int lockPatienceMs = 200;

struct KeptPlace {
    std::string name;
    double latitude = 0.0;
    double longitude = 0.0;
    std::string zone;
};

std::optional<KeptPlace> keptPlace(sqlite3* userDatabase, int id) {
    const sqlite::Statement row = sqlite::prepare(userDatabase, placeQuery);
    if (!row) return std::nullopt;
    sqlite3_bind_int(row.get(), 1, id);
    if (sqlite3_step(row.get()) != SQLITE_ROW) return std::nullopt;
    return KeptPlace{printable(sqlite::text(row.get(), 0)), sqlite3_column_double(row.get(), 1),
                     sqlite3_column_double(row.get(), 2), sqlite::text(row.get(), 3)};
}

}  // namespace

std::filesystem::path userDatabaseFile(const std::filesystem::path& dataFolder) {
    return dataFolder / userDatabaseName;
}

std::optional<CityRecord> userPlace(const std::filesystem::path& userDatabase, const CityDatabase& cities, int id) {
    if (!sqlite::isSafeToOpen(userDatabase)) return std::nullopt;
    sqlite3* opened = nullptr;
    const int result = sqlite3_open_v2(userDatabase.c_str(), &opened, SQLITE_OPEN_READONLY, nullptr);
    const sqlite::Database database(opened);
    if (result != SQLITE_OK) return std::nullopt;
    sqlite3_busy_timeout(database.get(), lockPatienceMs);
    return userPlace(database.get(), cities, id);
}

std::optional<CityRecord> userPlace(sqlite3* userDatabase, const CityDatabase& cities, int id) {
    const std::optional<KeptPlace> kept = keptPlace(userDatabase, id);
    if (!kept) return std::nullopt;
    const std::optional<NearestCity> nearest = cities.nearest(kept->latitude, kept->longitude);
    if (!nearest) return std::nullopt;
    CityRecord place = nearest->city;
    place.id = id;
    place.name = kept->name;
    place.latitude = kept->latitude;
    place.longitude = kept->longitude;
    place.temkin = true;
    place.population = 0;
    place.elevation.reset();
    // The zone's clock comes from the city database, so that a newer edition corrects old places too.
    if (const std::optional<CityRecord> ofZone = cities.largestCityOfZone(kept->zone)) {
        place.zone = ofZone->zone;
        place.rule = ofZone->rule;
        place.known = ofZone->known;
    }
    return place;
}

void fillClock(City& city, const ZoneRule& rule) {
    city.setGMT(numberText(rule.gmt));
    city.setDST(rule.dst ? "1" : "0");
    city.setStartMonth(numberText(rule.startMonth));
    city.setStartDay(numberText(rule.startDay));
    city.setStopMonth(numberText(rule.stopMonth));
    city.setStopDay(numberText(rule.stopDay));
    city.setHour(numberText(rule.hour));
}

void fillCity(City& city, const CityRecord& record, std::chrono::year_month_day date) {
    fillClock(city, ZoneClock{record.rule, record.known}.ruleOn(date));
    city.setName(record.name);
    city.setNameParent(record.region);
    city.setCountryNameEn(record.countryNameEn);
    city.setCountryNameTr(record.countryNameTr);
    city.setLatitude(fixedText(record.latitude, 6));
    city.setLongitude(fixedText(record.longitude, 6));
    city.setTemkin(record.temkin ? "1" : "0");
}

void fillWithUserPlace(City& city, int id, const GlobalFuncs& services) {
    try {
        const CityDatabase cities(CityDatabase::fileIn(services.appBundlePath()), services.platform().zoneFolder);
        const std::optional<CityRecord> place = userPlace(userDatabaseFile(services.dataFolder()), cities, id);
        if (place) fillCity(city, *place, civilDate(services.GetCurrentDateTime()));
    } catch (const CityDatabaseError&) {
        // Without the city database no city is filled; code that opens it directly reports the error.
    }
}

}  // namespace quode
