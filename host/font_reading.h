// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Reading the fonts beside everything else that comes before the first text, where it would take a third of the time to the
// first frame. Who needs a font meanwhile waits.
#pragma once

#include <string>
#include <thread>

namespace quode::host {

/// Reads the list of fonts and finds those of the panel's texts, in a thread of its own. The application must exist for as long as
/// the thread does. Not before: while the program sets locale and environment, no other thread may ask for them.
/// @param sample  a text in the language of the panel
std::jthread readFonts(const std::string& sample);

}  // namespace quode::host
