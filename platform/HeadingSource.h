// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>

namespace quode {

/// A reading of a compass sensor.
struct HeadingReading {
    /// Direction of the device's top from magnetic north, degrees clockwise, 0 to 360. A negative value, or one that is
    /// not a number, is a failed reading.
    double magneticHeading = -1.0;

    /// The largest error of the heading, degrees; 0 or negative for an unreliable reading. Nothing when the sensor does not
    /// report it.
    std::optional<double> accuracy;
};

/// Why there are no readings.
enum class HeadingProblem {
    noSensor,      ///< the device has no compass, or no service for it
    accessDenied,  ///< the service does not allow this program to read the compass
    noAnswer,      ///< the service does not answer, or has failed
};

/// The device's compass.
class HeadingSource {
  public:
    /// Called between start and stop, on the thread that called start.
    struct Callbacks {
        std::function<void(const HeadingReading&)> reading;
        std::function<void(HeadingProblem)> problem;  ///< readings may follow later, when the problem goes away
    };

    virtual ~HeadingSource() = default;

    /// Starts the readings. The first comes at once when the sensor has one, the others whenever the heading has changed by
    /// the filter; failed readings are always reported.
    /// @param headingFilter  degrees
    virtual void startUpdatingHeading(double headingFilter, Callbacks callbacks) = 0;

    /// Ends the readings: no callback is called after it. Does nothing when they were not started.
    virtual void stopUpdatingHeading() = 0;
};

}  // namespace quode
