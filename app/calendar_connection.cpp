// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/calendar_connection.h"

#include "app/ringer.h"
#include "app/session.h"
#include "app/user_data.h"
#include "companion/UserEventStore.h"
#include "texts/translation.h"

namespace quode::app {
namespace {

void check(const FileOutcome& outcome) {
    if (!outcome.ok) throw Failure(ExitCode::userData, outcome.message);
}

}  // namespace

std::filesystem::path connectEvolution(Session& session, bool letsItRing) {
    UserDatabase database = userDatabaseToChange(session);
    const UserSettings settings = loadSettings(database);
    const bool rings = letsItRing || settings.ringer == Ringer::evolution;
    if (rings) {
        requireEvolutionProgram(session);
    } else {
        requireEvolution(session);
    }
    if (settings.calendarLayout != CalendarLayout::ics) {
        throw Failure(ExitCode::usage, _("Evolution shows the alarms only where they are kept in one file. Choose that "
                                         "first: quode settings calendar ics"));
    }
    const std::filesystem::path file =
        UserEventStore(session.dataFolder(), CalendarLayout::ics).defaultCalendar().location;
    check(evolutionSource(session).connect(std::filesystem::absolute(file), rings));
    setRinger(session, database, rings ? Ringer::evolution : Ringer::quode);
    return file;
}

bool disconnectEvolution(Session& session) {
    UserDatabase database = userDatabaseToChange(session);
    const bool wasConnected = evolutionSource(session).isConnected();
    setRinger(session, database, Ringer::quode);
    check(evolutionSource(session).disconnect());
    return wasConnected;
}

}  // namespace quode::app
