// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The engine compared with published values.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "astro/truth/comparison.h"

namespace quode::truth {
namespace {

TEST(Truth, EveryValueLiesWithinItsTolerance) {
    for (const Comparison& c : allComparisons()) {
        std::printf("%s: %zu values, RMS %.3g, largest %.3g, bias %+.2g %s (%s)\n", c.quantity.c_str(), c.errors.size(),
                    c.rms(), c.largest(), c.bias(), c.unit.c_str(), c.source.c_str());
        EXPECT_LE(c.largest(), c.tolerance) << c.quantity;
    }
}

TEST(Truth, IsWhatTheAccuracyPageShows) {
    std::ifstream stream(QUODE_ACCURACY_PAGE);
    std::stringstream page;
    page << stream.rdbuf();
    EXPECT_EQ(accuracyPage(allComparisons()), page.str())
        << "write it again: build/release/bin/accuracy > docs/accuracy.md";
}

}  // namespace
}  // namespace quode::truth
