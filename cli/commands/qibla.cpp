// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode qibla: the direction of the Kaaba.
#include <fmt/format.h>

#include <cmath>

#include "app/current_field.h"
#include "app/dates.h"
#include "app/day_view.h"
#include "app/sun_direction.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/page_parts.h"
#include "common/captions.h"
#include "common/formatting.h"
#include "terminal/Console.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

constexpr double fullCircle = 360.0;

struct Qibla {
    ChosenPlace place;
    CityDay day;
    double bearing = 0.0;  ///< degrees clockwise from true north
    double compass = 0.0;  ///< degrees clockwise from magnetic north
    CurrentField now;      ///< the field by the current model
    double distanceKm = 0.0;
    std::optional<double> sunTime;  ///< when the Sun stands in the direction, local hours
};

double wrapped360(double degrees) {
    return std::fmod(std::fmod(degrees, fullCircle) + fullCircle, fullCircle);
}

Qibla qiblaOf(Session& session, const Arguments& arguments) {
    const std::optional<VAKDate> requested = requestedDate(arguments);
    Qibla qibla;
    qibla.place = choosePlace(session, arguments.text("city"));
    const Site site = siteOf(qibla.place.city);
    qibla.day = computeCityDay(site, requested ? *requested : today(session, site));
    qibla.bearing = bearingOf(qibla.day.kible);
    qibla.compass = wrapped360(qibla.bearing - qibla.day.declination);
    qibla.now = currentField(site, qibla.day.date);
    qibla.distanceKm = distanceToKaaba(site.latitude, site.longitude);
    qibla.sunTime = timeOfSunInDirection(site, qibla.day, qibla.bearing);
    return qibla;
}

/// Whether the direction is given as north only because the arctangent of zero is zero; it may be south as well.
bool isOnKaabaMeridian(const Qibla& qibla) {
    return qibla.bearing == 0.0;
}

bool isNorthOfKaaba(const Qibla& qibla) {
    return qibla.place.city.latitude > kaabaLatitude;
}

void printQibla(Console& console, const Qibla& qibla) {
    Session& session = console.session();
    using Align = TextTable::Align;
    TextTable table({Align::left, Align::right, Align::left});
    const auto add = [&table](std::string_view label, std::string value, std::string_view remark) {
        table.add({std::string(label), std::move(value), std::string(remark)});
    };
    add(_("Qibla"), formatting::getQiblaAngleStr(qibla.day.kible.K), _("clockwise from true north"));
    add(_("Compass"), session.decimal(qibla.compass, 1) + "°", _("on a magnetic compass"));
    add(_("Declination"), session.decimal(qibla.day.declination, 1, true) + "°",
        _("magnetic, east is +; {} ({})", magneticModel, int(MagneticVariation::modelEpoch)));
    add("", session.decimal(qibla.now.declination, 1, true) + "°", currentFieldRemark(session, qibla.now));
    add(session.caption(sunCaption), clockText(session, qibla.sunTime),
        qibla.sunTime ? _("the Sun stands in this direction") : _("the Sun is never in this direction that day"));
    add(_("Distance"), fmt::format("{:.0f} km", qibla.distanceKm), _("to the Kaaba"));
    printPlace(console, qibla.place);
    console.print(longDate(session, qibla.day.date));
    console.print();
    console.print(table, 2);
    if (isOnKaabaMeridian(qibla)) {
        const std::string note =
            _("This place lies on the meridian of the Kaaba. The formula gives 0° on both sides of it; the Kaaba lies "
              "due {}.",
              isNorthOfKaaba(qibla) ? _("south") : _("north"));
        console.print();
        console.printWarning(note);
    }
    printHowChosen(console, qibla.place);
}

void runQibla(Console& console, const Arguments& arguments) {
    const Qibla qibla = qiblaOf(console.session(), arguments);
    if (!console.wantsJson()) return printQibla(console, qibla);
    console.printJson(
        object({{"place", placeJson(qibla.place)},
                {"date", isoDate(qibla.day.date)},
                {"qibla", qiblaJson(qibla.day)},
                {"compass_bearing", qibla.compass},
                {"magnetic_declination", declinationJson(qibla.day)},
                {"current_declination", currentFieldJson(qibla.now)},
                {"current_compass_bearing", wrapped360(qibla.bearing - qibla.now.declination)},
                {"distance_km", qibla.distanceKm},
                {"kaaba_due", isOnKaabaMeridian(qibla) ? Json(isNorthOfKaaba(qibla) ? "south" : "north") : Json()},
                {"sun_in_direction", timeJson(qibla.sunTime)}}));
}

}  // namespace

Command qiblaCommand() {
    return {"qibla", _("The direction of the Kaaba"), {cityParameter(), dateParameter()}, runQibla};
}

}  // namespace quode::cli
