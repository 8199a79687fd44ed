// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace quode::timetables {

/// The text of a file as UTF-8 without a byte order mark. Files in UTF-8, and in UTF-16 with its mark, are understood.
/// Throws `ImportError` for others, which do not say what their letters mean.
std::string utf8Of(std::string_view content);

}  // namespace quode::timetables
