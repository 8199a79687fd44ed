// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "cli/commands.h"

#include "texts/translation.h"

namespace quode::cli {
namespace {

constexpr const char* description =
    "Islamic prayer times without any network.\n"
    "Without a command, the times of today are shown.";

constexpr const char* footer = R"(Environment:
  QUODE_CITY        the city when --city is not given; else the home city
  QUODE_LANG        the language when --lang is not given
  QUODE_NOW         the moment taken for now, such as 2026-11-21T04:00:00Z
  QUODE_BUNDLE_DIR  the folder with city database and language files
  QUODE_DATA_DIR    the folder of the user's files
  NO_COLOR          no colours when set

Exit codes:
  0  done
  1  not found: no such city, no such time, outside the Hijri table;
     or a check or test that found something to be mended
  2  the command line cannot be understood, or names something impossible
  3  a file of the installation is missing or damaged
  4  the output could not be written
  5  something unexpected
  6  the user's files cannot be read or changed; the times are shown anyway

"quode COMMAND --help" explains a command.)";

Command group(const std::string& name, const std::string& summary, std::vector<Command> children) {
    Command command{name, summary, {}, nullptr};
    command.children = std::move(children);
    return command;
}

/// A command that does something by itself, with further ones below it.
Command with(Command command, std::vector<Command> children) {
    command.children = std::move(children);
    return command;
}

}  // namespace

const Program& quodeProgram() {
    static const Program program{"quode", description, footer, commonParameters()};
    return program;
}

std::vector<Command> allCommands() {
    return {
        todayCommand(),
        nextCommand(),
        monthCommand(),
        yearCommand(),
        qiblaCommand(),
        moonCommand(),
        skyCommand(),
        hijriCommand(),
        with(calendarCommand(), {calendarConnectCommand(), calendarDisconnectCommand()}),
        group("city", _("Choose your cities; find and show others"),
              {cityListCommand(), cityAddCommand(), cityRemoveCommand(), cityHomeCommand(), cityMoveCommand(),
               citySearchCommand(), cityShowCommand()}),
        group("alarm", _("Alarms for the prayers"),
              {alarmListCommand(), alarmSetCommand(), alarmOnCommand(), alarmOffCommand(), alarmUpcomingCommand(),
               alarmTestCommand()}),
        settingsCommand(),
        with(doctorCommand(), {doctorZonesCommand()}),
    };
}

}  // namespace quode::cli
