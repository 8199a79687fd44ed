// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

namespace quode {

/// Registers every `CompassDialView` with assistive technology as a dial. Its value is the direction at the top of the
/// screen, which can be set while the user may turn the dial. Further calls do nothing.
void installDialAccessibility();

}  // namespace quode
