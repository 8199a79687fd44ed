#include "platform/zone_name.h"

#include <fstream>
#include <string_view>
#include <system_error>

namespace quode {
namespace {

constexpr std::string_view databaseFolder = "zoneinfo/";

// The part of a path below the time-zone database; the whole text when the path does not lead there.
std::string belowDatabase(const std::string& path) {
    const std::size_t found = path.rfind(databaseFolder);
    return found == std::string::npos ? path : path.substr(found + databaseFolder.size());
}

std::string nameFromVariable(std::string value, const std::filesystem::path& root) {
    if (value.starts_with(':')) value.erase(0, 1);
    if (value.empty()) return "UTC";
    std::string name = belowDatabase(value);
    std::error_code error;
    const bool isName = std::filesystem::is_regular_file(root / "usr/share/zoneinfo" / name, error);
    return isName ? name : std::string();
}

std::string firstLine(const std::filesystem::path& path) {
    std::ifstream file(path);
    std::string line;
    std::getline(file, line);
    return line;
}

}  // namespace

std::string zoneNameFrom(const Environment& environment, const std::filesystem::path& root) {
    if (const auto value = environment("TZ")) return nameFromVariable(*value, root);
    std::error_code error;
    const std::filesystem::path localTime = root / "etc/localtime";
    const std::string target = std::filesystem::read_symlink(localTime, error).string();
    if (target.find(databaseFolder) != std::string::npos) return belowDatabase(target);
    if (!std::filesystem::exists(localTime, error)) return "UTC";
    return firstLine(root / "etc/timezone");
}

}  // namespace quode
