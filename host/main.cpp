// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The panel of Quode.
#include "app/reporting.h"
#include "app/session.h"
#include "app/terminal.h"
#include "host/command.h"
#include "host/desktop.h"

namespace {

using namespace quode;

app::ExitCode run(const std::vector<std::string>& arguments) {
    const LanguageChoice language = speakChosenLanguage(processEnvironment(), app::languageOption(arguments));
    const auto line = host::readCommandLine(arguments);
    if (const auto* help = std::get_if<app::HelpText>(&line)) {
        return app::writtenOrFailed(help->text, app::ExitCode::ok);
    }
    if (std::holds_alternative<app::VersionRequest>(line)) {
        app::Session session(processEnvironment(), {language});
        return app::writtenOrFailed(app::versionText(session, "quode-panel " QUODE_VERSION), app::ExitCode::ok);
    }
    const auto& options = std::get<host::PanelOptions>(line);
    if (options.screenshot) return host::takeScreenshot(processEnvironment(), language, *options.screenshot);
    return host::runOnDesktop(processEnvironment(), language, options.language);
}

}  // namespace

int main(int count, char** values) {
    quode::app::guardStandardStreams();
    const std::vector<std::string> arguments(values + 1, values + count);
    return static_cast<int>(quode::app::runReportingFailures([&] { return run(arguments); }));
}
