// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <string_view>

namespace quode::fuzz {

/// What a target does with an input. It returns for every input.
using Consume = void (*)(std::string_view bytes);

/// Makes a function known under a name; each file in targets/ does so with its own.
struct Target {
    Target(std::string_view name, Consume consume);
};

/// The function of a target; null when there is none of that name.
Consume targetNamed(std::string_view name);

/// Ends the run when something does not hold that always should.
inline void require(bool holds) {
    if (!holds) std::abort();
}

}  // namespace quode::fuzz
