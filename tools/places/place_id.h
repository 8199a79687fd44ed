// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

namespace quode::places {

/// Ids from here on are made by `derivedId`; those of GeoNames stay far below.
inline constexpr std::int32_t firstDerivedId = 1'000'000'000;

/// The id of a place that GeoNames gives no id for, made from what identifies it, so that it is the same in every
/// edition. The coordinates are taken as they are printed in the source.
/// @return `firstDerivedId` .. 2^31 - 1
std::int32_t derivedId(std::string_view country, std::string_view name, std::string_view latitude,
                       std::string_view longitude);

}  // namespace quode::places
