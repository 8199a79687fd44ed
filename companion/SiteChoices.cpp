// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "companion/SiteChoices.h"

#include <set>
#include <string>

#include "companion/UserDatabase.h"
#include "companion/user_connection.h"
#include "texts/translation.h"

namespace quode {
namespace {

constexpr const char* tables[] = {
    "CREATE TABLE IF NOT EXISTS USER_METHOD (CITYID INTEGER PRIMARY KEY, METHOD TEXT NOT NULL, HEIGHT REAL NOT NULL)",
    "CREATE TABLE IF NOT EXISTS USER_TIMETABLE (CITYID INTEGER PRIMARY KEY, NAME TEXT NOT NULL)",
    R"sql(CREATE TABLE IF NOT EXISTS USER_TIMETABLE_ROW (CITYID INTEGER NOT NULL, DAY INTEGER NOT NULL,
  TIMES TEXT NOT NULL, PRIMARY KEY (CITYID, DAY)) WITHOUT ROWID)sql",
    "CREATE TABLE IF NOT EXISTS USER_IQAMA (CITYID INTEGER PRIMARY KEY, TIMES TEXT NOT NULL)",
};

void createTables(UserConnection& connection) {
    for (const char* table : tables) connection.run(table);
}

void removeTimetable(UserConnection& connection, int cityId) {
    connection.run("DELETE FROM USER_TIMETABLE WHERE CITYID = ?", {cityId});
    connection.run("DELETE FROM USER_TIMETABLE_ROW WHERE CITYID = ?", {cityId});
}

}  // namespace

std::string choiceProblem(const CityRecord& city) {
    if (!city.choice.isUnreadable) return {};
    return city.choice.isLocked
               ? _("The method of {} cannot be read: another program writes the user database. Try again.", city.name)
               : _("What is stored about the method of {} cannot be read. Choose it again: quode method set KEY",
                   city.name);
}

void requireReadableChoice(const CityRecord& city) {
    using Reason = UserDatabaseError::Reason;
    if (const std::string problem = choiceProblem(city); !problem.empty()) {
        throw UserDatabaseError(city.choice.isLocked ? Reason::locked : Reason::failed, problem);
    }
}

void storeMethod(UserConnection& connection, int cityId, const conventions::Method& method, double height) {
    connection.change([&] {
        createTables(connection);
        connection.run("INSERT OR REPLACE INTO USER_METHOD (CITYID, METHOD, HEIGHT) VALUES (?, ?, ?)",
                       {cityId, textOf(method), height});
    });
}

void storeTimetable(UserConnection& connection, int cityId, const Timetable& table) {
    connection.change([&] {
        createTables(connection);
        removeTimetable(connection, cityId);
        connection.run("INSERT INTO USER_TIMETABLE (CITYID, NAME) VALUES (?, ?)", {cityId, table.name});
        for (const auto& [day, row] : table.rows) {
            connection.run("INSERT INTO USER_TIMETABLE_ROW (CITYID, DAY, TIMES) VALUES (?, ?, ?)",
                           {cityId, day, textOf(row)});
        }
    });
}

void storeIqama(UserConnection& connection, int cityId, const IqamaRules& rules) {
    connection.change([&] {
        createTables(connection);
        connection.run("INSERT OR REPLACE INTO USER_IQAMA (CITYID, TIMES) VALUES (?, ?)", {cityId, textOf(rules)});
    });
}

void storeSiteChoice(UserConnection& connection, int cityId, const SiteChoice& choice) {
    if (!choice.method.isDefault()) storeMethod(connection, cityId, choice.method, choice.height);
    if (choice.table && !choice.table->rows.empty()) storeTimetable(connection, cityId, *choice.table);
    if (choice.iqama != IqamaRules{}) storeIqama(connection, cityId, choice.iqama);
}

void forgetTimetable(UserConnection& connection, int cityId) {
    connection.change([&] {
        createTables(connection);
        removeTimetable(connection, cityId);
    });
}

void salvageSiteChoices(UserConnection& connection, const std::filesystem::path& damaged) {
    sqlite3* opened = nullptr;
    sqlite3_open_v2(damaged.c_str(), &opened, SQLITE_OPEN_READONLY, nullptr);
    const sqlite::Database database(opened);
    std::set<int> ids;
    for (const std::string table : {"USER_METHOD", "USER_TIMETABLE", "USER_IQAMA"}) {
        const sqlite::Statement row = sqlite::prepare(opened, "SELECT CITYID FROM " + table + " WHERE CITYID >= 0");
        while (row && sqlite3_step(row.get()) == SQLITE_ROW) ids.insert(sqlite3_column_int(row.get(), 0));
    }
    for (const int id : ids) {
        const SiteChoice choice = readSiteChoice(opened, id);
        if (!conventions::problemOf(choice.method)) storeSiteChoice(connection, id, choice);
    }
}

void forgetSiteChoice(UserConnection& connection, int cityId) {
    connection.change([&] {
        createTables(connection);
        removeTimetable(connection, cityId);
        connection.run("DELETE FROM USER_METHOD WHERE CITYID = ?", {cityId});
        connection.run("DELETE FROM USER_IQAMA WHERE CITYID = ?", {cityId});
    });
}

}  // namespace quode
