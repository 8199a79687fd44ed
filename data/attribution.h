// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace quode {

/// Origin and licences of the place data, in a few lines for `--version`.
inline constexpr std::string_view dataAttribution =
    "Places and regions: GeoNames (https://www.geonames.org/), CC BY 4.0; changed: editions combined, rows selected.\n"
    "Country names: Unicode CLDR, Copyright 2004-2026 Unicode, Inc., Unicode License V3.\n"
    "Time zones: IANA tz database, public domain.";

}  // namespace quode
