// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "app/failure.h"
#include "terminal/command_line.h"

namespace quode::cli {

using namespace app;
using namespace terminal;

// The commands of the files in cli/commands.
Command todayCommand();
Command nextCommand();
Command monthCommand();
Command yearCommand();
Command bulkCommand();
Command qiblaCommand();
Command hijriCommand();
Command calendarCommand();
Command moonCommand();
Command skyCommand();
Command citySearchCommand();
Command cityShowCommand();
Command cityListCommand();
Command cityAddCommand();
Command cityRemoveCommand();
Command cityHomeCommand();
Command cityMoveCommand();
Command alarmListCommand();
Command alarmSetCommand();
Command alarmOnCommand();
Command alarmOffCommand();
Command alarmTestCommand();
Command alarmDaysCommand();
Command alarmRemindCommand();
Command alarmSkipCommand();
Command alarmMuteCommand();
Command alarmUpcomingCommand();
Command calendarConnectCommand();
Command calendarDisconnectCommand();
Command calendarPublishCommand();
Command calendarUnpublishCommand();
Command iqamaCommand();
Command iqamaSetCommand();
Command iqamaRemoveCommand();
Command methodListCommand();
Command methodShowCommand();
Command methodSuggestCommand();
Command methodCompareCommand();
Command methodSetCommand();
Command methodImportCommand();
Command methodRemoveTableCommand();
Command settingsCommand();
Command doctorCommand();
Command doctorZonesCommand();

/// The program `quode`.
const Program& quodeProgram();

/// All commands, in the order of the help; the first one runs when none is named.
std::vector<Command> allCommands();

}  // namespace quode::cli
