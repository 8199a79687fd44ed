// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <chrono>
#include <memory>

#include "platform/HeadingSource.h"

namespace quode {

/// The compass of the desktop's sensor service, iio-sensor-proxy: interface net.hadess.SensorProxy.Compass on the
/// system bus. It reports no accuracy, and -1 for an unknown heading. The service may start and end, and may find a compass
/// later. On most systems its bus policy denies the compass to ordinary users.
/// @param answerTimeout  time for the first answer, which may start the service; after it the service counts as missing
std::unique_ptr<HeadingSource> sensorProxyHeading(const QDBusConnection& bus = QDBusConnection::systemBus(),
                                                  std::chrono::milliseconds answerTimeout = std::chrono::seconds(5));

/// True when that service runs and has a compass for this user. Starts nothing, because the system starts the service where
/// a sensor exists.
bool hasCompassSensor(const QDBusConnection& bus = QDBusConnection::systemBus(),
                      std::chrono::milliseconds patience = std::chrono::milliseconds(200));

}  // namespace quode
