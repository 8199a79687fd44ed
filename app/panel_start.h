// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

namespace quode::app {

class Session;

/// Whether the desktop starts the panel at login.
bool panelStartsAtLogin(Session& session);

/// Lets the desktop start the panel at login, or no longer. Throws `Failure` (userData) when that cannot be written.
void startPanelAtLogin(Session& session, bool isWanted);

}  // namespace quode::app
