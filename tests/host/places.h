// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

namespace quode::test {

inline constexpr int istanbul = 745044;  // in the city database

}  // namespace quode::test
