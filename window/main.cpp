// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The settings window of Quode.
#include "app/reporting.h"
#include "app/session.h"
#include "app/terminal.h"
#include "window/command.h"
#include "window/program.h"

namespace {

using namespace quode;

app::ExitCode run(const std::vector<std::string>& arguments) {
    const LanguageChoice language = speakChosenLanguage(processEnvironment(), app::languageOption(arguments));
    const auto line = window::readCommandLine(arguments);
    if (const auto* help = std::get_if<app::HelpText>(&line)) {
        return app::writtenOrFailed(help->text, app::ExitCode::ok);
    }
    if (std::holds_alternative<app::VersionRequest>(line)) {
        app::Session session(processEnvironment(), {language});
        return app::writtenOrFailed(app::versionText(session, "quode-settings " QUODE_VERSION), app::ExitCode::ok);
    }
    return window::runWindow(processEnvironment(), language, std::get<window::WindowOptions>(line));
}

}  // namespace

int main(int count, char** values) {
    quode::app::guardStandardStreams();
    const std::vector<std::string> arguments(values + 1, values + count);
    return static_cast<int>(quode::app::runReportingFailures([&] { return run(arguments); }));
}
