// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// A database file whose pages are verified as SQLite reads them.
#pragma once

#include <filesystem>
#include <string>

namespace quode {

/// The name of the file system of SQLite that compares each page with its checksum ("data/page_checksum.h") when it is
/// read for the first time. Reading a page with another checksum fails with SQLITE_IOERR_DATA. Only for files that no
/// program writes.
const std::string& checkedFileSystem();

/// True when all pages of a file have their checksums.
bool hasIntactPages(const std::filesystem::path& file);

}  // namespace quode
