// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Files of groups and keys, as desktops use them: "[Group]" and lines "Key=Value" below it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quode {

/// The value of a key in a group, without the blanks around it; nothing where it is not there. The first one counts.
std::optional<std::string> valueInKeyFile(std::string_view text, std::string_view group, std::string_view key);

}  // namespace quode
