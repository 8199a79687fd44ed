// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "platform/zone_name.h"

#include <fstream>
#include <string_view>
#include <system_error>

namespace quode {
namespace {

constexpr std::string_view databaseFolder = "zoneinfo/";
constexpr const char* localTime = "etc/localtime";

// The name of a zone in the time-zone database; "posix/" and "right/" contain copies of the zones.
std::string plainName(const std::string& name) {
    for (const std::string_view copy : {"posix/", "right/"}) {
        if (name.starts_with(copy)) return name.substr(copy.size());
    }
    return name;
}

// The zone of a path's file; empty when the path is not in the database.
std::string nameOfPath(const std::string& path) {
    const std::size_t found = path.rfind(databaseFolder);
    return found == std::string::npos ? std::string() : plainName(path.substr(found + databaseFolder.size()));
}

std::string nameOfLink(const std::filesystem::path& link) {
    std::error_code error;
    return nameOfPath(std::filesystem::read_symlink(link, error).string());
}

bool isInDatabase(const std::string& name, const std::filesystem::path& root) {
    std::error_code error;
    const bool climbs = name.find("..") != std::string::npos;
    return !name.empty() && !climbs && std::filesystem::is_regular_file(root / "usr/share/zoneinfo" / name, error);
}

std::string firstLine(const std::filesystem::path& path) {
    std::ifstream file(path);
    std::string line;
    std::getline(file, line);
    return line;
}

std::string nameOfSystem(const std::filesystem::path& root) {
    std::error_code error;
    const std::filesystem::path link = root / localTime;
    if (std::string name = nameOfLink(link); !name.empty()) return name;
    if (!std::filesystem::exists(link, error)) return "UTC";
    return firstLine(root / "etc/timezone");
}

std::string nameFromVariable(std::string value, const std::filesystem::path& root) {
    if (value.starts_with(':')) value.erase(0, 1);
    if (value.empty()) return "UTC";
    const std::filesystem::path path = std::filesystem::path(value).lexically_normal();
    if (path.relative_path() == localTime && path.is_absolute()) return nameOfSystem(root);
    std::string name = path.is_absolute() ? nameOfPath(path.string()) : plainName(value);
    if (path.is_absolute() && name.empty()) name = nameOfLink(root / path.relative_path());
    return isInDatabase(name, root) ? name : std::string();
}

}  // namespace

std::string zoneNameFrom(const Environment& environment, const std::filesystem::path& root) {
    if (const auto value = environment("TZ")) return nameFromVariable(*value, root);
    return nameOfSystem(root);
}

}  // namespace quode
