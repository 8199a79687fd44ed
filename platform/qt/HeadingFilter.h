// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <limits>

#include "platform/HeadingSource.h"

namespace quode {

/// Holds back readings that hardly differ from the one passed on before them, so that a resting device rests.
class HeadingFilter {
  public:
    /// @param degrees  the change that is worth passing on
    explicit HeadingFilter(double degrees) : degrees_(degrees) {}

    /// True when a reading is to be passed on: it failed, it is the first one or the first since a failed one, or it is
    /// at least the filter's degrees away, the shorter way round the circle, from the last one that passed.
    bool passes(const HeadingReading& reading) {
        const double change = std::abs(std::remainder(reading.magneticHeading - last_, 360.0));
        if (change < degrees_ && reading.magneticHeading >= 0.0) return false;
        last_ = reading.magneticHeading >= 0.0 ? reading.magneticHeading : none;
        return true;
    }

    /// Lets the next reading pass, whatever it is.
    void reset() { last_ = none; }

  private:
    static constexpr double none = std::numeric_limits<double>::quiet_NaN();  // not near to any reading

    double degrees_;
    double last_ = none;
};

}  // namespace quode
