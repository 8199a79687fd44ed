#include "cli/commands.h"

namespace quode::cli {
namespace {

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
        group("city", "Choose your cities; find and show others",
              {cityListCommand(), cityAddCommand(), cityRemoveCommand(), cityHomeCommand(), cityMoveCommand(),
               citySearchCommand(), cityShowCommand()}),
        group("alarm", "Alarms for the prayers",
              {alarmListCommand(), alarmSetCommand(), alarmOnCommand(), alarmOffCommand(), alarmUpcomingCommand(),
               alarmTestCommand()}),
        settingsCommand(),
        with(doctorCommand(), {doctorZonesCommand()}),
    };
}

}  // namespace quode::cli
