// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Random places and dates for comparing bits: the same on every machine, with every compiler and library.
#pragma once

#include <cstdint>

#include "astro/VAKDate.h"

namespace quode::test {

/// SplitMix64 (G. Steele, D. Lea, C. Flood, 2014). The standard library's distributions differ between libraries.
class RandomNumbers {
  public:
    explicit RandomNumbers(std::uint64_t seed) : state_(seed) {}

    std::uint64_t next() {
        std::uint64_t z = (state_ += 0x9E3779B97F4A7C15U);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9U;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBU;
        return z ^ (z >> 31);
    }

    /// A whole number, first..last.
    int whole(int first, int last) {
        return first + static_cast<int>(next() % static_cast<std::uint64_t>(last - first + 1));
    }

    /// first <= x < end
    double between(double first, double end) {
        return first + (end - first) * (static_cast<double>(next() >> 11) * 0x1p-53);
    }

    bool oneIn(int count) { return whole(1, count) == 1; }

  private:
    std::uint64_t state_;
};

/// A place with its clock, for `FastAstro::SetPlace`.
struct RandomPlace {
    double latitude = 0.0, longitude = 0.0, zone = 0.0;
    int dst = 0, startMonth = 0, startDay = 0, stopMonth = 0, stopDay = 0, temkin = 1;
};

/// Half of the latitudes anywhere, the rest near and at the polar circles, the poles and the equator; some longitudes
/// at the date line and at Greenwich; clocks that match the longitude, and clocks that do not.
inline RandomPlace randomPlace(RandomNumbers& random) {
    constexpr double latitudes[] = {-90.0, 90.0, 0.0, 66.5, -66.5, 23.44, -23.44, 89.99, 48.5, 21.4225};
    constexpr double longitudes[] = {-180.0, 180.0, 0.0, 179.99, -179.99, 39.8262};
    RandomPlace place;
    place.latitude = random.between(-90.0, 90.0);
    if (random.oneIn(4)) place.latitude = (random.oneIn(2) ? 1.0 : -1.0) * random.between(45.0, 90.0);
    if (random.oneIn(12)) place.latitude = latitudes[random.whole(0, 9)];
    place.longitude = random.between(-180.0, 180.0);
    if (random.oneIn(10)) place.longitude = longitudes[random.whole(0, 5)];
    place.zone = static_cast<int>(place.longitude / 15.0 + (place.longitude < 0.0 ? -0.5 : 0.5));
    if (random.oneIn(6)) place.zone = random.whole(-56, 56) / 4.0;
    place.dst = random.oneIn(3) ? 1 : 0;
    place.startMonth = random.whole(1, 12);
    place.startDay = random.whole(1, 28);
    place.stopMonth = random.whole(1, 12);
    place.stopDay = random.whole(1, 28);
    place.temkin = random.whole(0, 1);
    return place;
}

/// A civil day: this century and the last, any year of 1..9999, or near the change of the calendar in 1582.
inline VAKDate randomDay(RandomNumbers& random) {
    constexpr int monthLengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    int year = random.oneIn(2) ? random.whole(1900, 2100) : random.whole(1, 9999);
    int month = random.whole(1, 12);
    if (random.oneIn(40)) {
        year = 1582;
        month = random.whole(9, 11);
    }
    if (random.oneIn(100)) year = random.oneIn(2) ? random.whole(1, 3) : random.whole(9997, 9999);
    return VAKDateMake(random.whole(1, monthLengths[month - 1]), month, year, 0, 0, 0);
}

}  // namespace quode::test
