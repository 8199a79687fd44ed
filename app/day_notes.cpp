// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/day_notes.h"

#include <fmt/format.h>

#include <cmath>
#include <stdexcept>

#include "app/day_view.h"
#include "app/method_choice.h"
#include "app/session.h"
#include "app/time_notes.h"
#include "companion/SiteChoices.h"
#include "texts/translation.h"

namespace quode::app {
namespace {

constexpr int dawnDepression = 19, nightDepression = 17;  // degrees
constexpr int ishraq = codeOf(Prayer::ishraq), isfirar = codeOf(Prayer::isfirar);
constexpr int lowSun = 5;  // degrees above the horizon

// Of the fallbacks that stand behind the times of a day.
void addFallbacks(Session& session, const CityDay& day, std::vector<std::string>& notes) {
    if (const auto latitude = computedLatitude(day)) notes.push_back(latitudeNote(session, *latitude, *latitude));
    for (const int code : {firstPrayer, lastMainPrayer}) {
        const bool isShown = timeOfPrayer(day.times, code).has_value();
        if (!isShown || !fallbacksOf(day.times, code).earlierDay) continue;
        notes.push_back(session.prayerName(code) + ": " + earlierDayNote(code));
    }
}

std::string riseAndSetNote(bool hasRise, bool hasSet, const char* neither, const char* noRise, const char* noSet) {
    if (hasRise && hasSet) return "";
    return _(!hasRise && !hasSet ? neither : hasRise ? noSet : noRise);
}

}  // namespace

Json ruleJson(const Site& site) {
    return object({{"dawn_depression", dawnDepression},
                   {"night_depression", nightDepression},
                   {"margin_minutes", FastAstro::Temkin(site.latitude, site.temkin) * 60.0},
                   {"text", ruleText(site)}});
}

std::string ruleText(const Site& site) {
    const long seconds = std::lround(FastAstro::Temkin(site.latitude, site.temkin) * 3600.0);
    return _("Sun {}° and {}° below the horizon, margin {} min {} s", dawnDepression, nightDepression, seconds / 60,
             seconds % 60);
}

std::string missingPrayerNote(Session& session, const CityDay& day, int code) {
    if (timeOfPrayer(day.times, code)) return "";
    const std::string name = session.prayerName(code);
    switch (code) {
        case firstPrayer:
            return _("{}: the Sun has not been {}° below the horizon for a year.", name, dawnDepression);
        case lastMainPrayer:
            return _("{}: the Sun has not been {}° below the horizon for a year.", name, nightDepression);
        case ishraq:
        case isfirar:
            return _("{}: the Sun stays lower than {}° above the horizon.", name, lowSun);
        default:
            return _("{}: the Sun does not reach the height that belongs to this time.", name);
    }
}

std::vector<std::string> missingSkyNotes(const CityDay& day) {
    const SkyTimes sky = skyTimes(day);
    std::vector<std::string> notes;
    for (const std::string& note :
         {riseAndSetNote(sky.sunrise.has_value(), sky.sunset.has_value(),
                         N_("The Sun does not rise or set on this day."), N_("The Sun does not rise on this day."),
                         N_("The Sun does not set on this day.")),
          riseAndSetNote(sky.moonrise.has_value(), sky.moonset.has_value(),
                         N_("The Moon does not rise or set on this day."), N_("The Moon does not rise on this day."),
                         N_("The Moon does not set on this day."))}) {
        if (!note.empty()) notes.push_back(note);
    }
    return notes;
}

std::vector<std::string> missingNotes(Session& session, const CityDay& day) {
    std::vector<std::string> notes;
    for (int code = firstPrayer; code <= lastPrayer; ++code) {
        if (std::string note = missingPrayerNote(session, day, code); !note.empty()) notes.push_back(std::move(note));
    }
    for (std::string& note : missingSkyNotes(day)) notes.push_back(std::move(note));
    return notes;
}

std::string guessNote(Session& session, const ChosenPlace& place, Remedy remedy) {
    if (place.source != PlaceSource::systemZone && place.source != PlaceSource::fallback) return "";
    const bool isFallback = place.source == PlaceSource::fallback;
    const auto ofZone = isFallback ? std::nullopt : session.cities().largestCityOfZone(session.systemZone());
    // The zone may have become another one since the city was stored.
    const bool isOfZone = ofZone && ofZone->id == place.city.id;
    const std::string zone = session.systemZoneText();
    if (remedy == Remedy::settings) {
        return isOfZone ? _("{} was guessed from the time zone of this device, {}. Choose your city in the menu.",
                            place.city.name, zone)
                        : _("{} was not chosen by you. Choose your city in the menu.", place.city.name);
    }
    if (!isFallback && !isOfZone) {
        return _("{} was not chosen by you. To choose your city: quode city home NAME.", place.city.name);
    }
    return isFallback
               ? _("{} is shown because the time zone of this system, {}, has no city. To choose one: quode city "
                   "home NAME.",
                   place.city.name, zone)
               : _("{} is the largest city in the time zone of this system, {}. To choose another one: quode "
                   "city home NAME.",
                   place.city.name, zone);
}

std::vector<std::string> dayNotes(Session& session, const ChosenPlace& place, const CityDay& day, Remedy remedy) {
    std::vector<std::string> notes;
    const auto add = [&notes](std::string note) {
        if (!note.empty()) notes.push_back(std::move(note));
    };
    add(iqamaLine(session, day));
    addFallbacks(session, day, notes);
    for (std::string& note : timeNotes(session, day)) add(std::move(note));
    const ZoneClock clock = siteOf(place.city).clock();
    for (int code = firstPrayer; code <= lastPrayer; ++code) add(otherClockNote(session, clock, day, code));
    for (std::string& note : missingNotes(session, day)) add(std::move(note));
    add(choiceProblem(place.city));
    add(methodLine(siteOf(place.city)));
    for (std::string& note : methodRemarks(day)) add(std::move(note));
    if (isByEngine(day)) add(ruleText(siteOf(place.city)));
    add(remedy == Remedy::command ? usualMethodNote(session, place) : usualMethodFact(session, place));
    add(guessNote(session, place, remedy));
    return notes;
}

}  // namespace quode::app
