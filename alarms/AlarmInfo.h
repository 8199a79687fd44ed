// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace quode {

/// The user's settings for the alarm of one prayer time. Fixed names: all fields.
struct AlarmInfo {
    int timeOffset = 0;      ///< minutes added to the prayer time; negative: before it
    int melodyTime = 0;      ///< stored with the alarm, not used
    std::string melodyName;  ///< the sound; empty for an alarm that is not set up
    bool active = false;     ///< the alarm is on

    friend bool operator==(const AlarmInfo&, const AlarmInfo&) = default;
};

}  // namespace quode
