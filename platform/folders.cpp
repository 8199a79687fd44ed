// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "platform/folders.h"

#include <pwd.h>
#include <unistd.h>

#include <array>
#include <system_error>

namespace quode {
namespace {

// Not a folder for temporary files: other users could create it first.
constexpr const char* noHome = "/nonexistent";

std::string homeOfAccount() {
    std::array<char, 4096> texts{};
    passwd account{};
    passwd* found = nullptr;
    const int result = ::getpwuid_r(::getuid(), &account, texts.data(), texts.size(), &found);
    const bool isUsable = result == 0 && found && found->pw_dir && found->pw_dir[0] == '/';
    return isUsable ? found->pw_dir : noHome;
}

}  // namespace

std::string homeFolderFrom(const Environment& environment) {
    const auto home = nonEmpty(environment, "HOME");
    return home && home->starts_with('/') ? *home : homeOfAccount();
}

std::string configFolderFrom(const Environment& environment) {
    const auto folder = nonEmpty(environment, "XDG_CONFIG_HOME");
    return folder && folder->starts_with('/') ? *folder : homeFolderFrom(environment) + "/.config";
}

std::string dataFolderFrom(const Environment& environment) {
    if (const auto chosen = nonEmpty(environment, "QUODE_DATA_DIR")) return *chosen;
    const auto dataHome = nonEmpty(environment, "XDG_DATA_HOME");
    if (dataHome && dataHome->starts_with('/')) return *dataHome + "/Quode";
    return homeFolderFrom(environment) + "/.local/share/Quode";
}

std::string bundleFolderFrom(const Environment& environment, const std::filesystem::path& executable) {
    if (const auto chosen = nonEmpty(environment, "QUODE_BUNDLE_DIR")) return *chosen;
    return (executable.parent_path().parent_path() / "lib/quode/Quode.bundle").string();
}

std::string bundleFolderOfLibrary(const Environment& environment, const std::filesystem::path& library) {
    if (const auto chosen = nonEmpty(environment, "QUODE_BUNDLE_DIR")) return *chosen;
    const std::filesystem::path folder = library.parent_path(), above = folder.parent_path();
    std::error_code error;
    for (const std::filesystem::path& libraries : {folder, above, above / "lib"}) {
        std::filesystem::path bundle = libraries / "quode/Quode.bundle";
        if (std::filesystem::is_directory(bundle, error)) return bundle.string();
    }
    return (folder / "quode/Quode.bundle").string();
}

std::string zoneFolderFrom(const Environment& environment) {
    return nonEmpty(environment, "TZDIR").value_or("/usr/share/zoneinfo");
}

std::filesystem::path executablePath() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error);
}

}  // namespace quode
