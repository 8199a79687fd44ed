// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Writes the page docs/accuracy.md to standard output.
#include <cstdio>

#include "astro/truth/comparison.h"

int main() {
    std::fputs(quode::truth::accuracyPage(quode::truth::allComparisons()).c_str(), stdout);
}
