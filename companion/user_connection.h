// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "data/sqlite_reading.h"

namespace quode {

/// A value for a placeholder "?" of a statement.
using SqlValue = std::variant<long long, double, std::string>;

/// The open user database. Every failure is a `UserDatabaseError` whose message names the file.
///
/// Changes are kept by SQLite's rollback journal, not by a write-ahead log: other programs open the file for each
/// single operation, so that the log would be made and cleared away each time; and a log cannot be read in a folder
/// that may not be written.
class UserConnection {
  public:
    using FirstCity = std::function<std::optional<int>()>;

    /// Opens the file and makes sure that it is whole and has all tables; see `UserDatabase`. What the user should know
    /// is added to `notices`. `patience` is how long to wait for
    /// another program that keeps the file locked; `firstCity` names the city with which a new file begins. A file that
    /// is not to last is written without waiting for the disk.
    UserConnection(const std::filesystem::path& file, std::chrono::milliseconds patience, const FirstCity& firstCity,
                   std::vector<std::string>& notices, bool isToLast = true);

    /// Opens a file that is there, to read from it: nothing is created, changed or repaired.
    UserConnection(const std::filesystem::path& file, std::chrono::milliseconds patience);

    /// Opens a file to read from it what it holds while another program keeps it locked, see `committedState`.
    struct BehindLock {};
    UserConnection(const std::filesystem::path& file, BehindLock);

    /// Names the state of a file that holds whole changes only; it changes with every change. Nothing while another
    /// program is writing a change into it, or was cut off in doing so.
    static std::optional<std::string> committedState(const std::filesystem::path& file);

    /// Whether the file holds no table at all, as one does that is about to be made.
    bool isEmpty() const;

    /// The first fault that a check of the whole file finds; nothing when it is whole.
    std::optional<std::string> fault() const;

    /// Whether the file was removed or replaced since it was opened.
    bool isOfAnotherFile() const;

    /// Whether the file was made just now.
    bool isNew() const { return isNew_; }
    const std::filesystem::path& file() const { return file_; }

    /// How long to wait from now on for another program that keeps the file locked.
    void setPatience(std::chrono::milliseconds patience);

    sqlite3* handle() const { return database_.get(); }

    /// A query, to be stepped through with `next`.
    sqlite::Statement query(const std::string& sql, std::initializer_list<SqlValue> values = {}) const;

    /// Goes to the next row; false after the last one.
    bool next(const sqlite::Statement& statement) const;

    /// Runs one statement.
    void run(const std::string& sql, std::initializer_list<SqlValue> values = {});

    /// Does changes altogether, or none of them when one throws. Within another call it is part of that.
    void change(const std::function<void()>& changes);

    /// Reads several things as they are at one moment, also while other programs change them.
    void read(const std::function<void()>& reading);

  private:
    enum class Health { good, damaged };

    [[noreturn]] void fail(int code) const;
    void open(int flags);
    void removeStaleJournal();
    void checkToRead() const;
    void refuseLaterEdition(int edition) const;
    Health check(const FirstCity& firstCity);
    bool hasAllColumns() const;
    bool hasAllAlarms() const;
    void createTables(const FirstCity& firstCity);
    void replaceDamaged(const FirstCity& firstCity, std::vector<std::string>& notices);
    void noteLostAlarms() const;
    std::filesystem::path keepAside() const;
    std::filesystem::path makeFresh(const FirstCity& firstCity);
    int readInteger(const std::string& sql) const;

    std::filesystem::path file_;
    std::chrono::milliseconds patience_;
    sqlite::Database database_;
    bool isNew_ = false;
    bool onlyReads_ = false;
    bool isToLast_ = true;
    bool isChanging_ = false;
};

}  // namespace quode
