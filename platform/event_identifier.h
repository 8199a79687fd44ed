// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Identifiers of calendar events.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quode {

/// A random identifier as RFC 4122, version 4, writes it.
std::string randomUuid();

/// A new event identifier: unlike any other, made of lower-case letters, digits and hyphens only.
std::string newEventIdentifier();

/// Whether `newEventIdentifier` made it.
bool isOwnIdentifier(std::string_view identifier);

/// Why the identifier cannot be used, as a message for the user; no value: it can. Refused are quotes, which the
/// statements that keep an identifier cannot hold, control characters, and more than 255 bytes.
std::optional<std::string> problemOfIdentifier(std::string_view identifier);

}  // namespace quode
