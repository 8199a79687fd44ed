// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "cli/method_arguments.h"

#include "app/failure.h"
#include "app/method_choice.h"
#include "app/session.h"
#include "common/numbers.h"
#include "texts/translation.h"

namespace quode::cli {

using namespace app;
using namespace terminal;

namespace {

using conventions::Convention;
using conventions::Method;
using Kind = Parameter::Kind;

[[noreturn]] void refuse(const std::string& text) {
    throw Failure(ExitCode::usage, text);
}

std::optional<double> numberArgument(const Arguments& arguments, const char* name) {
    const auto text = arguments.text(name);
    if (!text) return std::nullopt;
    const auto number = numberOf<double>(*text);
    if (!number) refuse(_("--{} needs a number, not \"{}\".", name, *text));
    return number;
}

/// Reads "fajr=+2,isha=-1".
void readAdjustments(std::string_view text, Method& method) {
    method.adjust = {};
    while (!text.empty()) {
        const std::size_t comma = text.find(',');
        const std::string_view part = trimmed(text.substr(0, comma));
        text = comma == std::string_view::npos ? std::string_view{} : text.substr(comma + 1);
        const std::size_t equals = part.find('=');
        const auto prayer = conventions::prayerNamed(part.substr(0, equals));
        const auto minutes = equals == std::string_view::npos ? std::nullopt : numberOf<int>(part.substr(equals + 1));
        if (!prayer || !minutes) {
            refuse(_(
                "\"{}\" is not an adjustment. Write prayers and minutes, such as --adjust fajr=+2,isha=-1; the prayers "
                "are fajr, sunrise, dhuhr, asr, maghrib and isha.",
                std::string(part)));
        }
        method.adjust[indexOf(*prayer)] = *minutes;
    }
}

std::string highLatitudeKeys() {
    std::string keys;
    for (const auto& name : conventions::highLatitudeNames()) {
        keys.append(keys.empty() ? "" : ", ").append(name.key);
    }
    return keys;
}

bool isInZone(const Convention& convention, const CityRecord& city) {
    return convention.point == conventions::PointRule::jakimZones &&
           !conventions::usedPoint(convention, city.latitude, city.longitude).name.empty();
}

void takeMalaysianClock(Session& session, CityRecord& city) {
    if (const auto capital = session.cities().largestCityOfZone("Asia/Kuala_Lumpur")) {
        city.zone = capital->zone;
        city.rule = capital->rule;
        city.known = capital->known;
    }
}

}  // namespace

std::vector<Parameter> methodParameters() {
    return {{Kind::option, "method", "KEY", _("Another method than the city's: quode method list")},
            {Kind::option, "height", "METRES", _("The height of the place, for methods that need it")}};
}

std::vector<Parameter> methodChangeParameters() {
    Parameter asr{Kind::option, "asr", "SCHOOL", _("The shadow of Asr: standard or hanafi")};
    asr.choices = {"standard", "hanafi"};
    return {asr,
            {Kind::option, "high-latitude", "RULE", _("Where the angle is not reached: {}", highLatitudeKeys())},
            {Kind::option, "fajr-angle", "DEGREES", _("Your own angle for Fajr")},
            {Kind::option, "isha-angle", "DEGREES", _("Your own angle for Isha")},
            {Kind::option, "adjust", "PRAYER=MINUTES,...", _("Minutes added, such as fajr=+2,isha=-1")},
            {Kind::option, "height", "METRES", _("The height of the place, for methods that need it")},
            {Kind::option, "zone", "ZONE", _("The zone of a Malaysian place, such as WLY01")}};
}

Method methodWith(Method method, const Arguments& arguments) {
    if (const auto asr = arguments.text("asr")) method.asrFactor = *asr == "hanafi" ? hanafiFactor : 1;
    if (const auto rule = arguments.text("high-latitude")) {
        method.highLatitude = conventions::highLatitudeRuleOf(*rule);
        if (!method.highLatitude) {
            refuse(_("No rule for high latitudes is called \"{}\". There are: {}.", *rule, highLatitudeKeys()));
        }
    }
    if (const auto angle = numberArgument(arguments, "fajr-angle")) method.fajrAngle = angle;
    if (const auto angle = numberArgument(arguments, "isha-angle")) method.ishaAngle = angle;
    if (const auto height = numberArgument(arguments, "height")) method.height = height;
    if (const auto zone = arguments.text("zone")) method.zone = *zone;
    if (const auto minutes = arguments.text("adjust")) readAdjustments(*minutes, method);
    checkMethod(method);
    return method;
}

Method methodOfCall(Method method, const Arguments& arguments) {
    if (const auto key = arguments.text("method")) {
        method = {};
        method.key = conventionNamed(*key).key;
    }
    if (const auto height = numberArgument(arguments, "height")) {
        method.height = height;
        checkMethod(method);
    }
    return method;
}

void useMethod(Session& session, const Arguments& arguments, ChosenPlace& place) {
    SiteChoice& choice = place.city.choice;
    choice.method = methodOfCall(choice.method, arguments);
    if (!arguments.has("method")) return;
    choice.table.reset();
    const Convention& convention = conventionNamed(choice.method.key);
    if (place.nearest && isInZone(convention, place.city)) takeMalaysianClock(session, place.city);
}

}  // namespace quode::cli
