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
constexpr const char* tablesQuery =
    "SELECT COUNT(*) FROM sqlite_schema"
    " WHERE type = 'table' AND name IN ('USER_METHOD', 'USER_TIMETABLE', 'USER_IQAMA')";
constexpr int lockPatienceMs = 200;  // for programs that draw

void markUnreadable(SiteChoice& choice, int result) {
    choice.isUnreadable = true;
    choice.isLocked = result == SQLITE_BUSY || result == SQLITE_LOCKED;
}

/// The rows of a table that belong to a city. A table that does not exist yet has none; one that cannot be read makes the
/// choice unreadable, for the times would silently be those of another method.
class RowsOfCity {
  public:
    RowsOfCity(sqlite3* database, const char* table, const char* sql, int cityId, SiteChoice& choice)
        : choice_(choice), statement_(sqlite::prepare(database, sql)) {
        if (statement_) sqlite3_bind_int(statement_.get(), 1, cityId);
        if (!statement_ && !isMissing(database, table)) markUnreadable(choice_, sqlite3_errcode(database));
    }

    bool next() {
        const int result = statement_ ? sqlite3_step(statement_.get()) : SQLITE_DONE;
        if (result != SQLITE_ROW && result != SQLITE_DONE) markUnreadable(choice_, result);
        return result == SQLITE_ROW;
    }

    sqlite3_stmt* row() const { return statement_.get(); }

  private:
    // A schema that cannot be read gives the same error as one without the table.
    static bool isMissing(sqlite3* database, const char* table) {
        const sqlite::Statement row =
            sqlite::prepare(database, "SELECT COUNT(*) FROM sqlite_schema WHERE type = 'table' AND name = ?1");
        if (!row) return false;
        sqlite3_bind_text(row.get(), 1, table, -1, SQLITE_STATIC);
        return sqlite3_step(row.get()) == SQLITE_ROW && sqlite3_column_int(row.get(), 0) == 0;
    }

    SiteChoice& choice_;
    sqlite::Statement statement_;
};

/// Whether there is anything to read; for most users there is not, because a table is created with the first choice. Where that
/// cannot be read, nothing can: another wait for the same lock is spared.
bool holdsChoices(sqlite3* database, SiteChoice& choice) {
    const sqlite::Statement count = sqlite::prepare(database, tablesQuery);
    const int result = count ? sqlite3_step(count.get()) : sqlite3_errcode(database);
    if (result != SQLITE_ROW) markUnreadable(choice, result);
    return result == SQLITE_ROW && sqlite3_column_int(count.get(), 0) > 0;
}

void readMethod(sqlite3* database, int cityId, SiteChoice& choice) {
    RowsOfCity found(database, "USER_METHOD", methodQuery, cityId, choice);
    if (!found.next()) return;
    const auto method = conventions::methodOf(sqlite::text(found.row(), 0));
    if (!method) choice.isUnreadable = true;
    choice.isChosen = true;
    if (method) choice.method = *method;
    choice.height = sqlite3_column_double(found.row(), 1);
}

void readTable(sqlite3* database, int cityId, SiteChoice& choice) {
    RowsOfCity name(database, "USER_TIMETABLE", nameQuery, cityId, choice);
    if (!name.next()) return;
    auto table = std::make_shared<Timetable>();
    table->name = sqlite::text(name.row(), 0);
    RowsOfCity rows(database, "USER_TIMETABLE_ROW", rowsQuery, cityId, choice);
    while (rows.next()) {
        const auto row = timetableRowOf(sqlite::text(rows.row(), 1));
        if (!row) choice.isUnreadable = true;
        if (row) table->rows.emplace(sqlite3_column_int(rows.row(), 0), *row);
    }
    choice.table = std::move(table);
    choice.isChosen = true;
}

void readIqama(sqlite3* database, int cityId, SiteChoice& choice) {
    RowsOfCity found(database, "USER_IQAMA", iqamaQuery, cityId, choice);
    if (!found.next()) return;
    const auto rules = iqamaRulesOf(sqlite::text(found.row(), 0));
    if (!rules) choice.isUnreadable = true;
    if (rules) choice.iqama = *rules;
}

}  // namespace

SiteChoice readSiteChoice(sqlite3* userDatabase, int cityId) {
    SiteChoice choice;
    if (!holdsChoices(userDatabase, choice)) return choice;
    readMethod(userDatabase, cityId, choice);
    readTable(userDatabase, cityId, choice);
    readIqama(userDatabase, cityId, choice);
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
