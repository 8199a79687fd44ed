// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

namespace quode {

/// Makes every CompassDialView known to assistive technology as a dial whose value is the direction at the top of the
/// screen, which can be set while the dial is turned by hand. Further calls do nothing.
void installDialAccessibility();

}  // namespace quode
