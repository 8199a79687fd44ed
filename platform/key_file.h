// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Key files of desktops: "[Group]" and lines "Key=Value" below it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quode {

/// The first value of a key in a group, without surrounding blanks; nothing when it is missing.
std::optional<std::string> valueInKeyFile(std::string_view text, std::string_view group, std::string_view key);

}  // namespace quode
