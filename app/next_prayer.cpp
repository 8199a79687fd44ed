// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/next_prayer.h"

#include <fmt/format.h>

#include "app/dates.h"
#include "app/day_view.h"
#include "app/session.h"
#include "texts/translation.h"

namespace quode::app {

std::chrono::seconds timeLeft(Session& session, const NextPrayer& next) {
    return next.instant - session.now();
}

std::string timeLeftText(Session& session, const Site& site, const NextPrayer& next) {
    const std::string left = _("in {}", durationText(timeLeft(session, next)));
    const bool isTomorrow = civilDate(next.date) > civilDate(today(session, site));
    return isTomorrow ? std::string(_("tomorrow")) + ", " + left : left;
}

Json nextPrayerJson(Session& session, const NextPrayer& next) {
    return object({{"code", next.code},
                   {"key", prayerKey(next.code)},
                   {"name", session.prayerName(next.code)},
                   {"date", isoDate(next.date)},
                   {"time", clock24(next.hours)},
                   {"hours", next.hours},
                   {"instant", isoMoment(next.instant)},
                   {"seconds_left", timeLeft(session, next).count()}});
}

}  // namespace quode::app
