// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "platform/event_identifier.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <random>

#include "texts/translation.h"

namespace quode {

namespace {

constexpr std::string_view kPrefix = "quode-";
constexpr std::size_t kUuidLength = 36;
constexpr std::size_t kLongestIdentifier = 255;

bool isControl(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

}  // namespace

std::string randomUuid() {
    std::random_device source;
    std::array<unsigned, 4> words{};
    for (unsigned& word : words) word = source();
    words[1] = (words[1] & 0xFFFF0FFFU) | 0x4000U;      // version 4: random
    words[2] = (words[2] & 0x3FFFFFFFU) | 0x80000000U;  // the variant of RFC 4122
    return fmt::format("{:08x}-{:04x}-{:04x}-{:04x}-{:04x}{:08x}", words[0], words[1] >> 16U, words[1] & 0xFFFFU,
                       words[2] >> 16U, words[2] & 0xFFFFU, words[3]);
}

std::string newEventIdentifier() {
    return std::string(kPrefix) + randomUuid();
}

bool isOwnIdentifier(std::string_view identifier) {
    if (!identifier.starts_with(kPrefix) || identifier.size() != kPrefix.size() + kUuidLength) return false;
    return std::ranges::all_of(identifier.substr(kPrefix.size()),
                               [](char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || c == '-'; });
}

std::optional<std::string> problemOfIdentifier(std::string_view identifier) {
    if (identifier.size() > kLongestIdentifier) {
        return _("The identifier of the event is longer than 255 bytes. Switch the alarm off and on.");
    }
    if (identifier.find_first_of("'\"") == std::string_view::npos && std::ranges::none_of(identifier, isControl)) {
        return std::nullopt;
    }
    std::string shown(identifier);
    std::ranges::replace_if(shown, isControl, '?');
    return _("The event identifier {} contains a quote or a control character. Switch the alarm off and on.", shown);
}

}  // namespace quode
