// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/panel_facts.h"

#include <stdexcept>

#include "app/day_notes.h"
#include "app/day_view.h"
#include "app/next_prayer.h"
#include "app/session.h"
#include "app/user_data.h"
#include "texts/reading_order.h"
#include "texts/translation.h"

namespace quode::host {
namespace {

constexpr int sunrise = codeOf(Prayer::sunrise);

// A label takes its alignment from the first letter outside the parts that are kept together.
QString labelText(const std::string& text) {
    const QString ordered = QString::fromStdString(inReadingOrder(text));
    return isRightToLeft(languageInUse()) ? QChar(0x200F) + ordered : ordered;
}

// The prayer whose time it is at a moment; nothing between sunrise and noon, and where the times are unknown.
std::optional<int> currentPrayer(const CityDay& day, std::chrono::sys_seconds now) {
    std::optional<int> current = lastMainPrayer;  // of the evening before
    bool isAnyKnown = false;
    for (int code = firstPrayer; code <= lastMainPrayer; ++code) {
        const auto hours = timeOfPrayer(day, code);
        if (!hours) continue;
        isAnyKnown = true;
        if (instantOf(day, *hours) <= now) current = code;
    }
    if (!isAnyKnown || current == sunrise) return std::nullopt;
    return current;
}

QString nextText(app::Session& session, const Site& site, const NextPrayer& next) {
    return labelText(session.prayerName(next.code) + " " + app::timeLeftText(session, site, next));
}

QString datesText(app::Session& session, const VAKDate& date) {
    const std::string civil = app::longDate(session, date);
    const auto hijri = app::hijriByTable(date);
    return labelText(hijri ? civil + "\n" + app::hijriText(session, *hijri) : civil);
}

QStringList notesOf(app::Session& session, const CityDay& day) {
    QStringList lines;
    for (const std::string& note : app::dayNotes(session, app::chooseHomePlace(session), day, app::Remedy::settings)) {
        lines << labelText(note);
    }
    return lines;
}

}  // namespace

PanelFacts panelFacts(app::Session& session) {
    try {
        const std::optional<CityRecord> city = app::homeCity(session);
        if (!city) return {};
        const Site site = siteOf(*city);
        const CityDay day = computeCityDay(site, app::today(session, site));
        const std::optional<NextPrayer> next = nextPrayer(site, session.now());
        PanelFacts facts;
        if (next) facts.next = nextText(session, site, *next);
        if (next) facts.nextCode = next->code;
        facts.dates = datesText(session, day.date);
        facts.notes = notesOf(session, day);
        facts.currentCode = currentPrayer(day, session.now());
        return facts;
    } catch (const std::runtime_error&) {
        return {};  // of either database: the notice above the widget tells it
    }
}

QString timesAsText(app::Session& session) {
    try {
        const std::optional<CityRecord> city = app::homeCity(session);
        if (!city) return {};
        const Site site = siteOf(*city);
        const CityDay day = computeCityDay(site, app::today(session, site));
        QStringList lines{labelText(city->name), datesText(session, day.date)};
        for (int code = firstPrayer; code <= lastMainPrayer; ++code) {
            lines << labelText(session.prayerName(code) + " " + app::clockText(session, timeOfPrayer(day, code)));
        }
        return lines.join('\n') + '\n';
    } catch (const std::runtime_error&) {
        return {};
    }
}

}  // namespace quode::host
