// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode next: the coming prayer, for status bars.
#include <fmt/format.h>

#include "app/dates.h"
#include "app/day_notes.h"
#include "app/day_view.h"
#include "app/method_choice.h"
#include "app/next_prayer.h"
#include "app/time_notes.h"
#include "cli/commands.h"
#include "cli/method_arguments.h"
#include "cli/page_parts.h"
#include "terminal/Console.h"
#include "texts/markup.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

constexpr std::chrono::minutes soon{15};  // a bar may show what comes then in another colour

struct ComingPrayer {
    ChosenPlace place;
    Site site;
    NextPrayer prayer;
};

std::string placeholderValue(Session& session, const ComingPrayer& coming, std::string_view name) {
    const auto left = timeLeft(session, coming.prayer);
    const auto minutes = std::chrono::ceil<std::chrono::minutes>(left).count();
    if (name == "name") return session.prayerName(coming.prayer.code);
    if (name == "key") return prayerKey(coming.prayer.code);
    if (name == "time") return clockText(session, coming.prayer.hours);
    if (name == "time24") return clock24(coming.prayer.hours);
    if (name == "left") return durationText(left);
    if (name == "countdown") return fmt::format("{}:{:02}", minutes / 60, minutes % 60);
    if (name == "minutes") return std::to_string(minutes);
    if (name == "seconds") return std::to_string(left.count());
    if (name == "city") return coming.place.city.name;
    if (name == "date") return isoDate(coming.prayer.date);
    throw Failure(ExitCode::usage,
                  _("--format has no placeholder {}. Use one of {}.", fmt::format("{{{}}}", name),
                    "{name}, {key}, {time}, {time24}, {left}, {countdown}, {minutes}, {seconds}, {city}, {date}"));
}

/// The template with its placeholders filled; "{{" and "}}" stand for braces.
std::string filled(Session& session, const ComingPrayer& coming, std::string_view format) {
    std::string text;
    while (!format.empty()) {
        const std::size_t brace = format.find_first_of("{}");
        text += format.substr(0, brace);
        if (brace == std::string_view::npos) return text;
        format.remove_prefix(brace);
        if (format.starts_with("{{") || format.starts_with("}}")) {
            text += format.front();
            format.remove_prefix(2);
            continue;
        }
        const std::size_t end = format.find('}');
        if (format.front() == '}' || end == std::string_view::npos) {
            throw Failure(ExitCode::usage, _("--format has an unpaired brace. Write {{ or }} for a brace."));
        }
        text += placeholderValue(session, coming, format.substr(1, end - 1));
        format.remove_prefix(end + 1);
    }
    return text;
}

std::string adjustedInBrackets(const CityDay& day, int code) {
    const std::string mark = adjustmentMark(day, code);
    return mark.empty() ? "" : " (" + mark + ")";
}

/// What Waybar's module "custom" reads with "return-type": "json". Others, such as Quickshell, read the same.
Json waybarJson(Session& session, const ComingPrayer& coming) {
    const NextPrayer& prayer = coming.prayer;
    const CityDay day = computeCityDay(coming.site, today(session, coming.site));
    const std::string name = session.prayerName(prayer.code), clock = clockText(session, prayer.hours);
    std::string tooltip = escapedMarkup(coming.place.city.name) + ", " + escapedMarkup(longDate(session, day.date));
    for (int code = firstPrayer; code <= lastMainPrayer; ++code) {
        const std::string line =
            escapedMarkup(session.prayerName(code) + " " + clockText(session, timeOfPrayer(day, code)) +
                          adjustedInBrackets(day, code));
        const bool isNext = code == prayer.code && sameDay(prayer.date, day.date);
        tooltip += "\n" + (isNext ? "<b>" + line + "</b>" : line);
    }
    const std::string note = guessNote(session, coming.place);
    const bool isSoon = timeLeft(session, prayer) <= soon;
    Json::Array classes{prayerKey(prayer.code)};
    if (isSoon) classes.emplace_back("soon");
    return object({{"text", escapedMarkup(name + " " + clock)},
                   {"alt", prayerKey(prayer.code)},
                   {"tooltip", tooltip + "\n" + escapedMarkup(timeLeftText(session, coming.site, prayer)) +
                                   (note.empty() ? "" : "\n" + escapedMarkup(note))},
                   {"class", Json(std::move(classes))}});
}

void runNext(Console& console, const Arguments& arguments) {
    Session& session = console.session();
    ComingPrayer coming;
    coming.place = choosePlace(session, arguments.text("city"));
    useMethod(session, arguments, coming.place);
    coming.site = siteOf(coming.place.city);
    const std::optional<NextPrayer> prayer = nextPrayer(coming.site, session.now());
    if (!prayer) throw Failure(ExitCode::notFound, _("No prayer time exists at this place today and tomorrow."));
    coming.prayer = *prayer;
    if (console.wantsJson()) {
        console.printJson(object({{"place", placeJson(coming.place)}, {"next", nextPrayerJson(session, *prayer)}}));
    } else if (arguments.text("format") == "waybar") {
        console.write(waybarJson(session, coming).line());
    } else if (const auto format = arguments.text("format")) {
        console.printData(filled(session, coming, *format));
    } else {
        const CityDay day = computeCityDay(coming.site, prayer->date);
        console.print(session.prayerName(prayer->code) + " " + clockText(session, prayer->hours) +
                      adjustedInBrackets(day, prayer->code) + ", " + timeLeftText(session, coming.site, *prayer));
        reportFallbackPlace(console, coming.place);
    }
}

}  // namespace

Command nextCommand() {
    std::vector<Parameter> parameters{
        cityParameter(),
        {Parameter::Kind::option, "format", "TEMPLATE", _("The line, such as \"{name} in {left}\"; or waybar")}};
    for (Parameter& parameter : methodParameters()) parameters.push_back(std::move(parameter));
    return {"next", _("The coming prayer and the time left, in one line"), std::move(parameters), runNext};
}

}  // namespace quode::cli
