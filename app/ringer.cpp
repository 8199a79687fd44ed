// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/ringer.h"

#include <utility>

#include "app/session.h"
#include "companion/UserEventStore.h"
#include "companion/alarm_service.h"
#include "companion/autostart.h"
#include "companion/ringer.h"
#include "platform/folders.h"
#include "texts/translation.h"

namespace quode::app {
namespace {

void findProblem(Session& session, const UserSettings& settings, RingerState& state) {
    const auto set = [&state](std::string problem, std::string remedy) {
        state.problem = std::move(problem);
        state.remedy = std::move(remedy);
    };
    const std::string startService = serviceStartCommand(session.environment());
    const std::string obstacle = evolutionObstacle(session.environment(), session.dataFolder());
    if (settings.ringer == Ringer::evolution && !obstacle.empty()) {
        set(_("Evolution was chosen to ring, but {}. Quode rings in its place. Connect Evolution again, or let Quode "
              "ring:",
              obstacle),
            "quode settings ringer quode");
    } else if (settings.ringer == Ringer::quode && obstacle.empty()) {
        set(_("Both Evolution and Quode ring: every alarm comes twice. Let Quode ring alone:"),
            "quode settings ringer quode");
    } else if (!state.serviceRuns && state.ringer == Ringer::quode) {
        set(_("The alarm service is not running: nothing rings. Start it:"), startService);
    } else if (!state.serviceRuns) {
        set(_("The alarm service is not running: Evolution rings each alarm only once more. Start it:"), startService);
    }
}

}  // namespace

EvolutionSource evolutionSource(Session& session) {
    return EvolutionSource(configFolderFrom(session.environment()));
}

RingerState ringerState(Session& session, const UserSettings& settings) {
    RingerState state{ringerInEffect(settings, session.environment(), session.dataFolder()),
                      alarmServiceRuns(session.dataFolder()), "", ""};
    findProblem(session, settings, state);
    return state;
}

void requireEvolutionProgram(Session& session) {
    const std::string obstacle = evolutionProgramObstacle(session.environment());
    if (obstacle.empty()) return;
    throw Failure(ExitCode::notFound, _("Evolution cannot ring: {}. Quode rings.", obstacle));
}

void requireEvolution(Session& session) {
    if (evolutionIsInstalled(session.environment())) return;
    throw Failure(ExitCode::notFound, _("The alarms cannot be shown: Evolution and its calendar service are not "
                                        "installed. Install evolution-data-server first."));
}

void setRinger(Session& session, UserDatabase& database, Ringer ringer) {
    EvolutionSource source = evolutionSource(session);
    const auto tellEvolution = [&] {
        if (!source.isConnected()) return;
        const std::filesystem::path file =
            UserEventStore(session.dataFolder(), CalendarLayout::ics).defaultCalendar().location;
        const FileOutcome outcome = source.connect(std::filesystem::absolute(file), ringer == Ringer::evolution);
        if (!outcome.ok) throw Failure(ExitCode::userData, outcome.message);
    };
    UserSettings settings = loadSettings(database);
    settings.ringer = ringer;
    if (ringer == Ringer::evolution) tellEvolution();
    saveSettings(database, settings);
    if (ringer == Ringer::quode) tellEvolution();
}

Json ringerJson(const RingerState& state) {
    return object({{"program", state.ringer == Ringer::quode ? "quode" : "evolution"},
                   {"alarm_service_runs", state.serviceRuns},
                   {"problem", state.isReady() ? Json() : Json(state.problem)},
                   {"remedy", state.isReady() ? Json() : Json(state.remedy)}});
}

}  // namespace quode::app
