// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <limits>

#include "platform/HeadingSource.h"

namespace quode {

/// Suppresses readings that hardly differ from the last reported one, so that a device at rest reports nothing.
class HeadingFilter {
  public:
    /// @param degrees  the smallest reported change
    explicit HeadingFilter(double degrees) : degrees_(degrees) {}

    /// True when a reading is to be reported: it failed, it is the first one or the first after a failed one, or it differs
    /// from the last reported one by at least the filter's degrees.
    bool passes(const HeadingReading& reading) {
        const double change = std::abs(std::remainder(reading.magneticHeading - last_, 360.0));
        if (change < degrees_ && reading.magneticHeading >= 0.0) return false;
        last_ = reading.magneticHeading >= 0.0 ? reading.magneticHeading : none;
        return true;
    }

    /// Reports the next reading in any case.
    void reset() { last_ = none; }

  private:
    static constexpr double none = std::numeric_limits<double>::quiet_NaN();  // compares unequal to every reading

    double degrees_;
    double last_ = none;
};

}  // namespace quode
