// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "astro/VAKDate.h"

namespace quode::app {

/// The religious day that falls on a day, in the language of the process; nothing on others. A holy night is named on
/// the day in whose evening it begins.
/// @param hijri    the date by the table
/// @param weekday  0 = Sunday .. 6 = Saturday
std::optional<std::string> religiousDay(const VAKDate& hijri, int weekday);

}  // namespace quode::app
