// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "random_cases.h"

namespace quode::conventions {
namespace {

TEST(Conventions, giveFiniteTimesInOrderEverywhere) {
    checkRandomCases(20261, 3000);
}

}  // namespace
}  // namespace quode::conventions
