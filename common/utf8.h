// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace quode {

/// True when the bytes are well-formed UTF-8: no stray or missing continuation byte, no overlong form, no surrogate,
/// nothing above U+10FFFF.
bool isUtf8(std::string_view bytes);

}  // namespace quode
