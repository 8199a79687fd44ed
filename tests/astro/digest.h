// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// A checksum over bits.
#pragma once

#include <bit>
#include <cstdint>

#include "astro/FastAstro.h"

namespace quode::test {

/// A checksum of a sequence of values: sequences that differ in one bit have different sums, except with a probability of
/// 2^-64.
class Digest {
  public:
    void add(std::uint64_t bits) {
        sum_ = (sum_ ^ bits) * 0x100000001B3U;
        sum_ ^= sum_ >> 29;
    }
    void add(int value) { add(static_cast<std::uint64_t>(static_cast<std::int64_t>(value))); }
    void add(bool value) { add(value ? 1 : 0); }

    /// The sign and payload of a NaN do not count: compilers differ there.
    void add(double value) { add(value == value ? std::bit_cast<std::uint64_t>(value) : ~std::uint64_t{0}); }

    void add(const VAKDate& date) {
        for (const int field : {date.Years, date.Months, date.Days, date.Hours, date.Minutes, date.Seconds}) add(field);
    }
    void add(const PrayTimes& times);
    void add(const SunInfoForPray& sun);
    void add(const MoonInfo& moon);
    void add(const SunData& sun);
    void add(const DirectionInfo& info);
    void add(const CrescentInfo& info);
    void add(const WidgetSkyInfo& sky);

    /// Every field of an engine that can be read.
    void add(const FastAstro& engine);

    std::uint64_t sum() const { return sum_; }

  private:
    template <typename... Values>
    void addAll(Values... values) {
        (add(values), ...);
    }

    std::uint64_t sum_ = 0xCBF29CE484222325U;
};

}  // namespace quode::test
