// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "terminal/reporting.h"

#include <fmt/format.h>

#include <cerrno>
#include <exception>
#include <system_error>

#include "app/place.h"
#include "app/session.h"
#include "companion/UserDatabase.h"
#include "companion/language.h"
#include "data/attribution.h"
#include "terminal/streams.h"
#include "texts/translation.h"

namespace quode::terminal {

using app::ExitCode;
using app::Failure;

std::string versionText(app::Session& session, const std::string& program) {
    std::string edition;
    try {
        edition = app::editionText(session);
    } catch (const CityDatabaseError& error) {
        edition = error.what();
    }
    return fmt::format("{}\n\n{}\n{}\n", program, _("City database: {}", edition), dataAttribution);
}

ExitCode writtenOrFailed(const std::string& text, ExitCode code) {
    switch (writeOutput(text)) {
        case WriteResult::written:
            return code;
        case WriteResult::readerGone:  // as with "quode year | head": the reader has seen enough
            return ExitCode::outputFailed;
        default:
            writeMessage(_("The output cannot be written: {}.", std::system_category().message(errno)));
            return ExitCode::outputFailed;
    }
}

ExitCode runReportingFailures(const std::function<ExitCode()>& run) {
    try {
        return run();
    } catch (const Failure& failure) {
        writeMessage(failure.what());
        return failure.code();
    } catch (const UnknownLanguage& error) {
        writeMessage(error.what());
        return ExitCode::usage;
    } catch (const CityDatabaseError& error) {
        writeMessage(error.what());
        return ExitCode::damagedData;
    } catch (const UserDatabaseError& error) {
        writeMessage(error.what());
        return error.reason() == UserDatabaseError::Reason::refused ? ExitCode::usage : ExitCode::userData;
    } catch (const std::exception& error) {
        writeMessage(_("Unexpected error: {}", error.what()));
        return ExitCode::internalError;
    }
}

}  // namespace quode::terminal
