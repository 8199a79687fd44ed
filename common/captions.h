// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The ids of the captions in the section COMMON of the language packs, for `GlobalFuncs::GetKeyValue`. Fixed values; the
// names may change.
#pragma once

#include <cstdint>

namespace quode {

inline constexpr std::int32_t sunCaption = 1000;           ///< "%@" rise, "%@" set
inline constexpr std::int32_t moonCaption = 1001;          ///< "%@" rise, "%@" set
inline constexpr std::int32_t moonAtSunsetCaption = 1002;  ///< the Moon's altitude at sunset
inline constexpr std::int32_t zoneCaption = 1003;          ///< the offset of the clock
inline constexpr std::int32_t noCityCaption = 1004;        ///< no city is chosen
inline constexpr std::int32_t qiblaCaption = 1013;         ///< the direction of the Kaaba

}  // namespace quode
