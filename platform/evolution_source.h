// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Registers Quode's calendar file with GNOME's calendar server, by a source description in its settings folder.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "platform/atomic_file.h"
#include "platform/file_calls.h"

namespace quode {

/// The description "quode.source" in the folder "evolution/sources" of the user's configuration folder. The server watches
/// that folder, so a change takes effect at once; it reads Quode's file and never writes it. The description is written only
/// on the user's request; other descriptions stay as they are.
class EvolutionSource {
  public:
    /// @param configFolder  $XDG_CONFIG_HOME, or ".config" in the home folder when that is not set
    explicit EvolutionSource(std::filesystem::path configFolder, std::shared_ptr<FileCalls> files = systemFileCalls());

    /// Shows the calendar file in GNOME's calendar.
    /// @param calendarFile  an absolute path; the file need not exist yet
    /// @param rings         true: GNOME's reminder service rings the alarms, and no other program should
    FileOutcome connect(const std::filesystem::path& calendarFile, bool rings);

    /// Reverses `connect`. A missing description is a success.
    FileOutcome disconnect();

    enum class State {
        missing,        ///< the description does not exist
        otherCalendar,  ///< the description is of another calendar file
        disabled,       ///< the user has disabled the calendar
        silent,         ///< the calendar is shown without reminders
        rings,          ///< the calendar is shown and its reminders ring
    };

    /// The state of the description for a calendar file, an absolute path.
    State stateFor(const std::filesystem::path& calendarFile) const;

    /// True when the description exists.
    bool isConnected() const;

    /// True when it is connected and GNOME's reminder service rings Quode's alarms.
    bool rings() const;

    /// The path of the description, which may not exist.
    std::filesystem::path descriptionFile() const;

  private:
    void removeTemporaryFiles();

    std::filesystem::path folder_;
    std::shared_ptr<FileCalls> files_;
};

}  // namespace quode
