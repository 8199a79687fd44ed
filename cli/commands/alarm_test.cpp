// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode alarm test: rings at once, as an alarm does.
#include <fmt/format.h>

#include "app/alarm_sounds.h"
#include "app/desktop.h"
#include "app/prayer_names.h"
#include "app/session.h"
#include "app/user_alarms.h"
#include "app/user_texts.h"
#include "cli/commands.h"
#include "common/numbers.h"
#include "companion/sounds.h"

namespace quode::cli {
namespace {

constexpr int shortest = 1, longest = 60, usual = 10;

std::chrono::seconds timeOf(const Arguments& arguments) {
    const std::optional<std::string> text = arguments.text("seconds");
    if (!text) return std::chrono::seconds(usual);
    const std::optional<int> number = numberOf<int>(*text);
    if (number && *number >= shortest && *number <= longest) return std::chrono::seconds(*number);
    throw Failure(ExitCode::usage,
                  fmt::format("--seconds is a number from {} to {}, not \"{}\".", shortest, longest, trimmed(*text)));
}

void print(Session& session, const std::string& sound, const TrialResult& result) {
    const std::string shown = result.isShown ? "shown" : "not shown";
    const std::string played = result.soundProblem.empty() ? "played " + sound : "not heard";
    session.print(
        fmt::format("The alarm was {}, and {}{}.", shown, played, result.isStopped ? "; you stopped it" : ""));
}

void tell(Session& session, const std::string& prayer, const std::string& sound, const TrialResult& result) {
    if (session.wantsJson()) {
        session.printJson(
            object({{"prayer", prayer},
                    {"sound", sound},
                    {"shown", result.isShown},
                    {"stopped_by_user", result.isStopped},
                    {"sound_problem", result.soundProblem.empty() ? Json() : Json(result.soundProblem)}}));
    } else {
        print(session, sound, result);
    }
    if (!result.isShown) {
        session.complain(
            "No notification service showed it. Start that of your desktop, or install one, such as dunst.",
            ExitCode::notFound);
    }
    if (!result.soundProblem.empty()) {
        session.complain(result.soundProblem + " Is the sound of this system on?", ExitCode::notFound);
    }
}

void runTest(Session& session, const Arguments& arguments) {
    const std::chrono::seconds time = timeOf(arguments);
    const UserAlarms all = readAlarms(session);
    const int code = prayersNamed(session, arguments.text("PRAYER").value_or("1")).front();
    const std::optional<std::string> wish = arguments.text("sound");
    const std::string sound = wish ? soundNamedByUser(session, *wish) : soundOf(all, all.alarm(code));
    const UserTexts& texts = userTextsOf(session.services().languageId());
    const std::string city = all.city ? all.city->name + "\n" : "";
    const std::string prayer = session.prayerName(code);
    const TrialResult result = desktop().ring({prayer, city + std::string(texts.testRing), std::string(texts.stop),
                                               soundNamed(sound, session.bundle()), time});
    tell(session, prayer, sound, result);
}

}  // namespace

Command alarmTestCommand() {
    return {"test",
            "Ring once, to see and hear that it works",
            {{Parameter::Kind::words, "PRAYER", "", "The prayer whose alarm is tried (the first)"},
             {Parameter::Kind::option, "sound", "NAME|FILE", "Another sound than that of the alarm"},
             {Parameter::Kind::option, "seconds", "N", "How long it rings unless stopped (10)"}},
            runTest};
}

}  // namespace quode::cli
