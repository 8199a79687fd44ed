// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "conventions/Method.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "common/numbers.h"
#include "conventions/JakimZones.h"

namespace quode::conventions {
namespace {

/// Those that conventions define.
constexpr std::span<const PrayerFacts> mainPrayers(allPrayers.data(), mainPrayerCount);
constexpr double smallestAngle = 5.0, largestAngle = 25.0;  // degrees
constexpr double largestHeight = 9000.0;                    // metres
constexpr int largestAdjustment = 120;                      // minutes

std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos) return parts;
        text.remove_prefix(end + 1);
    }
}

/// The number that a stored text is, which has no blanks and no plus sign.
template <typename Number>
std::optional<Number> storedNumber(std::string_view text) {
    const std::optional<Number> value = takeNumber<Number>(text);
    return text.empty() ? value : std::nullopt;
}

bool readAdjustments(std::string_view text, Method& method) {
    const auto parts = split(text, ',');
    if (parts.size() != mainPrayerCount) return false;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const auto minutes = storedNumber<int>(parts[i]);
        if (!minutes) return false;
        method.adjust[i] = *minutes;
    }
    return true;
}

bool readPart(std::string_view part, Method& method) {
    const std::size_t equals = part.find('=');
    if (equals == std::string_view::npos) return false;
    const std::string_view name = part.substr(0, equals), value = part.substr(equals + 1);
    const auto into = [&](auto& target) {
        const auto number = storedNumber<double>(value);
        if (number) target = *number;
        return number.has_value();
    };
    if (name == "asr") {
        method.asrFactor = storedNumber<int>(value).value_or(-1);
        return true;
    }
    if (name == "high-latitude") {
        method.highLatitude = highLatitudeRuleOf(value);
        return method.highLatitude.has_value();
    }
    if (name == "fajr-angle") return into(method.fajrAngle);
    if (name == "isha-angle") return into(method.ishaAngle);
    if (name == "height") return into(method.height);
    if (name == "adjust") return readAdjustments(value, method);
    if (name == "zone") method.zone = value;
    return name == "zone";
}

bool isAngle(const std::optional<double>& angle) {
    return !angle || (std::isfinite(*angle) && *angle >= smallestAngle && *angle <= largestAngle);
}

/// True when a method changes more than the added minutes and the shadow.
bool changesRules(const Method& method) {
    return method.highLatitude || method.fajrAngle || method.ishaAngle || method.height || !method.zone.empty();
}

}  // namespace

std::string textOf(const Method& method) {
    std::string text = method.key;
    const auto add = [&text](std::string_view name, const std::string& value) {
        text.append(" ").append(name).append("=").append(value);
    };
    if (method.asrFactor != 0) add("asr", numberText(method.asrFactor));
    if (method.highLatitude) add("high-latitude", std::string(keyOf(*method.highLatitude)));
    if (method.fajrAngle) add("fajr-angle", numberText(*method.fajrAngle));
    if (method.ishaAngle) add("isha-angle", numberText(*method.ishaAngle));
    if (method.height) add("height", numberText(*method.height));
    if (!method.zone.empty()) add("zone", method.zone);
    if (method.adjust != Method{}.adjust) {
        std::string list;
        for (const int minutes : method.adjust) list.append(list.empty() ? "" : ",").append(numberText(minutes));
        add("adjust", list);
    }
    return text;
}

std::optional<Method> methodOf(std::string_view text) {
    const auto parts = split(text, ' ');
    Method method;
    method.key = parts.front();
    for (std::size_t i = 1; i < parts.size(); ++i) {
        if (!readPart(parts[i], method)) return std::nullopt;
    }
    if (problemOf(method)) return std::nullopt;
    return method;
}

std::optional<Convention> conventionOf(const Method& method) {
    const Convention* found = findConvention(method.key);
    if (found == nullptr) return std::nullopt;
    Convention convention = *found;
    if (method.asrFactor != 0) convention.asrFactor = method.asrFactor;
    if (method.highLatitude) convention.highLatitude = convention.north.rule = *method.highLatitude;
    if (method.fajrAngle) {
        convention.rule(Prayer::fajr).angle = *method.fajrAngle;
        convention.formerFajr = {};
    }
    if (method.ishaAngle) {
        PrayerRule& isha = convention.rule(Prayer::isha);
        if (isha.basis == Basis::afterMaghrib) isha = {Basis::depression, 0.0, 0.0, isha.rounding, isha.moment};
        isha.angle = convention.north.ishaAngle = *method.ishaAngle;
    }
    return convention;
}

std::optional<MethodProblem> problemOf(const Method& method) {
    const Convention* convention = findConvention(method.key);
    if (convention == nullptr) return MethodProblem::unknownKey;
    if (convention->computation == Computation::engine && changesRules(method)) return MethodProblem::ownRules;
    if (method.asrFactor < 0 || method.asrFactor > 2) return MethodProblem::asrFactor;
    if (!isAngle(method.fajrAngle) || !isAngle(method.ishaAngle)) return MethodProblem::angle;
    if (method.height && !(*method.height >= 0.0 && *method.height <= largestHeight)) return MethodProblem::height;
    for (const int minutes : method.adjust) {
        if (std::abs(minutes) > largestAdjustment) return MethodProblem::minutes;
    }
    const auto zones = jakimZones();
    const bool hasZone = convention->point == PointRule::jakimZones &&
                         std::ranges::find(zones, method.zone, &JakimZone::key) != zones.end();
    if (!method.zone.empty() && !hasZone) return MethodProblem::unknownZone;
    return std::nullopt;
}

std::string_view nameOf(Prayer prayer) {
    return allPrayers[indexOf(prayer)].key;
}

std::optional<Prayer> prayerNamed(std::string_view name) {
    const auto found = std::ranges::find(mainPrayers, name, &PrayerFacts::key);
    if (found == mainPrayers.end()) return std::nullopt;
    return found->prayer;
}

}  // namespace quode::conventions
