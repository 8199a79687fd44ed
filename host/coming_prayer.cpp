#include "host/coming_prayer.h"

#include <fmt/format.h>

#include "cli/day_view.h"
#include "cli/next_prayer.h"
#include "cli/user_data.h"
#include "host/texts.h"

namespace quode::host {

using namespace std::chrono_literals;
using std::chrono::minutes;

TimeBound boundOf(std::chrono::seconds left) {
    if (left <= 10min) return {10min, 0min};
    if (left <= 30min) return {30min, 10min};
    if (left <= 1h) return {1h, 30min};
    const auto hours = std::chrono::ceil<std::chrono::hours>(left);
    return {hours, hours - 1h};
}

ComingPrayer comingPrayer(cli::Session& session) {
    const Texts& texts = textsOf(session.services().languageId());
    const std::optional<CityRecord> city = cli::homeCity(session);
    const std::chrono::sys_seconds nextDay = session.now() + 24h;  // without a prayer nothing changes so soon
    if (!city) return {texts.noCity, texts.noCity, nextDay};
    const Site site = siteOf(*city);
    const std::optional<NextPrayer> next = nextPrayer(site, session.now());
    if (!next) return {city->name, city->name, nextDay};

    const std::string prayer = session.prayerName(next->code) + " " + cli::clockText(session, next->hours);
    const TimeBound bound = boundOf(cli::timeLeft(session, *next));
    const bool isHours = bound.bound >= 1h;
    const std::string within = fmt::format(fmt::runtime(isHours ? texts.withinHours : texts.withinMinutes),
                                           isHours ? bound.bound / 1h : bound.bound / 1min);
    return {prayer + ", " + cli::timeLeftText(session, site, *next), city->name + ": " + prayer + ", " + within,
            next->instant - bound.next};
}

}  // namespace quode::host
