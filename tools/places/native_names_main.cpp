// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode-build-native-names DATA_FOLDER: prints native_names.tsv: the cities after which time zones are called, in scripts other
// than Latin, as the ICU of this machine knows them.
#include <unicode/locid.h>
#include <unicode/timezone.h>
#include <unicode/tznames.h>
#include <unicode/uchar.h>
#include <unicode/uscript.h>

#include <cstdio>
#include <exception>
#include <map>
#include <memory>
#include <set>
#include <string>

#include "data/name_folding.h"
#include "tools/places/source_data.h"

namespace {

using namespace quode;
using namespace quode::places;

using Names = std::unique_ptr<icu::TimeZoneNames>;

std::string exemplar(const icu::TimeZoneNames& names, const std::string& zone) {
    icu::UnicodeString name;
    names.getExemplarLocationName(icu::UnicodeString::fromUTF8(zone), name);
    std::string utf8;
    return name.toUTF8String(utf8);
}

bool isLatin(const std::string& utf8) {
    const icu::UnicodeString name = icu::UnicodeString::fromUTF8(utf8);
    for (int at = 0; at < name.length(); at = name.moveIndex32(at, 1)) {
        UErrorCode status = U_ZERO_ERROR;
        if (uscript_getScript(name.char32At(at), &status) == USCRIPT_LATIN) return true;
    }
    return false;
}

/// The languages of ICU, one locale for each and one more for each other script.
std::set<std::string> languages() {
    int32_t count = 0;
    const icu::Locale* const all = icu::Locale::getAvailableLocales(count);
    std::set<std::string> found;
    for (int32_t at = 0; at < count; ++at) {
        const std::string script = all[at].getScript();
        found.insert(std::string(all[at].getLanguage()) + (script.empty() ? "" : "_" + script));
    }
    return found;
}

/// The most populous place of each zone under each of its spellings, folded.
std::map<std::pair<std::string, std::string>, const Place*> placesByZone(const SourceData& data) {
    std::map<std::pair<std::string, std::string>, const Place*> found;
    for (const Place& place : data.places) {
        const std::string& zone = data.regions[std::size_t(place.region)].zone;
        for (const std::string& name : {place.name, place.asciiName}) {
            const Place*& known = found[{zone, foldedName(name)}];
            if (known == nullptr || place.population > known->population) known = &place;
        }
    }
    return found;
}

void printNames(const SourceData& data) {
    const auto places = placesByZone(data);
    std::set<std::string> lines;
    for (const std::string& language : languages()) {
        UErrorCode status = U_ZERO_ERROR;
        const Names english(icu::TimeZoneNames::createInstance(icu::Locale::getEnglish(), status));
        const Names native(icu::TimeZoneNames::createInstance(icu::Locale(language.c_str()), status));
        if (U_FAILURE(status)) throw std::runtime_error(language + ": " + u_errorName(status));
        for (const auto& [zone, rule] : data.zones) {
            const auto place = places.find({zone, foldedName(exemplar(*english, zone))});
            const std::string name = exemplar(*native, zone);
            if (place == places.end() || name.empty() || isLatin(name)) continue;
            const std::string& country = data.regions[std::size_t(place->second->region)].country;
            lines.insert(country + "\t" + place->second->name + "\t" + name);
        }
    }
    std::puts("country\tplace\tother_name");
    for (const std::string& line : lines) std::puts(line.c_str());
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: quode-build-native-names DATA_FOLDER > DATA_FOLDER/native_names.tsv\n", stderr);
        return 2;
    }
    try {
        printNames(readSourceData(argv[1]));
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "quode-build-native-names: %s\n", error.what());
        return 1;
    }
}
