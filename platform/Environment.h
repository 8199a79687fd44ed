// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quode {

/// Returns the value of an environment variable by name; nothing when it is not set.
using Environment = std::function<std::optional<std::string>(std::string_view name)>;

/// The environment of this process.
Environment processEnvironment();

/// The value of a variable; nothing when it is not set or empty.
std::optional<std::string> nonEmpty(const Environment& environment, std::string_view name);

}  // namespace quode
