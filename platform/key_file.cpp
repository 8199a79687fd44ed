// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "platform/key_file.h"

#include <algorithm>

#include "common/numbers.h"

namespace quode {

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
