// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <chrono>
#include <memory>

#include "platform/HeadingSource.h"

namespace quode {

/// The compass of the desktop's sensor service, iio-sensor-proxy: interface net.hadess.SensorProxy.Compass on the
/// system bus. It gives no accuracy, and -1 for a heading that is not known. The service may come and go, and may find
/// a compass later. Its own bus policy keeps the compass from ordinary users on most systems.
/// @param answerTimeout  a service that is started by its first call needs a moment; one that stays silent for longer
/// is not there for a user
std::unique_ptr<HeadingSource> sensorProxyHeading(const QDBusConnection& bus = QDBusConnection::systemBus(),
                                                  std::chrono::milliseconds answerTimeout = std::chrono::seconds(5));

/// Whether that service runs and says that it has a compass for this user. It is started by the system where there is
/// a sensor, so nothing is started here.
bool hasCompassSensor(const QDBusConnection& bus = QDBusConnection::systemBus(),
                      std::chrono::milliseconds patience = std::chrono::milliseconds(200));

}  // namespace quode
