#include "data/city_connection.h"

#include <array>
#include <cstdint>
#include <fstream>

#include "common/formatting.h"
#include "common/numbers.h"
#include "data/city_database_schema.h"
#include "data/coordinates.h"

namespace quode {
namespace {

using Reason = CityDatabaseError::Reason;

constexpr const char* remedy = "Install Quode again.";

constexpr const char* recordSql =
    "SELECT C.NAME, P.NAME, F.CODE, K.CODE, O.NAMEEN, O.NAMETR, C.LAT, C.LON, Z.NAME, P.GMT, D.DST, D.STARTMONTH, "
    "D.STARTDAY, D.STOPMONTH, D.STOPDAY, D.HOUR, C.TEMKIN, A.POPULATION, A.ELEVATION FROM CITY C "
    "JOIN CITY_PARENT P ON P.PARENT = C.PARENT JOIN PARENT_FACT F ON F.PARENT = C.PARENT "
    "JOIN COUNTRY O ON O.CID = P.CID JOIN COUNTRY_FACT K ON K.CID = P.CID JOIN ZONE Z ON Z.ZONE = F.ZONE "
    "JOIN DST D ON D.DSTID = P.DSTID LEFT JOIN CITY_FACT A ON A.ID = C.ID WHERE C.ID = ?1";

// Whether the file has the length that its first page announces; a file cut short otherwise shows only much later.
bool isWhole(const std::filesystem::path& file) {
    std::array<unsigned char, 32> header{};
    std::ifstream stream(file, std::ios::binary);
    if (!stream.read(reinterpret_cast<char*>(header.data()), header.size())) return false;
    const auto bigEndian = [&header](std::size_t from, std::size_t bytes) {
        std::uintmax_t value = 0;
        for (std::size_t i = from; i < from + bytes; ++i) value = value << 8 | header[i];
        return value;
    };
    const std::uintmax_t pageSize = bigEndian(16, 2) == 1 ? 65536 : bigEndian(16, 2);
    std::error_code error;
    return std::filesystem::file_size(file, error) == pageSize * bigEndian(28, 4) && !error;
}

}  // namespace

CityConnection::CityConnection(const std::filesystem::path& file) : file_(file) {
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(file, ignored)) {
        throw CityDatabaseError(Reason::missing, "The city database is missing: " + file.string() + ". " + remedy);
    }
    if (!isWhole(file)) failDamaged("it is cut short or no database");
    database_ = sqlite::openUnchanging(file);
    if (!database_) failDamaged("it cannot be opened");
    checkEdition();
    checkTables();
    recordQuery_ = query(recordSql);
}

void CityConnection::failDamaged(const std::string& detail) const {
    throw CityDatabaseError(Reason::damaged,
                            "The city database is damaged: " + file_.string() + " (" + detail + "). " + remedy);
}

void CityConnection::checkEdition() const {
    const auto pragma = [this](const char* name) {
        const sqlite::Statement row = query(std::string("PRAGMA ") + name);
        return next(row) ? sqlite3_column_int(row.get(), 0) : 0;
    };
    if (pragma("application_id") != cityDatabaseApplicationId) failDamaged("it is another kind of database");
    const int edition = pragma("user_version");
    if (edition == cityDatabaseEdition) return;
    throw CityDatabaseError(Reason::wrongEdition, "The city database " + file_.string() + " has edition " +
                                                      std::to_string(edition) + ", this program reads edition " +
                                                      std::to_string(cityDatabaseEdition) + ". " + remedy);
}

void CityConnection::checkTables() const {
    for (const char* sql :
         {"SELECT FOLDED, ID, KIND, POPULATION, PARENT FROM CITY_NAME", "SELECT ID, NAME FROM OTHER_NAME",
          "SELECT LATITUDE, LONGITUDE, ID FROM CITY_POINT", "SELECT NAME, ZONE FROM ZONE_NAME",
          "SELECT GMT, LARGEST FROM ZONE", "SELECT WHAT, EDITION FROM EDITION"}) {
        query(sql);
    }
}

sqlite::Statement CityConnection::query(const std::string& sql) const {
    sqlite::Statement statement = sqlite::prepare(database_.get(), sql);
    if (!statement) failDamaged(sqlite3_errmsg(database_.get()));
    return statement;
}

bool CityConnection::next(const sqlite::Statement& statement) const {
    const int result = sqlite3_step(statement.get());
    if (result != SQLITE_ROW && result != SQLITE_DONE) failDamaged(sqlite3_errmsg(database_.get()));
    return result == SQLITE_ROW;
}

std::optional<CityRecord> CityConnection::record(int id) {
    sqlite3_stmt* const row = recordQuery_.get();
    sqlite3_reset(row);
    sqlite3_bind_int(row, 1, id);
    if (!next(recordQuery_)) return std::nullopt;
    const auto text = [row](int column) { return sqlite::text(row, column); };
    const auto integer = [row](int column) { return sqlite3_column_int(row, column); };
    const auto degrees = [&text](int column) {
        return leadingNumber<double>(formatting::getFloatStr(decipheredCoordinate(text(column))));
    };
    CityRecord city;
    city.id = id;
    city.name = text(0);
    city.region = text(1);
    city.regionCode = text(2);
    city.countryCode = text(3);
    city.countryNameEn = text(4);
    city.countryNameTr = text(5);
    city.latitude = degrees(6);
    city.longitude = degrees(7);
    city.zone = text(8);
    city.rule = {leadingNumber<double>(text(9)),
                 integer(10) != 0,
                 integer(11),
                 integer(12),
                 integer(13),
                 integer(14),
                 integer(15)};
    city.temkin = integer(16) != 0;
    city.population = static_cast<long>(sqlite3_column_int64(row, 17));
    if (sqlite3_column_type(row, 18) != SQLITE_NULL) city.elevation = integer(18);
    sqlite3_reset(row);
    return city;
}

}  // namespace quode
