// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The coming prayer, as the icon in the tray tells of it.
#pragma once

#include <chrono>
#include <string>

#include "app/session.h"

namespace quode::host {

/// The coming prayer of the home city at one moment.
struct ComingPrayer {
    std::string exact;    ///< "Dhuhr 13:01, in 2 h 13 min": for what is shown for a moment, such as a menu
    std::string lasting;  ///< "Istanbul: Dhuhr 13:01, within 3 h": for what stays, and is true until `changesAt`
    std::chrono::sys_seconds changesAt{};
};

/// What is wrong with the databases takes the place of the texts.
ComingPrayer comingPrayer(app::Session& session);

/// How a text that stays tells the time left: the smallest of 10 min, 30 min, 1 h, 2 h ... that it does not exceed.
struct TimeBound {
    std::chrono::minutes bound{};  ///< the time left is at most this
    std::chrono::minutes next{};   ///< the bound changes when the time left is this; 0: when nothing is left
};
TimeBound boundOf(std::chrono::seconds left);

}  // namespace quode::host
