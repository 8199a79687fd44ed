// The command line of Quode.
#include <fmt/format.h>

#include <cerrno>
#include <exception>
#include <system_error>

#include "cli/command_line.h"
#include "cli/commands.h"
#include "cli/failure.h"
#include "cli/session.h"
#include "cli/terminal.h"
#include "companion/UserDatabase.h"
#include "data/attribution.h"

namespace {

using namespace quode;
using namespace quode::cli;

std::string versionText(Session& session) {
    std::string edition;
    try {
        edition = session.cities().edition();
    } catch (const CityDatabaseError& error) {
        edition = error.what();
    }
    return fmt::format("quode {}\n\nCity database: {}\n{}\n", QUODE_VERSION, edition, dataAttribution);
}

ExitCode writtenOrFailed(const std::string& text, ExitCode code) {
    switch (writeOutput(text)) {
        case WriteResult::written:
            return code;
        case WriteResult::readerGone:  // as with "quode year | head": whoever reads has seen enough
            return ExitCode::outputFailed;
        default:
            writeMessage("The output could not be written: " + std::system_category().message(errno) + ".");
            return ExitCode::outputFailed;
    }
}

Session::Wishes wishesOf(const Arguments& arguments) {
    return {arguments.text("lang"), arguments.has("json") || arguments.text("format") == "json",
            arguments.has("no-color")};
}

ExitCode run(const std::vector<std::string>& arguments) {
    const std::vector<Command> commands = allCommands();
    const ParsedLine line = parseCommandLine(commands, commands.front(), arguments);
    if (const auto* help = std::get_if<HelpText>(&line)) return writtenOrFailed(help->text, ExitCode::ok);
    if (std::holds_alternative<VersionWish>(line)) {
        Session session(processEnvironment(), {});
        return writtenOrFailed(versionText(session), ExitCode::ok);
    }
    const auto& invocation = std::get<Invocation>(line);
    Session session(processEnvironment(), wishesOf(invocation.arguments));
    invocation.command->run(session, invocation.arguments);
    return writtenOrFailed(session.output(), session.exitCode());
}

ExitCode runReportingFailures(const std::vector<std::string>& arguments) {
    try {
        return run(arguments);
    } catch (const Failure& failure) {
        writeMessage(failure.what());
        return failure.code();
    } catch (const CityDatabaseError& error) {
        writeMessage(error.what());
        return ExitCode::damagedData;
    } catch (const UserDatabaseError& error) {
        writeMessage(error.what());
        return error.reason() == UserDatabaseError::Reason::refused ? ExitCode::usage : ExitCode::userData;
    } catch (const std::exception& error) {
        writeMessage(std::string("Something unexpected happened: ") + error.what());
        return ExitCode::internalError;
    }
}

}  // namespace

int main(int count, char** values) {
    guardStandardStreams();
    return static_cast<int>(runReportingFailures({values + 1, values + count}));
}
