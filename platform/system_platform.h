// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "platform/Environment.h"
#include "platform/Platform.h"

namespace quode {

/// The clock of this machine in the zone of $TZ, else of the system's setting.
std::shared_ptr<Clock> systemClock();

/// The name of the locale that tells a process how to show times: $LC_ALL, else $LC_TIME, else $LANG, else "POSIX".
std::string localeNameFrom(const Environment& environment);

/// The facts of a locale such as "tr_TR" or "en_GB.UTF-8"; of this process's locale when the name is empty. A country that its
/// language is not known with keeps its own hours; a name that is none is taken for POSIX.
std::shared_ptr<Locale> systemLocale(const std::string& name = {});

/// The device of a program that draws nothing: a desktop whose screen has 1280 by 800 points.
std::shared_ptr<Device> desktopDevice();

/// The files of this machine.
std::shared_ptr<Files> posixFiles();

/// All of the above, with the data folder of this process's environment. A program with a screen replaces the device.
/// @param localeName  as for systemLocale
Platform systemPlatform(const std::string& localeName = {});

}  // namespace quode
