// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "companion/installation_mark.h"

#include <fmt/format.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <fstream>
#include <string_view>
#include <system_error>

namespace quode {
namespace {

// FNV-1a. Of the 128 bits of a machine's identity it keeps 64: they do not lead back to it.
std::uint64_t hashOf(std::string_view text) {
    std::uint64_t hash = 0xcbf29ce484222325U;
    for (const char c : text) {
        hash ^= static_cast<unsigned char>(c);
        hash *= 0x100000001b3U;
    }
    return hash;
}

std::string machineIdentity(const std::filesystem::path& file) {
    std::string identity;
    std::getline(std::ifstream(file), identity);
    if (!identity.empty()) return identity;
    std::array<char, 256> name{};
    if (::gethostname(name.data(), name.size() - 1) != 0) return {};
    return name.data();
}

}  // namespace

std::string installationMark(const std::filesystem::path& dataFolder, const std::filesystem::path& machineIdFile) {
    const std::string machine = machineIdentity(machineIdFile);
    if (machine.empty()) return {};
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::weakly_canonical(dataFolder, error);
    return fmt::format("{:016x}", hashOf(machine + "\n" + (error ? dataFolder : folder).string()));
}

}  // namespace quode
