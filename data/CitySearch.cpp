// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <unordered_map>

#include "data/CityDatabase.h"
#include "data/city_connection.h"
#include "data/city_database_schema.h"
#include "data/name_folding.h"

namespace quode {
namespace {

constexpr std::size_t longestText = 200;     // bytes; no name is half as long
constexpr std::size_t littleFound = 5;       // below this many hits typing mistakes are considered
constexpr std::size_t leastForMistakes = 4;  // shorter texts are too near to everything
constexpr std::size_t leastForTwoMistakes = 8;

// How well a name fits, in powers of ten of population: an exact name outweighs one a thousand times as populous.
constexpr double exactName = 3.0;
constexpr double firstWords = 1.5;  // the text is followed by another word of the name
constexpr double firstLetters = 0.0;
constexpr double laterWords = -0.5;
constexpr double laterLetters = -2.0;
constexpr double perMistake = -2.0;

struct Candidate {
    int id = 0;
    double score = 0.0;
    CityMatch match = CityMatch::exact;
    bool otherName = false;
    std::string folded;  // the name that matched
};

// A text to search for: a folded name, and the regions that it is to be found in.
struct Wanted {
    std::string name;
    std::vector<std::string> qualifiers;
};

Wanted split(std::string_view text) {
    Wanted wanted;
    const std::size_t comma = text.find(',');
    wanted.name = foldedName(text.substr(0, comma));
    for (std::size_t at = comma; at != std::string_view::npos;) {
        const std::size_t end = text.find(',', at + 1);
        std::string qualifier = foldedName(text.substr(at + 1, end == std::string_view::npos ? end : end - at - 1));
        if (!qualifier.empty()) wanted.qualifiers.push_back(std::move(qualifier));
        at = end;
    }
    return wanted;
}

// Country codes that people use although the standard has others.
std::string countryCodeFor(const std::string& qualifier) {
    static const std::map<std::string, std::string> usual = {{"uk", "gb"}, {"usa", "us"}, {"uae", "ae"}, {"ksa", "sa"}};
    const auto found = usual.find(qualifier);
    return found == usual.end() ? qualifier : found->second;
}

double scoreOf(double fit, std::int64_t population) {
    return fit + std::log10(static_cast<double>(std::max<std::int64_t>(population, 0)) + 1.0);
}

// One search over an open database.
class CitySearch {
  public:
    explicit CitySearch(CityConnection& connection) : connection_(connection) {}

    std::vector<CityHit> findNamed(std::string_view text, std::size_t limit) {
        const Wanted wanted = split(text);
        if (wanted.name.empty()) return {};
        collectNames(wanted, wanted.name + '\0');
        if (found_.empty() && !wanted.qualifiers.empty()) {
            const std::string whole = foldedName(text);
            collectNames({whole, {}}, whole + '\0');
        }
        std::erase_if(found_, [](const auto& entry) { return entry.second.match != CityMatch::exact; });
        return best(limit);
    }

    std::vector<CityHit> find(std::string_view text, std::size_t limit) {
        const Wanted wanted = split(text);
        if (wanted.name.empty()) return {};
        collectNames(wanted);
        if (found_.empty() && !wanted.qualifiers.empty()) collectNames({foldedName(text), {}});
        if (found_.empty() && wanted.qualifiers.empty()) collectWithQualifierWords(wanted.name);
        if (!wordsFound_ && found_.size() < littleFound) collectMistakes(wanted);
        return best(limit);
    }

  private:
    // The regions that satisfy all qualifiers; nothing when there are none to satisfy.
    std::optional<std::vector<bool>> allowedParents(const std::vector<std::string>& qualifiers) const {
        if (qualifiers.empty()) return std::nullopt;
        const sqlite::Statement row = connection_.query(
            "SELECT F.PARENT, lower(F.CODE), lower(K.CODE), F.FOLDED, K.FOLDEDEN, K.FOLDEDTR FROM PARENT_FACT F "
            "JOIN CITY_PARENT P ON P.PARENT = F.PARENT JOIN COUNTRY_FACT K ON K.CID = P.CID ORDER BY F.PARENT DESC");
        std::vector<bool> allowed;
        while (connection_.next(row)) {
            const auto parent = static_cast<std::size_t>(sqlite3_column_int(row.get(), 0));
            if (parent >= allowed.size()) allowed.resize(parent + 1);
            allowed[parent] = std::all_of(qualifiers.begin(), qualifiers.end(), [&](const std::string& qualifier) {
                return satisfies(row.get(), qualifier);
            });
        }
        return allowed;
    }

    static bool satisfies(sqlite3_stmt* row, const std::string& qualifier) {
        if (sqlite::text(row, 1) == qualifier || sqlite::text(row, 2) == countryCodeFor(qualifier)) return true;
        if (qualifier.size() <= 2) return false;
        for (int column = 3; column <= 5; ++column) {
            if (sqlite::text(row, column).starts_with(qualifier)) return true;
        }
        return false;
    }

    static bool allows(const std::optional<std::vector<bool>>& allowed, sqlite3_stmt* row) {
        const auto parent = static_cast<std::size_t>(sqlite3_column_int(row, 4));
        return !allowed || (parent < allowed->size() && (*allowed)[parent]);
    }

    // Everything that begins with the name.
    void collectNames(const Wanted& wanted) { collectNames(wanted, wanted.name + "\xF4\x8F\xBF\xBF"); }

    // The names from the wanted one up to the end, which does not belong to them.
    void collectNames(const Wanted& wanted, const std::string& end) {
        const auto allowed = allowedParents(wanted.qualifiers);
        const sqlite::Statement row = connection_.query(
            "SELECT FOLDED, ID, KIND, POPULATION, PARENT FROM CITY_NAME WHERE FOLDED >= ?1 AND FOLDED < ?2");
        sqlite3_bind_text(row.get(), 1, wanted.name.c_str(), -1, SQLITE_STATIC);
        sqlite3_bind_text(row.get(), 2, end.data(), static_cast<int>(end.size()), SQLITE_STATIC);
        while (connection_.next(row)) {
            if (allows(allowed, row.get())) addName(row.get(), wanted.name);
        }
    }

    void addName(sqlite3_stmt* row, const std::string& wanted) {
        const std::string_view folded(reinterpret_cast<const char*>(sqlite3_column_text(row, 0)),
                                      static_cast<std::size_t>(sqlite3_column_bytes(row, 0)));
        const auto kind = static_cast<NameKind>(sqlite3_column_int(row, 2));
        const bool later = kind == NameKind::ownWord || kind == NameKind::otherWord;
        const bool whole = folded.size() == wanted.size();
        const bool wholeWords = whole || folded[wanted.size()] == ' ';
        double fit = wholeWords ? laterWords : laterLetters;
        if (!later) fit = whole ? exactName : wholeWords ? firstWords : firstLetters;
        const CityMatch match = later ? CityMatch::word : whole ? CityMatch::exact : CityMatch::prefix;
        wordsFound_ = wordsFound_ || (!later && wholeWords);
        add(row, folded, fit, match, kind);
    }

    void add(sqlite3_stmt* row, std::string_view folded, double fit, CityMatch match, NameKind kind) {
        const int id = sqlite3_column_int(row, 1);
        const double score = scoreOf(fit, sqlite3_column_int64(row, 3));
        const auto [known, isNew] = found_.try_emplace(id);
        if (!isNew && known->second.score >= score) return;
        const bool other = kind == NameKind::other || kind == NameKind::otherWord;
        known->second = {id, score, match, other, std::string(folded)};
    }

    // "london ontario": the last words may name the country or region.
    void collectWithQualifierWords(const std::string& name) {
        for (std::size_t blank = name.rfind(' '); blank != std::string::npos && found_.empty();
             blank = blank == 0 ? std::string::npos : name.rfind(' ', blank - 1)) {
            collectNames({name.substr(0, blank), {name.substr(blank + 1)}});
        }
    }

    void collectMistakes(const Wanted& wanted) {
        const std::size_t length = wanted.name.size();
        if (length < leastForMistakes) return;
        const int limit = length >= leastForTwoMistakes ? 2 : 1;
        const auto allowed = allowedParents(wanted.qualifiers);
        const sqlite::Statement row =
            connection_.query("SELECT FOLDED, ID, KIND, POPULATION, PARENT FROM CITY_NAME WHERE KIND <= 1");
        while (connection_.next(row)) {
            const std::string_view folded(reinterpret_cast<const char*>(sqlite3_column_text(row.get(), 0)),
                                          static_cast<std::size_t>(sqlite3_column_bytes(row.get(), 0)));
            const int mistakes = typingMistakes(wanted.name, folded, limit);
            if (mistakes == 0 || mistakes > limit || !allows(allowed, row.get())) continue;
            add(row.get(), folded, mistakes * perMistake, CityMatch::typo,
                static_cast<NameKind>(sqlite3_column_int(row.get(), 2)));
        }
    }

    std::vector<CityHit> best(std::size_t limit) {
        std::vector<const Candidate*> ranked;
        for (const auto& [id, candidate] : found_) ranked.push_back(&candidate);
        const auto middle = ranked.begin() + static_cast<std::ptrdiff_t>(std::min(limit, ranked.size()));
        std::partial_sort(ranked.begin(), middle, ranked.end(), [](const Candidate* a, const Candidate* b) {
            return a->score != b->score ? a->score > b->score : a->id < b->id;
        });
        std::vector<CityHit> hits;
        for (auto candidate = ranked.begin(); candidate != middle; ++candidate) {
            const std::optional<CityRecord> city = connection_.record((*candidate)->id);
            if (city) hits.push_back({*city, (*candidate)->match, otherNameOf(**candidate)});
        }
        return hits;
    }

    // The former or other name that a candidate was found by, as it is written.
    std::string otherNameOf(const Candidate& candidate) const {
        if (!candidate.otherName) return {};
        const sqlite::Statement row = connection_.query("SELECT NAME FROM OTHER_NAME WHERE ID = ?1 ORDER BY NAME");
        sqlite3_bind_int(row.get(), 1, candidate.id);
        std::string any;
        while (connection_.next(row)) {
            std::string name = sqlite::text(row.get(), 0);
            if (foldedName(name).ends_with(candidate.folded)) return name;
            if (any.empty()) any = std::move(name);
        }
        return any;
    }

    CityConnection& connection_;
    std::unordered_map<int, Candidate> found_;
    bool wordsFound_ = false;  // a name is the text, or goes on after it with another word
};

}  // namespace

std::vector<CityHit> CityDatabase::named(std::string_view text, int limit) const {
    if (text.size() > longestText || limit <= 0) return {};
    return CitySearch(*connection_).findNamed(text, static_cast<std::size_t>(limit));
}

std::vector<CityHit> CityDatabase::search(std::string_view text, int limit) const {
    if (text.size() > longestText || limit <= 0) return {};
    return CitySearch(*connection_).find(text, static_cast<std::size_t>(limit));
}

}  // namespace quode
