// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode method list, show and suggest: the conventions by which times can be computed.
#include <fmt/format.h>

#include "app/method_choice.h"
#include "app/method_rules.h"
#include "cli/commands.h"
#include "cli/page_parts.h"
#include "common/numbers.h"
#include "conventions/JakimZones.h"
#include "conventions/agreement.h"
#include "terminal/Console.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

using conventions::Basis;
using conventions::Convention;
using conventions::PrayerRule;

constexpr std::array prayers = {Prayer::fajr, Prayer::sunrise, Prayer::dhuhr,
                                Prayer::asr,  Prayer::maghrib, Prayer::isha};

Json prayerRuleJson(const PrayerRule& rule) {
    constexpr std::array<const char*, 5> bases = {"horizon", "depression", "transit", "shadow", "after_maghrib"};
    constexpr std::array<const char*, 3> roundings = {"nearest", "up", "down"};
    return object({{"basis", bases.at(static_cast<std::size_t>(rule.basis))},
                   {"angle", rule.basis == Basis::depression ? Json(rule.angle) : Json()},
                   {"minutes", rule.minutes},
                   {"ramadan_minutes", rule.ramadanMinutes > 0.0 ? Json(rule.ramadanMinutes) : Json()},
                   {"rounding", roundings.at(static_cast<std::size_t>(rule.rounding))},
                   {"sun", rule.moment == conventions::SunMoment::startOfDay ? "0h_ut" : "event"}});
}

/// Percent of the published rows of each prayer: exact, within one minute, within two; null when there are none.
Json agreementJson(const Convention& convention) {
    const auto* found = conventions::publishedAgreement(convention.key);
    if (found == nullptr) return nullptr;
    Json::Object percent;
    for (std::size_t i = 0; i < found->exact.size(); ++i) {
        percent.emplace_back(std::string(conventions::nameOf(prayers[i])),
                             Json::Array{found->exact[i], found->withinOne[i], found->withinTwo[i]});
    }
    return object({{"rows", found->rows},
                   {"places", found->places},
                   {"percent", Json(std::move(percent))},
                   {"worst_minutes", found->worst}});
}

std::string countriesOf(const Convention& convention) {
    return fmt::format("{}{}{}", convention.countries, convention.alsoUsedIn.empty() ? "" : " ", convention.alsoUsedIn);
}

Json conventionJson(const Convention& convention) {
    Json::Object rules;
    for (const Prayer prayer : prayers) {
        rules.emplace_back(std::string(conventions::nameOf(prayer)), prayerRuleJson(convention.rule(prayer)));
    }
    const auto text = [](std::string_view value) { return value.empty() ? Json() : Json(std::string(value)); };
    return object({{"key", std::string(convention.key)},
                   {"name", std::string(convention.name)},
                   {"authority", std::string(convention.authority)},
                   {"countries", countriesOf(convention)},
                   {"also_used_in", text(convention.alsoUsedIn)},
                   {"rules", Json(std::move(rules))},
                   {"asr_factor", convention.asrFactor},
                   {"high_latitude", std::string(conventions::keyOf(convention.highLatitude))},
                   {"night_begins", convention.night == conventions::NightBegin::sunset ? "sunset" : "maghrib"},
                   {"common_definition", convention.isCommonDefinition},
                   {"source", std::string(convention.source)},
                   {"remark", text(convention.remark)},
                   {"agreement", agreementJson(convention)}});
}

void listMethods(Console& console, const Arguments&) {
    if (console.wantsJson()) {
        Json::Array all;
        for (const Convention& convention : conventions::allConventions()) all.push_back(conventionJson(convention));
        return console.printJson(object({{"methods", all}}));
    }
    using Align = TextTable::Align;
    TextTable table({Align::left, Align::left, Align::left});
    for (const Convention& convention : conventions::allConventions()) {
        table.add({std::string(convention.key), nameText(convention),
                   convention.sampleAuthority.empty() ? "" : _("checked")});
    }
    console.print(table, 0);
    console.print();
    console.print(console.style().dim(
        console.wrapped(_("\"checked\": compared with published rows. Explain one with: quode method show KEY"))));
}

void printZones(Console& console) {
    console.print();
    TextTable table({TextTable::Align::left, TextTable::Align::left});
    for (const auto& zone : conventions::jakimZones()) {
        table.add({std::string(zone.key), std::string(zone.area) + (zone.isMountain ? _(" (mountain)") : "")});
    }
    console.print(table, 0);
}

void runMethodShow(Console& console, const Arguments& arguments) {
    const Convention& convention = conventionNamed(arguments.text("KEY").value_or(""));
    if (console.wantsJson()) return console.printJson(conventionJson(convention));
    console.print(console.style().strong(nameText(convention)) + "  " + std::string(convention.key));
    console.print(console.wrapped(authorityText(convention)));
    console.print();
    if (convention.computation == conventions::Computation::rules) {
        TextTable table({TextTable::Align::left, TextTable::Align::left});
        for (const Prayer prayer : prayers) {
            table.add({std::string(conventions::nameOf(prayer)), ruleText(convention, convention.rule(prayer))});
        }
        table.add({_("high latitudes"), std::string(conventions::keyOf(convention.highLatitude))});
        if (convention.north.fromLatitude <= 90.0) {
            table.add({_("from {}° N on", numberText(convention.north.fromLatitude)),
                       _("Isha {}°, {}", numberText(convention.north.ishaAngle),
                         std::string(conventions::keyOf(convention.north.rule)))});
        }
        if (convention.formerFajr.beforeYear > 0) {
            table.add({_("before {} AH", convention.formerFajr.beforeYear),
                       _("Fajr {}°", numberText(convention.formerFajr.angle))});
        }
        if (convention.night == conventions::NightBegin::sunset) table.add({_("night"), _("from sunset")});
        console.print(table, 2);
        console.print();
    }
    if (!convention.remark.empty()) console.print(console.wrapped(remarkText(convention)));
    console.print(console.wrapped(_("Source: {}.", sourceText(convention))));
    console.print(console.wrapped(_("Agreement: {}.", agreementText(console.session(), convention))));
    if (convention.point == conventions::PointRule::jakimZones) printZones(console);
}

void runSuggest(Console& console, const Arguments& arguments) {
    const ChosenPlace place = choosePlace(console.session(), arguments.text("city"));
    const std::string country = place.nearest ? place.nearest->city.countryCode : place.city.countryCode;
    const Convention* usual = conventions::usualIn(country);
    const bool isOwn = usual != nullptr && conventions::isOfCountry(*usual, country);
    if (console.wantsJson()) {
        return console.printJson(object({{"place", placeJson(place)},
                                         {"country_code", country},
                                         {"chosen", place.city.choice.method.key},
                                         {"suggestion", usual == nullptr ? Json() : Json(std::string(usual->key))},
                                         {"of_country", usual == nullptr ? Json() : Json(isOwn)}}));
    }
    printPlace(console, place);
    console.print(_("Chosen: {}.", std::string(conventionNamed(place.city.choice.method.key).name)));
    if (usual == nullptr) {
        return console.print(
            console.wrapped(_("No authority's method is known to be usual here. Compare methods with your "
                              "mosque's timetable: quode method compare")));
    }
    if (isOwn) {
        return console.print(
            console.wrapped(_("Usual here: {}. Nothing was changed; choose it with: quode method set {}",
                              std::string(usual->name), std::string(usual->key))));
    }
    const CityRecord& inCountry = place.nearest ? place.nearest->city : place.city;
    console.print(console.wrapped(borrowedMethodText(console.session(), inCountry, *usual)));
    console.print(
        console.wrapped(_("Nothing was changed; choose it with: quode method set {}", std::string(usual->key))));
}

}  // namespace

Command methodListCommand() {
    return {"list", _("Show all methods"), {}, listMethods};
}

Command methodShowCommand() {
    return {"show",
            _("Explain a method: rules, source, agreement"),
            {{Parameter::Kind::word, "KEY", "", _("Its key, such as diyanet"), true}},
            runMethodShow};
}

Command methodSuggestCommand() {
    return {"suggest", _("Name the method usual in the country"), {cityParameter()}, runSuggest};
}

}  // namespace quode::cli
