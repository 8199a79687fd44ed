// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What the user has chosen, as it has to be when the widget reads it.
#pragma once

#include <QString>
#include <optional>

#include "app/session.h"
#include "companion/UserEventStore.h"
#include "companion/UserSettings.h"

namespace quode::host {

/// Makes the user database when there is none, and brings up to date what the widget goes by: the prayer times of the
/// alarms, and the layout of the calendar. Returned: what the user should be told; empty when all is well.
QString prepareUserChoices(app::Session& session, UserEventStore& calendar);

/// The layout that the user has chosen for the panel; automatic when that cannot be read.
PanelLayout chosenLayout(app::Session& session);

/// The number of the home city; nothing when there is none, or when that cannot be read.
std::optional<int> homeNumber(app::Session& session);

/// Makes a user database in an empty folder whose only city is this one.
void makeUserDatabase(app::Session& session, const CityRecord& city);

}  // namespace quode::host
