// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Writes the checksums of this build's engine in the form of tests/fixtures/engine_bits.
#include <cstdio>

#include "engine_bits.h"

int main() {
    const quode::test::BitFile file{quode::test::mathsLibraryBits(), quode::test::engineBits()};
    std::fputs(quode::test::textOf(file).c_str(), stdout);
    return std::fflush(stdout) == 0 ? 0 : 1;
}
