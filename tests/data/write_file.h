// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <fstream>
#include <string_view>

#include "support/temporary_folder.h"

namespace quode::test {

/// Writes a file in a temporary folder, with its parent folders.
inline std::filesystem::path writeFile(const TemporaryFolder& folder, const std::filesystem::path& name,
                                       std::string_view content) {
    const std::filesystem::path file = folder.path() / name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << content;
    return file;
}

}  // namespace quode::test
