// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "timetables/best_fit.h"
#include "timetables_support.h"

namespace quode::timetables {
namespace {

TEST(BestFit, saysAHundredPercentOnlyOfAll) {
    EXPECT_EQ(percentOf(365, 365), 100);
    EXPECT_EQ(percentOf(364, 365), 99);
    EXPECT_EQ(percentOf(2, 3), 67);
    EXPECT_EQ(percentOf(0, 0), 0);
}

TEST(BestFit, countsAllRows) {
    Timetable table = tableOf(istanbul(), "diyanet", firstOfMarch2026, 90);
    *table.rows.at(firstOfMarch2026 + 1).minutes[3] += 30;
    const Fit best = fitsOf(table, istanbul()).front();
    EXPECT_EQ(best.times, 90 * 6);
    EXPECT_EQ(best.withinOne, 90 * 6 - 1);
    EXPECT_EQ(best.worst, 30);
}

}  // namespace
}  // namespace quode::timetables
