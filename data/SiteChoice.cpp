// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/SiteChoice.h"

#include <optional>
#include <set>
#include <string>

#include "data/sqlite_reading.h"

namespace quode {
namespace {

constexpr const char* methodQuery = "SELECT METHOD, HEIGHT FROM USER_METHOD WHERE CITYID = ?1";
constexpr const char* iqamaQuery = "SELECT TIMES FROM USER_IQAMA WHERE CITYID = ?1";
constexpr const char* nameQuery = "SELECT NAME FROM USER_TIMETABLE WHERE CITYID = ?1";
constexpr const char* rowsQuery = "SELECT DAY, TIMES FROM USER_TIMETABLE_ROW WHERE CITYID = ?1";
constexpr const char* tablesQuery = "SELECT UPPER(name) FROM sqlite_schema WHERE type = 'table'";
constexpr int lockPatienceMs = 200;  // for programs that draw

void markUnreadable(SiteChoice& choice, int result) {
    choice.isUnreadable = true;
    choice.isLocked = result == SQLITE_BUSY || result == SQLITE_LOCKED;
}

using Tables = std::set<std::string>;

/// The tables that there are, in capitals: each is created with its first choice. Where they cannot be read, nothing can.
std::optional<Tables> tablesOf(sqlite3* database, SiteChoice& choice) {
    const sqlite::Statement row = sqlite::prepare(database, tablesQuery);
    int result = row ? sqlite3_step(row.get()) : sqlite3_errcode(database);
    Tables tables;
    for (; result == SQLITE_ROW; result = sqlite3_step(row.get())) tables.insert(sqlite::text(row.get(), 0));
    if (result == SQLITE_DONE) return tables;
    markUnreadable(choice, result);
    return std::nullopt;
}

/// The rows of a table that belong to a city; none without the table. A table that cannot be read makes the choice unreadable, for
/// the times would silently be those of another method.
class RowsOfCity {
  public:
    RowsOfCity(sqlite3* database, const Tables& tables, const char* table, const char* sql, int cityId,
               SiteChoice& choice)
        : choice_(choice), statement_(tables.contains(table) ? sqlite::prepare(database, sql) : nullptr) {
        if (statement_) sqlite3_bind_int(statement_.get(), 1, cityId);
        if (!statement_ && tables.contains(table)) markUnreadable(choice_, sqlite3_errcode(database));
    }

    bool next() {
        const int result = statement_ ? sqlite3_step(statement_.get()) : SQLITE_DONE;
        if (result != SQLITE_ROW && result != SQLITE_DONE) markUnreadable(choice_, result);
        return result == SQLITE_ROW;
    }

    sqlite3_stmt* row() const { return statement_.get(); }

  private:
    SiteChoice& choice_;
    sqlite::Statement statement_;
};

void readMethod(sqlite3* database, const Tables& tables, int cityId, SiteChoice& choice) {
    RowsOfCity found(database, tables, "USER_METHOD", methodQuery, cityId, choice);
    if (!found.next()) return;
    const auto method = conventions::methodOf(sqlite::text(found.row(), 0));
    if (!method) choice.isUnreadable = true;
    choice.isChosen = true;
    if (method) choice.method = *method;
    choice.height = sqlite3_column_double(found.row(), 1);
}

void readTable(sqlite3* database, const Tables& tables, int cityId, SiteChoice& choice) {
    RowsOfCity name(database, tables, "USER_TIMETABLE", nameQuery, cityId, choice);
    if (!name.next()) return;
    auto table = std::make_shared<Timetable>();
    table->name = sqlite::text(name.row(), 0);
    RowsOfCity rows(database, tables, "USER_TIMETABLE_ROW", rowsQuery, cityId, choice);
    while (rows.next()) {
        const auto row = timetableRowOf(sqlite::text(rows.row(), 1));
        if (!row) choice.isUnreadable = true;
        if (row) table->rows.emplace(sqlite3_column_int(rows.row(), 0), *row);
    }
    choice.table = std::move(table);
    choice.isChosen = true;
}

void readIqama(sqlite3* database, const Tables& tables, int cityId, SiteChoice& choice) {
    RowsOfCity found(database, tables, "USER_IQAMA", iqamaQuery, cityId, choice);
    if (!found.next()) return;
    const auto rules = iqamaRulesOf(sqlite::text(found.row(), 0));
    if (!rules) choice.isUnreadable = true;
    if (rules) choice.iqama = *rules;
}

}  // namespace

SiteChoice readSiteChoice(sqlite3* userDatabase, int cityId) {
    SiteChoice choice;
    const std::optional<Tables> tables = tablesOf(userDatabase, choice);
    if (!tables) return choice;
    readMethod(userDatabase, *tables, cityId, choice);
    readTable(userDatabase, *tables, cityId, choice);
    readIqama(userDatabase, *tables, cityId, choice);
    return choice;
}

SiteChoice readSiteChoice(const std::filesystem::path& userDatabase, int cityId) {
    SiteChoice unreadable;
    unreadable.isUnreadable = true;
    if (!sqlite::isSafeToOpen(userDatabase)) return unreadable;
    std::error_code ignored;
    if (!std::filesystem::exists(userDatabase, ignored)) return {};
    sqlite3* opened = nullptr;
    const int result = sqlite3_open_v2(userDatabase.c_str(), &opened, SQLITE_OPEN_READONLY, nullptr);
    const sqlite::Database database(opened);
    if (result != SQLITE_OK) return unreadable;
    sqlite3_busy_timeout(database.get(), lockPatienceMs);
    return readSiteChoice(database.get(), cityId);
}

}  // namespace quode
