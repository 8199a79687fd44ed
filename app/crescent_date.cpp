// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/crescent_date.h"

#include "astro/FastAstro.h"

namespace quode::app {

std::optional<VAKDate> hijriByCrescent(const VAKDate& date) {
    FastAstro engine;
    bool gaveUp = false;
    engine.setLog([&gaveUp](std::string_view) { gaveUp = true; });
    VAKDate hijri;
    engine.RealGregJulToHicri(date.Days, date.Months, date.Years, hijri);
    if (gaveUp || hijri.Years < 1 || hijri.Months < 1 || hijri.Days < 1) return std::nullopt;
    return hijri;
}

}  // namespace quode::app
