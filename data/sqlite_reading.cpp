// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/sqlite_reading.h"

#include <string_view>

#include "platform/file_kind.h"

namespace quode::sqlite {
namespace {

// A path within a URI: characters with a meaning there become %XX.
std::string escaped(const std::string& path) {
    static constexpr std::string_view digits = "0123456789ABCDEF";
    std::string result;
    for (const char c : path) {
        if (c == '%' || c == '?' || c == '#') {
            const auto byte = static_cast<unsigned char>(c);
            result += {'%', digits[byte >> 4U], digits[byte & 15U]};
        } else {
            result += c;
        }
    }
    return result;
}

}  // namespace

Database openUnchanging(const std::filesystem::path& file, const std::string& fileSystem) {
    std::error_code ignored;
    const std::string uri =
        "file://" + escaped(std::filesystem::absolute(file, ignored).string()) + "?mode=ro&immutable=1";
    sqlite3* opened = nullptr;
    const int result = sqlite3_open_v2(uri.c_str(), &opened, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI,
                                       fileSystem.empty() ? nullptr : fileSystem.c_str());
    Database database(opened);
    return result == SQLITE_OK ? std::move(database) : nullptr;
}

bool isSafeToOpen(const std::filesystem::path& file) {
    return !unsafeFile(file);
}

std::optional<std::filesystem::path> unsafeFile(const std::filesystem::path& file) {
    for (const char* suffix : {"", "-journal", "-wal", "-shm"}) {
        std::filesystem::path each = file.string() + suffix;
        if (isNoRegularFile(each)) return each;
    }
    return std::nullopt;
}

Statement prepare(sqlite3* database, const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database, sql.c_str(), static_cast<int>(sql.size()), &statement, nullptr);
    return Statement(statement);
}

std::string text(sqlite3_stmt* row, int column) {
    const unsigned char* bytes = sqlite3_column_text(row, column);
    if (!bytes) return {};
    return {reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(sqlite3_column_bytes(row, column))};
}

}  // namespace quode::sqlite
