// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Evolution, and with it GNOME's calendar, shows the alarms where it is connected.
#pragma once

#include <filesystem>

namespace quode::app {

class Session;

/// Connects Evolution. Throws `Failure`: usage where the alarms are kept in a folder, notFound where Evolution is to
/// ring and cannot, userData; and `UserDatabaseError`.
/// @param letsItRing  Evolution rings in place of Quode, as it goes on to do when it did before
/// @return the file that it reads from now on
std::filesystem::path connectEvolution(Session& session, bool letsItRing);

/// Disconnects it; Quode rings then.
/// @return whether it was connected
bool disconnectEvolution(Session& session);

}  // namespace quode::app
