// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace quode::conventions {

/// How a convention agrees with the published rows of its test, in one line; "not checked against published rows" where
/// there are no rows.
/// @param key  of the convention
std::string_view agreementLine(std::string_view key);

}  // namespace quode::conventions
