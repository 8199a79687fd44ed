// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Names of one length, side by side, so that those with typing mistakes are found without reading every row of a table.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "data/city_database_schema.h"

namespace quode {

/// A name in a group.
struct GroupedName {
    std::string_view folded;
    std::int32_t id = 0;
    std::int32_t population = 0;
    int parent = 0;
    NameKind kind = NameKind::own;
};

/// The letters of a name, one bit each: a typing mistake adds one at most and removes one at most.
std::uint64_t lettersOf(std::string_view folded);

/// Writes a group; all names have the same length in bytes.
std::string nameGroup(std::span<const GroupedName> names);

/// Reads a group in the bytes that `nameGroup` wrote, which must stay.
class NameGroup {
  public:
    /// An empty group where the bytes cannot be one of names of that length.
    NameGroup(std::string_view bytes, std::size_t nameLength);

    std::size_t size() const { return size_; }
    GroupedName name(std::size_t i) const;

    /// Whether a name may be within some mistakes of one with these letters.
    bool mayBeNear(std::size_t i, std::uint64_t letters, int mistakes) const;

    std::string_view folded(std::size_t i) const { return bytes_.substr(size_ * recordSize + i * length_, length_); }

  private:
    static constexpr std::size_t lettersSize = 8, factsSize = 12, recordSize = lettersSize + factsSize;
    friend std::string nameGroup(std::span<const GroupedName> names);

    std::string_view bytes_;
    std::size_t length_, size_;
};

}  // namespace quode
