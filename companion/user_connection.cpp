// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "companion/user_connection.h"

#include <fcntl.h>
#include <unistd.h>

#include <utility>

#include "alarms/AlarmJournal.h"
#include "alarms/user_database_schema.h"
#include "companion/SiteChoices.h"
#include "companion/UserDatabase.h"
#include "platform/LockedFile.h"
#include "platform/file_kind.h"
#include "platform/private_folder.h"
#include "texts/translation.h"

namespace quode {
namespace {

namespace fs = std::filesystem;
using Reason = UserDatabaseError::Reason;

constexpr int toChange = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;

int primaryCode(int code) {
    return code & 0xFF;
}

bool meansDamage(int code) {
    return primaryCode(code) == SQLITE_CORRUPT || primaryCode(code) == SQLITE_NOTADB;
}

// Keeps other programs from repairing the same file at the same time. Without it, two damaged copies are kept at worst, so
// a missing lock is no failure.
LockedFile lockedFolder(const fs::path& folder) {
    LockedFile locked = LockedFile::folder(folder);
    if (locked.isOpen()) locked.lock(std::nullopt);
    return locked;
}

void createFolder(const fs::path& folder) {
    const std::error_code error = createPrivateFolders(folder);
    if (!error) return;
    if (error == std::errc::not_a_directory) {
        throw UserDatabaseError(Reason::unwritable, _("The folder {} cannot be created: {} is not a folder. Move it "
                                                      "away, or set QUODE_DATA_DIR to another folder.",
                                                      folder.string(), obstacleOn(folder).string()));
    }
    throw UserDatabaseError(Reason::unwritable, _("The folder {} cannot be created: {}. Give yourself write "
                                                  "permission, or set QUODE_DATA_DIR to another folder.",
                                                  folder.string(), error.message()));
}

// An empty file is a database without tables. SQLite would make one that everybody may read, though it says where
// the user lives. A failure is reported when the file is opened.
void createPrivately(const fs::path& file) {
    const int created = ::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (created >= 0) ::close(created);
}

void bind(sqlite3_stmt* statement, int index, const SqlValue& value) {
    if (const auto* integer = std::get_if<long long>(&value)) sqlite3_bind_int64(statement, index, *integer);
    if (const auto* real = std::get_if<double>(&value)) sqlite3_bind_double(statement, index, *real);
    if (const auto* text = std::get_if<std::string>(&value)) {
        sqlite3_bind_text(statement, index, text->data(), static_cast<int>(text->size()), SQLITE_TRANSIENT);
    }
}

}  // namespace

UserConnection::UserConnection(const fs::path& file, std::chrono::milliseconds patience, const FirstCity& firstCity,
                               std::vector<std::string>& notices, bool isToLast)
    : file_(file), patience_(patience), isToLast_(isToLast) {
    createFolder(file.parent_path());
    open(toChange);
    if (check(firstCity) == Health::damaged) replaceDamaged(firstCity, notices);
}

// Opened for writing where that is allowed: the next program undoes a change that a crash interrupted.
UserConnection::UserConnection(const fs::path& file, std::chrono::milliseconds patience)
    : file_(file), patience_(patience), onlyReads_(true) {
    open(SQLITE_OPEN_READWRITE);
    checkToRead();
    run("PRAGMA query_only = 1");
}

void UserConnection::open(int flags) {
    if (const std::optional<fs::path> unsafe = sqlite::unsafeFile(file_)) {
        throw UserDatabaseError(Reason::failed, _("{} is not a regular file. Move it away.", unsafe->string()));
    }
    if ((flags & SQLITE_OPEN_CREATE) != 0) createPrivately(file_);
    sqlite3* opened = nullptr;
    const int result = sqlite3_open_v2(file_.c_str(), &opened, flags, nullptr);
    database_.reset(opened);
    if (result != SQLITE_OK) fail(result);
    sqlite3_extended_result_codes(database_.get(), 1);
    if (!isToLast_) run("PRAGMA synchronous = OFF");
    removeStaleJournal();
    setPatience(patience_);
}

// A program that was cut off before it changed anything leaves a journal that SQLite does not need and does not remove.
// No program uses one while this connection is about to write; a needed journal is played back before.
void UserConnection::removeStaleJournal() {
    const fs::path journal = file_.string() + "-journal";
    std::error_code error;
    if (!fs::exists(journal, error)) return;
    sqlite3_busy_timeout(database_.get(), 0);
    if (sqlite3_exec(database_.get(), "BEGIN IMMEDIATE", nullptr, nullptr, nullptr) != SQLITE_OK) return;
    fs::remove(journal, error);
    sqlite3_exec(database_.get(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void UserConnection::setPatience(std::chrono::milliseconds patience) {
    patience_ = patience;
    sqlite3_busy_timeout(database_.get(), static_cast<int>(patience.count()));
}

UserConnection::Health UserConnection::check(const FirstCity& firstCity) {
    if (fault()) return Health::damaged;
    const int edition = readInteger("PRAGMA user_version");
    if (edition < 0) return Health::damaged;
    refuseLaterEdition(edition);
    if (edition < userDatabaseEdition) createTables(firstCity);
    if (!hasAllColumns()) return Health::damaged;
    if (!hasAllAlarms()) createTables(firstCity);
    return Health::good;
}

void UserConnection::refuseLaterEdition(int edition) const {
    if (edition <= userDatabaseEdition) return;
    throw UserDatabaseError(Reason::newer, _("The user database {} was written by a later version of Quode. Install "
                                             "that version, or move the file away to start with a new one.",
                                             file_.string()));
}

void UserConnection::checkToRead() const {
    const int edition = readInteger("PRAGMA user_version");
    refuseLaterEdition(edition);
    if (isEmpty() || hasAllColumns()) return;
    if (edition < 0 || edition == userDatabaseEdition) fail(SQLITE_CORRUPT);
    throw UserDatabaseError(Reason::failed, _("The user database {} was written by an earlier version of Quode. The "
                                              "next change of a city or an alarm updates it.",
                                              file_.string()));
}

bool UserConnection::isEmpty() const {
    return readInteger("SELECT COUNT(*) FROM sqlite_schema") == 0;
}

bool UserConnection::isOfAnotherFile() const {
    int hasMoved = 0;
    const int result = sqlite3_file_control(database_.get(), "main", SQLITE_FCNTL_HAS_MOVED, &hasMoved);
    return result != SQLITE_OK || hasMoved != 0;
}

std::optional<std::string> UserConnection::fault() const {
    const sqlite::Statement row = sqlite::prepare(database_.get(), "PRAGMA integrity_check(1)");
    const int result = row ? sqlite3_step(row.get()) : sqlite3_extended_errcode(database_.get());
    if (result != SQLITE_ROW && !meansDamage(result)) fail(result);
    const std::string finding = result == SQLITE_ROW ? sqlite::text(row.get(), 0) : sqlite3_errstr(result);
    if (finding == "ok") return std::nullopt;
    return finding;
}

bool UserConnection::hasAllColumns() const {
    for (const char* sql : userDatabaseColumns) {
        if (sqlite::prepare(database_.get(), sql)) continue;
        const int result = sqlite3_extended_errcode(database_.get());
        if (result == SQLITE_ERROR || meansDamage(result)) return false;
        fail(result);
    }
    return true;
}

bool UserConnection::hasAllAlarms() const {
    return readInteger("SELECT COUNT(DISTINCT TIMEID) FROM USER_ALARMS WHERE TIMEID BETWEEN 1 AND 6") == 6;
}

// Makes what is missing and leaves what is there as it is.
void UserConnection::createTables(const FirstCity& firstCity) {
    change([&] {
        isNew_ = isEmpty();
        char* message = nullptr;
        const int result = sqlite3_exec(database_.get(), userDatabaseTables, nullptr, nullptr, &message);
        sqlite3_free(message);
        if (result != SQLITE_OK) fail(result);
        for (long long timeId = 1; timeId <= 6; ++timeId) run(userDatabaseAlarmRow, {timeId, usualSound});
        run(userDatabaseSounds, {usualSound});
        const std::optional<int> city = isNew_ ? firstCity() : std::nullopt;
        if (city) {
            run("INSERT INTO USER_CITY (ID, SETASHOME) VALUES (?, 1)", {*city});
            run("INSERT INTO USER_SETTING (NAME, VALUE) VALUES (?, ?)",
                {std::string(guessedHomeSetting), std::to_string(*city)});
        }
        run("PRAGMA user_version = " + std::to_string(userDatabaseEdition));
    });
}

void UserConnection::replaceDamaged(const FirstCity& firstCity, std::vector<std::string>& notices) {
    database_.reset();
    const LockedFile lock = lockedFolder(file_.parent_path());
    open(toChange);
    if (check(firstCity) == Health::good) return;  // another program was faster
    database_.reset();
    const fs::path fresh = makeFresh(firstCity);
    noteLostAlarms();
    const fs::path kept = keepAside();
    std::error_code error;
    fs::rename(fresh, file_, error);
    if (error) fail(SQLITE_CANTOPEN);
    open(toChange);
    notices.push_back(
        _("Your cities and alarms cannot be read: the file {} is damaged. It is kept as {}, and a new one is created. "
          "Choose your cities and alarms again.",
          file_.string(), kept.string()));
}

// The next program that reads the alarms removes the events of the lost ones.
void UserConnection::noteLostAlarms() const {
    AlarmJournal journal(file_.parent_path(), patience_);
    if (!journal.isHeld()) throw UserDatabaseError(Reason::failed, journal.problem());
    try {
        journal.begin({});
    } catch (const AlarmJournalError& error) {
        throw UserDatabaseError(Reason::failed, error.what());
    }
}

// Gives the file a second name that is free; a journal that belongs to it moves there.
fs::path UserConnection::keepAside() const {
    fs::path kept;
    int number = 0;
    std::error_code error;
    bool isKept = false;  // already, by a program that was cut off before it replaced the file
    do {
        kept = file_.string() + ".damaged-" + std::to_string(++number);
        isKept = fs::equivalent(file_, kept, error);
    } while (!isKept && fs::exists(kept, error));
    error.clear();
    if (!isKept) fs::create_hard_link(file_, kept, error);
    if (error) fs::copy_file(file_, kept, error);  // not every file system has second names
    if (error) {
        throw UserDatabaseError(Reason::unwritable, _("The user database {} is damaged and cannot be kept aside: {}. "
                                                      "Free some space and give yourself write permission.",
                                                      file_.string(), error.message()));
    }
    fs::rename(file_.string() + "-journal", kept.string() + "-journal", error);  // mostly there is none
    return kept;
}

// Makes a fresh file beside the damaged one. It then takes its place in one step: another program that still has the
// damaged one open would take the journal of a file that is made under the same name for its own.
fs::path UserConnection::makeFresh(const FirstCity& firstCity) {
    const fs::path fresh = file_.string() + ".new";
    std::error_code error;
    fs::remove(fresh, error);
    fs::remove(fresh.string() + "-journal", error);
    const fs::path damaged = std::exchange(file_, fresh);
    open(toChange);
    createTables(firstCity);
    salvageSiteChoices(*this, damaged);
    database_.reset();
    file_ = damaged;
    return fresh;
}

void UserConnection::fail(int code) const {
    const std::string name = file_.string();
    const std::string detail = database_ ? sqlite3_errmsg(database_.get()) : sqlite3_errstr(code);
    switch (primaryCode(code)) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            throw UserDatabaseError(
                Reason::locked,
                _("The user database {} is locked by another program. Close that program, or try again in a moment.",
                  name));
        case SQLITE_READONLY:
        case SQLITE_CANTOPEN:
        case SQLITE_PERM:
        case SQLITE_AUTH:
            if (onlyReads_) {
                throw UserDatabaseError(Reason::unwritable,
                                        _("The user database {} cannot be opened: {}. Give yourself read permission "
                                          "for it and its folder, or set QUODE_DATA_DIR to another folder.",
                                          name, detail));
            }
            throw UserDatabaseError(
                Reason::unwritable,
                _("The user database {} cannot be written: {}. Nothing was changed. Give yourself write permission for "
                  "it and its folder, or set QUODE_DATA_DIR to another folder.",
                  name, detail));
        case SQLITE_FULL:
            throw UserDatabaseError(Reason::full, _("The user database {} cannot be changed: the disk is full. Nothing "
                                                    "was changed. Free some space and try again.",
                                                    name));
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
            throw UserDatabaseError(Reason::failed,
                                    onlyReads_ ? _("The user database {} is damaged: {}. The next change of a city or "
                                                   "an alarm keeps the file aside and creates a new one.",
                                                   name, detail)
                                               : _("The user database {} is damaged: {}. Start again: the file is then "
                                                   "kept aside and a new one created.",
                                                   name, detail));
        default:
            throw UserDatabaseError(Reason::failed, _("The user database {} cannot be used: {}.", name, detail));
    }
}

sqlite::Statement UserConnection::query(const std::string& sql, std::initializer_list<SqlValue> values) const {
    sqlite::Statement statement = sqlite::prepare(database_.get(), sql);
    if (!statement) fail(sqlite3_extended_errcode(database_.get()));
    int index = 0;
    for (const SqlValue& value : values) bind(statement.get(), ++index, value);
    return statement;
}

// The statement is over afterwards: one that goes on would keep this connection from changing anything.
int UserConnection::readInteger(const std::string& sql) const {
    const sqlite::Statement row = query(sql);
    return next(row) ? sqlite3_column_int(row.get(), 0) : 0;
}

bool UserConnection::next(const sqlite::Statement& statement) const {
    const int result = sqlite3_step(statement.get());
    if (result != SQLITE_ROW && result != SQLITE_DONE) fail(result);
    return result == SQLITE_ROW;
}

void UserConnection::run(const std::string& sql, std::initializer_list<SqlValue> values) {
    const sqlite::Statement statement = query(sql, values);
    while (next(statement)) {
    }
}

void UserConnection::read(const std::function<void()>& reading) {
    if (sqlite3_get_autocommit(database_.get()) == 0) return reading();  // within a change
    run("BEGIN");
    try {
        reading();
    } catch (...) {
        sqlite3_exec(database_.get(), "ROLLBACK", nullptr, nullptr, nullptr);
        throw;
    }
    run("COMMIT");
}

void UserConnection::change(const std::function<void()>& changes) {
    if (isChanging_) return changes();
    run("BEGIN IMMEDIATE");
    isChanging_ = true;
    try {
        changes();
        run("COMMIT");
        isChanging_ = false;
    } catch (...) {
        isChanging_ = false;
        // Some failures have undone the changes already; then there is nothing left to undo and this does nothing.
        sqlite3_exec(database_.get(), "ROLLBACK", nullptr, nullptr, nullptr);
        throw;
    }
}

}  // namespace quode
