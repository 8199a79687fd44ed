// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace quode::conventions {

/// The page docs/conventions.md: every convention with its rules, its source and its agreement with published rows.
std::string conventionsPage();

/// The source file conventions/agreement.cpp: the same agreement, one line for each convention.
std::string agreementSource();

}  // namespace quode::conventions
