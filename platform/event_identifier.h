// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Identifiers of calendar events.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quode {

/// A random identifier (RFC 4122, version 4).
std::string randomUuid();

/// A new unique event identifier of lower-case letters, digits and hyphens.
std::string newEventIdentifier();

/// True when `newEventIdentifier` made an identifier.
bool isOwnIdentifier(std::string_view identifier);

/// Why an identifier cannot be used, as a message for the user; nothing when it can. Quotes, which the SQL statements cannot
/// contain, control characters and more than 255 bytes are rejected.
std::optional<std::string> problemOfIdentifier(std::string_view identifier);

}  // namespace quode
