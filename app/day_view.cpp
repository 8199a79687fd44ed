// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/day_view.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "app/dates.h"
#include "app/day_notes.h"
#include "app/method_choice.h"
#include "app/session.h"
#include "app/time_notes.h"
#include "common/calendar.h"
#include "common/formatting.h"
#include "common/labels.h"
#include "texts/translation.h"

namespace quode::app {
namespace {

constexpr double hoursPerDay = 24.0;
constexpr int secondsPerHour = 3600, secondsPerDay = 86400;

std::string withSecondsText(double hours) {
    const long second = std::lround(hours * secondsPerHour);
    const int ofDay = static_cast<int>(((second % secondsPerDay) + secondsPerDay) % secondsPerDay);
    return formatting::timeLeadingZeroWithSeconds(ofDay / secondsPerHour, ofDay / minutesPerHour % minutesPerHour,
                                                  ofDay % minutesPerHour);
}

// A time of the evening before is negative, which no clock text can show.
double shownHours(double hours) {
    return hours < 0.0 ? hours + hoursPerDay : hours;
}

std::string dayOfMonth(int day) {
    // Translators: how the first day of a month is written in a date, such as "1er" in French.
    return day == 1 ? _c("day of a month", "1") : std::to_string(day);
}

std::string dateText(int day, const std::string& month, int year) {
    // Translators: a date: {0} the day, {1} the month, {2} the year.
    return _("{0} {1} {2}", dayOfMonth(day), month, year);
}

std::string superscript(std::size_t number) {
    constexpr std::array<const char*, 10> digits{"⁰", "¹", "²", "³", "⁴", "⁵", "⁶", "⁷", "⁸", "⁹"};
    return number < digits.size() ? digits[number] : fmt::format("({})", number);
}

}  // namespace

std::string prayerKey(int code) {
    return factsOf(code).key;
}

std::string clockText(Session& session, std::optional<double> hours, bool withSeconds) {
    if (!hours) return std::string(formatting::noTime);
    if (withSeconds) return withSecondsText(*hours);
    return session.services().timeLeadingZero(shownHours(*hours));
}

std::string clockText(Session& session, std::chrono::minutes minute) {
    const int ofDay = minuteOfDay(int(minute.count()));
    return session.services().timeLeadingZero(ofDay / minutesPerHour, ofDay % minutesPerHour);
}

std::string clock24(double hours) {
    return formatting::timeLeadingZero(shownHours(hours), {});
}

std::string clock24(std::chrono::minutes minute) {
    const int ofDay = minuteOfDay(int(minute.count()));
    return formatting::timeLeadingZero(ofDay / minutesPerHour, ofDay % minutesPerHour, {});
}

Json timeJson(std::optional<double> hours) {
    if (!hours) return nullptr;
    return object({{"time", clock24(*hours)}, {"hours", *hours}});
}

std::string altitudeText(std::optional<double> degrees) {
    return degrees ? formatting::getDegMinStrWithMinusPlus(*degrees) : std::string(formatting::noTime);
}

std::string nightPartLabel(const NightPartName& part) {
    if (part.hours == &NightParts::firstThird) return _("First third");
    return part.hours == &NightParts::midnight ? _("Midnight") : _("Last third");
}

std::optional<double> nightHours(const CityDay& day, double NightParts::*part) {
    const auto night = nightOf(day);
    return night ? std::optional((*night).*part) : std::nullopt;
}

Json nightJson(const CityDay& day) {
    Json::Object parts;
    for (const NightPartName& part : nightPartNames) {
        parts.emplace_back(part.key, timeJson(nightHours(day, part.hours)));
    }
    return Json(std::move(parts));
}

Json skyTimeJson(std::optional<double> hours) {
    return timeJson(hours ? std::optional(std::fmod(*hours, hoursPerDay)) : std::nullopt);
}

std::string durationText(std::chrono::seconds duration) {
    return durationLabel(std::chrono::ceil<std::chrono::minutes>(duration));
}

VAKDate today(Session& session, const Site& site) {
    const VAKDate clock = wallClock(site.clock(), session.now());
    return VAKDateMake(clock.Days, clock.Months, clock.Years, 0, 0, 0);
}

std::string longDate(Session& session, const VAKDate& date) {
    // Translators: a date: {0} the day of the week, {1} the day, {2} the month, {3} the year.
    return _("{0} {1} {2} {3}", session.weekdayName(weekdayOf(date)), dayOfMonth(date.Days),
             session.monthName(date.Months), date.Years);
}

std::string dayAndMonth(Session& session, std::chrono::year_month_day date) {
    const int day = static_cast<int>(unsigned(date.day())), month = static_cast<int>(unsigned(date.month()));
    return dateText(day, session.monthName(month), int(date.year()));
}

std::optional<ClockChange> clockChangeBetween(const ZoneClock& clock, const VAKDate& first, const VAKDate& last) {
    const auto begin = civilDate(first);
    if (!begin.ok()) return std::nullopt;
    const auto change = nextClockChange(clock, dayOf(first) - std::chrono::days(1));
    return change && change->date <= civilDate(last) ? change : std::nullopt;
}

std::string clockChangeText(Session& session, const ClockChange& change) {
    const std::string day = dayAndMonth(session, change.date);
    return change.toSummerTime ? _("clocks go forward on {}", day) : _("clocks go back on {}", day);
}

std::optional<VAKDate> hijriByTable(const VAKDate& date) {
    const VAKDate hijri = calendar::JulianToHijri(calendar::GregorianDateToJulian(date));
    if (hijri.Years < 0) return std::nullopt;
    return hijri;
}

std::string hijriText(Session& session, const VAKDate& hijri) {
    return dateText(hijri.Days, session.hijriMonth(hijri.Months), hijri.Years);
}

Json hijriJson(Session& session, const std::optional<VAKDate>& hijri, const char* calendar) {
    if (!hijri) return nullptr;
    return object({{"date", isoDate(*hijri)},
                   {"year", hijri->Years},
                   {"month", hijri->Months},
                   {"day", hijri->Days},
                   {"month_name", session.hijriMonth(hijri->Months)},
                   {"calendar", calendar}});
}

Json skyJson(const CityDay& day) {
    const SkyTimes sky = skyTimes(day);
    return object({{"sunrise", skyTimeJson(sky.sunrise)},
                   {"sunset", skyTimeJson(sky.sunset)},
                   {"moonrise", skyTimeJson(sky.moonrise)},
                   {"moonset", skyTimeJson(sky.moonset)},
                   {"moon_altitude_at_sunset", sky.moonAltitudeAtSunset}});
}

Json instantJson(const CityDay& day, std::optional<double> hours) {
    if (!hours || isJulianCalendar(day.date)) return nullptr;
    return isoMoment(instantOf(day, *hours));
}

Json qiblaJson(const CityDay& day) {
    return object({{"bearing", bearingOf(day.kible)}, {"text", formatting::getQiblaAngleStr(day.kible.K)}});
}

Json declinationJson(const CityDay& day) {
    return object({{"degrees", day.declination}, {"model", magneticModel}, {"epoch", MagneticVariation::modelEpoch}});
}

std::optional<double> computedLatitude(const PrayTimes& times) {
    if (!times.isLatitudeChanged) return std::nullopt;
    return times.newLat - std::copysign(1.0, times.newLat);  // newLat is the one before the last step
}

std::optional<double> computedLatitude(const CityDay& day) {
    if (isByEngine(day)) return computedLatitude(day.times);
    const bool isOther = day.method.mark(firstPrayer).source == TimeSource::otherLatitude ||
                         day.method.mark(firstPrayer + 1).source == TimeSource::otherLatitude;
    if (!isOther) return std::nullopt;
    return day.method.usedLatitude;
}

std::string latitudeNote(Session& session, double lowest, double highest) {
    const auto text = [&session](double latitude) {
        return fmt::format("{}° {}", session.decimal(std::abs(latitude), 1), latitude < 0.0 ? 'S' : 'N');
    };
    const std::string latitudes = lowest == highest ? text(lowest) : text(lowest) + " – " + text(highest);
    return _("The Sun does not both rise and set here on this day: the times are those of latitude {}.", latitudes);
}

std::string Footnotes::latitudeMark(Session& session, const PrayTimes& times, int code) {
    const bool isShown = timeOfPrayer(times, code).has_value() && fallbacksOf(times, code).latitude;
    if (!isShown) return "";
    const double latitude = *computedLatitude(times);
    return mark(latitudeNote(session, latitude, latitude));
}

std::string earlierDayNote(int code) {
    return code == firstPrayer ? _("The Sun does not sink 19° below the horizon: the time is that of "
                                   "the nearest earlier day on which it does.")
                               : _("The Sun does not sink 17° below the horizon: the time is that of "
                                   "the nearest earlier day on which it does.");
}

std::string Footnotes::earlierDayMark(const PrayTimes& times, int code) {
    const bool isShown = timeOfPrayer(times, code).has_value() && fallbacksOf(times, code).earlierDay;
    return isShown ? mark(earlierDayNote(code)) : "";
}

std::string Footnotes::sourceMark(const CityDay& day, int code) {
    const std::optional<std::string> note = sourceNote(day, code);
    return note ? mark(*note) : "";
}

std::string Footnotes::clockMark(Session& session, const ZoneClock& clock, const CityDay& day, int code) {
    const std::string note = otherClockNote(session, clock, day, code);
    return note.empty() ? "" : mark(note);
}

std::string Footnotes::mark(const std::string& text) {
    auto found = std::find(texts_.begin(), texts_.end(), text);
    if (found == texts_.end()) found = texts_.insert(texts_.end(), text);
    return superscript(static_cast<std::size_t>(found - texts_.begin()) + 1);
}

std::vector<std::string> Footnotes::lines() const {
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < texts_.size(); ++i) lines.push_back(superscript(i + 1) + " " + texts_[i]);
    return lines;
}

std::vector<ZoneDisagreement> zoneProblems(Session& session, const CityRecord& city, const VAKDate& now,
                                           const VAKDate& first, const VAKDate& last) {
    const auto begin = civilDate(first), end = civilDate(last), present = civilDate(now);
    std::vector<ZoneDisagreement> problems;
    const auto check = [&](DayRange range) {
        const auto found = checkZone({city.zone, city.rule, city.known}, range, session.zoneFolder());
        if (found && !found->unknownToSystem) problems.push_back(*found);
    };
    if (!present.ok() || !begin.ok() || !end.ok()) return problems;
    if (city.known && city.known->systemIsOlder()) {
        // Its data still cover the days before those of the newer edition.
        const std::chrono::year_month_day lastOld(firstKnownDay - std::chrono::days(1));
        if (begin <= lastOld) check({begin, std::min(end, lastOld)});
        return problems;
    }
    const DayRange coming = twoYearsFrom(present);
    check(coming);
    const DayRange shown{begin, end};
    if (shown.first < coming.first || shown.last > coming.last) check(shown);
    return problems;
}

Json zoneDataJson(const CityRecord& city) {
    if (!city.known || city.known->edition.empty()) return nullptr;
    return object({{"edition", city.known->edition}, {"of_system", city.known->isOfSystem}});
}

Json warningsJson(const std::vector<ZoneDisagreement>& problems) {
    Json::Array warnings;
    for (const ZoneDisagreement& problem : problems) warnings.emplace_back(describe(problem));
    return warnings;
}

}  // namespace quode::app
