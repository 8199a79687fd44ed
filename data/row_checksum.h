// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <string>

namespace quode {

/// The facts of all places for `CityRecord`. The last column is the stored checksum of the others.
inline constexpr const char* cityRecordsSql =
    "SELECT C.ID, C.NAME, P.NAME, F.CODE, K.CODE, O.NAMEEN, O.NAMETR, C.LAT, C.LON, Z.NAME, P.GMT, D.DST, "
    "D.STARTMONTH, "
    "D.STARTDAY, D.STOPMONTH, D.STOPDAY, D.HOUR, C.TEMKIN, A.POPULATION, A.ELEVATION, Z.CLOCK, S.CHECKSUM FROM CITY C "
    "JOIN CITY_PARENT P ON P.PARENT = C.PARENT JOIN PARENT_FACT F ON F.PARENT = C.PARENT "
    "JOIN COUNTRY O ON O.CID = P.CID JOIN COUNTRY_FACT K ON K.CID = P.CID JOIN ZONE Z ON Z.ZONE = F.ZONE "
    "JOIN DST D ON D.DSTID = P.DSTID LEFT JOIN CITY_FACT A ON A.ID = C.ID "
    "LEFT JOIN CITY_CHECKSUM S ON S.ID = C.ID";

/// The facts of the place ?1.
inline const std::string cityRecordSql = std::string(cityRecordsSql) + " WHERE C.ID = ?1";

/// The zone of the name ?1 and its most populous place. The last column is the stored checksum of the others.
inline constexpr const char* zoneCitySql =
    "SELECT N.NAME, Z.NAME, Z.LARGEST, N.CHECKSUM FROM ZONE_NAME N JOIN ZONE Z ON Z.ZONE = N.ZONE WHERE N.NAME = ?1";

/// The checksum of all columns of a row except the last: FNV-1a, 32 bits, over the texts of the columns, each with a final
/// zero byte. Every change of one byte changes it; other changes go unnoticed with a probability of 1 in 2^32. Fixed: it
/// is stored in the city database.
std::uint32_t rowChecksum(sqlite3_stmt* row);

/// True when the last column of a row is the checksum of the others.
bool isIntact(sqlite3_stmt* row);

}  // namespace quode
