// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/system_zone.h"
#include "fuzz/target.h"

namespace quode::fuzz {
namespace {

void consumeZoneFile(std::string_view bytes) {
    const auto zone = SystemZone::parse(bytes);
    if (!zone) return;
    for (const int year : {1, 1970, 2026, 2050, 9999}) zone->offsetAtNoon(std::chrono::year(year) / 3 / 31);
}

const Target ofZoneFile("zone_file", consumeZoneFile);

}  // namespace
}  // namespace quode::fuzz
