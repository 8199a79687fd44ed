// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode alarm list: the six alarms.
#include "app/place.h"
#include "app/ringer.h"
#include "app/user_alarms.h"
#include "cli/alarm_table.h"
#include "cli/commands.h"
#include "terminal/Console.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

void listAlarms(Console& console, const Arguments&) {
    showAlarms(console, readAlarms(console.session()));
}

}  // namespace

Command alarmListCommand() {
    return {"list", _("Show the alarms of the six prayers"), {}, listAlarms};
}

}  // namespace quode::cli
