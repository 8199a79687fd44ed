// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/zone_edition.h"

#include <algorithm>
#include <array>
#include <fstream>

namespace quode {
namespace {

constexpr std::size_t yearDigits = 4, mostLetters = 2;
constexpr std::string_view digits = "0123456789", letters = "abcdefghijklmnopqrstuvwxyz";

// Year and letters at the front of a text: "2026f" of "2026f-debian".
std::string_view editionIn(std::string_view text) {
    const std::size_t year = std::min(text.find_first_not_of(digits), text.size());
    const std::size_t end = std::min(text.find_first_not_of(letters, year), text.size());
    return year == yearDigits && end > year && end - year <= mostLetters ? text.substr(0, end) : std::string_view();
}

// The first line; a long line is truncated.
std::string firstLine(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::array<char, 64> start{};
    stream.read(start.data(), start.size());
    const std::string_view text(start.data(), static_cast<std::size_t>(stream.gcount()));
    return std::string(text.substr(0, text.find_first_of("\r\n")));
}

}  // namespace

std::string zoneEditionOf(const std::filesystem::path& folder) {
    constexpr std::string_view mark = "# version ";
    const std::string line = firstLine(folder / "tzdata.zi");
    if (line.starts_with(mark)) return std::string(editionIn(std::string_view(line).substr(mark.size())));
    return std::string(editionIn(firstLine(folder / "+VERSION")));
}

bool isNewerEdition(std::string_view edition, std::string_view other) {
    // After "z" come "za", "zb" and so on, so the order is alphabetical.
    return editionIn(edition) > editionIn(other);
}

}  // namespace quode
