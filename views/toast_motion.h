// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

/// The animation of a toast. Times are in seconds; every movement begins and ends slowly.
namespace quode::toast {

inline constexpr double stay = 3.0;  ///< from the appearance to the start of the fade
inline constexpr double popDuration = 0.6;
inline constexpr double fadeDuration = 2.0;

/// The look of a toast at a moment.
struct Look {
    double alpha = 0.0;
    double scale = 1.0;
};

/// The look a time after the appearance: the toast grows beyond its size and returns to it.
Look popIn(double time);

/// The look a time after the start of the fade.
/// @param from  the look at the start of the fade
Look fadeOut(double time, Look from);

}  // namespace quode::toast
