// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

namespace quode {

/// Registers every view of this program with assistive technology, with role, name, state and actions. Call it after
/// creating the application object; further calls do nothing.
void installAccessibility();

}  // namespace quode
