// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "timetables/import.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>

#include "common/formatting.h"
#include "common/numbers.h"
#include "texts/translation.h"
#include "timetables/cells.h"
#include "timetables/smoothness.h"

namespace quode::timetables {
namespace {

constexpr int minutesPerDay = 1440, minutesPerHour = 60, noon = 720;
constexpr int earliestYear = 1900, latestYear = 2200;
constexpr std::size_t mostRows = 5000;

std::string clock(int minute) {
    const int ofDay = ((minute % minutesPerDay) + minutesPerDay) % minutesPerDay;
    return fmt::format("{:02}:{:02}", ofDay / minutesPerHour, ofDay % minutesPerHour);
}

/// What makes a row unusable.
struct BadRow {
    std::string text;
};

class Reader {
  public:
    Reader(const RawTable& raw, const ImportOptions& options, SunCheck& check)
        : raw_(raw), options_(options), check_(check) {}

    Import read() {
        import_.format = raw_.format;
        import_.unit = raw_.unit;
        import_.problems = raw_.problems;
        if (raw_.rows.size() > mostRows) throw ImportError(_("The file has more rows than any timetable."));
        findColumns();
        findDateOrder();
        findClock();
        for (const RawRow& row : raw_.rows) readRow(row);
        reportLostDates();
        reportOutliers();
        if (import_.table.rows.empty() && import_.problems.empty()) {
            throw ImportError(_("The file has no rows below the line that names the columns."));
        }
        return std::move(import_);
    }

  private:
    // --- columns

    void findColumns() {
        std::vector<std::optional<Column>> columns;
        for (const std::string& heading : raw_.headings) columns.push_back(columnOf(heading));
        const auto has = [&](Column column) { return std::ranges::find(columns, column) != columns.end(); };
        const bool hasFajr = has(Column::fajr), hasImsak = has(Column::imsak);
        for (std::size_t i = 0; i < columns.size(); ++i) {
            std::optional<Column> column = columns[i];
            // Imsak is Fajr in Turkish tables, and minutes before it where Fajr has a column of its own.
            if (column == Column::imsak) column = hasFajr ? std::nullopt : std::optional(Column::fajr);
            if (column == Column::sabah) column = hasFajr || hasImsak ? std::nullopt : std::optional(Column::fajr);
            if (column == Column::day && has(Column::date)) column.reset();
            if (!column) {
                checkUnnamed(i);
                if (!raw_.headings[i].empty()) import_.ignored.push_back(raw_.headings[i]);
                continue;
            }
            take(*column, i);
        }
        checkColumns();
    }

    /// Times below no name may be those of the column beside them.
    void checkUnnamed(std::size_t index) const {
        if (!raw_.headings[index].empty()) return;
        const bool hasTimes = std::ranges::any_of(
            raw_.rows, [&](const RawRow& row) { return index < row.cells.size() && clockTimeOf(row.cells[index]); });
        if (hasTimes) {
            throw ImportError(_("Column {} holds times but has no name. Name it, or remove it.", index + 1));
        }
    }

    void take(Column column, std::size_t index) {
        int& place = places_[static_cast<std::size_t>(column)];
        if (place >= 0) {
            throw ImportError(_("Two columns name the same thing, {}: \"{}\" and \"{}\". Rename or remove one.",
                                nameOf(column), raw_.headings[static_cast<std::size_t>(place)], raw_.headings[index]));
        }
        place = int(index);
        import_.columns.emplace_back(raw_.headings[index], column);
    }

    void checkColumns() const {
        const bool hasDate = has(Column::date) || (has(Column::day) && has(Column::month));
        if (!hasDate) throw ImportError(_("No column holds the date. Name it \"date\"."));
        int prayers = 0;
        for (int i = 0; i < mainPrayerCount; ++i) prayers += has(static_cast<Column>(i)) ? 1 : 0;
        if (prayers == 0) throw ImportError(_("No column holds a prayer. Name them fajr, dhuhr, asr, maghrib, isha."));
    }

    bool has(Column column) const { return places_[static_cast<std::size_t>(column)] >= 0; }

    std::string cell(const RawRow& row, Column column) const {
        const int place = places_[static_cast<std::size_t>(column)];
        if (place < 0 || std::size_t(place) >= row.cells.size()) return "";
        return row.cells[static_cast<std::size_t>(place)];
    }

    // --- dates

    std::optional<WrittenDate> written(const RawRow& row) const {
        if (has(Column::date)) return writtenDateOf(cell(row, Column::date));
        const auto day = numberOf<int>(plainText(cell(row, Column::day)));
        const std::string monthText = plainText(cell(row, Column::month));
        const auto month = numberOf<int>(monthText) ? numberOf<int>(monthText) : monthNamed(monthText);
        const auto year = numberOf<int>(plainText(cell(row, Column::year)));
        if (!day || !month || (has(Column::year) && !year)) return std::nullopt;
        const bool isShort = year && *year >= 0 && *year < 100;
        return WrittenDate{*day, *month, year.value_or(-1) + (isShort ? 2000 : 0), false, true};
    }

    /// Which of two numbers is the day: what a number above 12 tells, else what makes the rows follow each other.
    void findDateOrder() {
        import_.dateOrder = options_.dateOrder;
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
            import_.dateOrder = dayFirst ? DateOrder::dayFirst : DateOrder::monthFirst;
            return;
        }
        findOrderBySequence();
    }

    /// Whether the year comes first, as it does in most rows; the others are damaged.
    void findForm() {
        int yearFirst = 0, others = 0;
        for (const RawRow& row : raw_.rows) {
            if (const auto date = written(row)) ++(date->yearIsFirst ? yearFirst : others);
        }
        yearIsFirst_ = yearFirst >= others;
    }

    /// Whether the year of a date, in two digits, may be its first number as well as its last: "26-07-20".
    bool mayBeginWithYear(const RawRow& row) const {
        const auto date = written(row);
        constexpr int lastDay = 31;
        return date && !date->yearIsFirst && date->third >= 1 && date->third <= lastDay;
    }

    void findOrderOfShortYears() {
        int most = 0;
        bool isClear = false;
        for (const DateOrder order : {DateOrder::yearFirst, DateOrder::dayFirst, DateOrder::monthFirst}) {
            const int count = followed(order);
            if (count < most || count == 0) continue;
            // Beside a month's name the two orders of day and month are one.
            isClear = count > most || (import_.dateOrder == DateOrder::dayFirst && monthsAreNamed());
            if (count > most) import_.dateOrder = order;
            most = count;
        }
        if (!isClear) {
            throw ImportError(
                _("The years have two digits, and the dates do not tell which number is the year. Write them with "
                  "four, as 2026-01-31."));
        }
    }

    bool monthsAreNamed() const {
        return std::ranges::all_of(raw_.rows, [&](const RawRow& row) {
            const auto date = written(row);
            return !date || date->monthIsNamed;
        });
    }

    /// How many rows are a day after the one before, by an order.
    int followed(DateOrder order) const {
        int count = 0;
        std::optional<int> before;
        for (const RawRow& row : raw_.rows) {
            const auto number = dayOf(row, order);
            if (number && before && *number == *before + 1) ++count;
            before = number;
        }
        return count;
    }

    void findOrderBySequence() {
        const int dayFirst = followed(DateOrder::dayFirst), monthFirst = followed(DateOrder::monthFirst);
        if (dayFirst == monthFirst) {
            throw ImportError(
                _("The dates do not tell whether the day or the month comes first. Say it with "
                  "--date-order day or --date-order month."));
        }
        import_.dateOrder = dayFirst > monthFirst ? DateOrder::dayFirst : DateOrder::monthFirst;
    }

    std::optional<int> dayOf(const RawRow& row, DateOrder order) const {
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

    // --- times

    /// A clock of 12 hours that does not say the half of the day: no Maghrib after noon is written so in 24 hours.
    void findClock() {
        bool any = false;
        for (const RawRow& row : raw_.rows) {
            for (const Column column : {Column::dhuhr, Column::asr, Column::maghrib, Column::isha}) {
                const auto time = clockTimeOf(cell(row, column));
                if (!time) continue;
                if (time->hour > 12 || time->half != ClockTime::Half::unknown) return;
                any = any || column == Column::maghrib || column == Column::asr;
            }
        }
        import_.isTwelveHour = any;
    }

    static bool isLeftOut(const std::string& text) {
        return text == "-" || text == formatting::noTime || text == "—" || text == "–" || text == "N/A";
    }

    int minuteOf(const std::string& text, Column column) const {
        const auto time = clockTimeOf(text);
        if (!time) throw BadRow{_("{} is \"{}\", which is no time", nameOf(column), text)};
        int minute = time->hour * minutesPerHour + time->minute;
        const bool isOfMorning = column == Column::fajr || column == Column::sunrise;
        if (time->half == ClockTime::Half::morning) return minute % noon;
        if (time->half == ClockTime::Half::afternoon) return minute % noon + noon;
        if (!import_.isTwelveHour || isOfMorning) return minute;
        if (column == Column::isha && time->hour == 12) return minute + noon;  // midnight
        constexpr int firstMorningHour = 10;                                   // of Dhuhr
        if (column == Column::dhuhr && time->hour >= firstMorningHour) return minute;
        return time->hour == 12 ? minute : minute + noon;
    }

    TimetableRow timesOf(const RawRow& row) const {
        TimetableRow times;
        for (int i = 0; i <= int(Column::asrHanafi); ++i) {
            const auto column = static_cast<Column>(i);
            const std::string text = cell(row, column);
            if (!has(column) || isLeftOut(text)) continue;
            if (text.empty()) throw BadRow{_("{} is empty", nameOf(column))};
            int minute = minuteOf(text, column);
            const bool mayBeAfterMidnight = column == Column::isha && minute < 6 * minutesPerHour;
            if (mayBeAfterMidnight) minute += minutesPerDay;
            if (column == Column::asrHanafi) {
                times.asrHanafi = minute;
            } else {
                times.minutes[static_cast<std::size_t>(i)] = minute;
            }
        }
        return times;
    }

    static void checkOrder(const TimetableRow& times) {
        std::optional<std::size_t> before;
        for (std::size_t i = 0; i < mainPrayerCount; ++i) {
            if (!times.minutes[i]) continue;
            if (before && *times.minutes[i] <= *times.minutes[*before]) {
                throw BadRow{_("{} at {} is not after {} at {}", nameOf(static_cast<Column>(i)),
                               clock(*times.minutes[i]), nameOf(static_cast<Column>(*before)),
                               clock(*times.minutes[*before]))};
            }
            before = i;
        }
        const auto asr = times.minutes[3], maghrib = times.minutes[4];
        const bool isMisplaced =
            times.asrHanafi && ((asr && *times.asrHanafi < *asr) || (maghrib && *times.asrHanafi >= *maghrib));
        if (isMisplaced) throw BadRow{_("asr (Hanafi) at {} is out of order", clock(*times.asrHanafi))};
    }

    void checkSun(int number, const TimetableRow& times) {
        const SunCheck::Day& day = check_.day(number);
        const auto check = [&](std::optional<int> minute, std::size_t index, Column column) {
            const SunCheck::Range& range = day[index];
            if (!minute || (*minute >= range.earliest && *minute <= range.latest)) return;
            throw BadRow{
                _("{} at {} cannot be: at this place it lies between {} and {}. The time is damaged, or the "
                  "table is of another place or clock",
                  nameOf(column), clock(*minute), clock(range.earliest), clock(range.latest))};
        };
        for (std::size_t i = 0; i < mainPrayerCount; ++i) check(times.minutes[i], i, static_cast<Column>(i));
        check(times.asrHanafi, 3, Column::asrHanafi);
    }

    // --- iqama

    std::optional<Iqama> iqamaOf(const std::string& text, Column column, std::optional<int> prayer) const {
        if (text.empty() || isLeftOut(text)) return std::nullopt;
        std::string plain = plainText(text);
        for (const std::string_view unit : {" min", " minutes", " dk", " mins"}) {
            if (plain.ends_with(unit)) plain.resize(plain.size() - unit.size());
        }
        const auto minutes = numberOf<int>(plain);
        constexpr int longestWait = 120;
        if (minutes && plain.size() <= 3) {
            if (*minutes < 0 || *minutes > longestWait) throw BadRow{_("{} is \"{}\"", nameOf(column), text)};
            return Iqama{false, *minutes};
        }
        const auto time = clockTimeOf(text);
        if (time && !prayer) throw BadRow{_("{} has no prayer time beside it", nameOf(column))};
        if (!time) throw BadRow{_("{} is \"{}\", neither minutes nor a time", nameOf(column), text)};
        constexpr int latest = 5 * minutesPerHour;
        const int written = time->hour * minutesPerHour + time->minute;
        for (const int minute : {written, written + noon, written + minutesPerDay}) {
            if (minute >= *prayer && minute <= *prayer + latest) return Iqama{true, minute};
        }
        throw BadRow{_("{} at {} does not follow its prayer at {}", nameOf(column), clock(written), clock(*prayer))};
    }

    void readIqamas(const RawRow& row, TimetableRow& times) const {
        for (std::size_t i = 0; i < mainPrayerCount; ++i) {
            const auto column = static_cast<Column>(int(Column::fajrIqama) + int(i));
            times.iqama[i] = iqamaOf(cell(row, column), column, times.minutes[i]);
        }
    }

    // --- rows

    void checkWidth(const RawRow& row) const {
        if (row.cells.empty()) throw BadRow{_("a quotation mark has no partner")};
        const bool hasMore = row.cells.size() > raw_.headings.size() &&
                             std::ranges::any_of(row.cells.begin() + std::ptrdiff_t(raw_.headings.size()),
                                                 row.cells.end(), [](const auto& text) { return !text.empty(); });
        if (row.cells.size() < raw_.headings.size() || hasMore) {
            throw BadRow{_("has {} cells where {} are named", row.cells.size(), raw_.headings.size())};
        }
    }

    int numberOfDay(const RawRow& row) const {
        const auto number = dayOf(row, import_.dateOrder);
        if (number) return *number;
        const std::string text =
            has(Column::date) ? cell(row, Column::date) : cell(row, Column::day) + " " + cell(row, Column::month);
        const auto date = written(row);
        if (date && date->third < 0 && !options_.year) throw BadRow{_("\"{}\" has no year; say it with --year", text)};
        throw BadRow{_("\"{}\" is no date", text)};
    }

    void readRow(const RawRow& row) {
        try {
            checkWidth(row);
            const int number = numberOfDay(row);
            TimetableRow times = timesOf(row);
            checkOrder(times);
            checkSun(number, times);
            readIqamas(row, times);
            if (!import_.table.rows.emplace(number, times).second) throw BadRow{_("the date is there twice")};
            lines_[number] = row.line;
            order_.push_back(number);
        } catch (const BadRow& bad) {
            import_.problems.push_back({row.line, bad.text});
        }
    }

    /// A date far from those of the lines around it, in a file that goes from day to day.
    void reportLostDates() {
        const std::size_t count = order_.size();
        std::size_t steps = 0;
        for (std::size_t i = 1; i < count; ++i) steps += order_[i] - order_[i - 1] == 1 ? 1U : 0U;
        if (count < 5 || steps * 2 < count) return;
        constexpr int near = 3;  // days; a line or two may be missing
        const auto isFar = [&](std::size_t a, std::size_t b) {
            return order_[b] <= order_[a] || order_[b] - order_[a] > near;
        };
        for (std::size_t i = 0; i < count; ++i) {
            if ((i > 0 && !isFar(i - 1, i)) || (i + 1 < count && !isFar(i, i + 1))) continue;
            import_.problems.push_back({lines_[order_[i]], _("its date is far from those of the lines around it")});
            import_.table.rows.erase(order_[i]);
        }
    }

    void reportOutliers() {
        for (const Outlier& outlier : outliersOf(import_.table, check_)) {
            const auto column = static_cast<Column>(outlier.prayer);
            import_.problems.push_back(
                {lines_[outlier.day], _("{} at {} is {} minutes away from what the days around it say", nameOf(column),
                                        clock(outlier.minute), outlier.distance)});
            import_.table.rows.erase(outlier.day);
        }
        std::ranges::sort(import_.problems, {}, &ImportProblem::line);
    }

    const RawTable& raw_;
    const ImportOptions& options_;
    SunCheck& check_;
    Import import_;
    std::array<int, 19> places_ = [] {
        std::array<int, 19> none{};
        none.fill(-1);
        return none;
    }();
    std::map<int, int> lines_;
    std::vector<int> order_;  ///< the days in the order of the file
    bool yearIsFirst_ = false;
};

}  // namespace

Import importTable(const RawTable& raw, const ImportOptions& options, SunCheck& check) {
    return Reader(raw, options, check).read();
}

}  // namespace quode::timetables
