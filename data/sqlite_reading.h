// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <sqlite3.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace quode::sqlite {

/// Statements and databases that close themselves.
struct Finalize {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, Finalize>;

struct Close {
    void operator()(sqlite3* database) const { sqlite3_close(database); }
};
using Database = std::unique_ptr<sqlite3, Close>;

/// Opens a file that no program writes: read-only, without locks or helper files. Creates nothing.
/// @return null when that fails; a file that is not a database fails only in the first query
/// @param fileSystem  of SQLite; empty: that of the machine
Database openUnchanging(const std::filesystem::path& file, const std::string& fileSystem = {});

/// True when a database and the helper files of SQLite, as far as they exist, are regular files. SQLite would wait forever
/// for a pipe in their place.
bool isSafeToOpen(const std::filesystem::path& file);

/// The first of these files that is there and no regular file; nothing when all are safe.
std::optional<std::filesystem::path> unsafeFile(const std::filesystem::path& file);

/// Prepares a query; null when that fails.
Statement prepare(sqlite3* database, const std::string& sql);

/// The text of a column; empty for NULL.
std::string text(sqlite3_stmt* row, int column);

}  // namespace quode::sqlite
