// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

namespace quode {

/// Makes every view of this program known to assistive technology with role, name, state and actions. To be called once
/// after the application object was made; further calls do nothing.
void installAccessibility();

}  // namespace quode
