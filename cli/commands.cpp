// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "cli/commands.h"

#include "texts/translation.h"

namespace quode::cli {
namespace {

std::string footer() {
    return terminal::helpFooter(
               {{"QUODE_CITY", _("the city when --city is not given; else the home city")},
                {"QUODE_LANG", _("the language when --lang is not given")},
                {"QUODE_NOW", _("the moment used as now, such as 2026-11-21T04:00:00Z")},
                {"QUODE_BUNDLE_DIR", _("the folder with the city database and the language files")},
                {"QUODE_DATA_DIR", _("the folder of the user's files")},
                {"NO_COLOR", _("no colours when set")}},
               {_("done"),
                _("not found: no such city, no such time, outside the Hijri table; or a check found a problem"),
                _("the command line cannot be understood, or names something impossible"),
                _("a file of the installation is missing or damaged"), _("the output cannot be written"),
                _("unexpected error"), _("the user's files cannot be read or changed; the times are shown anyway")}) +
           '\n' + _("\"quode COMMAND --help\" explains a command.");
}

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
    static const Program program{
        "quode", std::string(_("Islamic prayer times, offline.")) + '\n' + _("Without a command: the times of today."),
        footer(), commonParameters(), _("Show the version and the sources of the data")};
    return program;
}

std::vector<Command> allCommands() {
    return {
        todayCommand(),
        nextCommand(),
        monthCommand(),
        yearCommand(),
        bulkCommand(),
        qiblaCommand(),
        moonCommand(),
        skyCommand(),
        hijriCommand(),
        with(calendarCommand(), {calendarConnectCommand(), calendarDisconnectCommand(), calendarPublishCommand(),
                                 calendarUnpublishCommand()}),
        group("city", _("Choose your cities; find and show others"),
              {cityListCommand(), cityAddCommand(), cityRemoveCommand(), cityHomeCommand(), cityMoveCommand(),
               citySearchCommand(), cityShowCommand()}),
        group(
            "alarm", _("Alarms for the prayers"),
            {alarmListCommand(), alarmSetCommand(), alarmOnCommand(), alarmOffCommand(), alarmDaysCommand(),
             alarmRemindCommand(), alarmSkipCommand(), alarmMuteCommand(), alarmUpcomingCommand(), alarmTestCommand()}),
        group("method", _("The method of the times, and your own minutes"),
              {methodListCommand(), methodShowCommand(), methodSuggestCommand(), methodCompareCommand(),
               methodSetCommand(), methodImportCommand(), methodRemoveTableCommand()}),
        with(iqamaCommand(), {iqamaSetCommand(), iqamaRemoveCommand()}),
        settingsCommand(),
        with(doctorCommand(), {doctorZonesCommand()}),
    };
}

}  // namespace quode::cli
