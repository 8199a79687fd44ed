// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/method_rules.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "app/session.h"
#include "astro/prayer.h"
#include "common/numbers.h"
#include "conventions/agreement.h"
#include "texts/translation.h"

namespace quode::app {
namespace {

using conventions::Basis;
using conventions::Convention;
using conventions::PrayerRule;

std::string minutesText(double minutes) {
    if (minutes == 0.0) return "";
    return fmt::format(" {}{} min", minutes < 0.0 ? "−" : "+",
                       fixedText(std::abs(minutes), minutes == std::round(minutes) ? 0 : 2));
}

std::string basisText(const Convention& convention, const PrayerRule& rule) {
    switch (rule.basis) {
        case Basis::depression:
            return fmt::format("{}°", numberText(rule.angle)) + minutesText(rule.minutes);
        case Basis::transit:
            return _("noon") + minutesText(rule.minutes);
        case Basis::shadow:
            return _("shadow {}", convention.asrFactor) + minutesText(rule.minutes);
        case Basis::afterMaghrib:
            return rule.ramadanMinutes > 0.0
                       ? _("Maghrib + {} min, in Ramadan + {} min", int(rule.minutes), int(rule.ramadanMinutes))
                       : _("Maghrib + {} min", int(rule.minutes));
        default:
            return "0°50′" + minutesText(rule.minutes);
    }
}

}  // namespace

std::string ruleText(const Convention& convention, const PrayerRule& rule) {
    std::string text = basisText(convention, rule);
    if (rule.rounding == conventions::Rounding::up) text += _(", rounded up");
    if (rule.rounding == conventions::Rounding::down) text += _(", rounded down");
    if (rule.moment == conventions::SunMoment::startOfDay) text += _(", Sun of 0 h UT");
    return text;
}

std::string ruleSentence(const Convention& convention, Prayer prayer) {
    const PrayerRule& rule = convention.rule(prayer);
    std::string text;
    switch (rule.basis) {
        case Basis::depression:
            text = _("The Sun is {}° below the horizon.", numberText(rule.angle));
            break;
        case Basis::transit:
            text = _("The Sun is in the south or north, at its highest.");
            break;
        case Basis::shadow:
            text = _n("A shadow has grown by the length of what casts it.",
                      "A shadow has grown by {} times the length of what casts it.", convention.asrFactor);
            break;
        case Basis::afterMaghrib:
            text = rule.ramadanMinutes > 0.0
                       ? _("{} minutes after Maghrib, in Ramadan {}.", int(rule.minutes), int(rule.ramadanMinutes))
                       : _("{} minutes after Maghrib.", int(rule.minutes));
            break;
        default:
            text = prayer == Prayer::maghrib ? _("The upper edge of the Sun sets.")
                                             : _("The upper edge of the Sun rises.");
            break;
    }
    if (rule.basis == Basis::afterMaghrib || rule.minutes == 0.0) return text;
    const std::string minutes = fixedText(std::abs(rule.minutes), rule.minutes == std::round(rule.minutes) ? 0 : 2);
    return text + " " +
           (rule.minutes > 0.0 ? _("The authority adds {} min.", minutes)
                               : _("The authority subtracts {} min.", minutes));
}

std::string nameText(const Convention& convention) {
    return _(convention.name.data());
}

std::string authorityText(const Convention& convention) {
    return _(convention.authority.data());
}

std::string sourceText(const Convention& convention) {
    return convention.source.empty() ? "" : _(convention.source.data());
}

std::string remarkText(const Convention& convention) {
    return convention.remark.empty() ? "" : _(convention.remark.data());
}

std::string agreementText(Session& session, const Convention& convention) {
    const conventions::PublishedAgreement* found = conventions::publishedAgreement(convention.key);
    if (found == nullptr) return _("not checked against published rows");
    std::string percents;
    for (std::size_t i = 0; i < found->exact.size(); ++i) {
        percents += fmt::format("{}{} {}/{}/{}", percents.empty() ? "" : ", ",
                                session.prayerName(firstPrayer + static_cast<int>(i)), found->exact[i],
                                found->withinOne[i], found->withinTwo[i]);
    }
    const std::string places = _n("{} place", "{} places", found->places);
    // Translators: {0} is a number, {1} is "3 places", {2} is "Fajr 88/98/98, Sunrise 91/100/100, ...".
    return _("{0} published rows of {1}, exact/within 1/within 2 minutes in percent: {2}; worst {3} min", found->rows,
             places, percents, found->worst);
}

std::string highLatitudeText(conventions::HighLatitudeRule rule) {
    const auto& names = conventions::highLatitudeNames();
    const auto found = std::ranges::find(names, rule, &conventions::HighLatitudeName::rule);
    return found == names.end() ? std::string(conventions::keyOf(rule)) : std::string(_(found->meaning.data()));
}

}  // namespace quode::app
