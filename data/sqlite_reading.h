// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <sqlite3.h>

#include <filesystem>
#include <memory>
#include <string>

namespace quode::sqlite {

struct Finalize {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, Finalize>;

struct Close {
    void operator()(sqlite3* database) const { sqlite3_close(database); }
};
using Database = std::unique_ptr<sqlite3, Close>;

/// Opens a file that nobody writes to: read-only and without locks or helper files beside it. Nothing is created. The
/// handle is null when that fails; a file that is no database shows it only in the first query.
Database openUnchanging(const std::filesystem::path& file);

/// Whether a database and the files that SQLite keeps beside it are regular files, as far as they are there. SQLite
/// would wait for ever for a pipe in the place of one.
bool isSafeToOpen(const std::filesystem::path& file);

/// Prepares a query; null when that fails.
Statement prepare(sqlite3* database, const std::string& sql);

/// The text of a column; empty for NULL.
std::string text(sqlite3_stmt* row, int column);

}  // namespace quode::sqlite
