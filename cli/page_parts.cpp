// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "cli/page_parts.h"

#include <cmath>

#include "app/day_notes.h"
#include "app/day_view.h"
#include "app/method_choice.h"
#include "texts/translation.h"

namespace quode::cli {

using namespace app;
using namespace terminal;

namespace {

std::string daysText(Session& session, const ZoneDisagreement& problem) {
    const std::string first = dayAndMonth(session, problem.first), last = dayAndMonth(session, problem.last);
    if (problem.days == 1) return _("on {}", first);
    return _("on {0} days from {1} to {2}", problem.days, first, last);
}

}  // namespace

void printPlace(Console& console, const ChosenPlace& place, bool withCoordinates) {
    Session& session = console.session();
    const CityRecord& city = place.city;
    const Style& style = console.style();
    if (place.nearest) {
        const std::string clock =
            _("clock of {}, {} km away", place.nearest->city.name, std::lround(place.nearest->distanceKm));
        const std::string coordinates = coordinatesText(city.latitude, city.longitude, session.decimalMark());
        console.print(style.strong(coordinates) + "  " + style.dim(clock));
        return;
    }
    const std::string where = regionAndCountry(session, city);
    const std::string coordinates = coordinatesText(city.latitude, city.longitude, session.decimalMark());
    const int used = displayWidth(city.name) + 2 + displayWidth(where);
    if (!withCoordinates) return console.print(style.strong(city.name) + "  " + where);
    const bool fits = used + 2 + displayWidth(coordinates) <= console.textWidth();
    console.print(style.strong(city.name) + "  " + where +
                  (fits ? style.dim(padLeft(coordinates, console.textWidth() - used)) : ""));
    if (!fits) console.print(style.dim(coordinates));
}

void printHowChosen(Console& console, const ChosenPlace& place) {
    const std::string note = guessNote(console.session(), place);
    if (note.empty()) return;
    console.print();
    console.printRemark(note);
}

void printHowHomeWasChosen(Console& console) {
    printHowChosen(console, chooseHomePlace(console.session()));
}

void reportFallbackPlace(Console& console, const ChosenPlace& place) {
    if (place.source == PlaceSource::fallback) console.session().report(guessNote(console.session(), place));
}

void printMethod(Console& console, const Site& site) {
    const std::string line = methodLine(site);
    if (!line.empty()) console.printRemark(line);
}

void printWarnings(Console& console, const std::vector<ZoneDisagreement>& problems) {
    for (const ZoneDisagreement& problem : problems) {
        const std::string text =
            _("{0}: its stored clock is {1}, that of this system {2}, {3}. The times follow the stored one.",
              problem.zone, utcOffsetText(problem.storedHours), utcOffsetText(problem.systemHours),
              daysText(console.session(), problem));
        console.printWarning(text);
    }
}

void printRinger(Console& console, const RingerState& state) {
    if (!state.isReady()) {
        console.printWarning(state.problem);
        return console.print("  " + state.remedy);
    }
    const std::string_view text =
        state.ringer == Ringer::quode
            ? _("The alarm service of Quode rings; it is running.")
            : _("Evolution rings, by its reminders; the alarm service of Quode renews the events.");
    console.printRemark(text);
}

}  // namespace quode::cli
