// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "printing/Timetable.h"

namespace quode::printing {

/// The timetable as one HTML file that refers to no other: light or dark as the reader's desktop, a page for each month
/// when it is printed.
std::string htmlOf(const Timetable& timetable);

}  // namespace quode::printing
