// What the user has chosen, as it has to be when the widget reads it.
#pragma once

#include <QString>
#include <optional>

#include "cli/session.h"
#include "companion/UserEventStore.h"
#include "companion/UserSettings.h"

namespace quode::host {

/// Makes the user database when there is none, and brings up to date what the widget goes by: the prayer times of the
/// alarms, and the layout of the calendar. Returned: what the user should be told; empty when all is well.
QString prepareUserChoices(cli::Session& session, UserEventStore& calendar);

/// The layout that the user has chosen for the panel; automatic when that cannot be read.
PanelLayout chosenLayout(cli::Session& session);

/// The number of the home city; nothing when there is none, or when that cannot be read.
std::optional<int> homeNumber(cli::Session& session);

/// Makes a user database in an empty folder whose only city is this one.
void makeUserDatabase(cli::Session& session, const CityRecord& city);

}  // namespace quode::host
