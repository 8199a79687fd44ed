// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What quode doctor looks at. Nothing is created, changed, started or repaired.
#pragma once

#include <string>
#include <vector>

namespace quode::app {

class Session;

/// What a check has found.
struct Finding {
    enum class State {
        ok,
        note,    ///< nothing to repair, but good to know
        problem  ///< needs a repair
    };
    const char* key = "";   ///< its name in JSON
    const char* name = "";  ///< what was looked at
    State state = State::ok;
    std::string text;          ///< what was found
    std::string advice;        ///< what to do about it; may be empty
    std::string command = {};  ///< that does it; may be empty
};

/// All checks, in the order in which they are shown.
std::vector<Finding> examine(Session& session);

}  // namespace quode::app
