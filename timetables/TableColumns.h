// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "timetables/RawTable.h"
#include "timetables/columns.h"

namespace quode::timetables {

/// Which column of a file holds what.
class TableColumns {
  public:
    /// Throws `ImportError` where the headings leave it open.
    explicit TableColumns(const RawTable& raw);

    bool has(Column column) const { return placeOf(column) >= 0; }

    /// The text of a row in a column; empty when the row or the table does not have it.
    std::string cell(const RawRow& row, Column column) const;

    /// The headings that are used, each with what it was taken for.
    const std::vector<std::pair<std::string, Column>>& used() const { return used_; }

    /// The headings that mean nothing here.
    const std::vector<std::string>& ignored() const { return ignored_; }

  private:
    int placeOf(Column column) const { return places_[static_cast<std::size_t>(column)]; }
    void checkUnnamed(std::size_t index) const;
    void take(Column column, std::size_t index);
    void check() const;

    const RawTable& raw_;
    std::array<int, columnCount> places_;
    std::vector<std::pair<std::string, Column>> used_;
    std::vector<std::string> ignored_;
};

}  // namespace quode::timetables
