// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace quode {

/// Opens the settings window that is installed beside this program, on a page such as "alarms".
/// @return false when it cannot be started
bool openSettings(const QString& page = {});

}  // namespace quode
