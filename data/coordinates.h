// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace quode {

/// Coordinates as the city database holds them: text of degrees;minutes;seconds, "-" in front of south and west.

/// The text of a coordinate given in hundred-thousandths of a degree: 4250779 is "42;30;28.044". Exact.
std::string sexagesimalCoordinate(long hundredThousandths);

/// The plain text behind a coordinate of the database. Coordinates are stored as they are, so this gives back its
/// argument; every reader goes through it, that an edition with enciphered coordinates would have one place to change.
std::string decipheredCoordinate(std::string text);

}  // namespace quode
