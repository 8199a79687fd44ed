// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <sys/stat.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace quode {

/// Creates a folder and its missing parent folders. The new ones are private to the user, because Quode's data show where
/// the user lives.
/// @return the error; none when the folder exists
inline std::error_code createPrivateFolders(const std::filesystem::path& folder) {
    std::error_code error;
    if (folder.empty() || std::filesystem::is_directory(folder, error)) return {};
    const std::filesystem::path above = folder.parent_path();
    if (above != folder) error = createPrivateFolders(above);
    if (error) return error;
    if (!folder.has_filename() || ::mkdir(folder.c_str(), 0700) == 0) return {};
    const int cause = errno;
    if (std::filesystem::is_directory(folder, error)) return {};
    return {cause == EEXIST ? ENOTDIR : cause, std::generic_category()};
}

}  // namespace quode
