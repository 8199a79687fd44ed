// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/SiteChoice.h"

#include "data/sqlite_reading.h"

namespace quode {
namespace {

constexpr const char* methodQuery = "SELECT METHOD, HEIGHT FROM USER_METHOD WHERE CITYID = ?1";
constexpr const char* iqamaQuery = "SELECT TIMES FROM USER_IQAMA WHERE CITYID = ?1";
constexpr const char* nameQuery = "SELECT NAME FROM USER_TIMETABLE WHERE CITYID = ?1";
constexpr const char* rowsQuery = "SELECT DAY, TIMES FROM USER_TIMETABLE_ROW WHERE CITYID = ?1";
constexpr int lockPatienceMs = 200;  // for programs that draw

/// A query for a city; null when the table does not exist yet.
sqlite::Statement queryOf(sqlite3* database, const char* sql, int cityId) {
    sqlite::Statement statement = sqlite::prepare(database, sql);
    if (statement) sqlite3_bind_int(statement.get(), 1, cityId);
    return statement;
}

void readMethod(sqlite3* database, int cityId, SiteChoice& choice) {
    const sqlite::Statement row = queryOf(database, methodQuery, cityId);
    if (!row || sqlite3_step(row.get()) != SQLITE_ROW) return;
    const auto method = conventions::methodOf(sqlite::text(row.get(), 0));
    choice.isUnreadable = !method;
    choice.isChosen = true;
    if (method) choice.method = *method;
    choice.height = sqlite3_column_double(row.get(), 1);
}

void readTable(sqlite3* database, int cityId, SiteChoice& choice) {
    const sqlite::Statement name = queryOf(database, nameQuery, cityId);
    if (!name || sqlite3_step(name.get()) != SQLITE_ROW) return;
    auto table = std::make_shared<Timetable>();
    table->name = sqlite::text(name.get(), 0);
    const sqlite::Statement rows = queryOf(database, rowsQuery, cityId);
    while (rows && sqlite3_step(rows.get()) == SQLITE_ROW) {
        const auto row = timetableRowOf(sqlite::text(rows.get(), 1));
        if (!row) choice.isUnreadable = true;
        if (row) table->rows.emplace(sqlite3_column_int(rows.get(), 0), *row);
    }
    choice.table = std::move(table);
    choice.isChosen = true;
}

void readIqama(sqlite3* database, int cityId, SiteChoice& choice) {
    const sqlite::Statement row = queryOf(database, iqamaQuery, cityId);
    if (!row || sqlite3_step(row.get()) != SQLITE_ROW) return;
    const auto rules = iqamaRulesOf(sqlite::text(row.get(), 0));
    if (!rules) choice.isUnreadable = true;
    if (rules) choice.iqama = *rules;
}

}  // namespace

SiteChoice readSiteChoice(sqlite3* userDatabase, int cityId) {
    SiteChoice choice;
    readMethod(userDatabase, cityId, choice);
    readTable(userDatabase, cityId, choice);
    readIqama(userDatabase, cityId, choice);
    return choice;
}

SiteChoice readSiteChoice(const std::filesystem::path& userDatabase, int cityId) {
    sqlite3* opened = nullptr;
    const int result = sqlite3_open_v2(userDatabase.c_str(), &opened, SQLITE_OPEN_READONLY, nullptr);
    const sqlite::Database database(opened);
    if (result != SQLITE_OK) return {};
    sqlite3_busy_timeout(database.get(), lockPatienceMs);
    return readSiteChoice(database.get(), cityId);
}

}  // namespace quode
