// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace quode {

/// The conventions of the device's locale. All texts are UTF-8.
class Locale {
  public:
    virtual ~Locale() = default;

    /// The symbol of the hours before noon, such as "AM" or "ÖÖ".
    virtual std::string amSymbol() const = 0;

    /// The symbol of the hours from noon on, such as "PM" or "ÖS".
    virtual std::string pmSymbol() const = 0;

    /// The full name of a Gregorian month 1..12; empty for another number.
    virtual std::string monthName(int month) const = 0;

    /// The abbreviated name of a Gregorian month 1..12; empty for another number.
    virtual std::string shortMonthName(int month) const = 0;

    /// The full name of a day of the week, 0 = Sunday .. 6 = Saturday; empty for another number.
    virtual std::string weekdayName(int weekday) const = 0;

    /// The abbreviated name of a day of the week in its form for use alone, as in a column; empty for another number.
    virtual std::string shortWeekdayName(int weekday) const = 0;

    /// The decimal mark. Digits are always 0 to 9, as in the times.
    virtual std::string decimalMark() const = 0;

    /// A date pattern for an hour alone: it contains an "a" where hours have an AM/PM symbol.
    virtual std::string hourPattern() const = 0;

    /// The two symbols in lower case, by language-independent rules, such as "öö" and "ös".
    virtual std::string lowerAmSymbol() const = 0;
    virtual std::string lowerPmSymbol() const = 0;
};

}  // namespace quode
