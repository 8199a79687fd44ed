// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Names of one length in one block, so that a search with typing mistakes does not read every row of a table.
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

/// The set of letters of a name, one bit each: a typing mistake adds at most one letter and removes at most one.
std::uint64_t lettersOf(std::string_view folded);

/// The bytes of a group. A fixed format: it is stored in the city database.
/// @param names  all of the same length in bytes
std::string nameGroup(std::span<const GroupedName> names);

/// Reads a group from the bytes of `nameGroup`, which must outlive the object.
class NameGroup {
  public:
    /// @param nameLength  of each name, bytes; a group whose size does not fit is empty
    NameGroup(std::string_view bytes, std::size_t nameLength);

    std::size_t size() const { return size_; }
    GroupedName name(std::size_t i) const;

    /// False when a name certainly differs by more than `mistakes` from a name with these letters.
    bool mayBeNear(std::size_t i, std::uint64_t letters, int mistakes) const;

    std::string_view folded(std::size_t i) const { return bytes_.substr(size_ * recordSize + i * length_, length_); }

  private:
    static constexpr std::size_t lettersSize = 8, factsSize = 12, recordSize = lettersSize + factsSize;
    friend std::string nameGroup(std::span<const GroupedName> names);

    std::string_view bytes_;
    std::size_t length_, size_;
};

}  // namespace quode
