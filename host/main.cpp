// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The panel of Quode.
#include "app/session.h"
#include "host/command.h"
#include "host/desktop.h"
#include "terminal/reporting.h"
#include "terminal/streams.h"

namespace {

using namespace quode;

app::ExitCode run(const std::vector<std::string>& arguments) {
    const LanguageChoice language = speakChosenLanguage(processEnvironment(), terminal::languageOption(arguments));
    const auto line = host::readCommandLine(arguments);
    if (const auto* help = std::get_if<terminal::HelpText>(&line)) {
        return terminal::writtenOrFailed(help->text, app::ExitCode::ok);
    }
    if (std::holds_alternative<terminal::VersionRequest>(line)) {
        app::Session session(processEnvironment(), {language});
        return terminal::writtenOrFailed(terminal::versionText(session, "quode-panel " QUODE_VERSION),
                                         app::ExitCode::ok);
    }
    const auto& options = std::get<host::PanelOptions>(line);
    if (options.screenshot) return host::takeScreenshot(processEnvironment(), language, *options.screenshot);
    return host::runOnDesktop(processEnvironment(), language, options.language);
}

}  // namespace

int main(int count, char** values) {
    quode::terminal::guardStandardStreams();
    const std::vector<std::string> arguments(values + 1, values + count);
    return static_cast<int>(quode::terminal::runReportingFailures([&] { return run(arguments); }));
}
