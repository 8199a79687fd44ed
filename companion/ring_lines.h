// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The lines of the file that holds the rings.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "companion/RingRecords.h"

namespace quode {

/// The length of every line, its end included. A page of memory holds a whole number of them.
inline constexpr std::size_t ringLineLength = 512;

struct NumberedRing {
    std::uint64_t serial = 0;
    RingRecord record;
};

std::string ringLine(const NumberedRing& ring);
std::string decidedLine(const DecidedNote& note);
std::string emptyLine();

/// Nothing for an empty line, and for one that is damaged: each carries a checksum.
std::optional<NumberedRing> ringFrom(std::string_view line);
std::optional<DecidedNote> decidedFrom(std::string_view line);

}  // namespace quode
