// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "tools/places/place_id.h"

#include <limits>

namespace quode::places {

std::int32_t derivedId(std::string_view country, std::string_view name, std::string_view latitude,
                       std::string_view longitude) {
    std::uint64_t hash = 14695981039346656037ULL;  // FNV-1a, 64 bits
    const auto add = [&hash](std::string_view text) {
        for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
        hash = (hash ^ '\t') * 1099511628211ULL;
    };
    for (const std::string_view text : {country, name, latitude, longitude}) add(text);
    constexpr std::uint64_t range = std::uint64_t{std::numeric_limits<std::int32_t>::max()} - firstDerivedId + 1;
    return static_cast<std::int32_t>(firstDerivedId + hash % range);
}

}  // namespace quode::places
