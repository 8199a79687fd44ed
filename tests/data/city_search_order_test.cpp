// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The search finds the same places in the same order as one that compares every name.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "data/CityDatabase.h"
#include "data/city_database_schema.h"
#include "data/name_folding.h"
#include "data/name_groups.h"
#include "data/sqlite_reading.h"
#include "tests/astro/random_sky.h"
#include "texts/utf8.h"

namespace quode {
namespace {

struct Name {
    std::string folded;
    int id = 0;
    NameKind kind = NameKind::own;
    double population = 0.0;
    int parent = 0;
};

struct Found {
    double score = 0.0;
    CityMatch match = CityMatch::exact;
};

using Order = std::vector<std::pair<int, CityMatch>>;

/// The rules of the search, applied to every name one after the other.
class PlainSearch {
  public:
    PlainSearch() : database_(sqlite::openUnchanging(QUODE_CITY_DATABASE)) {
        const auto names = sqlite::prepare(
            database_.get(), "SELECT FOLDED, ID, KIND, POPULATION, PARENT FROM CITY_NAME ORDER BY FOLDED, ID");
        while (sqlite3_step(names.get()) == SQLITE_ROW) {
            names_.push_back({sqlite::text(names.get(), 0), sqlite3_column_int(names.get(), 1),
                              static_cast<NameKind>(sqlite3_column_int(names.get(), 2)),
                              static_cast<double>(sqlite3_column_int64(names.get(), 3)),
                              sqlite3_column_int(names.get(), 4)});
        }
        const auto countries = sqlite::prepare(database_.get(),
                                               "SELECT P.PARENT, lower(K.CODE) FROM CITY_PARENT P JOIN COUNTRY_FACT K "
                                               "ON K.CID = P.CID");
        while (sqlite3_step(countries.get()) == SQLITE_ROW) {
            countryOfParent_[sqlite3_column_int(countries.get(), 0)] = sqlite::text(countries.get(), 1);
        }
    }

    const std::vector<Name>& names() const { return names_; }

    /// The regions whose name, or whose country's name, begins with a text.
    std::set<int> regionsThatBegin(const std::string& text) const {
        const auto rows = sqlite::prepare(database_.get(),
                                          "SELECT F.PARENT, F.FOLDED, K.FOLDEDEN, K.FOLDEDTR FROM PARENT_FACT F JOIN "
                                          "CITY_PARENT P ON P.PARENT = F.PARENT "
                                          "JOIN COUNTRY_FACT K ON K.CID = P.CID");
        std::set<int> regions;
        while (sqlite3_step(rows.get()) == SQLITE_ROW) {
            for (const int column : {1, 2, 3}) {
                if (sqlite::text(rows.get(), column).starts_with(text))
                    regions.insert(sqlite3_column_int(rows.get(), 0));
            }
        }
        return regions;
    }

    const std::string& countryOf(const Name& name) const { return countryOfParent_.at(name.parent); }

    /// country: two letters that are not a region's code, or empty.
    Order find(const std::string& text, const std::string& country, std::size_t limit) const {
        return findWhere(
            text, [&](const Name& name) { return country.empty() || countryOf(name) == country; }, limit);
    }

    /// isIn: whether a name is of the wanted regions.
    Order findWhere(const std::string& text, const std::function<bool(const Name&)>& isIn, std::size_t limit) const {
        std::map<int, Found> found;
        bool words = false;
        const auto first = std::lower_bound(names_.begin(), names_.end(), text,
                                            [](const Name& name, const std::string& t) { return name.folded < t; });
        for (auto at = first; at != names_.end() && at->folded.starts_with(text); ++at) {
            const Name& name = *at;
            if (!isIn(name)) continue;
            const bool later = name.kind == NameKind::ownWord || name.kind == NameKind::otherWord;
            const bool whole = name.folded == text, wholeWords = whole || name.folded[text.size()] == ' ';
            words = words || (!later && wholeWords);
            if (later) {
                add(found, name, wholeWords ? -0.5 : -2.0, CityMatch::word);
            } else {
                add(found, name, whole ? 3.0 : wholeWords ? 1.5 : 0.0, whole ? CityMatch::exact : CityMatch::prefix);
            }
        }
        if (!words && found.size() < 5 && text.size() >= 4) addMistakes(found, text, isIn);
        return ranked(found, limit);
    }

  private:
    void addMistakes(std::map<int, Found>& found, const std::string& text,
                     const std::function<bool(const Name&)>& isIn) const {
        const int limit = text.size() >= 8 ? 2 : 1;
        for (const Name& name : names_) {
            if ((name.kind != NameKind::own && name.kind != NameKind::other) || !isIn(name)) continue;
            const int mistakes = typingMistakes(text, name.folded, limit);
            if (mistakes > 0 && mistakes <= limit) add(found, name, mistakes * -2.0, CityMatch::typo);
        }
    }

    static void add(std::map<int, Found>& found, const Name& name, double fit, CityMatch match) {
        const double score = fit + std::log10(name.population + 1.0);
        const auto [known, isNew] = found.try_emplace(name.id, Found{score, match});
        if (!isNew && score > known->second.score) known->second = {score, match};
    }

    static Order ranked(const std::map<int, Found>& found, std::size_t limit) {
        std::vector<std::pair<int, Found>> all(found.begin(), found.end());
        std::stable_sort(all.begin(), all.end(),
                         [](const auto& a, const auto& b) { return a.second.score > b.second.score; });
        Order order;
        for (std::size_t i = 0; i < std::min(limit, all.size()); ++i)
            order.emplace_back(all[i].first, all[i].second.match);
        return order;
    }

    sqlite::Database database_;
    std::vector<Name> names_;
    std::map<int, std::string> countryOfParent_;
};

class CitySearchOrder : public testing::Test {
  protected:
    static const PlainSearch& plain() {
        static const PlainSearch search;
        return search;
    }

    void expectSame(const std::string& text, const std::string& country = {}, int limit = 10) const {
        Order order;
        for (const CityHit& hit : database.search(country.empty() ? text : text + ", " + country, limit)) {
            order.emplace_back(hit.city.id, hit.match);
        }
        EXPECT_EQ(order, plain().find(text, country, static_cast<std::size_t>(limit))) << text << ", " << country;
    }

    CityDatabase database{QUODE_CITY_DATABASE};
};

TEST_F(CitySearchOrder, OfFirstLettersIsThatOfTheWholeList) {
    std::set<std::string> beginnings;
    for (const Name& name : plain().names()) {
        std::string_view rest = name.folded;
        const char32_t letter = takeCodePoint(rest).value();
        // All Latin letters, and some of the very many others.
        if (letter < 0x80 || letter % 20 == 0)
            beginnings.insert(name.folded.substr(0, name.folded.size() - rest.size()));
    }
    for (const char* text : {"sa", "san", "san ", "sai", "saint", "santa", "ma", "la", "de", "al", "xy", "ist", "zz"}) {
        beginnings.insert(foldedName(text));
    }
    for (const std::string& text : beginnings) {
        for (const int limit : {1, 10, 50, 51}) expectSame(text, {}, limit);
    }
}

/// Beginnings of names, with and without a typing mistake, and names with their country.
TEST_F(CitySearchOrder, OfRandomTextsIsThatOfTheWholeList) {
    test::RandomNumbers random(5);
    const auto& names = plain().names();
    for (int i = 0; i < 120; ++i) {
        const Name& name = names[static_cast<std::size_t>(random.whole(0, static_cast<int>(names.size()) - 1))];
        std::string text = name.folded;
        const auto at = static_cast<std::size_t>(random.whole(0, static_cast<int>(text.size()) - 1));
        switch (i % 4) {
            case 0:
                text.resize(at + 1);
                break;
            case 1:
                text[at] = static_cast<char>('a' + random.whole(0, 25));
                break;
            case 2:
                text.insert(at, 1, static_cast<char>('a' + random.whole(0, 25)));
                break;
            default:
                break;
        }
        text = foldedName(text);
        if (text.empty() || plain().find(text, {}, 1).empty()) continue;  // then the search tries regions
        expectSame(text);
        // A code that is also a region's finds more places.
        if (i % 4 == 3 && plain().countryOf(name) == "tr") expectSame(text, "tr");
    }
}

/// The last word is the beginning of a region's or country's name, here of few and of many.
TEST_F(CitySearchOrder, OfFirstLettersInARegionIsThatOfTheWholeList) {
    int compared = 0;
    for (const char* region : {"cal", "cou", "ont", "saint", "united"}) {
        const std::set<int> regions = plain().regionsThatBegin(region);
        ASSERT_FALSE(regions.empty()) << region;
        const auto isIn = [&](const Name& name) { return regions.contains(name.parent); };
        for (const char* letters : {"a", "s", "ma", "x"}) {
            const std::string text = std::string(letters) + " " + region;
            const Order expected = plain().findWhere(letters, isIn, 50);
            // Names that begin with the whole text would come first, and names like it would join few others.
            if (!plain().find(text, {}, 1).empty() || expected.size() < 5) continue;
            Order order;
            for (const CityHit& hit : database.search(text, 50)) order.emplace_back(hit.city.id, hit.match);
            EXPECT_EQ(order, expected) << text;
            ++compared;
        }
    }
    EXPECT_GE(compared, 10);
}

TEST(NameGroup, GivesBackWhatWasWritten) {
    const std::vector<GroupedName> names = {{"ankara", 323786, 5663322, 77, NameKind::own},
                                            {"angora", 323786, 5663322, 3940, NameKind::other},
                                            {"yozgat", 2147417889, 0, 1, NameKind::own}};
    const std::string bytes = nameGroup(names);
    const NameGroup group(bytes, 6);
    ASSERT_EQ(group.size(), names.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
        const GroupedName name = group.name(i);
        EXPECT_EQ(name.folded, names[i].folded);
        EXPECT_EQ(name.id, names[i].id);
        EXPECT_EQ(name.population, names[i].population);
        EXPECT_EQ(name.parent, names[i].parent);
        EXPECT_EQ(name.kind, names[i].kind);
    }
    EXPECT_TRUE(group.mayBeNear(0, lettersOf("ankra"), 1));
    EXPECT_FALSE(group.mayBeNear(2, lettersOf("ankara"), 2));
    EXPECT_EQ(NameGroup(std::string_view(bytes).substr(1), 6).size(), 0U);
}

}  // namespace
}  // namespace quode
