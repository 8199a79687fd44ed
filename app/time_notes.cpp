// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/time_notes.h"

#include <algorithm>
#include <utility>

#include "app/day_view.h"
#include "app/failure.h"
#include "app/method_choice.h"
#include "app/session.h"
#include "data/iqama.h"
#include "texts/translation.h"

namespace quode::app {
namespace {

bool isFallback(const CityDay& day, int code) {
    const TimeSource source = day.method.mark(code).source;
    if (source == TimeSource::highLatitude || source == TimeSource::otherLatitude) return true;
    const Fallbacks fallbacks = fallbacksOf(day.times, code);
    return source == TimeSource::engine && (fallbacks.latitude || fallbacks.earlierDay);
}

// The usual method of the country, where the user has not chosen any; null: none is to be offered.
const conventions::Convention* methodToOffer(const ChosenPlace& place) {
    const bool isUsers = place.source == PlaceSource::home || place.source == PlaceSource::systemZone;
    if (!isUsers || place.city.choice.isChosen) return nullptr;
    const conventions::Convention* const usual = conventions::usualIn(place.city.countryCode);
    const bool isOther = usual != nullptr && usual->computation != conventions::Computation::engine;
    return isOther ? usual : nullptr;
}

const std::string& countryOf(Session& session, const ChosenPlace& place) {
    return session.isTurkish() ? place.city.countryNameTr : place.city.countryNameEn;
}

}  // namespace

std::string adjustmentMark(const CityDay& day, int code) {
    const bool isAdjusted = timeOfPrayer(day, code) && day.method.mark(code).adjusted != 0;
    return isAdjusted ? std::string(_("adjusted by you")) : "";
}

std::string shortMark(const CityDay& day, int code) {
    if (!timeOfPrayer(day, code)) return "";
    if (const std::string mark = adjustmentMark(day, code); !mark.empty()) return mark;
    if (isFallback(day, code)) return _("by a fallback rule");
    const bool isOutOfOrder = day.method.mark(code).caution == conventions::Caution::outOfOrder;
    return isOutOfOrder ? std::string(_("out of order")) : "";
}

std::vector<std::string> timeNotes(Session& session, const CityDay& day) {
    std::vector<std::pair<std::string, std::string>> reasons;  // reason, prayers
    for (int code = firstPrayer; code <= lastPrayer; ++code) {
        const std::optional<std::string> reason = sourceNote(day, code);
        if (!reason) continue;
        auto found = std::ranges::find(reasons, *reason, &std::pair<std::string, std::string>::first);
        if (found == reasons.end()) found = reasons.insert(reasons.end(), {*reason, ""});
        found->second += (found->second.empty() ? "" : ", ") + session.prayerName(code);
    }
    std::vector<std::string> lines;
    for (const auto& [reason, prayers] : reasons) lines.push_back(prayers + ": " + reason);
    return lines;
}

std::string otherClockNote(Session& session, const ZoneClock& clock, const CityDay& day, int code) {
    const std::optional<int> minute = otherClockMinute(clock, day, timeOfPrayer(day, code));
    if (!minute) return "";
    return _("{0}: the clocks change on this day; at this moment they show {1}.", session.prayerName(code),
             clockText(session, std::chrono::minutes(*minute)));
}

std::string iqamaLine(Session& session, const CityDay& day) {
    std::string prayers;
    for (int code = firstPrayer; code <= lastMainPrayer; ++code) {
        const std::optional<int> minute = iqamaMinute(day, code);
        if (!minute) continue;
        prayers += (prayers.empty() ? "" : ", ") + session.prayerName(code) + " " +
                   clockText(session, std::chrono::minutes(*minute));
    }
    // Translators: the moments at which the congregations of the prayers begin.
    return prayers.empty() ? "" : _("Iqama: {}", prayers);
}

Json iqamaJson(const CityDay& day) {
    Json::Object times;
    bool isAnyKnown = false;
    for (int code = firstPrayer; code <= lastMainPrayer; ++code) {
        const std::optional<int> minute = iqamaMinute(day, code);
        isAnyKnown = isAnyKnown || minute.has_value();
        times.emplace_back(prayerKey(code), minute ? Json(clock24(std::chrono::minutes(*minute))) : Json());
    }
    return isAnyKnown ? Json(std::move(times)) : Json();
}

std::string usualMethodNote(Session& session, const ChosenPlace& place) {
    const conventions::Convention* const usual = methodToOffer(place);
    if (usual == nullptr) return "";
    if (const std::string borrowed = borrowedMethodText(session, place.city, *usual); !borrowed.empty()) {
        return borrowed + " " +
               _("To choose it: quode method set {}; to keep Quode's own: quode method set quode.",
                 std::string(usual->key));
    }
    return _("Usual in {0}: {1}. To choose it: quode method set {2}; to keep Quode's own: quode method set quode.",
             countryOf(session, place), std::string(usual->name), std::string(usual->key));
}

std::string usualMethodFact(Session& session, const ChosenPlace& place) {
    const conventions::Convention* const usual = methodToOffer(place);
    if (usual == nullptr) return "";
    if (const std::string borrowed = borrowedMethodText(session, place.city, *usual); !borrowed.empty()) {
        return borrowed + " " + _("To choose it, open Times in the settings.");
    }
    return _("Usual in {0}: {1}. To choose it, open Times in the settings.", countryOf(session, place),
             std::string(usual->name));
}

}  // namespace quode::app
