// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/City.h"

#include <sqlite3.h>

#include "common/GlobalFuncs.h"
#include "common/civil_date.h"
#include "common/numbers.h"
#include "data/ZoneSource.h"
#include "data/city_day.h"
#include "data/coordinates.h"
#include "data/row_checksum.h"
#include "data/sqlite_reading.h"
#include "data/user_places.h"

namespace quode {
namespace {

// The runs of blanks are part of the text.
constexpr const char* cityQuery =
    "SELECT C.NAME, CP.NAME, CC.NAMEEN, CC.NAMETR, C.LAT, C.LON, CP.GMT, D.DST,"
    "                           D.STARTMONTH, D.STARTDAY, D.STOPMONTH, D.STOPDAY, D.HOUR, C.TEMKIN"
    "                           FROM CITY_PARENT CP, CITY C, DST D, COUNTRY CC"
    "                           WHERE CP.PARENT = C.PARENT"
    "                           AND   CC.CID = CP.CID"
    "                           AND   CP.DSTID = D.DSTID"
    "                           AND   C.ID=";

// Columns of `cityRecordSql`.
constexpr int zoneNameColumn = 9, zoneClockColumn = 20;

// True when the record is intact: a damaged page would give wrong times. A database without checksums has only the
// tables of the query, and gives no record here.
bool recordIsIntact(sqlite3_stmt* record, int id) {
    if (record == nullptr) return true;
    sqlite3_bind_int(record, 1, id);
    return sqlite3_step(record) == SQLITE_ROW && isIntact(record);
}

// Replaces the yearly rule of a city's clock where it does not apply on a day.
void correctClock(City& city, std::shared_ptr<const ZoneKnowledge> known, std::chrono::year_month_day date) {
    const ZoneRule stored = siteOf(city).rule;
    const ZoneRule rule = ZoneClock{stored, std::move(known)}.ruleOn(date);
    if (rule != stored) fillClock(city, rule);
}

}  // namespace

City::City() : globalFuncs_(&GlobalFuncs::globalFuncs()) {}

double City::getRelevantPrayerTime(int code) const {
    return isPrayer(code) ? aNamazVakitleri_.*factsOf(code).time : 0.0;
}

void City::changeTemkin() {
    temkin_ = leadingNumber<int>(temkin_) != 0 ? '0' : '1';
}

void City::getAllCityInfo(City& city) const {
    const int id = leadingNumber<int>(city.cityId_);
    city.setChoice(readSiteChoice(userDatabaseFile(globalFuncs_->dataFolder()), id));
    fill(city, id);
}

void City::getAllCityInfo(City& city, sqlite3* userDatabase) const {
    const int id = leadingNumber<int>(city.cityId_);
    city.setChoice(readSiteChoice(userDatabase, id));
    fill(city, id);
}

void City::fill(City& city, int id) const {
    if (isUserPlace(id)) return fillWithUserPlace(city, id, *globalFuncs_);
    const sqlite::Database database = sqlite::openUnchanging(CityDatabase::fileIn(globalFuncs_->appBundlePath()));
    if (!database) return;
    const sqlite::Statement row = sqlite::prepare(database.get(), cityQuery + numberText(id));
    if (!row || sqlite3_step(row.get()) != SQLITE_ROW) return;
    const sqlite::Statement record = sqlite::prepare(database.get(), cityRecordSql);
    if (!recordIsIntact(record.get(), id)) {
        GlobalFuncs::globalFuncs().NSLogToFile("Error in City -> getAllCityInfo: the record of city " + numberText(id) +
                                               " has a wrong checksum. Install Quode again.");
        return;
    }
    const auto column = [&row](int index) { return sqlite::text(row.get(), index); };
    city.name_ = column(0);
    city.nameParent_ = column(1);
    city.countryNameEn_ = column(2);
    city.countryNameTr_ = column(3);
    city.latitude_ = globalFuncs_->getFloatStr(decipheredCoordinate(column(4)));
    city.longitude_ = globalFuncs_->getFloatStr(decipheredCoordinate(column(5)));
    city.GMT_ = column(6);
    city.DST_ = column(7);
    city.startMonth_ = column(8);
    city.startDay_ = column(9);
    city.stopMonth_ = column(10);
    city.stopDay_ = column(11);
    city.hour_ = column(12);
    city.temkin_ = column(13);
    if (!record) return;
    ZoneSource zones(database.get(), globalFuncs_->platform().zoneFolder);
    correctClock(city,
                 zones.of(sqlite::text(record.get(), zoneNameColumn), sqlite::text(record.get(), zoneClockColumn)),
                 civilDate(globalFuncs_->GetCurrentDateTime()));
}

}  // namespace quode
