// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "platform/folders.h"

#include <system_error>

namespace quode {

std::string dataFolderFrom(const Environment& environment) {
    if (const auto chosen = nonEmpty(environment, "QUODE_DATA_DIR")) return *chosen;
    const auto dataHome = nonEmpty(environment, "XDG_DATA_HOME");
    if (dataHome && dataHome->starts_with('/')) return *dataHome + "/Quode";
    const auto home = nonEmpty(environment, "HOME");
    if (home && home->starts_with('/')) return *home + "/.local/share/Quode";
    return nonEmpty(environment, "TMPDIR").value_or("/tmp") + "/Quode";
}

std::string bundleFolderFrom(const Environment& environment, const std::filesystem::path& executable) {
    if (const auto chosen = nonEmpty(environment, "QUODE_BUNDLE_DIR")) return *chosen;
    return (executable.parent_path().parent_path() / "lib/quode/Quode.bundle").string();
}

std::string zoneFolderFrom(const Environment& environment) {
    return nonEmpty(environment, "TZDIR").value_or("/usr/share/zoneinfo");
}

std::filesystem::path executablePath() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error);
}

}  // namespace quode
