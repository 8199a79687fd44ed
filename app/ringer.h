// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "app/json.h"
#include "companion/UserDatabase.h"
#include "companion/UserSettings.h"
#include "platform/evolution_source.h"

namespace quode::app {

class Session;

/// Which program rings, and whether it will.
struct RingerState {
    Ringer ringer = Ringer::quode;  ///< in effect, see "companion/ringer.h"
    bool serviceRuns = false;
    std::string problem;  ///< why it does not; empty when all is well
    std::string remedy;   ///< the command that repairs it

    bool isReady() const { return problem.empty(); }
};

RingerState ringerState(Session& session, const UserSettings& settings);

/// Throws `Failure` where Evolution's reminder program is not there to ring.
void requireEvolutionProgram(Session& session);

/// Throws `Failure` where nothing is installed that could show a calendar of Evolution.
void requireEvolution(Session& session);

/// Chooses who rings from now on, and tells Evolution, when it is connected. Should that fail in between, both ring
/// rather than none. Throws `UserDatabaseError`, and `Failure` when Evolution's description cannot be written.
void setRinger(Session& session, UserDatabase& database, Ringer ringer);

Json ringerJson(const RingerState& state);

/// The description by which Evolution finds the calendar.
EvolutionSource evolutionSource(Session& session);

}  // namespace quode::app
