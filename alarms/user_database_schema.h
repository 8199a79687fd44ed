// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The user database as SQL.
//
// Fixed values: names of tables, columns and settings, the codes and texts in them. The databases of users have them, and
// the widget reads them; a change needs a new edition and a migration in companion/user_connection.cpp.
#pragma once

namespace quode {

/// What the user database is known by: SQLite's `user_version`. It changes with every change of the tables.
inline constexpr int userDatabaseEdition = 2;

/// The tables. The widget reads USER_CITY without asking for an order: it gets the rows by POSITION, for no index holds
/// both of the columns that it reads. Instants are seconds since 1970, UTC.
inline constexpr const char* userDatabaseTables = R"sql(
CREATE TABLE IF NOT EXISTS USER_CITY (POSITION INTEGER PRIMARY KEY, ID INTEGER NOT NULL UNIQUE,
  SETASHOME INTEGER NOT NULL DEFAULT 0);
CREATE TABLE IF NOT EXISTS USER_ALARMS (TIMEID INTEGER PRIMARY KEY, MINUTE INTEGER NOT NULL DEFAULT 0,
  PRAYTIME REAL NOT NULL DEFAULT 0, MELODYTIME INTEGER NOT NULL DEFAULT 0, MELODYNAME TEXT NOT NULL DEFAULT '',
  ACTIVE INTEGER NOT NULL DEFAULT 0, EVENTID TEXT NOT NULL DEFAULT '');
CREATE TABLE IF NOT EXISTS USER_PLACE (ID INTEGER PRIMARY KEY, NAME TEXT NOT NULL, LATITUDE REAL NOT NULL,
  LONGITUDE REAL NOT NULL, ZONE TEXT NOT NULL);
CREATE TABLE IF NOT EXISTS USER_SETTING (NAME TEXT PRIMARY KEY, VALUE TEXT NOT NULL);
CREATE TABLE IF NOT EXISTS USER_RING (TIMEID INTEGER NOT NULL, DUE INTEGER NOT NULL, PRAYER INTEGER NOT NULL,
  HOURS REAL NOT NULL, DAY TEXT NOT NULL, STATE INTEGER NOT NULL, RINGAT INTEGER NOT NULL, NOTIFICATION INTEGER NOT NULL,
  PRIMARY KEY (TIMEID, DUE));
)sql";

/// The sound of an alarm that rings with the sound of the settings. A widget takes an alarm without any sound for one
/// that is not set up.
inline constexpr const char* usualSound = "default";

/// Up to edition 1 such an alarm had no sound.
inline constexpr const char* userDatabaseSounds = "UPDATE USER_ALARMS SET MELODYNAME = ? WHERE MELODYNAME = ''";

/// Adds the row of an alarm that has none.
inline constexpr const char* userDatabaseAlarmRow =
    "INSERT INTO USER_ALARMS (TIMEID, MELODYNAME) SELECT ?1, ?2 WHERE ?1 NOT IN (SELECT TIMEID FROM USER_ALARMS)";

/// The setting that holds the number of the home city while that is a guess.
inline constexpr const char* guessedHomeSetting = "home.guessed";

/// Fails on a file that lacks one of the columns.
inline constexpr const char* userDatabaseColumns[] = {
    "SELECT ID, SETASHOME FROM USER_CITY",
    "SELECT TIMEID, MINUTE, PRAYTIME, MELODYTIME, MELODYNAME, ACTIVE, EVENTID FROM USER_ALARMS",
    "SELECT ID, NAME, LATITUDE, LONGITUDE, ZONE FROM USER_PLACE",
    "SELECT NAME, VALUE FROM USER_SETTING",
    "SELECT TIMEID, DUE, PRAYER, HOURS, DAY, STATE, RINGAT, NOTIFICATION FROM USER_RING",
};

}  // namespace quode
