// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

/// How a toast moves. Times are in seconds; every movement begins and ends slowly.
namespace quode::toast {

inline constexpr double stay = 3.0;  ///< from appearing to the beginning of the end
inline constexpr double popDuration = 0.6;
inline constexpr double fadeDuration = 2.0;

/// How a toast is drawn at a moment.
struct Look {
    double alpha = 0.0;
    double scale = 1.0;
};

/// Its look a time after it appeared: it grows beyond its size and comes back.
Look popIn(double time);

/// Its look a time after its end began.
/// @param alpha, scale  what it had when its end began
Look fadeOut(double time, Look from);

}  // namespace quode::toast
