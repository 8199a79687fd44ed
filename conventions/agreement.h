// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace quode::conventions {

/// How a convention agrees with the published rows that the tests hold it to, in a line; "not checked against published
/// rows" where there are none.
std::string_view agreementLine(std::string_view key);

}  // namespace quode::conventions
