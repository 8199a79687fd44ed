// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace quode::test {

/// The path of a file of tests/fixtures.
std::string fixture(std::string_view name);

/// The path of a file of the source tree.
std::string sourceFile(std::string_view name);

}  // namespace quode::test
