// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include "app/place.h"
#include "astro/VAKDate.h"
#include "cli/commands.h"

namespace quode::cli {

/// Shows how well the next new crescents can be expected to be seen from a place, from a date on.
void showCrescent(Console& console, const ChosenPlace& place, const VAKDate& date);

}  // namespace quode::cli
