// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

namespace quode {

/// The sign of this program, a crescent and a star: the desktop theme's where it has one, else drawn here.
QIcon quodeIcon();

}  // namespace quode
