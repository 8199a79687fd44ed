// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include "common/Color.h"

namespace quode {

/// The contrast of two opaque colours by the Web Content Accessibility Guidelines 2.1: 1 (none) to 21 (black on white).
double contrastRatio(const Color& a, const Color& b);

/// The opaque colour that results from a transparent colour over an opaque one.
Color over(const Color& front, const Color& back);

}  // namespace quode
