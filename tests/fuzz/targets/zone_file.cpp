// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/system_zone.h"
#include "fuzz/target.h"

namespace quode::fuzz {
namespace {

void consume(std::string_view bytes) {
    const auto zone = SystemZone::parse(bytes);
    if (!zone) return;
    for (const int year : {1, 1970, 2026, 2050, 9999}) zone->offsetAtNoon(std::chrono::year(year) / 3 / 31);
}

const Target target("zone_file", consume);

}  // namespace
}  // namespace quode::fuzz
