// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Reading the fonts beside everything else that comes before the first text, where it would take a third of the time to the
// first frame. Who needs a font meanwhile waits.
#pragma once

#include <string>
#include <thread>

namespace quode::host {

/// Starts with the configuration of the fonts, which needs no application yet.
std::jthread readFontConfiguration();

/// Continues with the fonts of the panel's texts. The application must exist for as long as the thread does.
/// @param configuration  the thread of `readFontConfiguration`
/// @param sample         a text in the language of the panel
std::jthread readFonts(std::jthread configuration, const std::string& sample);

}  // namespace quode::host
