// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "timetables/DateReader.h"

#include <algorithm>
#include <chrono>

#include "common/numbers.h"
#include "texts/translation.h"

namespace quode::timetables {
namespace {

constexpr int earliestYear = 1900, latestYear = 2200;

}  // namespace

DateReader::DateReader(const RawTable& raw, const TableColumns& columns, const ImportOptions& options)
    : raw_(raw), columns_(columns), options_(options) {
    findOrder();
}

std::optional<WrittenDate> DateReader::written(const RawRow& row) const {
    if (columns_.has(Column::date)) return writtenDateOf(columns_.cell(row, Column::date));
    const auto day = numberOf<int>(plainText(columns_.cell(row, Column::day)));
    const std::string monthText = plainText(columns_.cell(row, Column::month));
    const auto month = numberOf<int>(monthText) ? numberOf<int>(monthText) : monthNamed(monthText);
    const auto year = numberOf<int>(plainText(columns_.cell(row, Column::year)));
    if (!day || !month || (columns_.has(Column::year) && !year)) return std::nullopt;
    const bool isShort = year && *year >= 0 && *year < 100;
    return WrittenDate{*day, *month, year.value_or(-1) + (isShort ? 2000 : 0), false, true};
}

void DateReader::findOrder() {
    order_ = options_.dateOrder;
    findForm();
    if (yearIsFirst_ || options_.dateOrder != DateOrder::unknown) return;
    if (std::ranges::any_of(raw_.rows, [&](const RawRow& row) { return mayBeginWithYear(row); })) {
        findOrderOfShortYears();
        return;
    }
    bool dayFirst = false, monthFirst = false, isOpen = false;
    for (const RawRow& row : raw_.rows) {
        const auto date = written(row);
        if (!date || date->yearIsFirst || date->monthIsNamed) continue;
        isOpen = true;
        dayFirst = dayFirst || date->first > 12;
        monthFirst = monthFirst || date->second > 12;
    }
    if (!isOpen) return;
    if (dayFirst && monthFirst) {
        throw ImportError(_("Some dates have the day first, others the month. Write them as 2026-01-31."));
    }
    if (dayFirst || monthFirst) {
        order_ = dayFirst ? DateOrder::dayFirst : DateOrder::monthFirst;
        return;
    }
    findOrderBySequence();
}

void DateReader::findForm() {
    int yearFirst = 0, others = 0;
    for (const RawRow& row : raw_.rows) {
        if (const auto date = written(row)) ++(date->yearIsFirst ? yearFirst : others);
    }
    yearIsFirst_ = yearFirst >= others;
}

bool DateReader::mayBeginWithYear(const RawRow& row) const {
    const auto date = written(row);
    constexpr int lastDay = 31;
    return date && !date->yearIsFirst && date->third >= 1 && date->third <= lastDay;
}

void DateReader::findOrderOfShortYears() {
    int most = 0;
    bool isClear = false;
    for (const DateOrder order : {DateOrder::yearFirst, DateOrder::dayFirst, DateOrder::monthFirst}) {
        const int count = followed(order);
        if (count < most || count == 0) continue;
        // Beside a month's name the two orders of day and month are one.
        isClear = count > most || (order_ == DateOrder::dayFirst && monthsAreNamed());
        if (count > most) order_ = order;
        most = count;
    }
    if (!isClear) {
        throw ImportError(
            _("The years have two digits, and the dates do not tell which number is the year. Write them with "
              "four, as 2026-01-31."));
    }
}

bool DateReader::monthsAreNamed() const {
    return std::ranges::all_of(raw_.rows, [&](const RawRow& row) {
        const auto date = written(row);
        return !date || date->monthIsNamed;
    });
}

int DateReader::followed(DateOrder order) const {
    int count = 0;
    std::optional<int> before;
    for (const RawRow& row : raw_.rows) {
        const auto number = dayBy(row, order);
        if (number && before && *number == *before + 1) ++count;
        before = number;
    }
    return count;
}

void DateReader::findOrderBySequence() {
    const int dayFirst = followed(DateOrder::dayFirst), monthFirst = followed(DateOrder::monthFirst);
    if (dayFirst == monthFirst) {
        throw ImportError(
            _("The dates do not tell whether the day or the month comes first. Say it with "
              "--date-order day or --date-order month."));
    }
    order_ = dayFirst > monthFirst ? DateOrder::dayFirst : DateOrder::monthFirst;
}

std::optional<int> DateReader::dayBy(const RawRow& row, DateOrder order) const {
    const auto date = written(row);
    if (!date || date->yearIsFirst != yearIsFirst_) return std::nullopt;
    int year = date->third, month = date->second, day = date->first;
    if (date->yearIsFirst || order == DateOrder::yearFirst) {
        year = date->first, month = date->second, day = date->third;
    } else if (!date->monthIsNamed && order == DateOrder::monthFirst) {
        std::swap(month, day);
    }
    if (year < 0) year = options_.year.value_or(-1);
    if (year >= 0 && year < 100) year += 2000;
    if (year < earliestYear || year > latestYear) return std::nullopt;
    using namespace std::chrono;
    const year_month_day civil{std::chrono::year(year), std::chrono::month(unsigned(month)),
                               std::chrono::day(unsigned(day))};
    if (month < 1 || day < 1 || !civil.ok()) return std::nullopt;
    return int(sys_days(civil).time_since_epoch().count());
}

}  // namespace quode::timetables
