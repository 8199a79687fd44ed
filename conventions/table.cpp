// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The table of all conventions.
#include <algorithm>
#include <vector>

#include "conventions/Convention.h"

namespace quode::conventions {
namespace {

using enum Rounding;
using enum SunMoment;

/// Marks a text that users read, for translation.
constexpr std::string_view N_(const char* english) {
    return english;
}

constexpr PrayerRule horizon(double minutes, Rounding rounding = nearest, SunMoment moment = event) {
    return {Basis::horizon, 0.0, minutes, rounding, moment};
}

constexpr PrayerRule angle(double degrees, double minutes = 0.0, Rounding rounding = nearest,
                           SunMoment moment = event) {
    return {Basis::depression, degrees, minutes, rounding, moment};
}

constexpr PrayerRule noon(double minutes, Rounding rounding = nearest, SunMoment moment = event) {
    return {Basis::transit, 0.0, minutes, rounding, moment};
}

constexpr PrayerRule shadow(double minutes, Rounding rounding = nearest, SunMoment moment = event) {
    return {Basis::shadow, 0.0, minutes, rounding, moment};
}

constexpr PrayerRule interval(double minutes, double ramadanMinutes = 0.0) {
    return {Basis::afterMaghrib, 0.0, minutes, nearest, event, ramadanMinutes};
}

constexpr double jakimNoonMinutes = 64.0 / 60.0;  // until the Sun's disc has left the meridian

constexpr ReferencePoint singapore[] = {{"Singapore", 1.298, 103.809, 60.0}};
constexpr ReferencePoint colomboZone[] = {{"Colombo zone", 6.95, 79.76, 50.0}};
constexpr ReferencePoint london[] = {{"London", 51.529, -0.165, 50.0}};

constexpr std::string_view ownRows = N_("the authority's own timetable; parameters found from its rows");
constexpr std::string_view common =
    N_("common definition of calculation programs, without a recipe of the body itself");

/// A convention of angles alone.
constexpr Convention plain(std::string_view key, std::string_view name, std::string_view authority,
                           std::string_view countries, double fajr, PrayerRule isha, int asrFactor = 1,
                           std::string_view alsoUsedIn = "") {
    Convention convention{
        .key = key, .name = name, .authority = authority, .countries = countries, .alsoUsedIn = alsoUsedIn};
    convention.rules = {angle(fajr), horizon(0), noon(0), shadow(0), horizon(0), isha};
    convention.asrFactor = asrFactor;
    convention.isCommonDefinition = true;
    convention.source = common;
    return convention;
}

constexpr Convention withMaghrib(Convention convention, PrayerRule maghrib) {
    convention.rule(Prayer::maghrib) = maghrib;
    return convention;
}

constexpr Convention withNight(Convention convention, NightBegin night) {
    convention.night = night;
    return convention;
}

constexpr Convention withSource(Convention convention, std::string_view source, std::string_view remark = "") {
    convention.source = source;
    convention.remark = remark;
    convention.isCommonDefinition = false;
    return convention;
}

constexpr std::string_view frenchSource = N_("the federations' public statements of 2012 and 2016, at second hand");
constexpr std::string_view frenchRemark = N_("Mosques add minutes of their own.");

constexpr Convention conventions[] = {
    {.key = "quode",
     .name = N_("Quode's own"),
     .authority = N_("the engine's 19 and 17 degrees with a margin (temkin) that grows with latitude"),
     .countries = "",
     .computation = Computation::engine,
     .rules = {angle(19), horizon(0), noon(0), shadow(0), horizon(0), angle(17)},
     .highLatitude = HighLatitudeRule::none,
     .source = N_("the engine's own definition"),
     .remark = N_("Times that the Sun does not give are those of an earlier day or of a lower latitude, and marked.")},
    {.key = "diyanet",
     .name = "Diyanet, Türkiye",
     .authority = "Presidency of Religious Affairs (Diyanet)",
     .countries = "TR",
     .alsoUsedIn = "CY SE",
     .rules = {angle(18, 0, nearest, startOfDay), horizon(-7, nearest, startOfDay), noon(5, nearest, startOfDay),
               shadow(4, nearest, startOfDay), horizon(7, nearest, startOfDay), angle(17, 0, nearest, startOfDay)},
     .highLatitude = HighLatitudeRule::middleOfNight,
     .north = {45.0, 16.0, HighLatitudeRule::diyanetNorth},
     .source = ownRows,
     .remark =
         N_("From 45 degrees north on Isha has 16 degrees and summer follows a part of the night. North of about 61 "
            "degrees the published tables also bound day and night; import them there."),
     .sampleAuthority = "Diyanet;Islamiska Forbundet"},
    {.key = "jakim",
     .name = "JAKIM, Malaysia",
     .authority = "Department of Islamic Development Malaysia",
     .countries = "MY",
     .rules = {angle(18, 0, up), horizon(0, down), noon(jakimNoonMinutes, up), shadow(0, up), horizon(0, up),
               angle(18, 0, up)},
     .point = PointRule::jakimZones,
     .source = N_("the authority's own timetable; parameters and zone points found from its rows"),
     .remark = N_("Times hold for a whole zone. Mountain zones follow no single rule: import their table."),
     .sampleAuthority = "JAKIM"},
    {.key = "muis",
     .name = "MUIS, Singapore",
     .authority = "Islamic Religious Council of Singapore",
     .countries = "SG",
     .rules = {angle(20, 0, up), horizon(0, up), noon(1, up), shadow(0, up), horizon(0, up), angle(18, 0, up)},
     .point = PointRule::published,
     .points = singapore,
     .source = ownRows,
     .sampleAuthority = "MUIS"},
    {.key = "kemenag",
     .name = "Kemenag, Indonesia",
     .authority = "Ministry of Religious Affairs of Indonesia",
     .countries = "ID",
     .rules = {angle(20, 2), horizon(-2), noon(2), shadow(2), horizon(2), angle(18, 2)},
     .height = HeightRule::steps,
     .source = N_("the ministry's printed criteria"),
     .remark =
         N_("Imsak is 10 minutes before Fajr. With --height sunrise and Maghrib move by 1 minute from 250 m, 2 from "
            "700 m, 3 from 1000 m, 4 from 1300 m."),
     .sampleAuthority = "jadwalsholat.org (Kemenag criteria)"},
    {.key = "umm-al-qura",
     .name = "Umm al-Qura, Saudi Arabia",
     .authority = "Umm al-Qura calendar, Makkah",
     .countries = "SA",
     .alsoUsedIn = "YE BH OM",
     .rules = {angle(18.5, 0, up), horizon(0, down), noon(0, up), shadow(0, up), horizon(0, up), interval(90, 120)},
     .formerFajr = {1430, 19.0},
     .source = ownRows,
     .remark = N_("In Ramadan, by the Umm al-Qura calendar, Isha is 120 minutes after Maghrib; no row of a Ramadan was "
                  "available. Before 1430 AH (29 December 2008) Fajr has 19 degrees; no row of those years was "
                  "available. The calendar covers 1300 to 1600 AH."),
     .sampleAuthority = "Umm al-Qura"},
    {.key = "dubai",
     .name = "Gulf, United Arab Emirates",
     .authority = "General Authority of Islamic Affairs and Endowments (Awqaf), UAE",
     .countries = "AE",
     .rules = {angle(18.2), horizon(-3), noon(3), shadow(3), horizon(3), angle(18.2)},
     .source = ownRows,
     .sampleAuthority = "UAE Awqaf"},
    {.key = "kuwait",
     .name = "Kuwait",
     .authority = "Ministry of Awqaf, Kuwait",
     .countries = "KW",
     .rules = {angle(18), horizon(0), noon(0), shadow(0), horizon(0), angle(17.5)},
     .source = N_("a timetable application's rows, not the ministry itself"),
     .sampleAuthority = "Kuwait (timetable application)"},
    {.key = "qatar",
     .name = "Qatar Calendar House",
     .authority = "Qatar Calendar House",
     .countries = "QA",
     .rules = {angle(18, -1), horizon(0), noon(0), shadow(0), horizon(2), interval(90)},
     .source = N_("the perpetual calendar; parameters found from its rows"),
     .sampleAuthority = "Qatar Calendar House"},
    {.key = "algeria",
     .name = "Algeria",
     .authority = "Ministry of Religious Affairs and Wakfs, Algeria",
     .countries = "DZ",
     .rules = {angle(18, 0, up), horizon(0, up), noon(0, up), shadow(0, up), horizon(3, up), angle(17, 0, up)},
     .source = ownRows,
     .sampleAuthority = "Algeria MARW"},
    {.key = "tunisia",
     .name = "Tunisia",
     .authority = "Institut National de la Météorologie, Tunisia",
     .countries = "TN",
     .rules = {angle(18), horizon(0), noon(7, nearest, startOfDay), shadow(0, nearest, startOfDay), horizon(2),
               angle(18)},
     .height = HeightRule::dip,
     .source = ownRows,
     .remark = N_("Depends on the height of the place: the database's, or --height."),
     .sampleAuthority = "INM Tunisia"},
    {.key = "morocco",
     .name = "Morocco",
     .authority = "Ministry of Habous and Islamic Affairs, Morocco",
     .countries = "MA EH",
     .rules = {angle(19, 0, down), horizon(-3), noon(5), shadow(0), horizon(5), angle(17)},
     .source = N_("the ministry's own timetable; parameters found from its rows"),
     .remark = N_("Sunrise and Maghrib depend on the city by up to two minutes."),
     .sampleAuthority = "Habous Morocco"},
    {.key = "bosnia",
     .name = "Bosnia and Herzegovina",
     .authority = "Islamic Community of Bosnia and Herzegovina",
     .countries = "BA",
     .rules = {angle(19, 0, nearest, startOfDay), horizon(-6, nearest, startOfDay), noon(1, nearest, startOfDay),
               shadow(0, nearest, startOfDay), horizon(6, nearest, startOfDay), angle(17, 0, nearest, startOfDay)},
     .source = N_("the perpetual calendar of Sarajevo; parameters found from its rows"),
     .remark = N_("Towns other than Sarajevo have the minutes of Sarajevo plus a whole number: import their table."),
     .sampleAuthority = "IZ BiH (Vaktija)"},
    {.key = "sri-lanka",
     .name = "Sri Lanka",
     .authority = "All Ceylon Jamiyyathul Ulama",
     .countries = "LK",
     .rules = {angle(20, 0, up), horizon(0), noon(1), shadow(1), horizon(1), angle(18, 0, up)},
     .point = PointRule::published,
     .points = colomboZone,
     .source = N_("the timetables by zone; parameters found from their rows"),
     .remark = N_("One table serves a whole zone and is computed near its west; only the point of the Colombo zone is "
                  "known."),
     .sampleAuthority = "ACJU"},
    {.key = "moonsighting",
     .name = "Moonsighting Committee Worldwide",
     .authority = "Moonsighting Committee Worldwide",
     .countries = "",
     .rules = {angle(18), horizon(0), noon(5), shadow(0), horizon(3), angle(18)},
     .highLatitude = HighLatitudeRule::moonsighting,
     .source = N_("K. Shaukat's published minutes by season and latitude"),
     .sampleAuthority = "Moonsighting Committee"},
    {.key = "london-unified",
     .name = "London Unified timetable",
     .authority = "London Unified Prayer Timetable",
     .countries = "GB",
     .rules = {angle(18), horizon(-3), noon(5), shadow(0, up), horizon(3), angle(18, 3)},
     .highLatitude = HighLatitudeRule::moonsighting,
     .point = PointRule::published,
     .points = london,
     .source = N_("the timetable of 2026; parameters found from its rows"),
     .remark = N_("Fajr and Isha follow a local table, not an angle; here they come within 8 minutes of it. Import the "
                  "timetable for exact ones."),
     .sampleAuthority = "London Unified"},
    withSource(plain("mwl", "Muslim World League", "Muslim World League", "", 18, angle(17)), common,
               N_("The League publishes no recipe.")),
    withSource(
        plain("isna", "ISNA / Fiqh Council of North America", "Fiqh Council of North America", "US", 15, angle(15)),
        N_("recommendation of the Fiqh Council of North America, at second hand"),
        N_("For Canada the council recommends 13 degrees: --fajr-angle 13 --isha-angle 13.")),
    withSource(plain("egypt", "Egyptian General Authority of Survey", "Egyptian General Authority of Survey", "EG",
                     19.5, angle(17.5), 1, "LY SD SY LB IQ PS"),
               N_("angles confirmed by Dar al-Ifta, fatwa 4021, at second hand")),
    plain("karachi", "University of Islamic Sciences, Karachi", "University of Islamic Sciences, Karachi", "PK", 18,
          angle(18), 2, "BD IN AF NP"),
    withNight(withMaghrib(plain("tehran", "Institute of Geophysics, Tehran",
                                "Institute of Geophysics, University of Tehran", "IR", 17.7, angle(14)),
                          angle(4.5)),
              NightBegin::sunset),
    withNight(
        withMaghrib(plain("jafari", "Leva Institute, Qum", "Shia Ithna-Ashari, Leva Institute, Qum", "", 16, angle(14)),
                    angle(4)),
        NightBegin::sunset),
    withSource(plain("france-12", "Musulmans de France", "Musulmans de France (formerly UOIF)", "FR", 12, angle(12)),
               frenchSource, frenchRemark),
    withSource(plain("france-15", "France, 15 degrees", "several mosques of France", "", 15, angle(15)), frenchSource,
               frenchRemark),
    withSource(plain("france-18", "Grande Mosquée de Paris", "Grande Mosquée de Paris", "", 18, angle(18)),
               frenchSource, frenchRemark),
    plain("russia", "Spiritual Administration of Muslims of Russia", "Spiritual Administration of Muslims of Russia",
          "RU", 16, angle(15), 2),
    withMaghrib(plain("jordan", "Jordan", "Ministry of Awqaf, Jordan", "JO", 18, angle(18)), horizon(5)),
};

constexpr HighLatitudeName highLatitudes[] = {
    {HighLatitudeRule::none, "none", N_("the time stays empty")},
    {HighLatitudeRule::middleOfNight, "middle-of-night", N_("Fajr not before, Isha not after the middle of the night")},
    {HighLatitudeRule::oneSeventh, "one-seventh", N_("Fajr in the last, Isha in the first seventh of the night")},
    {HighLatitudeRule::angleBased, "angle-based", N_("within angle/60 of the night")},
    {HighLatitudeRule::nearestLatitude, "nearest-latitude",
     N_("the interval to sunrise or sunset that holds at 48.5 degrees, put on the local ones")},
    {HighLatitudeRule::nearestLatitudeClock, "nearest-latitude-clock", N_("the clock time that holds at 48.5 degrees")},
    {HighLatitudeRule::nearestDay, "nearest-day",
     N_("the interval to noon of the nearest date on which the angle is reached")},
    {HighLatitudeRule::moonsighting, "moonsighting", N_("minutes by season and latitude, general twilight")},
    {HighLatitudeRule::moonsightingAhmer, "moonsighting-ahmer", N_("minutes by season and latitude, red twilight")},
    {HighLatitudeRule::moonsightingAbyad, "moonsighting-abyad", N_("minutes by season and latitude, white twilight")},
    {HighLatitudeRule::diyanetNorth, "diyanet-north", N_("a part of the night fixed in spring, with ramps")},
};

bool sameLetters(std::string_view a, std::string_view b) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    return std::ranges::equal(a, b, {}, lower, lower);
}

bool contains(std::string_view countries, std::string_view code) {
    return code.size() == 2 && countries.find(code) != std::string_view::npos;
}

}  // namespace

std::span<const HighLatitudeName> highLatitudeNames() {
    return highLatitudes;
}

std::string_view keyOf(HighLatitudeRule rule) {
    return std::ranges::find(highLatitudes, rule, &HighLatitudeName::rule)->key;
}

std::optional<HighLatitudeRule> highLatitudeRuleOf(std::string_view key) {
    const auto* found =
        std::ranges::find_if(highLatitudes, [&](const auto& name) { return sameLetters(name.key, key); });
    if (found == std::end(highLatitudes)) return std::nullopt;
    return found->rule;
}

std::span<const Convention> allConventions() {
    return conventions;
}

const Convention& defaultConvention() {
    return conventions[0];
}

const Convention* findConvention(std::string_view key) {
    const auto* found = std::ranges::find_if(conventions, [&](const auto& it) { return sameLetters(it.key, key); });
    return found == std::end(conventions) ? nullptr : found;
}

const Convention* usualIn(std::string_view countryCode) {
    const auto isOwn = [&](const Convention& convention) { return isOfCountry(convention, countryCode); };
    const auto isUsed = [&](const Convention& convention) { return contains(convention.alsoUsedIn, countryCode); };
    const auto* found = std::ranges::find_if(conventions, isOwn);
    if (found == std::end(conventions)) found = std::ranges::find_if(conventions, isUsed);
    return found == std::end(conventions) ? nullptr : found;
}

bool isOfCountry(const Convention& convention, std::string_view countryCode) {
    return contains(convention.countries, countryCode);
}

}  // namespace quode::conventions
