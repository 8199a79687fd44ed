// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/place.h"

#include <fmt/format.h>

#include <cmath>

#include "app/session.h"
#include "app/user_data.h"
#include "common/LanguagePack.h"
#include "common/labels.h"
#include "common/numbers.h"
#include "companion/SiteChoices.h"
#include "data/point.h"
#include "data/posix_zone.h"
#include "data/user_places.h"
#include "texts/translation.h"

namespace quode::app {
namespace {

constexpr int suggestionCount = 5;

struct Point {
    double latitude = 0.0;
    double longitude = 0.0;
};

/// The coordinates that a text gives; nothing when it is no pair of numbers. Throws `Failure` (usage) when one of two
/// is a number.
std::optional<Point> pointOf(std::string_view text) {
    const std::size_t comma = text.find(',');
    if (comma == std::string_view::npos) return std::nullopt;
    const std::string_view first = trimmed(text.substr(0, comma)), second = trimmed(text.substr(comma + 1));
    const auto latitude = numberOf<double>(first), longitude = numberOf<double>(second);
    if (latitude && longitude) return Point{*latitude, *longitude};
    if (!latitude && !longitude) return std::nullopt;
    throw Failure(ExitCode::usage, _("{0} \"{1}\" is not a number. Write LATITUDE,LONGITUDE in degrees, north and east "
                                     "positive.",
                                     latitude ? _("Longitude") : _("Latitude"), latitude ? second : first));
}

ChosenPlace placeAt(const CityDatabase& cities, const Point& point) {
    const auto check = [](double value, double limit, const char* what) {
        if (std::abs(value) <= limit) return;
        throw Failure(
            ExitCode::usage,
            _("{0} {1} is out of range (-{2} to {2}). Write LATITUDE,LONGITUDE in degrees, north and east positive.",
              what, value, limit));
    };
    check(point.latitude, 90.0, _("Latitude"));
    check(point.longitude, 180.0, _("Longitude"));
    ChosenPlace place;
    place.nearest = cities.nearest(point.latitude, point.longitude);
    if (!place.nearest) throw Failure(ExitCode::notFound, _("There is no city near enough to take the clock from."));
    place.city = recordOfPoint(point.latitude, point.longitude, *place.nearest);
    place.city.name = coordinatesText(point.latitude, point.longitude, ".");  // also in JSON
    return place;
}

std::string suggestions(Session& session, const std::vector<CityHit>& hits) {
    if (hits.empty()) return _("Coordinates work too: --city LATITUDE,LONGITUDE");
    std::string text = _("Did you mean one of these? Use the name or the id:");
    for (const CityHit& hit : hits) {
        text += fmt::format("\n  {:>9}  {}", hit.city.id, fullName(session, hit.city));
        if (!hit.otherName.empty()) text += fmt::format(" ({})", hit.otherName);
    }
    return text;
}

CityRecord cityNamed(Session& session, std::string_view name) {
    const std::vector<CityHit> named = session.cities().named(name, 1);
    if (!named.empty()) return named.front().city;
    const std::vector<CityHit> hits = session.cities().search(name, suggestionCount);
    throw Failure(ExitCode::notFound, _("No city is called \"{}\".", name) + ' ' + suggestions(session, hits));
}

ChosenPlace placeNamed(Session& session, std::string_view request) {
    request = trimmed(request);
    if (request.empty()) throw Failure(ExitCode::usage, _("The name of the city is empty."));
    if (const auto point = pointOf(request)) return placeAt(session.cities(), *point);
    ChosenPlace place;
    if (const auto own = ownPlace(session, request)) {
        place.city = *own;
    } else if (const auto id = numberOf<int>(request)) {
        const std::optional<CityRecord> city = session.cities().city(*id);
        if (!city) {
            throw Failure(ExitCode::notFound,
                          _("No city has the id {}. Find one with: quode city search NAME", request));
        }
        place.city = *city;
    } else {
        place.city = cityNamed(session, request);
    }
    return place;
}

ChosenPlace placeOfVariable(Session& session, const std::string& value) {
    try {
        ChosenPlace place = placeNamed(session, value);
        place.source = PlaceSource::environment;
        return place;
    } catch (const Failure& failure) {
        throw Failure(failure.code(), "QUODE_CITY: " + std::string(failure.what()));
    }
}

/// A clock that TZ gives without naming a zone, or that the system makes UTC because it names none, has no place.
void tellOfNamelessZone(Session& session) {
    const std::optional<std::string> value = session.variable("TZ");
    const std::string remedy = _("Set a zone such as TZ=Europe/Istanbul, or choose your city: quode city home NAME");
    if (!value) return session.report(_("The system has no name for its time zone. {}", remedy));
    const bool isRule = parsePosixZone(*value).has_value();
    session.report(isRule ? _("TZ is \"{}\", which is a clock without a place. {}", *value, remedy)
                          : _("TZ is \"{}\", which is not a time zone of this system. {}", *value, remedy));
}

ChosenPlace placeOfSystem(Session& session) {
    const std::string zone = session.systemZone();
    if (zone.empty()) tellOfNamelessZone(session);
    if (const auto city = session.cities().largestCityOfZone(zone)) return {*city, PlaceSource::systemZone, {}};
    const auto city = session.cities().city(fallbackCity);
    if (!city) throw Failure(ExitCode::notFound, _("Choose a city: quode city home NAME"));
    return {*city, PlaceSource::fallback, {}};
}

const char* sourceName(PlaceSource source) {
    switch (source) {
        case PlaceSource::argument:
            return "argument";
        case PlaceSource::environment:
            return "environment";
        case PlaceSource::home:
            return "home";
        case PlaceSource::systemZone:
            return "system_zone";
        default:
            return "fallback";
    }
}

ChosenPlace reported(Session& session, ChosenPlace place) {
    if (const std::string problem = choiceProblem(place.city); !problem.empty()) {
        session.report(problem, ExitCode::userData);
    }
    return place;
}

// The place with the method that the user chose for it.
ChosenPlace withChoice(Session& session, ChosenPlace place) {
    if (place.city.id != 0) place.city.choice = readSiteChoice(userDatabaseFile(session.dataFolder()), place.city.id);
    return place;
}

// The home city has its choice already, read at the same moment.
ChosenPlace storedHomePlace(Session& session) {
    const std::optional<UserCity> home = storedHome(session);
    if (!home || !home->city) return withChoice(session, placeOfSystem(session));
    const PlaceSource guess = home->id == fallbackCity ? PlaceSource::fallback : PlaceSource::systemZone;
    return {*home->city, home->isGuess ? guess : PlaceSource::home, {}};
}

}  // namespace

ChosenPlace choosePlaceForMethod(Session& session, const std::optional<std::string>& request) {
    if (request) return withChoice(session, placeNamed(session, *request));
    if (const auto variable = session.variable("QUODE_CITY")) {
        return withChoice(session, placeOfVariable(session, *variable));
    }
    return storedHomePlace(session);
}

ChosenPlace choosePlace(Session& session, const std::optional<std::string>& request) {
    return reported(session, choosePlaceForMethod(session, request));
}

ChosenPlace chooseHomePlace(Session& session) {
    return reported(session, storedHomePlace(session));
}

std::string regionAndCountry(Session& session, const CityRecord& city) {
    const std::string& country = session.isTurkish() ? city.countryNameTr : city.countryNameEn;
    const bool hasRegion = !city.region.empty() && city.region != city.countryNameEn && city.region != country;
    return hasRegion ? city.region + ", " + country : country;
}

std::string fullName(Session& session, const CityRecord& city) {
    return city.name + ", " + regionAndCountry(session, city);
}

std::string editionText(Session& session) {
    const std::string all = session.cities().edition();
    std::string_view edition = all;
    std::string text;
    while (!edition.empty()) {
        std::string_view part = edition.substr(0, edition.find(", "));
        edition.remove_prefix(std::min(edition.size(), part.size() + 2));
        text += text.empty() ? "" : ", ";
        if (part.starts_with("places ")) {
            text += _("places {}", part.substr(part.find(' ') + 1));
        } else if (part.starts_with("zones ")) {
            text += _("zones {}", part.substr(part.find(' ') + 1));
        } else {
            text += part;
        }
    }
    return text;
}

std::string coordinatesText(double latitude, double longitude, std::string_view decimalMark) {
    return fmt::format("{}° {}  {}° {}", decimalText(std::abs(latitude), 4, decimalMark), latitude < 0.0 ? 'S' : 'N',
                       decimalText(std::abs(longitude), 4, decimalMark), longitude < 0.0 ? 'W' : 'E');
}

Json cityJson(const CityRecord& city) {
    const auto known = [](auto value, bool isKnown) { return isKnown ? Json(value) : Json(); };
    const auto text = [](const std::string& value) { return value.empty() ? Json() : Json(value); };
    return object({{"id", known(city.id, city.id != 0)},
                   {"name", city.name},
                   {"region", text(city.region)},
                   {"country", text(city.countryNameEn)},
                   {"country_code", text(city.countryCode)},
                   {"latitude", city.latitude},
                   {"longitude", city.longitude},
                   {"elevation", city.elevation},
                   {"population", known(city.population, city.population > 0)},
                   {"zone", city.zone}});
}

Json placeJson(const ChosenPlace& place) {
    Json nearest;
    if (place.nearest) {
        nearest = object({{"id", place.nearest->city.id},
                          {"name", place.nearest->city.name},
                          {"distance_km", place.nearest->distanceKm}});
    }
    return object({{"city", cityJson(place.city)}, {"chosen_by", sourceName(place.source)}, {"clock_of", nearest}});
}

}  // namespace quode::app
