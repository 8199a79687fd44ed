// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "platform/key_file.h"

#include <algorithm>

namespace quode {
namespace {

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

}  // namespace

std::optional<std::string> valueInKeyFile(std::string_view text, std::string_view group, std::string_view key) {
    bool isInGroup = false;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.starts_with('[') && line.ends_with(']')) isInGroup = line.substr(1, line.size() - 2) == group;
        const std::size_t equals = line.find('=');
        const bool isWanted = isInGroup && equals != std::string_view::npos && trimmed(line.substr(0, equals)) == key;
        if (isWanted) return std::string(trimmed(line.substr(equals + 1)));
    }
    return std::nullopt;
}

}  // namespace quode
