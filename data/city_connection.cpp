// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/city_connection.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <fstream>

#include "common/formatting.h"
#include "common/numbers.h"
#include "data/checked_file.h"
#include "data/city_database_schema.h"
#include "data/coordinates.h"
#include "data/row_checksum.h"
#include "texts/translation.h"

namespace quode {
namespace {

using Reason = CityDatabaseError::Reason;

// The first bytes of the file.
class Header {
  public:
    explicit Header(const std::filesystem::path& file) {
        std::ifstream stream(file, std::ios::binary);
        isThere_ =
            bool(stream.read(reinterpret_cast<char*>(bytes_.data()), static_cast<std::streamsize>(bytes_.size())));
    }

    // True when the file has the length that it says; otherwise a truncated file would be noticed only much later.
    bool isOfWholeFile(const std::filesystem::path& file) const {
        const std::uintmax_t size = number(16, 2) == 1 ? 65536 : number(16, 2);
        std::error_code error;
        return isThere_ && std::filesystem::file_size(file, error) == size * number(28, 4) && !error;
    }

    std::uint32_t edition() const { return number(60, 4); }
    std::uint32_t application() const { return number(68, 4); }

  private:
    std::uint32_t number(std::size_t from, std::size_t bytes) const {
        std::uint32_t value = 0;
        for (std::size_t i = from; i < from + bytes; ++i) value = value << 8 | bytes_[i];
        return value;
    }

    std::array<unsigned char, 72> bytes_{};
    bool isThere_ = false;
};

}  // namespace

CityConnection::CityConnection(const std::filesystem::path& file, const std::filesystem::path& zoneFolder)
    : file_(file) {
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(file, ignored)) {
        throw CityDatabaseError(Reason::missing,
                                _("The city database is missing: {}. Install Quode again.", file.string()));
    }
    checkHeader();
    database_ = sqlite::openUnchanging(file, checkedFileSystem());
    if (!database_) failDamaged(_("it cannot be opened"));
    recordQuery_ = query(cityRecordSql);  // fails where tables are missing
    zones_.emplace(database_.get(), zoneFolder);
}

void CityConnection::failDamaged(const std::string& detail) const {
    throw CityDatabaseError(Reason::damaged,
                            _("The city database {} is damaged: {}. Install Quode again.", file_.string(), detail));
}

void CityConnection::failReading() const {
    const bool isChecksum = sqlite3_extended_errcode(database_.get()) == SQLITE_IOERR_DATA;
    failDamaged(isChecksum ? _("a part of it has a wrong checksum") : sqlite3_errmsg(database_.get()));
}

void CityConnection::checkHeader() const {
    const Header header(file_);
    if (!header.isOfWholeFile(file_)) failDamaged(_("it is cut short or not a database"));
    if (header.application() != cityDatabaseApplicationId) failDamaged(_("it is another kind of database"));
    if (header.edition() == cityDatabaseEdition) return;
    throw CityDatabaseError(
        Reason::wrongEdition,
        _("The city database {} has edition {}, this program reads edition {}. Install Quode again.", file_.string(),
          header.edition(), cityDatabaseEdition));
}

void CityConnection::verify() const {
    if (!hasIntactPages(file_)) failDamaged(_("a part of it has a wrong checksum"));
}

sqlite::Statement CityConnection::query(const std::string& sql) const {
    sqlite::Statement statement = sqlite::prepare(database_.get(), sql);
    if (!statement) failReading();
    return statement;
}

bool CityConnection::next(const sqlite::Statement& statement) const {
    const int result = sqlite3_step(statement.get());
    if (result != SQLITE_ROW && result != SQLITE_DONE) failReading();
    return result == SQLITE_ROW;
}

std::optional<CityRecord> CityConnection::record(int id) {
    sqlite3_reset(recordQuery_.get());
    sqlite3_bind_int(recordQuery_.get(), 1, id);
    if (!next(recordQuery_)) return std::nullopt;
    CityRecord city = recordOf(recordQuery_.get());
    sqlite3_reset(recordQuery_.get());
    return city;
}

void CityConnection::forEachRecord(const std::function<void(const CityRecord&)>& take) const {
    const sqlite::Statement row = query(std::string(cityRecordsSql) + " ORDER BY C.ID");
    while (next(row)) take(recordOf(row.get()));
}

CityRecord CityConnection::recordOf(sqlite3_stmt* row) const {
    if (!isIntact(row)) failDamaged(_("the record of place {} has a wrong checksum", sqlite3_column_int(row, 0)));
    const auto text = [row](int column) { return sqlite::text(row, column); };
    const auto integer = [row](int column) { return sqlite3_column_int(row, column); };
    const auto degrees = [&text](int column) {
        return leadingNumber<double>(formatting::getFloatStr(decipheredCoordinate(text(column))));
    };
    CityRecord city;
    city.id = integer(0);
    city.name = text(1);
    city.region = text(2);
    city.regionCode = text(3);
    city.countryCode = text(4);
    city.countryNameEn = text(5);
    city.countryNameTr = text(6);
    city.latitude = degrees(7);
    city.longitude = degrees(8);
    city.zone = text(9);
    city.rule = {leadingNumber<double>(text(10)),
                 integer(11) != 0,
                 integer(12),
                 integer(13),
                 integer(14),
                 integer(15),
                 integer(16)};
    city.temkin = integer(17) != 0;
    city.population = static_cast<long>(sqlite3_column_int64(row, 18));
    if (sqlite3_column_type(row, 19) != SQLITE_NULL) city.elevation = integer(19);
    city.known = zones_->of(city.zone, text(20));
    if (!(std::abs(city.latitude) <= 90.0 && std::abs(city.longitude) <= 180.0)) {
        failDamaged(_("the coordinates of place {} are out of range", city.id));
    }
    return city;
}

std::optional<CityRecord> CityConnection::largestCityOfZone(std::string_view zone) {
    const sqlite::Statement row = query(zoneCitySql);
    sqlite3_bind_text(row.get(), 1, zone.data(), static_cast<int>(zone.size()), SQLITE_STATIC);
    if (!next(row)) return std::nullopt;
    if (!isIntact(row.get())) failDamaged(_("time zone {} has a wrong checksum", zone));
    return record(sqlite3_column_int(row.get(), 2));
}

CityRecord CityConnection::recordAt(int id, int latitude, int longitude) {
    const std::optional<CityRecord> city = record(id);
    const bool fits =
        city && std::lround(city->latitude * 1e5) == latitude && std::lround(city->longitude * 1e5) == longitude;
    if (!fits) failDamaged(_("the coordinates of place {} contradict each other", id));
    return *city;
}

}  // namespace quode
