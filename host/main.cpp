// The panel of Quode.
#include "cli/reporting.h"
#include "cli/session.h"
#include "cli/terminal.h"
#include "host/command.h"
#include "host/desktop.h"

namespace {

using namespace quode;

cli::ExitCode run(const std::vector<std::string>& arguments) {
    const auto line = host::readCommandLine(arguments);
    if (const auto* help = std::get_if<cli::HelpText>(&line)) {
        return cli::writtenOrFailed(help->text, cli::ExitCode::ok);
    }
    if (std::holds_alternative<cli::VersionWish>(line)) {
        cli::Session session(processEnvironment(), {});
        return cli::writtenOrFailed(cli::versionText(session, "quode-panel " QUODE_VERSION), cli::ExitCode::ok);
    }
    const auto& wish = std::get<host::PanelWish>(line);
    if (wish.screenshot) return host::takeScreenshot(processEnvironment(), wish.language, *wish.screenshot);
    return host::runOnDesktop(processEnvironment(), wish.language);
}

}  // namespace

int main(int count, char** values) {
    quode::cli::guardStandardStreams();
    const std::vector<std::string> arguments(values + 1, values + count);
    return static_cast<int>(quode::cli::runReportingFailures([&] { return run(arguments); }));
}
