// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "support/fixtures.h"

namespace quode::test {

std::string fixture(std::string_view name) {
    return sourceFile("tests/fixtures/" + std::string(name));
}

std::string sourceFile(std::string_view name) {
    return QUODE_SOURCE "/" + std::string(name);
}

}  // namespace quode::test
