// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "tools/places/sqlite_writer.h"

#include <sqlite3.h>

#include <stdexcept>

namespace quode::places {
namespace {

[[noreturn]] void fail(sqlite3* database, const std::string& doing) {
    throw std::runtime_error(doing + ": " + sqlite3_errmsg(database));
}

void bind(sqlite3_stmt* statement, int index, const Cell& cell) {
    if (const long* number = std::get_if<long>(&cell)) {
        sqlite3_bind_int64(statement, index, *number);
    } else if (const std::string_view* text = std::get_if<std::string_view>(&cell)) {
        sqlite3_bind_text(statement, index, text->data(), static_cast<int>(text->size()), SQLITE_STATIC);
    } else if (const Blob* blob = std::get_if<Blob>(&cell)) {
        sqlite3_bind_blob64(statement, index, blob->bytes.data(), blob->bytes.size(), SQLITE_STATIC);
    } else {
        sqlite3_bind_null(statement, index);
    }
}

}  // namespace

void SqliteWriter::Close::operator()(sqlite3* database) const {
    sqlite3_close(database);
}
void SqliteWriter::Finalize::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

SqliteWriter::SqliteWriter(const std::filesystem::path& file, int reserved) {
    std::filesystem::remove(file);
    sqlite3* opened = nullptr;
    const int result = sqlite3_open_v2(file.c_str(), &opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    database_.reset(opened);
    if (result != SQLITE_OK) fail(opened, "cannot create " + file.string());
    if (sqlite3_file_control(opened, nullptr, SQLITE_FCNTL_RESERVE_BYTES, &reserved) != SQLITE_OK) {
        fail(opened, "cannot reserve bytes in " + file.string());
    }
}

void SqliteWriter::execute(const std::string& sql) {
    if (sqlite3_exec(database_.get(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) fail(database_.get(), sql);
}

SqliteWriter::Table SqliteWriter::table(const std::string& name, int columns) {
    std::string sql = "INSERT INTO " + name + " VALUES(?";
    for (int i = 1; i < columns; ++i) sql += ",?";
    sql += ")";
    Table table;
    table.insert_ = prepared(sql);
    return table;
}

SqliteWriter::Query SqliteWriter::query(const std::string& sql) {
    Query query;
    query.statement_ = prepared(sql);
    return query;
}

std::unique_ptr<sqlite3_stmt, SqliteWriter::Finalize> SqliteWriter::prepared(const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(database_.get(), sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) {
        fail(database_.get(), sql);
    }
    return std::unique_ptr<sqlite3_stmt, Finalize>(statement);
}

sqlite3_stmt* SqliteWriter::Query::first(std::initializer_list<Cell> values) {
    sqlite3_stmt* const statement = statement_.get();
    sqlite3_reset(statement);
    int index = 0;
    for (const Cell& cell : values) bind(statement, ++index, cell);
    const bool reads = sqlite3_stmt_readonly(statement) != 0;
    if (sqlite3_step(statement) != (reads ? SQLITE_ROW : SQLITE_DONE)) {
        fail(sqlite3_db_handle(statement), sqlite3_sql(statement));
    }
    return statement;
}

void SqliteWriter::Table::add(std::initializer_list<Cell> row) {
    int index = 0;
    for (const Cell& cell : row) bind(insert_.get(), ++index, cell);
    const int result = sqlite3_step(insert_.get());
    sqlite3_reset(insert_.get());
    if (result != SQLITE_DONE) fail(sqlite3_db_handle(insert_.get()), sqlite3_sql(insert_.get()));
}

}  // namespace quode::places
