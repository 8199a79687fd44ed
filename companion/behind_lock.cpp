// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What the user database holds while another program keeps it locked.
#include <fmt/format.h>
#include <sys/stat.h>

#include <fstream>

#include "companion/UserDatabase.h"
#include "companion/user_connection.h"
#include "data/user_places.h"

namespace quode {

namespace fs = std::filesystem;

// Without any lock. SQLite's name for a file that nobody changes is an address, in which some characters have a meaning.
UserConnection::UserConnection(const fs::path& file, BehindLock)
    : file_(file), patience_(std::chrono::milliseconds(0)), onlyReads_(true) {
    std::string address = "file:";
    for (const char c : fs::absolute(file).string()) {
        const bool hasMeaning = c == '%' || c == '?' || c == '#';
        address += hasMeaning ? fmt::format("%{:02X}", static_cast<unsigned>(c)) : std::string(1, c);
    }
    address += "?immutable=1";
    sqlite3* opened = nullptr;
    const int result = sqlite3_open_v2(address.c_str(), &opened, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, nullptr);
    database_.reset(opened);
    if (result != SQLITE_OK) fail(result);
    sqlite3_extended_result_codes(database_.get(), 1);
    if (fault()) fail(SQLITE_CORRUPT);
    checkToRead();
}

// A change begins with a journal of what was there. Its first byte is zero until it is whole, and only then the file
// itself is changed.
std::optional<std::string> UserConnection::committedState(const fs::path& file) {
    struct stat facts {};
    if (!sqlite::isSafeToOpen(file) || ::stat(file.c_str(), &facts) != 0) return std::nullopt;
    std::ifstream journal(file.string() + "-journal", std::ios::binary);
    if (journal && journal.peek() != 0 && !journal.eof()) return std::nullopt;
    return fmt::format("{} {} {} {}", facts.st_ino, facts.st_size, facts.st_mtim.tv_sec, facts.st_mtim.tv_nsec);
}

bool UserDatabase::readBehindLock(const fs::path& dataFolder, const CityDatabase& cities, const Clock& device,
                                  const std::function<void(UserDatabase&)>& reading) {
    const fs::path file = userDatabaseFile(dataFolder);
    const std::optional<std::string> before = UserConnection::committedState(file);
    if (!before) return false;
    UserDatabase database(std::make_unique<UserConnection>(file, UserConnection::BehindLock{}), cities, device);
    reading(database);
    return UserConnection::committedState(file) == before;
}

}  // namespace quode
