// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Repairs what quode doctor finds, where a program can.
#pragma once

#include "app/doctor_checks.h"

namespace quode::app {

class Session;

/// Removes the calendar events of alarms that no longer exist. Failures are reported.
void removeStrayEvents(Session& session);

/// Whether `repair` can do something about a finding.
bool canRepair(const Finding& finding);

/// Does what the advice of a finding says. Throws `Failure` and `UserDatabaseError`.
void repair(Session& session, const Finding& finding);

}  // namespace quode::app
