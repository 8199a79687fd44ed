// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace quode {

// Coordinates as the city database stores them: degrees;minutes;seconds as text, with "-" for south and west.

/// The text of a coordinate given in hundred-thousandths of a degree: 4250779 is "42;30;28.044". Exact.
std::string sexagesimalCoordinate(long hundredThousandths);

/// The plain text of a coordinate of the database. Coordinates are stored as plain text, so this returns its argument;
/// every reader uses it, so that an edition with enciphered coordinates needs one change.
std::string decipheredCoordinate(std::string text);

}  // namespace quode
