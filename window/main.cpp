// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The settings window of Quode.
#include "app/session.h"
#include "terminal/reporting.h"
#include "terminal/streams.h"
#include "window/command.h"
#include "window/program.h"

namespace {

using namespace quode;

app::ExitCode run(const std::vector<std::string>& arguments) {
    const LanguageChoice language = speakChosenLanguage(processEnvironment(), terminal::languageOption(arguments));
    const auto line = window::readCommandLine(arguments);
    if (const auto* help = std::get_if<terminal::HelpText>(&line)) {
        return terminal::writtenOrFailed(help->text, app::ExitCode::ok);
    }
    if (std::holds_alternative<terminal::VersionRequest>(line)) {
        app::Session session(processEnvironment(), {language});
        return terminal::writtenOrFailed(terminal::versionText(session, "quode-settings " QUODE_VERSION),
                                         app::ExitCode::ok);
    }
    return window::runWindow(processEnvironment(), language, std::get<window::WindowOptions>(line));
}

}  // namespace

int main(int count, char** values) {
    quode::terminal::guardStandardStreams();
    const std::vector<std::string> arguments(values + 1, values + count);
    return static_cast<int>(quode::terminal::runReportingFailures([&] { return run(arguments); }));
}
