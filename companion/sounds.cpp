// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "companion/sounds.h"

#include <algorithm>

namespace quode {
namespace {

namespace fs = std::filesystem;

constexpr const char* folderName = "sounds";
constexpr const char* extension = ".wav";

}  // namespace

std::vector<std::string> bundledSounds(const fs::path& bundle) {
    std::vector<std::string> names;
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(bundle / folderName, error)) {
        if (entry.path().extension() == extension) names.push_back(entry.path().stem().string());
    }
    std::ranges::sort(names);
    return names;
}

Sound soundNamed(const std::string& name, const fs::path& bundle) {
    if (name.find('/') != std::string::npos) return fs::path(name);
    const fs::path bundled = bundle / folderName / (name + extension);
    std::error_code error;
    if (fs::is_regular_file(bundled, error)) return bundled;
    return name;
}

}  // namespace quode
