// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <system_error>

namespace quode {

/// Whether a link counts as what it leads to.
enum class Links { followed, kept };

/// True when something stands in the place of a file that no program can use as one: a folder, a pipe, a socket, a device.
/// Their error codes, such as "No such device or address", do not say so.
inline bool isNoRegularFile(const std::filesystem::path& path, Links links = Links::followed) {
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::file_status status = links == Links::followed ? fs::status(path, error) : fs::symlink_status(path, error);
    return fs::exists(status) && !fs::is_regular_file(status);
}

/// What keeps a path from leading into a folder: the part of it that is there and no folder.
inline std::filesystem::path obstacleOn(std::filesystem::path path) {
    std::error_code error;
    while (!std::filesystem::exists(path, error) && path.has_relative_path()) path = path.parent_path();
    return path;
}

}  // namespace quode
