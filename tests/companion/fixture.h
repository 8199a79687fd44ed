// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include "companion/UserDatabase.h"
#include "support/faulty_disk.h"
#include "support/temporary_folder.h"
#include "support/zoned_clock.h"

namespace quode::test {

inline constexpr const char* istanbulRule = "<+03>-3";
inline constexpr const char* berlinRule = "CET-1CEST,M3.5.0,M10.5.0/3";
inline constexpr const char* newYorkRule = "EST5EDT,M3.2.0,M11.1.0";

/// A data folder of its own, the shipped cities and a clock in Istanbul.
class CompanionTest : public testing::Test {
  protected:
    UserDatabase open(std::chrono::milliseconds patience = std::chrono::seconds(3)) {
        return {folder.path(), cities, clock, patience};
    }

    /// The number of the first place of a name.
    int cityNamed(const std::string& name) const { return cities.search(name).at(0).city.id; }

    std::filesystem::path file() const { return folder.path() / "user.sqlite"; }

    TemporaryFolder folder;
    std::optional<FaultyDisk> disk{FaultyDisk::Fault::none};  // writes without flushing, for speed
    CityDatabase cities{CityDatabase::fileIn(QUODE_BUNDLE)};
    ZonedClock clock{istanbulRule, "Europe/Istanbul"};
};

/// Names and home of the user's cities, such as "Istanbul* Ankara".
inline std::string listOf(const UserDatabase& database) {
    std::string list;
    for (const UserCity& city : database.cities()) {
        if (!list.empty()) list += ' ';
        list += city.city ? city.city->name : "?";
        if (city.isHome) list += '*';
    }
    return list;
}

}  // namespace quode::test
