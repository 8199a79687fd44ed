// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

namespace quode::app {

class Session;

/// Whether the desktop starts the panel at login.
bool panelStartsAtLogin(Session& session);

/// Turns the start of the panel at login on or off. Throws `Failure` (userData) when that cannot be written.
void startPanelAtLogin(Session& session, bool isWanted);

}  // namespace quode::app
