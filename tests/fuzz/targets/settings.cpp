// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What the user has chosen, as it is stored: the method of a city, a day of an imported timetable.
#include "conventions/Method.h"
#include "data/Timetable.h"
#include "fuzz/target.h"

namespace quode::fuzz {
namespace {

void consumeSettings(std::string_view bytes) {
    if (const auto method = conventions::methodOf(bytes)) {
        conventions::problemOf(*method);
        require(conventions::methodOf(conventions::textOf(*method)) == method);
    }
    if (const auto row = timetableRowOf(bytes)) require(timetableRowOf(textOf(*row)) == row);
}

const Target ofSettings("settings", consumeSettings);

}  // namespace
}  // namespace quode::fuzz
