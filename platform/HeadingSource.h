// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>

namespace quode {

/// What a compass sensor says.
struct HeadingReading {
    /// Direction of the device's top from magnetic north, degrees clockwise, 0 to 360. A negative value, or one that is
    /// not a number, is a failed reading.
    double magneticHeading = -1.0;

    /// How far the heading may be off, in degrees; 0 or negative for a reading that cannot be trusted. Nothing when the
    /// sensor does not tell.
    std::optional<double> accuracy;
};

/// Why there are no readings.
enum class HeadingProblem {
    noSensor,      ///< the device has no compass, or no service that would speak for one
    accessDenied,  ///< there is a service, and it does not let this program read the compass
    noAnswer,      ///< the service does not answer, or has failed
};

/// The device's compass.
class HeadingSource {
  public:
    /// What becomes known between start and stop, on the thread that called start.
    struct Callbacks {
        std::function<void(const HeadingReading&)> reading;
        std::function<void(HeadingProblem)> problem;  ///< readings may follow later, when the problem goes away
    };

    virtual ~HeadingSource() = default;

    /// Starts the readings. The first one comes at once when the sensor has one, and the next ones whenever the heading
    /// has changed by the filter; failed readings always come.
    /// @param headingFilter  degrees
    virtual void startUpdatingHeading(double headingFilter, Callbacks callbacks) = 0;

    /// Ends the readings: no callback is called any more. Does nothing when they were not started.
    virtual void stopUpdatingHeading() = 0;
};

}  // namespace quode
