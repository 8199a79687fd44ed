// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/checked_file.h"

#include <sqlite3.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <new>
#include <vector>

#include "data/page_checksum.h"

namespace quode {
namespace {

constexpr int headerSize = 100;

using PageBuffer = std::array<unsigned char, pageSize>;

// What a checked file has beside the file of the system, which it follows in memory.
struct Checks {
    const sqlite3_io_methods* system;
    sqlite3_io_methods methods;  // those of the system, except for reading and closing
    std::vector<bool> verified;  // pages
};

std::size_t offsetOfChecks() {
    const auto size = static_cast<std::size_t>(sqlite3_vfs_find(nullptr)->szOsFile);
    return (size + alignof(Checks) - 1) / alignof(Checks) * alignof(Checks);
}

Checks& checksOf(sqlite3_file* file) {
    static const std::size_t offset = offsetOfChecks();
    return *reinterpret_cast<Checks*>(reinterpret_cast<std::byte*>(file) + offset);
}

// Reads a page, and verifies it the first time.
int readPage(sqlite3_file* file, Checks& checks, Page page, std::size_t number) {
    const sqlite3_int64 at = static_cast<sqlite3_int64>(number) * static_cast<sqlite3_int64>(pageSize);
    const int result = checks.system->xRead(file, page.data(), static_cast<int>(page.size()), at);
    if (checks.verified[number]) return result;
    checks.verified[number] = result == SQLITE_OK && isSealed(page, number);
    return checks.verified[number] ? SQLITE_OK : SQLITE_IOERR_DATA;
}

bool verify(sqlite3_file* file, Checks& checks, std::size_t number) {
    if (checks.verified[number]) return true;
    PageBuffer page;
    return readPage(file, checks, page, number) == SQLITE_OK;
}

int readChecked(sqlite3_file* file, void* bytes, int size, sqlite3_int64 at) {
    Checks& checks = checksOf(file);
    // Its header, which SQLite looks at when it opens a file; the whole first page is read later.
    if (at + size <= headerSize) return checks.system->xRead(file, bytes, size, at);
    const auto first = static_cast<std::size_t>(at) / pageSize;
    const auto end = (static_cast<std::size_t>(at) + static_cast<std::size_t>(size) + pageSize - 1) / pageSize;
    if (end > checks.verified.size()) return SQLITE_IOERR_DATA;
    const bool isOnePage = end == first + 1 && static_cast<std::size_t>(size) == pageSize;
    if (isOnePage) return readPage(file, checks, Page(static_cast<unsigned char*>(bytes), pageSize), first);
    for (std::size_t number = first; number < end; ++number) {
        if (!verify(file, checks, number)) return SQLITE_IOERR_DATA;
    }
    return checks.system->xRead(file, bytes, size, at);
}

int closeChecked(sqlite3_file* file) {
    Checks& checks = checksOf(file);
    const auto close = checks.system->xClose;
    checks.~Checks();
    return close(file);
}

int openChecked(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags) {
    sqlite3_vfs* const system = sqlite3_vfs_find(nullptr);
    const int opened = system->xOpen(system, name, file, flags, outFlags);
    if (opened != SQLITE_OK || (flags & SQLITE_OPEN_MAIN_DB) == 0) return opened;
    sqlite3_int64 size = 0;
    file->pMethods->xFileSize(file, &size);
    auto* const checks = new (&checksOf(file)) Checks{file->pMethods, *file->pMethods, {}};
    checks->verified.resize(static_cast<std::size_t>(size) / pageSize);
    checks->methods.iVersion = 1;  // without mapped memory, which would bypass the checks
    checks->methods.xRead = readChecked;
    checks->methods.xClose = closeChecked;
    file->pMethods = &checks->methods;
    return SQLITE_OK;
}

// Registered as long as this code is loaded. The name is its own, as a process may load the code twice.
class CheckedFileSystem {
  public:
    CheckedFileSystem() : name_("quode-checked-" + std::to_string(reinterpret_cast<std::uintptr_t>(this))) {
        sqlite3_initialize();
        vfs_ = *sqlite3_vfs_find(nullptr);
        vfs_.zName = name_.c_str();
        vfs_.pNext = nullptr;
        vfs_.szOsFile = static_cast<int>(offsetOfChecks() + sizeof(Checks));
        vfs_.xOpen = openChecked;
        sqlite3_vfs_register(&vfs_, 0);
    }
    ~CheckedFileSystem() { sqlite3_vfs_unregister(&vfs_); }
    CheckedFileSystem(const CheckedFileSystem&) = delete;
    CheckedFileSystem& operator=(const CheckedFileSystem&) = delete;

    const std::string& name() const { return name_; }

  private:
    std::string name_;
    sqlite3_vfs vfs_{};
};

}  // namespace

const std::string& checkedFileSystem() {
    static const CheckedFileSystem system;
    return system.name();
}

bool hasIntactPages(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    PageBuffer page;
    std::uint64_t number = 0;
    while (stream.read(reinterpret_cast<char*>(page.data()), static_cast<std::streamsize>(page.size()))) {
        if (!isSealed(page, number++)) return false;
    }
    return number > 0 && stream.gcount() == 0 && stream.eof();
}

}  // namespace quode
