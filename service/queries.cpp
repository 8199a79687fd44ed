// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "service/queries.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>

#include "app/day_view.h"
#include "app/next_prayer.h"
#include "app/place.h"
#include "app/session.h"
#include "common/numbers.h"
#include "companion/SiteChoices.h"
#include "data/name_folding.h"
#include "texts/translation.h"

namespace quode::service {
namespace {

using namespace app;

constexpr const char* dayKind = "day";
constexpr const char* qiblaKind = "qibla";
constexpr std::size_t shortestCity = 3;

std::vector<std::string> wordsOf(const std::string& text) {
    std::vector<std::string> words;
    std::string word;
    for (const char c : text + ' ') {
        if (c != ' ' && c != ',') {
            word += c;
        } else if (!word.empty()) {
            words.push_back(std::move(word));
            word.clear();
        }
    }
    return words;
}

bool isOneOf(const std::string& folded, const std::string& list) {
    const std::vector<std::string> words = wordsOf(list);
    return std::ranges::any_of(words, [&](const std::string& each) { return foldedName(each) == folded; });
}

/// English words are understood in every language.
bool isKeyword(const std::string& folded, const char* english) {
    return isOneOf(folded, english) || isOneOf(folded, _(english));
}

/// The prayer that a word names, in the language of the user or by its key.
std::optional<int> prayerNamed(Session& session, const std::string& folded) {
    for (int code = firstPrayer; code <= lastMainPrayer; ++code) {
        if (folded == prayerKey(code) || folded == foldedName(session.prayerName(code))) return code;
    }
    return std::nullopt;
}

struct Query {
    std::string kind;  ///< a code, or one of the others; empty: no word named one
    std::string city;
};

Query queryOf(Session& session, const std::string& text) {
    Query query;
    for (const std::string& word : wordsOf(text)) {
        const std::string folded = foldedName(word);
        if (isKeyword(folded, N_("qibla kibla kiblah"))) {
            query.kind = qiblaKind;
        } else if (isKeyword(folded, N_("prayer prayers times time salah salat namaz in at"))) {
            if (query.kind.empty()) query.kind = dayKind;
        } else if (const auto code = prayerNamed(session, folded)) {
            query.kind = std::to_string(*code);
        } else {
            query.city += (query.city.empty() ? "" : " ") + word;
        }
    }
    return query;
}

ChosenPlace readableHomePlace(Session& session) {
    ChosenPlace place = chooseHomePlace(session);
    requireReadableChoice(place.city);
    return place;
}

/// The city that a query is about; nothing when none is meant for certain.
std::optional<ChosenPlace> placeOf(Session& session, const std::string& city) {
    if (city.empty()) return readableHomePlace(session);
    if (city.size() < shortestCity) return std::nullopt;
    const std::vector<CityHit> hits = session.cities().search(city, 1);
    if (hits.empty()) return std::nullopt;
    return ChosenPlace{hits.front().city, PlaceSource::argument, {}};
}

std::string timeLeftOf(Session& session, std::chrono::sys_seconds instant) {
    const auto left = instant - session.now();
    return left.count() > 0 ? " · " + _("in {}", durationText(left)) : "";
}

std::string allTimes(Session& session, const CityDay& day) {
    std::string text;
    for (int code = firstPrayer; code <= lastMainPrayer; ++code) {
        text += fmt::format("{}{} {}", text.empty() ? "" : " · ", session.prayerName(code),
                            clockText(session, timeOfPrayer(day, code)));
    }
    return text;
}

Finding describe(Session& session, const std::string& kind, const ChosenPlace& place, bool isHome) {
    const CityRecord& city = place.city;
    const Site site = siteOf(city);
    const CityDay day = computeCityDay(site, today(session, site));
    const std::string id = kind + ":" + std::to_string(isHome ? 0 : city.id);
    if (kind == qiblaKind) {
        const std::string degrees = session.decimal(bearingOf(day.kible), 1) + "°";
        return {id, _("Qibla {}", degrees), _("{}, clockwise from true north", fullName(session, city))};
    }
    if (kind == dayKind) return {id, _("Prayer times, {}", city.name), allTimes(session, day)};
    const int code = numberOf<int>(kind).value_or(firstPrayer);
    const auto hours = timeOfPrayer(day, code);
    const std::string left = hours ? timeLeftOf(session, instantOf(day, *hours)) : "";
    return {id, session.prayerName(code) + " " + clockText(session, hours), fullName(session, city) + left};
}

}  // namespace

std::vector<Finding> findingsOf(Session& session, const std::string& query) {
    const Query wanted = queryOf(session, query);
    if (wanted.kind.empty()) return {};
    const std::optional<ChosenPlace> place = placeOf(session, wanted.city);
    if (!place) return {};
    std::vector<Finding> findings{describe(session, wanted.kind, *place, wanted.city.empty())};
    const auto next = nextPrayer(siteOf(place->city), session.now());
    if (wanted.kind == dayKind && next) {
        findings.push_back(describe(session, std::to_string(next->code), *place, wanted.city.empty()));
    }
    return findings;
}

std::optional<Finding> findingOf(Session& session, const std::string& id) {
    const std::size_t colon = id.find(':');
    if (colon == std::string::npos) return std::nullopt;
    const std::string kind = id.substr(0, colon);
    const auto city = numberOf<int>(std::string_view(id).substr(colon + 1));
    const auto code = numberOf<int>(kind);
    const bool isKind =
        kind == dayKind || kind == qiblaKind || (code && *code >= firstPrayer && *code <= lastMainPrayer);
    if (!city || !isKind) return std::nullopt;
    if (*city == 0) return describe(session, kind, readableHomePlace(session), true);
    try {
        return describe(session, kind, choosePlace(session, std::to_string(*city)), false);
    } catch (const Failure& failure) {  // a result of an earlier search, whose place is gone
        if (failure.code() == ExitCode::notFound) return std::nullopt;
        throw;
    }
}

}  // namespace quode::service
