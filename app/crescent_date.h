// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "astro/VAKDate.h"

namespace quode::app {

/// The Hijri date of a day by the first visibility of the crescent at Mecca; nothing before the Hijri calendar begins
/// and nothing where no crescent was found.
std::optional<VAKDate> hijriByCrescent(const VAKDate& date);

}  // namespace quode::app
