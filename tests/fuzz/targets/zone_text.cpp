// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/posix_zone.h"
#include "fuzz/target.h"

namespace quode::fuzz {
namespace {

void consumeZoneText(std::string_view bytes) {
    const auto zone = parsePosixZone(bytes);
    if (!zone) return;
    for (const int year : {1, 1970, 2026, 9999}) {
        zone->offsetAt(std::chrono::sys_days(std::chrono::year(year) / 7 / 1));
    }
}

const Target ofZoneText("zone_text", consumeZoneText);

}  // namespace
}  // namespace quode::fuzz
