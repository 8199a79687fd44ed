// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

namespace quode {

/// The identification of a city database: SQLite's `application_id` and `user_version`. The edition changes with every
/// change of the tables or of the folding of names.
inline constexpr int cityDatabaseApplicationId = 0x51554F44;  // "QUOD"
inline constexpr int cityDatabaseEdition = 7;

/// The kind of a row of CITY_NAME. Fixed values: stored in the database.
enum class NameKind {
    own = 0,        ///< a spelling of the place's main name
    other = 1,      ///< a former or alternative name
    ownWord = 2,    ///< its main name from a later word on
    otherWord = 3,  ///< an alternative name from a later word on
};

/// The tables. The first four, whose names and columns are fixed, are the facts of a `City`; the others serve search,
/// display and the check of the zones.
/// CLOCK of ZONE is the text of its clock from 2020 on, see `SystemZone::parseText`.
/// FOLDED columns hold names as `foldedName` gives them. LATITUDE and LONGITUDE of CITY_POINT count hundred-thousandths
/// of a degree. BEGINNING lists, for texts with which very many names begin, the best rows of CITY_NAME. NAME_GROUP holds
/// the whole names of CITY_NAME grouped by length in bytes, as `nameGroup` writes them. CHECKSUM columns hold the
/// `rowChecksum` of `cityRecordSql` and of `zoneCitySql`. Each page of the file ends with its own checksum, see
/// "data/page_checksum.h".
inline constexpr const char* cityDatabaseTables = R"sql(
CREATE TABLE CITY (ID INTEGER PRIMARY KEY, NAME TEXT NOT NULL, LAT TEXT NOT NULL, LON TEXT NOT NULL,
  TEMKIN INTEGER NOT NULL, PARENT INTEGER NOT NULL);
CREATE TABLE CITY_PARENT (PARENT INTEGER PRIMARY KEY, NAME TEXT NOT NULL, GMT TEXT NOT NULL, CID INTEGER NOT NULL,
  DSTID INTEGER NOT NULL);
CREATE TABLE COUNTRY (CID INTEGER PRIMARY KEY, NAMEEN TEXT NOT NULL, NAMETR TEXT NOT NULL);
CREATE TABLE DST (DSTID INTEGER PRIMARY KEY, DST INTEGER NOT NULL, STARTMONTH INTEGER NOT NULL, STARTDAY INTEGER NOT NULL,
  STOPMONTH INTEGER NOT NULL, STOPDAY INTEGER NOT NULL, HOUR INTEGER NOT NULL);

CREATE TABLE CITY_FACT (ID INTEGER PRIMARY KEY, POPULATION INTEGER NOT NULL, ELEVATION INTEGER);
CREATE TABLE PARENT_FACT (PARENT INTEGER PRIMARY KEY, CODE TEXT NOT NULL, FOLDED TEXT NOT NULL, ZONE INTEGER NOT NULL);
CREATE TABLE COUNTRY_FACT (CID INTEGER PRIMARY KEY, CODE TEXT NOT NULL, FOLDEDEN TEXT NOT NULL, FOLDEDTR TEXT NOT NULL);
CREATE TABLE ZONE (ZONE INTEGER PRIMARY KEY, NAME TEXT NOT NULL, GMT TEXT NOT NULL, DSTID INTEGER NOT NULL,
  LARGEST INTEGER NOT NULL, CLOCK TEXT NOT NULL);
CREATE TABLE ZONE_NAME (NAME TEXT PRIMARY KEY, ZONE INTEGER NOT NULL, CHECKSUM INTEGER NOT NULL) WITHOUT ROWID;
CREATE TABLE CITY_CHECKSUM (ID INTEGER PRIMARY KEY, CHECKSUM INTEGER NOT NULL);
CREATE TABLE CITY_NAME (FOLDED TEXT NOT NULL, ID INTEGER NOT NULL, KIND INTEGER NOT NULL, POPULATION INTEGER NOT NULL,
  PARENT INTEGER NOT NULL, PRIMARY KEY (FOLDED, ID)) WITHOUT ROWID;
CREATE TABLE BEGINNING (TEXT TEXT NOT NULL, FOLDED TEXT NOT NULL, ID INTEGER NOT NULL,
  PRIMARY KEY (TEXT, FOLDED, ID)) WITHOUT ROWID;
CREATE TABLE NAME_GROUP (LENGTH INTEGER PRIMARY KEY, NAMES BLOB NOT NULL);
CREATE TABLE OTHER_NAME (ID INTEGER NOT NULL, NAME TEXT NOT NULL, PRIMARY KEY (ID, NAME)) WITHOUT ROWID;
CREATE TABLE CITY_POINT (LATITUDE INTEGER NOT NULL, LONGITUDE INTEGER NOT NULL, ID INTEGER NOT NULL,
  PRIMARY KEY (LATITUDE, LONGITUDE, ID)) WITHOUT ROWID;
CREATE TABLE EDITION (WHAT TEXT PRIMARY KEY, EDITION TEXT NOT NULL) WITHOUT ROWID;
)sql";

}  // namespace quode
