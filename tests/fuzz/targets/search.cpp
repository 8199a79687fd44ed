// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Names that somebody looks for among all places.
#include "data/CityDatabase.h"
#include "fuzz/target.h"

namespace quode::fuzz {
namespace {

void consumeSearch(std::string_view bytes) {
    static const CityDatabase cities(CityDatabase::fileIn(QUODE_BUNDLE));
    for (const CityHit& hit : cities.search(bytes, 3)) require(!hit.city.name.empty());
    cities.named(bytes, 1);
    cities.largestCityOfZone(bytes);
}

const Target ofSearch("search", consumeSearch);

}  // namespace
}  // namespace quode::fuzz
