// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Lets GNOME's calendar server show our calendar file, by a source description in its settings folder.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "platform/atomic_file.h"
#include "platform/file_calls.h"

namespace quode {

/// The description "quode.source" in the folder "evolution/sources" below the user's configuration folder. The server
/// watches that folder, so that a change shows at once; it reads our file and never writes it. Written only when the
/// user asks for it; no other description is touched.
class EvolutionSource {
  public:
    /// `configFolder` is $XDG_CONFIG_HOME, or ".config" in the home folder where that is not set.
    explicit EvolutionSource(std::filesystem::path configFolder, std::shared_ptr<FileCalls> files = systemFileCalls());

    /// Shows the calendar file in GNOME's calendar. With `rings`, its reminder service rings the alarms; then nothing
    /// else should. `calendarFile` is an absolute path; the file need not exist yet.
    FileOutcome connect(const std::filesystem::path& calendarFile, bool rings);

    /// Undoes `connect`. That nothing was connected is a success.
    FileOutcome disconnect();

    enum class State {
        missing,        ///< there is no description
        otherCalendar,  ///< it names another calendar file
        disabled,       ///< the user has disabled the calendar
        silent,         ///< it is shown, and not included in the reminders
        rings,
    };
    /// What the description says of a calendar file, given with its whole path.
    State stateFor(const std::filesystem::path& calendarFile) const;

    bool isConnected() const;

    /// Whether it is connected and its reminder service rings our alarms.
    bool rings() const;

    /// The description, whether it is there or not.
    std::filesystem::path descriptionFile() const;

  private:
    void removeTemporaryFiles();

    std::filesystem::path folder_;
    std::shared_ptr<FileCalls> files_;
};

}  // namespace quode
