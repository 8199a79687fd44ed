// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

namespace quode::test {

// In the city database.
inline constexpr int istanbul = 745044, paris = 2988507;

}  // namespace quode::test
