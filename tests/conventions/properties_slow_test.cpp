// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "random_cases.h"

namespace quode::conventions {
namespace {

TEST(Conventions, giveFiniteTimesInOrderForAHundredThousandInputs) {
    checkRandomCases(20262, 100000);
}

}  // namespace
}  // namespace quode::conventions
