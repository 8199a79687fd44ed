// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <filesystem>

namespace quode::test {

/// What may stand in the place of a file.
enum class OddFile { pipe, socket, device, folder };
inline constexpr OddFile oddFiles[]{OddFile::pipe, OddFile::socket, OddFile::device, OddFile::folder};

/// @return false when this user may not make it: a device needs the superuser
inline bool placeOddFile(OddFile kind, const std::filesystem::path& path) {
    switch (kind) {
        case OddFile::pipe:
            return ::mkfifo(path.c_str(), 0600) == 0;
        case OddFile::socket:
            return ::mknod(path.c_str(), S_IFSOCK | 0600, 0) == 0;
        case OddFile::device:
            return ::mknod(path.c_str(), S_IFCHR | 0600, makedev(1, 5)) == 0;  // as /dev/zero: it never ends
        case OddFile::folder:
            return std::filesystem::create_directory(path);
    }
    return false;
}

}  // namespace quode::test
