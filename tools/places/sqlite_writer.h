// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

struct sqlite3;
struct sqlite3_stmt;

namespace quode::places {

/// Bytes that are no text.
struct Blob {
    std::string_view bytes;
};

/// A value of a cell; std::monostate is NULL.
using Cell = std::variant<std::monostate, long, std::string_view, Blob>;

/// A database file that is being built. Everything it throws is std::runtime_error.
class SqliteWriter {
  public:
    /// Creates an empty file; one of that name is removed.
    /// @param reserved  bytes that stay free at the end of each page
    explicit SqliteWriter(const std::filesystem::path& file, int reserved = 0);

    void execute(const std::string& sql);

    struct Finalize {
        void operator()(sqlite3_stmt* statement) const;
    };

    /// Adds rows to one table, in the order in which they shall lie in the file.
    class Table {
      public:
        void add(std::initializer_list<Cell> row);

      private:
        friend class SqliteWriter;
        std::unique_ptr<sqlite3_stmt, Finalize> insert_;
    };
    Table table(const std::string& name, int columns);

    /// A statement that is run many times.
    class Query {
      public:
        /// Runs it with these values.
        /// @return its first row, valid until it is run again; it must have one when it reads
        sqlite3_stmt* first(std::initializer_list<Cell> values);

      private:
        friend class SqliteWriter;
        std::unique_ptr<sqlite3_stmt, Finalize> statement_;
    };
    Query query(const std::string& sql);

  private:
    struct Close {
        void operator()(sqlite3* database) const;
    };
    std::unique_ptr<sqlite3_stmt, Finalize> prepared(const std::string& sql);

    std::unique_ptr<sqlite3, Close> database_;
};

}  // namespace quode::places
