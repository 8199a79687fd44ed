// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <vector>

namespace quode::app {

class Session;

/// The codes (200 to 205) of prayers that are named one after another, each once and in the order of the day: by their
/// names in any language pack, by keys such as "imsak" or "fajr", or by numbers 1 to 6. "all" means all six. Throws
/// `Failure` (usage).
std::vector<int> prayersNamed(Session& session, std::string_view words);

}  // namespace quode::app
