// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "tools/places/city_database.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <fstream>
#include <map>
#include <set>
#include <span>
#include <string>
#include <tuple>
#include <vector>

#include "common/numbers.h"
#include "data/city_database_schema.h"
#include "data/coordinates.h"
#include "data/name_folding.h"
#include "data/name_groups.h"
#include "data/name_ranking.h"
#include "data/page_checksum.h"
#include "data/row_checksum.h"
#include "tools/places/sqlite_writer.h"

namespace quode::places {
namespace {

constexpr long marginUsed = 1;  // TEMKIN: the careful side, for prayers and for fasting

// Rule columns of DST, then what a zone refers to them by.
using DstKey = std::tuple<bool, int, int, int, int, int>;

DstKey keyOf(const ZoneRule& rule) {
    return {rule.dst, rule.startMonth, rule.startDay, rule.stopMonth, rule.stopDay, rule.hour};
}

// The number of a country: the two letters of its code, so that it stays the same in every edition.
long countryNumber(const std::string& code) {
    return (code.at(0) - 'A') * 26 + (code.at(1) - 'A') + 1;
}

class CityDatabaseWriter {
  public:
    CityDatabaseWriter(const SourceData& data, const std::filesystem::path& file)
        : data_(data), out_(file, pageChecksumSize) {
        long number = 0;
        for (const auto& [name, rule] : data_.zones) {
            zoneNumbers_[name] = ++number;
            dstNumbers_[keyOf(rule)] = 0;
        }
        number = 0;
        for (auto& [key, dstNumber] : dstNumbers_) dstNumber = ++number;
    }

    void write() {
        out_.execute("PRAGMA page_size=" + std::to_string(pageSize) +
                     "; PRAGMA encoding='UTF-8'; PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF;"
                     "PRAGMA application_id=" +
                     std::to_string(cityDatabaseApplicationId) +
                     "; PRAGMA user_version=" + std::to_string(cityDatabaseEdition) + ";");
        out_.execute("BEGIN");
        out_.execute(cityDatabaseTables);
        writeCountries();
        writeRules();
        writeRegions();
        writeCities();
        writeZones();
        writeNames();
        writePoints();
        writeEdition();
        writeChecksums();
        out_.execute("COMMIT");
    }

  private:
    long dstNumber(const ZoneRule& rule) const { return dstNumbers_.at(keyOf(rule)); }
    const Region& regionOf(const Place& place) const { return data_.regions[static_cast<std::size_t>(place.region)]; }
    static long parentNumber(const Place& place) { return place.region + 1; }

    void writeCountries() {
        auto countries = out_.table("COUNTRY", 3);
        for (const auto& [code, country] : data_.countries) {
            countries.add({countryNumber(code), country.nameEn, country.nameTr});
        }
        auto facts = out_.table("COUNTRY_FACT", 4);
        for (const auto& [code, country] : data_.countries) {
            facts.add({countryNumber(code), code, foldedName(country.nameEn), foldedName(country.nameTr)});
        }
    }

    void writeRules() {
        auto rules = out_.table("DST", 7);
        for (const auto& [key, number] : dstNumbers_) {
            const auto [dst, startMonth, startDay, stopMonth, stopDay, hour] = key;
            rules.add(
                {number, long{dst}, long{startMonth}, long{startDay}, long{stopMonth}, long{stopDay}, long{hour}});
        }
    }

    void writeRegions() {
        auto parents = out_.table("CITY_PARENT", 5);
        auto facts = out_.table("PARENT_FACT", 4);
        long number = 0;
        for (const Region& region : data_.regions) {
            const ZoneRule& rule = data_.zones.at(region.zone);
            parents.add({++number, region.name, numberText(rule.gmt), countryNumber(region.country), dstNumber(rule)});
        }
        number = 0;
        for (const Region& region : data_.regions) {
            facts.add({++number, region.code, foldedName(region.name), zoneNumbers_.at(region.zone)});
        }
    }

    void writeCities() {
        auto cities = out_.table("CITY", 6);
        for (const Place& place : data_.places) {
            cities.add({long{place.id}, place.name, sexagesimalCoordinate(place.latitude),
                        sexagesimalCoordinate(place.longitude), marginUsed, parentNumber(place)});
        }
        auto facts = out_.table("CITY_FACT", 3);
        for (const Place& place : data_.places) {
            if (place.population == 0 && !place.elevation) continue;
            facts.add({long{place.id}, place.population, place.elevation ? Cell(long{*place.elevation}) : Cell()});
        }
    }

    void writeZones() {
        std::map<std::string, const Place*> largest;
        for (const Place& place : data_.places) {
            const Place*& known = largest[regionOf(place).zone];
            if (!known || place.population > known->population) known = &place;
        }
        auto zones = out_.table("ZONE", 6);
        std::map<std::string, long> names = zoneNumbers_;
        for (const auto& [name, rule] : data_.zones) {
            zones.add({zoneNumbers_.at(name), name, numberText(rule.gmt), dstNumber(rule), long{largest.at(name)->id},
                       data_.zoneClocks.at(name)});
        }
        for (const auto& [alias, zone] : data_.zoneAliases) names[alias] = zoneNumbers_.at(zone);
        auto zoneNames = out_.table("ZONE_NAME", 3);
        for (const auto& [name, number] : names) {
            zoneNames.add({name, number, 0L});
            zoneNames_.push_back(name);
        }
    }

    struct NameRow {
        std::string folded;
        const Place* place;
        NameKind kind;
        auto key() const { return std::tuple<const std::string&, std::int32_t, NameKind>(folded, place->id, kind); }
    };

    // A spelling, and what remains of it from each later word on.
    static void addSpelling(const Place& place, const std::string& name, bool own, std::vector<NameRow>& rows) {
        std::string folded = foldedName(name);
        if (folded.empty()) return;
        const NameKind word = own ? NameKind::ownWord : NameKind::otherWord;
        for (std::size_t blank = folded.find(' '); blank != std::string::npos; blank = folded.find(' ', blank + 1)) {
            rows.push_back({folded.substr(blank + 1), &place, word});
        }
        rows.push_back({std::move(folded), &place, own ? NameKind::own : NameKind::other});
    }

    void writeNames() {
        std::map<std::int32_t, const Place*> byId;
        std::vector<NameRow> rows;
        for (const Place& place : data_.places) {
            byId.emplace_hint(byId.end(), place.id, &place);
            addSpelling(place, place.name, true, rows);
            addSpelling(place, place.asciiName, true, rows);
        }
        auto otherNames = out_.table("OTHER_NAME", 2);
        for (const OtherName& other : data_.otherNames) {
            const Place& place = *byId.at(other.id);
            otherNames.add({long{other.id}, other.name});
            addSpelling(place, other.name, false, rows);
            addSpelling(place, other.asciiName, false, rows);
        }
        std::sort(rows.begin(), rows.end(), [](const NameRow& a, const NameRow& b) { return a.key() < b.key(); });
        const auto isTwin = [](const NameRow& a, const NameRow& b) {
            return a.folded == b.folded && a.place == b.place;
        };
        rows.erase(std::unique(rows.begin(), rows.end(), isTwin), rows.end());
        auto names = out_.table("CITY_NAME", 5);
        for (const NameRow& row : rows) {
            names.add({row.folded, long{row.place->id}, static_cast<long>(row.kind), row.place->population,
                       parentNumber(*row.place)});
        }
        writeBeginnings(rows);
        writeNameGroups(rows);
    }

    // The best names for every text with which very many of them begin; rows in the order of their names.
    void writeBeginnings(const std::vector<NameRow>& rows) {
        auto table = out_.table("BEGINNING", 3);
        for (std::size_t length = 1;; ++length) {
            bool any = false;
            for (std::size_t first = 0, end = 1; first < rows.size(); first = end++) {
                if (rows[first].folded.size() < length) continue;
                const std::string text = rows[first].folded.substr(0, length);
                while (end < rows.size() && rows[end].folded.starts_with(text)) ++end;
                if (end - first <= manyNames) continue;
                any = true;
                writeBeginning(text, std::span(rows).subspan(first, end - first), table);
            }
            if (!any) return;
        }
    }

    static void writeBeginning(const std::string& text, std::span<const NameRow> rows, SqliteWriter::Table& table) {
        struct Best {
            double score;
            const NameRow* row;
        };
        std::map<std::int32_t, Best> bestOfPlace;
        for (const NameRow& row : rows) {
            const double score = scoreOf(fitOfName(row.folded, row.kind, text), row.place->population);
            const auto [known, isNew] = bestOfPlace.try_emplace(row.place->id, Best{score, &row});
            if (!isNew && score > known->second.score) known->second = {score, &row};
        }
        std::vector<Best> ranked;
        for (const auto& [id, best] : bestOfPlace) ranked.push_back(best);
        std::stable_sort(ranked.begin(), ranked.end(), [](const Best& a, const Best& b) { return a.score > b.score; });
        ranked.resize(std::min(ranked.size(), keptForBeginning));
        std::sort(ranked.begin(), ranked.end(),
                  [](const Best& a, const Best& b) { return a.row->key() < b.row->key(); });
        for (const Best& best : ranked) table.add({text, best.row->folded, long{best.row->place->id}});
    }

    void writeNameGroups(const std::vector<NameRow>& rows) {
        std::map<std::size_t, std::vector<GroupedName>> groups;
        for (const NameRow& row : rows) {
            if (row.kind != NameKind::own && row.kind != NameKind::other) continue;
            groups[row.folded.size()].push_back({row.folded, row.place->id,
                                                 static_cast<std::int32_t>(row.place->population),
                                                 static_cast<int>(parentNumber(*row.place)), row.kind});
        }
        auto table = out_.table("NAME_GROUP", 2);
        for (const auto& [length, names] : groups) {
            const std::string bytes = nameGroup(names);
            table.add({static_cast<long>(length), Blob{bytes}});
        }
    }

    void writePoints() {
        std::set<std::tuple<long, long, long>> points;
        for (const Place& place : data_.places) points.insert({place.latitude, place.longitude, place.id});
        auto table = out_.table("CITY_POINT", 3);
        for (const auto& [latitude, longitude, id] : points) table.add({latitude, longitude, id});
    }

    void writeEdition() {
        auto table = out_.table("EDITION", 2);
        for (const auto& [what, edition] : data_.edition) table.add({what, edition});
    }

    // Over what the readers' own queries give.
    void writeChecksums() {
        auto record = out_.query(cityRecordSql);
        auto sums = out_.table("CITY_CHECKSUM", 2);
        for (const Place& place : data_.places) {
            sums.add({long{place.id}, long{rowChecksum(record.first({long{place.id}}))}});
        }
        auto zone = out_.query(zoneCitySql);
        auto update = out_.query("UPDATE ZONE_NAME SET CHECKSUM = ?2 WHERE NAME = ?1");
        for (const std::string& name : zoneNames_) update.first({name, long{rowChecksum(zone.first({name}))}});
    }

    const SourceData& data_;
    SqliteWriter out_;
    std::vector<std::string> zoneNames_;
    std::map<std::string, long> zoneNumbers_;
    std::map<DstKey, long> dstNumbers_;
};

// Gives each page its checksum.
void sealPages(const std::filesystem::path& file) {
    std::fstream stream(file, std::ios::binary | std::ios::in | std::ios::out);
    stream.exceptions(std::ios::badbit | std::ios::failbit);
    std::array<unsigned char, pageSize> page{};
    const std::uint64_t pages = std::filesystem::file_size(file) / pageSize;
    for (std::uint64_t number = 0; number < pages; ++number) {
        const auto at = static_cast<std::streamoff>(number * pageSize);
        stream.seekg(at).read(reinterpret_cast<char*>(page.data()), pageSize);
        sealPage(page, number);
        stream.seekp(at).write(reinterpret_cast<const char*>(page.data()), pageSize);
    }
    stream.close();
}

}  // namespace

void writeCityDatabase(const SourceData& data, const std::filesystem::path& file) {
    std::filesystem::path unfinished = file;
    unfinished += ".new";
    CityDatabaseWriter(data, unfinished).write();
    sealPages(unfinished);
    std::filesystem::rename(unfinished, file);
}

}  // namespace quode::places
