// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "platform/Environment.h"
#include "platform/Platform.h"

namespace quode {

/// The clock of this machine, in the zone of $TZ, else that of the system.
std::shared_ptr<Clock> systemClock();

/// The name of the locale for times: $LC_ALL, else $LC_TIME, else $LANG, else "POSIX".
std::string localeNameFrom(const Environment& environment);

/// A locale by its name, such as "tr_TR" or "en_GB.UTF-8"; an empty name gives the locale of the process. An unknown pair of
/// language and country keeps the country's 12 or 24 hours; an unknown name gives POSIX.
std::shared_ptr<Locale> systemLocale(const std::string& name = {});

/// The device of a program without windows: a desktop with a screen of 1280 by 800 points.
std::shared_ptr<Device> desktopDevice();

/// The files of this machine.
std::shared_ptr<Files> posixFiles();

/// All of the above, with the data folder from the process's environment. A program with windows replaces the device.
/// @param localeName  as for `systemLocale`
Platform systemPlatform(const std::string& localeName = {});

}  // namespace quode
