// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode calendar connect, disconnect: show the alarms in Evolution and GNOME's calendar.
#include <algorithm>

#include "app/calendar_connection.h"
#include "app/ringer.h"
#include "app/user_data.h"
#include "cli/commands.h"
#include "cli/page_parts.h"
#include "terminal/Console.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

Json connectionJson(Session& session, const UserSettings& settings) {
    const EvolutionSource source = evolutionSource(session);
    return object({{"connected", source.isConnected()},
                   {"description", source.descriptionFile().string()},
                   {"ringer", ringerJson(ringerState(session, settings))}});
}

void tell(Console& console, const UserDatabase& database, const std::string& text) {
    Session& session = console.session();
    const UserSettings settings = loadSettings(database);
    if (console.wantsJson()) return console.printJson(connectionJson(session, settings));
    console.print(console.wrapped(text));
    if (std::ranges::none_of(database.alarms(), &UserAlarm::isOn)) return;
    console.print();
    printRinger(console, ringerState(session, settings));
}

void runConnect(Console& console, const Arguments& arguments) {
    Session& session = console.session();
    if (arguments.text("PROGRAM") != "evolution") {
        throw Failure(ExitCode::usage, _("Only evolution can be connected: quode calendar connect evolution"));
    }
    const std::filesystem::path file = connectEvolution(session, arguments.has("ring"));
    const UserDatabase database = userDatabaseToChange(session);
    tell(console, database,
         _("Evolution and GNOME's calendar show the alarms as the calendar \"Quode\". They read {} and do not change "
           "it. To undo this: quode calendar disconnect",
           file.string()));
}

void runDisconnect(Console& console, const Arguments&) {
    Session& session = console.session();
    const bool wasConnected = disconnectEvolution(session);
    const UserDatabase database = userDatabaseToChange(session);
    tell(console, database,
         wasConnected ? _("Disconnected from Evolution. The events stay where they are.")
                      : _("Evolution was not connected."));
}

}  // namespace

Command calendarConnectCommand() {
    return {"connect",
            _("Let Evolution and GNOME's calendar show the alarms"),
            {{Parameter::Kind::word, "PROGRAM", "", "evolution", true},
             {Parameter::Kind::toggle, "ring", "", _("Let Evolution ring, in place of Quode")}},
            runConnect};
}

Command calendarDisconnectCommand() {
    return {"disconnect", _("Undo connect; then Quode rings"), {}, runDisconnect};
}

}  // namespace quode::cli
