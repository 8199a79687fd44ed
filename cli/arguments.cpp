// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "cli/arguments.h"

#include "app/dates.h"
#include "app/failure.h"
#include "app/prayer_names.h"
#include "common/numbers.h"
#include "companion/UserDatabase.h"
#include "texts/translation.h"

namespace quode::cli {

std::optional<VAKDate> requestedDate(const terminal::Arguments& arguments) {
    const std::optional<std::string> text = arguments.text("date");
    if (!text) return std::nullopt;
    return app::parseDate(*text);
}

std::optional<std::chrono::minutes> alarmMinutes(const terminal::Arguments& arguments) {
    const std::optional<std::string> text = arguments.text("alarm");
    if (!text) return std::nullopt;
    const std::optional<int> minutes = numberOf<int>(*text);
    if (!minutes || *minutes < 0 || *minutes > largestAlarmOffset) {
        throw app::Failure(app::ExitCode::usage,
                           _("--alarm is a number of minutes from 0 to {}, not \"{}\".", largestAlarmOffset, *text));
    }
    return std::chrono::minutes(*minutes);
}

terminal::Parameter prayerParameter(terminal::Parameter::Kind kind) {
    return {kind, "PRAYER", "", _("A name such as fajr or imsak, a number 1 to 6, or all"), true};
}

std::vector<int> prayersOf(app::Session& session, const terminal::Arguments& arguments) {
    return app::prayersNamed(session, arguments.text("PRAYER").value_or(""));
}

}  // namespace quode::cli
