// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What is typed into the search of a desktop: "asr", "prayer times cairo", "qibla london".
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quode::app {
class Session;
}

namespace quode::service {

struct Finding {
    std::string id;     ///< "203:360630": what (a prayer's code, "day" or "qibla") and for which city; 0: home
    std::string title;  ///< "Asr 15:02"
    std::string text;   ///< "Cairo, Egypt · in 2 h 13 min"
};

/// What a query finds, the best first; empty for words that mean nothing here.
std::vector<Finding> findingsOf(app::Session& session, const std::string& query);

/// The finding of an identifier, as it is now; nothing when it is none.
std::optional<Finding> findingOf(app::Session& session, const std::string& id);

}  // namespace quode::service
