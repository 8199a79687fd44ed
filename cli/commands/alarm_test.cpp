// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode alarm test: rings at once, as an alarm does.
#include <fmt/format.h>

#include "app/alarm_sounds.h"
#include "app/desktop.h"
#include "app/prayer_names.h"
#include "app/user_alarms.h"
#include "cli/commands.h"
#include "common/numbers.h"
#include "common/printable.h"
#include "companion/sounds.h"
#include "terminal/Console.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

constexpr int shortest = 1, longest = 60, usual = 10;

std::chrono::seconds timeOf(const Arguments& arguments) {
    const std::optional<std::string> text = arguments.text("seconds");
    if (!text) return std::chrono::seconds(usual);
    const std::optional<int> number = numberOf<int>(*text);
    if (number && *number >= shortest && *number <= longest) return std::chrono::seconds(*number);
    throw Failure(ExitCode::usage,
                  _("--seconds is a number from {} to {}, not \"{}\".", shortest, longest, trimmed(*text)));
}

void print(Console& console, const std::string& sound, const TrialResult& result, bool isSoundOnly) {
    std::string text = result.isShown ? _("The alarm was shown.") : _("The alarm was not shown.");
    if (isSoundOnly) text.clear();
    if (!isSoundOnly) text += ' ';
    text += result.soundProblem.empty() ? _("It played {}.", printable(sound)) : std::string(_("It was not heard."));
    if (result.isStopped) text.append(" ").append(_("You stopped it."));
    console.print(text);
}

void tell(Console& console, const std::string& prayer, const std::string& sound, const TrialResult& result,
          bool isSoundOnly) {
    if (console.wantsJson()) {
        console.printJson(
            object({{"prayer", prayer},
                    {"sound", sound},
                    {"shown", result.isShown},
                    {"stopped_by_user", result.isStopped},
                    {"sound_problem", result.soundProblem.empty() ? Json() : Json(result.soundProblem)}}));
    } else {
        print(console, sound, result, isSoundOnly);
    }
    if (!result.isShown && !isSoundOnly) {
        console.report(
            _("No notification service showed it. Start the one of your desktop, or install one such as dunst."),
            ExitCode::notFound);
    }
    if (!result.soundProblem.empty()) {
        console.report(_("{} Is the sound of this system on?", result.soundProblem), ExitCode::notFound);
    }
}

void runTest(Console& console, const Arguments& arguments) {
    Session& session = console.session();
    const std::chrono::seconds time = timeOf(arguments);
    const UserAlarms all = readAlarms(session);
    const int code = prayersNamed(session, arguments.text("PRAYER").value_or("1")).front();
    const std::optional<std::string> request = arguments.text("sound");
    const std::string sound = request ? soundNamedByUser(session, *request) : soundOf(all, all.alarm(code));
    const std::string city = all.city ? all.city->name + "\n" : "";
    const std::string prayer = session.prayerName(code);
    const bool isSoundOnly = arguments.has("sound-only");
    RingManner manner = all.settings.manner;
    if (isSoundOnly) manner.fadeIn = 0;
    const TrialResult result =
        desktop().ring({isSoundOnly ? "" : prayer, city + std::string(_("A test of the alarm")),
                        std::string(_c("alarm", "Stop")), soundNamed(sound, session.bundle()), time, manner});
    tell(console, prayer, sound, result, isSoundOnly);
}

}  // namespace

Command alarmTestCommand() {
    return {"test",
            _("Ring once, to see and hear that it works"),
            {{Parameter::Kind::words, "PRAYER", "", _("The prayer whose alarm is tried (the first)")},
             {Parameter::Kind::option, "sound", "NAME|FILE", _("Another sound than that of the alarm")},
             {Parameter::Kind::toggle, "sound-only", "", _("Play the sound without a notification")},
             {Parameter::Kind::option, "seconds", "N", _("How long it rings unless stopped (10)")}},
            runTest};
}

}  // namespace quode::cli
