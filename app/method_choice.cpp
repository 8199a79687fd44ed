// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/method_choice.h"

#include <fmt/format.h>

#include <cmath>

#include "app/day_view.h"
#include "app/failure.h"
#include "app/session.h"
#include "common/numbers.h"
#include "texts/translation.h"

namespace quode::app {
namespace {

using conventions::Caution;
using conventions::Convention;
using conventions::Method;

[[noreturn]] void refuse(const std::string& text) {
    throw Failure(ExitCode::usage, text);
}

const Convention* conventionOfDay(const CityDay& day) {
    return conventions::findConvention(day.method.method.key);
}

bool isByConvention(const CityDay& day) {
    const Convention* convention = conventionOfDay(day);
    return convention != nullptr && convention->computation == conventions::Computation::rules;
}

const char* keyOf(TimeSource source) {
    switch (source) {
        case TimeSource::highLatitude:
            return "high_latitude";
        case TimeSource::otherLatitude:
            return "other_latitude";
        case TimeSource::ownRule:
            return "own_rule";
        case TimeSource::table:
            return "table";
        case TimeSource::convention:
            return "convention";
        default:
            return "engine";
    }
}

const char* keyOf(Caution caution) {
    switch (caution) {
        case Caution::formerAngle:
            return "former_angle";
        case Caution::unknownRamadan:
            return "ramadan_unknown";
        default:
            return "out_of_order";
    }
}

Json pointJson(const CityDay& day) {
    if (!isByConvention(day)) return nullptr;
    const conventions::UsedPoint& point = day.method.point;
    return object({{"name", point.name.empty() ? Json() : Json(point.name)},
                   {"latitude", point.latitude},
                   {"longitude", point.longitude},
                   {"certain", point.isCertain}});
}

}  // namespace

const Convention& conventionNamed(const std::string& key) {
    const Convention* found = conventions::findConvention(key);
    if (found != nullptr) return *found;
    throw Failure(ExitCode::notFound, _("No method is called \"{}\". Show all of them with: quode method list", key));
}

std::string borrowedMethodText(Session& session, const CityRecord& city, const Convention& usual) {
    if (conventions::isOfCountry(usual, city.countryCode)) return "";
    const std::string& country = session.isTurkish() ? city.countryNameTr : city.countryNameEn;
    // Translators: {0} is a country, {1} an authority of another country with a method of prayer times.
    return _("No authority of {0} is in the list. The calculation often used there: {1}.", country,
             std::string(usual.name));
}

void checkMethod(const Method& method) {
    using conventions::MethodProblem;
    const std::optional<MethodProblem> problem = conventions::problemOf(method);
    if (!problem) return;
    switch (*problem) {
        case MethodProblem::unknownKey:
            refuse(_("No method is called \"{}\". Show all of them with: quode method list", method.key));
        case MethodProblem::ownRules:
            refuse(
                _("The method \"quode\" has its own rules; only the shadow of Asr and minutes can be changed. Choose "
                  "another one, such as mwl, for other angles."));
        case MethodProblem::asrFactor:
            refuse(_("The shadow of Asr is \"standard\" or \"hanafi\"."));
        case MethodProblem::angle:
            refuse(_("An angle lies between 5 and 25 degrees."));
        case MethodProblem::height:
            refuse(_("A height lies between 0 and 9000 metres."));
        case MethodProblem::minutes:
            refuse(_("An adjustment lies between -120 and 120 minutes."));
        case MethodProblem::unknownZone:
            refuse(_("No zone of this method is called \"{}\". Show them with: quode method show jakim", method.zone));
    }
}

std::string methodLine(const Site& site) {
    const SiteChoice& choice = site.choice;
    if (choice.isDefault()) return "";
    const Convention* convention = conventions::findConvention(choice.method.key);
    const std::string name(convention == nullptr ? choice.method.key : std::string(convention->name));
    std::string line = choice.table
                           ? _("Times of the imported table \"{}\"; on other dates by {}", choice.table->name, name)
                           : _("Times by {}", name);
    if (choice.method.asrFactor == hanafiFactor) line += _("; Hanafi Asr");
    if (choice.method.asrFactor == 1) line += _("; standard Asr");
    if (choice.method.fajrAngle || choice.method.ishaAngle) line += _("; with your own angles");
    if (choice.method.highLatitude) line += _("; your rule for high latitudes");
    if (choice.method.adjust != Method{}.adjust) line += _("; with your own minutes");
    return line;
}

bool isByEngine(const CityDay& day) {
    return !isByConvention(day);
}

std::vector<std::string> methodRemarks(const CityDay& day) {
    std::vector<std::string> remarks;
    if (!isByConvention(day)) return remarks;
    const Convention& convention = *conventionOfDay(day);
    const conventions::UsedPoint& point = day.method.point;
    if (convention.point == conventions::PointRule::jakimZones) {
        remarks.push_back(point.name.empty()
                              ? _("No zone of Malaysia lies here; the times are those of the place itself.")
                          : point.isCertain ? _("Zone {}.", point.name)
                                            : _("The zone {} is not certain. Choose yours: quode method set jakim "
                                                "--zone ZONE",
                                                point.name));
    } else if (!point.name.empty()) {
        remarks.push_back(_("Computed for the point of the authority: {}.", point.name));
    }
    if (convention.isCommonDefinition) {
        remarks.emplace_back(_("A common definition, not checked against published rows."));
    }
    return remarks;
}

std::vector<std::string> methodNotes(const CityDay& day) {
    std::vector<std::string> notes;
    for (int code = firstPrayer; code <= lastPrayer; ++code) {
        const TimeMark& mark = day.method.mark(code);
        if (!timeOfPrayer(day, code)) continue;
        const bool isPlain = mark.source == TimeSource::engine || mark.source == TimeSource::convention;
        if (!isPlain) notes.push_back(prayerKey(code) + "_" + keyOf(mark.source));
        if (mark.caution != Caution::none) notes.push_back(prayerKey(code) + "_" + keyOf(mark.caution));
        if (mark.adjusted != 0) notes.push_back(fmt::format("{}_adjusted{:+d}", prayerKey(code), mark.adjusted));
    }
    return notes;
}

namespace {

// Empty for the method itself.
std::string originOf(const CityDay& day, TimeSource source) {
    switch (source) {
        case TimeSource::highLatitude:
            return _("by the rule for high latitudes: the Sun does not sink far enough, or too late in the night");
        case TimeSource::otherLatitude:
            return _("computed for the latitude {}°, for the Sun does not both rise and set here that day",
                     fixedText(day.method.usedLatitude, 1));
        case TimeSource::ownRule:
            return _("by Quode's own rule, for this method does not define it");
        case TimeSource::table:
            return _("of the imported table");
        default:
            return "";
    }
}

// Empty for none.
std::string cautionText(Caution caution) {
    switch (caution) {
        case Caution::outOfOrder:
            return _("before the time that it follows: the added minutes are longer than the time between the two");
        case Caution::formerAngle:
            return _("by the angle that the authority used in those years, not checked against published rows");
        case Caution::unknownRamadan:
            return _("as outside Ramadan: the calendar that tells the month does not cover this date");
        default:
            return "";
    }
}

}  // namespace

std::optional<std::string> sourceNote(const CityDay& day, int code) {
    const TimeMark& mark = day.method.mark(code);
    if (!timeOfPrayer(day, code)) return std::nullopt;
    std::string note = originOf(day, mark.source);
    const auto add = [&note](const std::string& text) {
        if (!text.empty()) note += (note.empty() ? "" : "; ") + text;
    };
    add(cautionText(mark.caution));
    if (mark.adjusted != 0) {
        add(_n("with your adjustment of {:+d} minute", "with your adjustment of {:+d} minutes", mark.adjusted));
    }
    return note.empty() ? std::nullopt : std::optional(note);
}

Json methodJson(const CityDay& day) {
    const Convention* convention = conventionOfDay(day);
    Json::Object sources;
    for (int code = firstPrayer; code <= lastPrayer; ++code) {
        const TimeMark& mark = day.method.mark(code);
        sources.emplace_back(prayerKey(code),
                             object({{"source", keyOf(mark.source)}, {"adjusted_minutes", mark.adjusted}}));
    }
    return object({{"key", day.method.method.key},
                   {"name", convention == nullptr ? Json() : Json(std::string(convention->name))},
                   {"options", conventions::textOf(day.method.method)},
                   {"point", pointJson(day)},
                   {"table", day.method.hasTable ? Json(day.method.tableName) : Json()},
                   {"from_table", day.method.isFromTable},
                   {"times", Json(std::move(sources))}});
}

}  // namespace quode::app
