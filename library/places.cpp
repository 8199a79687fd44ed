// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The database of places, the places, and the methods of their times.
#include <dlfcn.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <utility>

#include "data/point.h"
#include "library/handles.h"
#include "platform/folders.h"

namespace quode::library {
namespace {

namespace fs = std::filesystem;

/// The file of this library; empty when the system does not tell.
fs::path libraryFile() {
    Dl_info info{};
    if (dladdr(reinterpret_cast<const void*>(&quode_version), &info) == 0 || info.dli_fname == nullptr) return {};
    std::error_code error;
    return fs::canonical(info.dli_fname, error);
}

fs::path bundleFolder(const char* given) {
    return given != nullptr ? fs::path(given) : fs::path(bundleFolderOfLibrary(processEnvironment(), libraryFile()));
}

std::unique_ptr<quode_data> openData(const char* bundle) {
    CityDatabase cities(CityDatabase::fileIn(bundleFolder(bundle)), zoneFolderFrom(processEnvironment()));
    std::string edition = cities.edition();
    return std::unique_ptr<quode_data>(new quode_data{{}, std::move(cities), std::move(edition)});
}

/// Calls `work` with a database: that of the caller, locked, or one that is opened for the call.
template <typename Work>
auto withCities(quode_data* data, const Work& work) {
    std::unique_ptr<quode_data> own;
    if (data == nullptr) own = openData(nullptr);
    quode_data& used = data != nullptr ? *data : *own;
    const std::lock_guard lock(used.mutex);
    return work(std::as_const(used.cities));
}

quode_place* placeOf(CityRecord record) {
    auto place = std::make_unique<quode_place>();
    place->site = siteOf(record);
    place->record = std::move(record);
    place->method = conventions::textOf(place->site.choice.method);
    return place.release();
}

std::string_view textOf(const char* text, const char* what) {
    if (text != nullptr && *text != '\0') return text;
    throw Failure(QUODE_BAD_ARGUMENT, std::string("The ") + what + " is empty.");
}

[[noreturn]] void failUnknownPlace(const CityDatabase& cities, std::string_view name) {
    constexpr int proposals = 5;
    std::string message = "No place is called \"" + std::string(name) + "\".";
    const char* separator = " Did you mean: ";
    for (const CityHit& hit : cities.search(name, proposals)) {
        message += separator + hit.city.name + " (" + hit.city.countryCode + ", " + std::to_string(hit.city.id) + ")";
        separator = "; ";
    }
    throw Failure(QUODE_NOT_FOUND, message);
}

/// Gives a record the clock of a zone.
void setZone(CityRecord& record, const CityDatabase& cities, std::string_view zone) {
    record.known = {};
    if (zone == "UTC" || zone == "Etc/UTC") {
        record.zone = zone;
        record.rule = {};
        return;
    }
    const auto city = cities.largestCityOfZone(zone);
    if (!city) {
        throw Failure(QUODE_BAD_ARGUMENT, "No time zone is called \"" + std::string(zone) +
                                              "\". Give an IANA name such as Europe/London, or UTC.");
    }
    record.zone = city->zone;
    record.rule = city->rule;
    record.known = city->known;
}

CityRecord recordAt(const CityDatabase& cities, double latitude, double longitude, const char* zone) {
    checkPoint(latitude, longitude);
    const auto nearest = cities.nearest(latitude, longitude);
    if (!nearest) throw Failure(QUODE_NO_DATA, "The database has no place. Install Quode again.");
    CityRecord record = recordOfPoint(latitude, longitude, *nearest);
    if (zone != nullptr) setZone(record, cities, textOf(zone, "name of the time zone"));
    return record;
}

conventions::Method methodOf(std::string_view text) {
    if (const auto method = conventions::methodOf(text)) return *method;
    conventions::Method key;
    key.key = text.substr(0, text.find(' '));
    const bool isUnknown = conventions::problemOf(key) == conventions::MethodProblem::unknownKey;
    throw Failure(QUODE_BAD_ARGUMENT, isUnknown
                                          ? "No method is called \"" + key.key + "\"."
                                          : "The method \"" + std::string(text) +
                                                "\" cannot be used. Write it like \"mwl asr=2 fajr-angle=18.5\".");
}

/// A method by its index; nullptr beyond the last. The table holds literals, so their texts end with a zero.
const conventions::Convention* methodAt(std::size_t index) {
    const auto all = conventions::allConventions();
    return index < all.size() ? &all[index] : nullptr;
}

}  // namespace
}  // namespace quode::library

using namespace quode;
using namespace quode::library;

const char* quode_version(void) {
    return QUODE_VERSION;
}

quode_data* quode_data_open(const char* bundle, quode_error* error) {
    return guarded<quode_data*>(error, nullptr, [&] { return openData(bundle).release(); });
}

void quode_data_close(quode_data* data) {
    delete data;
}

const char* quode_data_edition(const quode_data* data) {
    return data->edition.c_str();
}

void quode_place_free(quode_place* place) {
    delete place;
}

quode_place* quode_place_find(quode_data* data, const char* name, quode_error* error) {
    return guarded<quode_place*>(error, nullptr, [&] {
        const std::string_view text = textOf(name, "name of the place");
        return withCities(data, [&](const CityDatabase& cities) {
            std::vector<CityHit> found = cities.named(text, 1);
            if (found.empty()) failUnknownPlace(cities, text);
            return placeOf(std::move(found.front().city));
        });
    });
}

size_t quode_place_search(quode_data* data, const char* text, quode_place** places, size_t capacity,
                          quode_error* error) {
    return guarded<size_t>(error, 0, [&]() -> size_t {
        constexpr size_t mostHits = 1000;
        if (capacity == 0 || text == nullptr) return 0;
        const int limit = static_cast<int>(std::min(capacity, mostHits));
        std::vector<CityHit> hits =
            withCities(data, [&](const CityDatabase& cities) { return cities.search(text, limit); });
        std::vector<std::unique_ptr<quode_place>> found;
        for (CityHit& hit : hits) found.emplace_back(placeOf(std::move(hit.city)));
        for (size_t i = 0; i < found.size(); ++i) places[i] = found[i].release();
        return found.size();
    });
}

quode_place* quode_place_by_id(quode_data* data, int32_t id, quode_error* error) {
    return guarded<quode_place*>(error, nullptr, [&] {
        auto city = withCities(data, [id](const CityDatabase& cities) { return cities.city(id); });
        if (!city) throw Failure(QUODE_NOT_FOUND, "No place has the number " + std::to_string(id) + ".");
        return placeOf(std::move(*city));
    });
}

quode_place* quode_place_nearest(quode_data* data, double latitude, double longitude, quode_error* error) {
    return guarded<quode_place*>(error, nullptr, [&] {
        checkPoint(latitude, longitude);
        auto found = withCities(data, [&](const CityDatabase& cities) { return cities.nearest(latitude, longitude); });
        if (!found) throw Failure(QUODE_NO_DATA, "The database has no place. Install Quode again.");
        return placeOf(std::move(found->city));
    });
}

quode_place* quode_place_at(quode_data* data, double latitude, double longitude, const char* zone, quode_error* error) {
    return guarded<quode_place*>(error, nullptr, [&] {
        return placeOf(
            withCities(data, [&](const CityDatabase& cities) { return recordAt(cities, latitude, longitude, zone); }));
    });
}

quode_place* quode_place_with_method(const quode_place* place, const char* method, quode_error* error) {
    return guarded<quode_place*>(error, nullptr, [&] {
        CityRecord record = place->record;
        record.choice.method = library::methodOf(textOf(method, "name of the method"));
        return placeOf(std::move(record));
    });
}

int32_t quode_place_id(const quode_place* place) {
    return place->record.id;
}

const char* quode_place_name(const quode_place* place) {
    return place->record.name.c_str();
}

const char* quode_place_region(const quode_place* place) {
    return place->record.region.c_str();
}

const char* quode_place_country(const quode_place* place) {
    return place->record.countryCode.c_str();
}

const char* quode_place_zone(const quode_place* place) {
    return place->record.zone.c_str();
}

const char* quode_place_method(const quode_place* place) {
    return place->method.c_str();
}

double quode_place_latitude(const quode_place* place) {
    return place->record.latitude;
}

double quode_place_longitude(const quode_place* place) {
    return place->record.longitude;
}

int64_t quode_place_population(const quode_place* place) {
    return place->record.population;
}

size_t quode_method_count(void) {
    return conventions::allConventions().size();
}

const char* quode_method_key(size_t index) {
    const conventions::Convention* method = methodAt(index);
    return method != nullptr ? method->key.data() : nullptr;
}

const char* quode_method_name(size_t index) {
    const conventions::Convention* method = methodAt(index);
    return method != nullptr ? method->name.data() : nullptr;
}
