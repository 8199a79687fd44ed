// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The command line of Quode.
#include "cli/commands.h"
#include "terminal/Console.h"
#include "terminal/reporting.h"
#include "terminal/streams.h"

namespace {

using namespace quode;
using namespace quode::app;
using namespace quode::cli;
using namespace quode::terminal;

Console::Options optionsOf(const Arguments& arguments, const LanguageChoice& language) {
    return {language, arguments.has("json") || arguments.text("format") == "json", arguments.has("no-color")};
}

ExitCode run(const std::vector<std::string>& arguments) {
    const LanguageChoice language = speakChosenLanguage(processEnvironment(), languageOption(arguments));
    const std::vector<Command> commands = allCommands();
    const ParsedLine line =
        parseCommandLine(quodeProgram(), commands, commands.front(), arguments, terminalColumns(processEnvironment()));
    if (const auto* help = std::get_if<HelpText>(&line)) return writtenOrFailed(help->text, ExitCode::ok);
    if (std::holds_alternative<VersionRequest>(line)) {
        Session session(processEnvironment(), {language});
        return writtenOrFailed(versionText(session, "quode " QUODE_VERSION), ExitCode::ok);
    }
    const auto& invocation = std::get<Invocation>(line);
    Console console(processEnvironment(), optionsOf(invocation.arguments, language));
    invocation.command->run(console, invocation.arguments);
    return writtenOrFailed(console.output(), console.exitCode());
}

}  // namespace

int main(int count, char** values) {
    guardStandardStreams();
    const std::vector<std::string> arguments(values + 1, values + count);
    return static_cast<int>(runReportingFailures([&] { return run(arguments); }));
}
