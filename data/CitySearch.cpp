// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cstdint>
#include <map>

#include "data/CityDatabase.h"
#include "data/city_connection.h"
#include "data/city_database_schema.h"
#include "data/name_folding.h"
#include "data/name_groups.h"
#include "data/name_ranking.h"

namespace quode {
namespace {

constexpr std::size_t longestText = 200;     // bytes; no name is half as long
constexpr std::size_t littleFound = 5;       // with fewer results, names with typing mistakes are searched
constexpr std::size_t mostQualifiers = 31;   // one bit each; no place has as many
constexpr std::size_t leastForMistakes = 4;  // shorter texts resemble too many names
constexpr std::size_t leastForTwoMistakes = 8;
constexpr const char* lastLetter = "\xF4\x8F\xBF\xBF";  // what begins with a text comes before the text with it

struct Candidate {
    int id = 0;
    double score = 0.0;
    CityMatch match = CityMatch::exact;
    bool otherName = false;
    std::string folded;  // the name that matched

    bool isBefore(double otherScore, int otherId) const {
        return score != otherScore ? score > otherScore : id < otherId;
    }
};

// The best places found so far, each once, in order.
class Ranking {
  public:
    explicit Ranking(std::size_t limit) : limit_(limit) {}

    bool isEmpty() const { return some_.empty(); }

    // True when few places were found, including those beyond the limit.
    bool isShort() const { return some_.size() < littleFound; }

    void add(int id, std::string_view folded, NameKind kind, const NameFit& fit, double score) {
        if (isShort() && std::find(some_.begin(), some_.end(), id) == some_.end()) some_.push_back(id);
        if (best_.size() == limit_ && best_.back().isBefore(score, id)) return;
        const auto known = std::find_if(best_.begin(), best_.end(), [id](const Candidate& c) { return c.id == id; });
        if (known != best_.end()) {
            if (known->score >= score) return;
            best_.erase(known);
        }
        const bool other = kind == NameKind::other || kind == NameKind::otherWord;
        const auto after =
            std::find_if(best_.begin(), best_.end(), [&](const Candidate& c) { return !c.isBefore(score, id); });
        best_.insert(after, {id, score, fit.match, other, std::string(folded)});
        if (best_.size() > limit_) best_.pop_back();
    }

    const std::vector<Candidate>& best() const { return best_; }

  private:
    std::size_t limit_;
    std::vector<Candidate> best_;
    std::vector<int> some_;
};

// A text to search for: a folded name, and the regions to search.
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

// Common country codes that differ from the standard's.
std::string countryCodeFor(const std::string& qualifier) {
    static const std::map<std::string, std::string> usual = {{"uk", "gb"}, {"usa", "us"}, {"uae", "ae"}, {"ksa", "sa"}};
    const auto found = usual.find(qualifier);
    return found == usual.end() ? qualifier : found->second;
}

// One search over an open database.
class CitySearch {
  public:
    CitySearch(CityConnection& connection, std::size_t limit) : connection_(connection), found_(limit) {}

    std::vector<CityHit> findNamed(std::string_view text) {
        onlyExact_ = true;
        const Wanted wanted = split(text);
        if (wanted.name.empty()) return {};
        collectNames(wanted, wanted.name + '\0');
        if (!anyName_ && !wanted.qualifiers.empty()) {
            const std::string whole = foldedName(text);
            collectNames({whole, {}}, whole + '\0');
        }
        return hits();
    }

    std::vector<CityHit> find(std::string_view text, std::size_t limit) {
        const Wanted wanted = split(text);
        if (wanted.name.empty()) return {};
        if (limit <= keptForBeginning && wanted.qualifiers.empty()) collectBeginning(wanted.name);
        if (!found_.isEmpty()) return hits();
        collectNames(wanted);
        if (found_.isEmpty() && !wanted.qualifiers.empty()) collectNames({foldedName(text), {}});
        if (found_.isEmpty() && wanted.qualifiers.empty()) collectWithQualifierWords(wanted.name);
        if (!wordsFound_ && found_.isShort()) collectMistakes(wanted);
        return hits();
    }

  private:
    // The regions that satisfy all qualifiers, in order; nothing without qualifiers.
    std::optional<std::vector<int>> allowedParents(const std::vector<std::string>& qualifiers) const {
        if (qualifiers.empty()) return std::nullopt;
        std::vector<int> allowed;
        if (qualifiers.size() > mostQualifiers) return allowed;
        const std::uint32_t all = (std::uint32_t{1} << qualifiers.size()) - 1;
        std::map<int, std::uint32_t> satisfied = regionsOf(countriesThatSatisfy(qualifiers));
        addRegionsThatSatisfy(qualifiers, satisfied);
        for (const auto& [region, bits] : satisfied) {
            if (bits == all) allowed.push_back(region);
        }
        return allowed;
    }

    // The regions of some countries, with what their countries satisfy.
    std::map<int, std::uint32_t> regionsOf(const std::map<int, std::uint32_t>& countries) const {
        std::map<int, std::uint32_t> regions;
        if (countries.empty()) return regions;
        std::vector<int> numbers;
        numbers.reserve(countries.size());
        for (const auto& [country, bits] : countries) numbers.push_back(country);
        const sqlite::Statement row =
            connection_.query("SELECT PARENT, CID FROM CITY_PARENT WHERE CID IN " + listOf(numbers));
        while (connection_.next(row)) {
            regions[sqlite3_column_int(row.get(), 0)] = countries.at(sqlite3_column_int(row.get(), 1));
        }
        return regions;
    }

    // The regions that satisfy some of the qualifiers by their own name or code.
    void addRegionsThatSatisfy(const std::vector<std::string>& qualifiers,
                               std::map<int, std::uint32_t>& regions) const {
        for (std::size_t i = 0; i < qualifiers.size(); ++i) {
            const std::string& qualifier = qualifiers[i];
            const std::string end = qualifier + lastLetter;
            const char* const byName = qualifier.size() > 2 ? " OR (FOLDED >= ?1 AND FOLDED < ?2)" : "";
            const sqlite::Statement row = connection_.query(
                std::string("SELECT PARENT FROM PARENT_FACT WHERE CODE = ?1 COLLATE NOCASE") + byName);
            sqlite3_bind_text(row.get(), 1, qualifier.c_str(), -1, SQLITE_STATIC);
            if (*byName != 0) sqlite3_bind_text(row.get(), 2, end.c_str(), -1, SQLITE_STATIC);
            while (connection_.next(row)) regions[sqlite3_column_int(row.get(), 0)] |= std::uint32_t{1} << i;
        }
    }

    // The countries that satisfy some of the qualifiers, one bit each.
    std::map<int, std::uint32_t> countriesThatSatisfy(const std::vector<std::string>& qualifiers) const {
        std::map<int, std::uint32_t> countries;
        const sqlite::Statement row =
            connection_.query("SELECT CID, lower(CODE), FOLDEDEN, FOLDEDTR FROM COUNTRY_FACT");
        while (connection_.next(row)) {
            const auto text = [&row](int column) { return sqlite::text(row.get(), column); };
            const std::uint32_t satisfied = satisfiedBy(text(1), {text(2), text(3)}, qualifiers);
            if (satisfied != 0) countries[sqlite3_column_int(row.get(), 0)] = satisfied;
        }
        return countries;
    }

    static std::uint32_t satisfiedBy(const std::string& code, const std::array<std::string, 2>& names,
                                     const std::vector<std::string>& qualifiers) {
        std::uint32_t satisfied = 0;
        for (std::size_t i = 0; i < qualifiers.size(); ++i) {
            const std::string& qualifier = qualifiers[i];
            const auto beginsSo = [&](const std::string& name) { return name.starts_with(qualifier); };
            const bool byName = qualifier.size() > 2 && std::ranges::any_of(names, beginsSo);
            if (byName || code == countryCodeFor(qualifier)) satisfied |= std::uint32_t{1} << i;
        }
        return satisfied;
    }

    static bool allows(const std::optional<std::vector<int>>& allowed, int parent) {
        return !allowed || std::ranges::binary_search(*allowed, parent);
    }

    // The condition that a name is of these regions.
    static std::string conditionFor(const std::optional<std::vector<int>>& allowed) {
        if (!allowed) return {};
        return " AND PARENT IN " + listOf(*allowed);
    }

    // "(1,2,3)"
    static std::string listOf(const std::vector<int>& numbers) {
        std::string list;
        for (const int number : numbers) list += (list.empty() ? "(" : ",") + std::to_string(number);
        return list + ")";
    }

    // The best names for a text with which very many names begin; nothing for other texts.
    void collectBeginning(const std::string& name) {
        const sqlite::Statement row = connection_.query(
            "SELECT N.FOLDED, N.ID, N.KIND, N.POPULATION FROM BEGINNING B JOIN CITY_NAME N ON N.FOLDED = B.FOLDED AND "
            "N.ID = B.ID WHERE B.TEXT = ?1 ORDER BY B.FOLDED, B.ID");
        sqlite3_bind_text(row.get(), 1, name.c_str(), -1, SQLITE_STATIC);
        while (connection_.next(row)) addName(row.get(), name);
    }

    // All names that begin with the name.
    void collectNames(const Wanted& wanted) { collectNames(wanted, wanted.name + lastLetter); }

    // The names from the wanted one up to, not including, the end. SQLite passes over those of other regions, which may be
    // nearly all of very many.
    void collectNames(const Wanted& wanted, const std::string& end) {
        const auto allowed = allowedParents(wanted.qualifiers);
        if (allowed && allowed->empty()) return;
        const sqlite::Statement row =
            connection_.query("SELECT FOLDED, ID, KIND, POPULATION FROM CITY_NAME WHERE FOLDED >= ?1 AND FOLDED < ?2" +
                              conditionFor(allowed));
        sqlite3_bind_text(row.get(), 1, wanted.name.c_str(), -1, SQLITE_STATIC);
        sqlite3_bind_text(row.get(), 2, end.data(), static_cast<int>(end.size()), SQLITE_STATIC);
        while (connection_.next(row)) addName(row.get(), wanted.name);
    }

    void addName(sqlite3_stmt* row, const std::string& wanted) {
        const std::string_view folded(reinterpret_cast<const char*>(sqlite3_column_text(row, 0)),
                                      static_cast<std::size_t>(sqlite3_column_bytes(row, 0)));
        const auto kind = static_cast<NameKind>(sqlite3_column_int(row, 2));
        const NameFit fit = fitOfName(folded, kind, wanted);
        anyName_ = true;
        wordsFound_ = wordsFound_ || fit.firstWords;
        if (onlyExact_ && fit.match != CityMatch::exact) return;
        found_.add(sqlite3_column_int(row, 1), folded, kind, fit, scoreOf(fit, sqlite3_column_int64(row, 3)));
    }

    // "london ontario": the last words may name the country or region.
    void collectWithQualifierWords(const std::string& name) {
        for (std::size_t blank = name.rfind(' '); blank != std::string::npos && found_.isEmpty();
             blank = blank == 0 ? std::string::npos : name.rfind(' ', blank - 1)) {
            collectNames({name.substr(0, blank), {name.substr(blank + 1)}});
        }
    }

    void collectMistakes(const Wanted& wanted) {
        const std::size_t length = wanted.name.size();
        if (length < leastForMistakes) return;
        const int limit = length >= leastForTwoMistakes ? 2 : 1;
        const auto allowed = allowedParents(wanted.qualifiers);
        const std::uint64_t letters = lettersOf(wanted.name);
        const sqlite::Statement row =
            connection_.query("SELECT LENGTH, NAMES FROM NAME_GROUP WHERE LENGTH BETWEEN ?1 AND ?2");
        sqlite3_bind_int(row.get(), 1, static_cast<int>(length) - limit);
        sqlite3_bind_int(row.get(), 2, static_cast<int>(length) + limit);
        while (connection_.next(row)) {
            const auto* const bytes = static_cast<const char*>(sqlite3_column_blob(row.get(), 1));
            const NameGroup group({bytes, static_cast<std::size_t>(sqlite3_column_bytes(row.get(), 1))},
                                  static_cast<std::size_t>(sqlite3_column_int(row.get(), 0)));
            for (std::size_t i = 0; i < group.size(); ++i) {
                if (!group.mayBeNear(i, letters, limit)) continue;
                const int mistakes = typingMistakes(wanted.name, group.folded(i), limit);
                if (mistakes == 0 || mistakes > limit) continue;
                const GroupedName name = group.name(i);
                const NameFit fit = fitOfMistakes(mistakes);
                if (!allows(allowed, name.parent)) continue;
                found_.add(name.id, name.folded, name.kind, fit, scoreOf(fit, name.population));
            }
        }
    }

    std::vector<CityHit> hits() {
        std::vector<CityHit> hits;
        for (const Candidate& candidate : found_.best()) {
            const std::optional<CityRecord> city = connection_.record(candidate.id);
            if (city) hits.push_back({*city, candidate.match, otherNameOf(candidate)});
        }
        return hits;
    }

    // The former or alternative name that matched, in its original spelling.
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
    Ranking found_;
    bool onlyExact_ = false;
    bool anyName_ = false;     // a name begins with the text, or a later word of one does
    bool wordsFound_ = false;  // a name is the text, or continues with another word
};

}  // namespace

std::vector<CityHit> CityDatabase::named(std::string_view text, int limit) const {
    if (text.size() > longestText || limit <= 0) return {};
    return CitySearch(*connection_, static_cast<std::size_t>(limit)).findNamed(text);
}

std::vector<CityHit> CityDatabase::search(std::string_view text, int limit) const {
    if (text.size() > longestText || limit <= 0) return {};
    const auto most = static_cast<std::size_t>(limit);
    return CitySearch(*connection_, most).find(text, most);
}

}  // namespace quode
