// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "timetables/RawTable.h"
#include "timetables/TableColumns.h"
#include "timetables/cells.h"

namespace quode::timetables {

enum class DateOrder { unknown, yearFirst, dayFirst, monthFirst };

struct ImportOptions {
    DateOrder dateOrder = DateOrder::unknown;  ///< where the dates alone do not tell
    std::optional<int> year;                   ///< of dates without one
};

/// The dates of a file, whose order of day, month and year the rows tell together.
class DateReader {
  public:
    /// Throws `ImportError` when the rows do not tell the order.
    DateReader(const RawTable& raw, const TableColumns& columns, const ImportOptions& options);

    DateOrder order() const { return order_; }

    /// The numbers of a row's date as they are written.
    std::optional<WrittenDate> written(const RawRow& row) const;

    /// The day of a row, counted from 1 January 1970; nothing when it has no date.
    std::optional<int> dayOf(const RawRow& row) const { return dayBy(row, order_); }

  private:
    /// Which of two numbers is the day: what a number above 12 tells, else what makes the rows follow each other.
    void findOrder();
    /// Whether the year comes first, as it does in most rows; the others are damaged.
    void findForm();
    /// Whether the year of a date, in two digits, may be its first number as well as its last: "26-07-20".
    bool mayBeginWithYear(const RawRow& row) const;
    void findOrderOfShortYears();
    void findOrderBySequence();
    bool monthsAreNamed() const;
    /// How many rows are a day after the one before, by an order.
    int followed(DateOrder order) const;
    std::optional<int> dayBy(const RawRow& row, DateOrder order) const;

    const RawTable& raw_;
    const TableColumns& columns_;
    const ImportOptions& options_;
    DateOrder order_ = DateOrder::unknown;
    bool yearIsFirst_ = false;
};

}  // namespace quode::timetables
