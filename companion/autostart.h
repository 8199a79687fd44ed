// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The programs that a desktop starts at login.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "platform/Environment.h"

namespace quode {

/// An entry that the desktop starts at login.
struct AutostartEntry {
    std::filesystem::path file;
    std::string program;       ///< as the entry names it, without its arguments
    bool isHidden = false;     ///< the user or the system has switched it off
    bool isForDesktop = true;  ///< the present desktop is one of those that it is for
};

/// The entry of a name such as "org.example.desktop", as the desktop finds it: the user's own before the system's.
std::optional<AutostartEntry> autostartEntry(const Environment& environment, const std::string& name);

/// Whether the service of the alarms starts at the next login, and what was done for it.
struct ServiceStart {
    bool isAssured = false;
    bool isNew = false;   ///< it was seen to just now
    std::string message;  ///< what the user should know; empty when it was so before
};

/// Whether the service starts at the next login: by an enabled unit of the user's systemd, or by an autostart entry.
bool serviceStartsAtLogin(const Environment& environment);

/// Makes the service start at the next login. Where systemd runs and knows the unit, that is enabled; else
/// an autostart entry is written to the user's settings. An entry that the user has switched off stays so. Nothing is
/// done for a data folder that QUODE_DATA_DIR names: what starts at login does not know of it.
/// @param program  the service
ServiceStart assureServiceStart(const Environment& environment, const std::filesystem::path& program);

/// The command that starts the service now: by the user's systemd where that runs and knows the unit.
std::string serviceStartCommand(const Environment& environment);

/// Whether the desktop starts a program, such as "quode-panel", at login.
bool programStartsAtLogin(const Environment& environment, const std::string& name);

/// Writes an autostart entry for a program into the user's settings, or one that switches the program off.
/// @return why that failed; empty when it was done
std::string setStartAtLogin(const Environment& environment, const std::filesystem::path& program, bool isWanted);

}  // namespace quode
