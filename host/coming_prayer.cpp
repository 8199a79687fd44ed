// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/coming_prayer.h"

#include "common/labels.h"

#include <fmt/format.h>

#include <stdexcept>

#include "app/day_view.h"
#include "app/next_prayer.h"
#include "app/time_notes.h"
#include "app/user_data.h"
#include "texts/translation.h"

namespace quode::host {

using namespace std::chrono_literals;

TimeBound boundOf(std::chrono::seconds left) {
    if (left <= 10min) return {10min, 0min};
    if (left <= 30min) return {30min, 10min};
    if (left <= 1h) return {1h, 30min};
    const auto hours = std::chrono::ceil<std::chrono::hours>(left);
    return {hours, hours - 1h};
}

namespace {

constexpr auto lookAgain = 24h;  // where no prayer is waited for

ComingPrayer foundComingPrayer(app::Session& session) {
    const std::optional<CityRecord> city = app::homeCity(session);
    if (!city) return {_("No city is chosen"), _("No city is chosen"), session.now() + lookAgain};
    const Site site = siteOf(*city);
    const std::optional<NextPrayer> next = nextPrayer(site, session.now());
    if (!next) return {city->name, city->name, session.now() + lookAgain};

    const std::string mark = app::shortMark(computeCityDay(site, next->date), next->code);
    const std::string prayer = session.prayerName(next->code) + " " + app::clockText(session, next->hours) +
                               (mark.empty() ? "" : " (" + mark + ")");
    const TimeBound bound = boundOf(app::timeLeft(session, *next));
    const std::string within =
        _("within {}", durationLabel(std::chrono::duration_cast<std::chrono::minutes>(bound.bound)));
    // A name in Latin letters does not make the line one from left to right.
    const std::string direction = isRightToLeft(languageInUse()) ? "\u200f" : "";
    return {prayer + ", " + app::timeLeftText(session, site, *next),
            direction + city->name + ": " + prayer + ", " + within, next->instant - bound.next};
}

}  // namespace

ComingPrayer comingPrayer(app::Session& session) {
    try {
        return foundComingPrayer(session);
    } catch (const std::runtime_error& error) {
        return {error.what(), error.what(), session.now() + lookAgain};
    }
}

}  // namespace quode::host
