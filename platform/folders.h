// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

#include "platform/Environment.h"

namespace quode {

/// The user's home: $HOME, else that of the account. A path that is not absolute counts as not set. An account without a
/// home has "/nonexistent", where nothing can be created.
std::string homeFolderFrom(const Environment& environment);

/// The folder of the user's settings files: $XDG_CONFIG_HOME, else ".config" in the home folder.
std::string configFolderFrom(const Environment& environment);

/// The folder of the user's files: $QUODE_DATA_DIR, else $XDG_DATA_HOME/Quode, else .local/share/Quode in the home
/// folder; the folder need not exist. An empty variable counts as not set, and so does an $XDG_DATA_HOME that is not an
/// absolute path.
std::string dataFolderFrom(const Environment& environment);

/// The folder of the bundle (language packs, images, city database): $QUODE_BUNDLE_DIR, else ../lib/quode/Quode.bundle
/// beside the folder of the program. The folder need not exist.
/// @param executable  the path of the program, from `executablePath`
std::string bundleFolderFrom(const Environment& environment, const std::filesystem::path& executable);

/// The same for a program of any place that uses Quode as a library: Quode.bundle in the folder "quode" beside the library,
/// or one folder up, where systems with a folder for each architecture have it, or in ../lib. The folder need not exist.
/// @param library  the file of the library, without symbolic links
std::string bundleFolderOfLibrary(const Environment& environment, const std::filesystem::path& library);

/// The folder of the machine's zone data: $TZDIR, else /usr/share/zoneinfo. The folder need not exist.
std::string zoneFolderFrom(const Environment& environment);

/// The path of the running program; empty when the system does not report it.
std::filesystem::path executablePath();

}  // namespace quode
