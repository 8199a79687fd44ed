// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <string_view>

namespace quode::fuzz {

/// What a target does with an input; each file in targets/ defines it. It returns for every input.
void consume(std::string_view bytes);

/// Ends the run when something does not hold that always should.
inline void require(bool holds) {
    if (!holds) std::abort();
}

}  // namespace quode::fuzz
