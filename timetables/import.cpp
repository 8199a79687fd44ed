// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "timetables/import.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>

#include "common/civil_date.h"
#include "common/formatting.h"
#include "common/numbers.h"
#include "texts/translation.h"
#include "timetables/cells.h"
#include "timetables/smoothness.h"

namespace quode::timetables {
namespace {

constexpr int noon = minutesPerDay / 2;
constexpr std::size_t mostRows = 5000;

std::string clock(int minute) {
    const int ofDay = minuteOfDay(minute);
    return fmt::format("{:02}:{:02}", ofDay / minutesPerHour, ofDay % minutesPerHour);
}

/// What makes a row unusable.
struct BadRow {
    std::string text;
};

class Reader {
  public:
    Reader(const RawTable& raw, const ImportOptions& options, SunCheck& check)
        : raw_(raw), options_(options), check_(check), columns_(raw), dates_(raw, columns_, options) {}

    Import read() {
        import_.format = raw_.format;
        import_.unit = raw_.unit;
        import_.problems = raw_.problems;
        import_.columns = columns_.used();
        import_.ignored = columns_.ignored();
        import_.dateOrder = dates_.order();
        findClock();
        findSeconds();
        for (const RawRow& row : raw_.rows) readRow(row);
        reportLostDates();
        reportOutliers();
        if (import_.table.rows.empty() && import_.problems.empty()) {
            throw ImportError(_("The file has no rows below the line that names the columns."));
        }
        return std::move(import_);
    }

  private:
    // --- times

    /// A clock of 12 hours that does not say the half of the day: no Maghrib after noon is written so in 24 hours.
    void findClock() {
        bool any = false;
        for (const RawRow& row : raw_.rows) {
            for (const Column column : {Column::dhuhr, Column::asr, Column::maghrib, Column::isha}) {
                const auto time = clockTimeOf(columns_.cell(row, column));
                if (!time) continue;
                if (time->hour > 12 || time->half != ClockTime::Half::unknown) return;
                any = any || column == Column::maghrib || column == Column::asr;
            }
        }
        import_.isTwelveHour = any;
    }

    void findSeconds() {
        const auto hasSeconds = [](const std::string& text) {
            const auto time = clockTimeOf(text);
            return time && time->second != 0;
        };
        for (const RawRow& row : raw_.rows) {
            for (int i = 0; i <= int(Column::ishaIqama) && !import_.hasSeconds; ++i) {
                import_.hasSeconds = hasSeconds(columns_.cell(row, static_cast<Column>(i)));
            }
        }
    }

    static bool isLeftOut(const std::string& text) {
        return text == "-" || text == formatting::noTime || text == "—" || text == "–" || text == "N/A";
    }

    int minuteOf(const std::string& text, Column column) const {
        const auto time = clockTimeOf(text);
        if (!time) throw BadRow{_("{} is \"{}\", which is not a time", nameOf(column), text)};
        return wholeMinuteOf(*time, column) + roundUp(*time);
    }

    /// The minute that the seconds of a time add: to the nearest.
    static int roundUp(const ClockTime& time) { return time.second >= 30 ? 1 : 0; }

    int wholeMinuteOf(const ClockTime& time, Column column) const {
        const int minute = time.hour * minutesPerHour + time.minute;
        const bool isOfMorning = column == Column::fajr || column == Column::sunrise;
        if (time.half == ClockTime::Half::morning) return minute % noon;
        if (time.half == ClockTime::Half::afternoon) return minute % noon + noon;
        if (!import_.isTwelveHour || isOfMorning) return minute;
        if (column == Column::isha && time.hour == 12) return minute + noon;  // midnight
        constexpr int firstMorningHour = 10;                                  // of Dhuhr
        if (column == Column::dhuhr && time.hour >= firstMorningHour) return minute;
        return time.hour == 12 ? minute : minute + noon;
    }

    TimetableRow timesOf(const RawRow& row) const {
        TimetableRow times;
        for (int i = 0; i <= int(Column::asrHanafi); ++i) {
            const auto column = static_cast<Column>(i);
            const std::string text = columns_.cell(row, column);
            if (!columns_.has(column) || isLeftOut(text)) continue;
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
        const int written = time->hour * minutesPerHour + time->minute + roundUp(*time);
        for (const int minute : {written, written + noon, written + minutesPerDay}) {
            if (minute >= *prayer && minute <= *prayer + latest) return Iqama{true, minute};
        }
        throw BadRow{_("{} at {} does not follow its prayer at {}", nameOf(column), clock(written), clock(*prayer))};
    }

    void readIqamas(const RawRow& row, TimetableRow& times) const {
        for (std::size_t i = 0; i < mainPrayerCount; ++i) {
            const auto column = static_cast<Column>(int(Column::fajrIqama) + int(i));
            times.iqama[i] = iqamaOf(columns_.cell(row, column), column, times.minutes[i]);
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
        const auto number = dates_.dayOf(row);
        if (number) return *number;
        const std::string text = columns_.has(Column::date)
                                     ? columns_.cell(row, Column::date)
                                     : columns_.cell(row, Column::day) + " " + columns_.cell(row, Column::month);
        const auto date = dates_.written(row);
        if (date && date->third < 0 && !options_.year) throw BadRow{_("\"{}\" has no year; say it with --year", text)};
        throw BadRow{_("\"{}\" is not a date", text)};
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
    TableColumns columns_;
    DateReader dates_;
    Import import_;
    std::map<int, int> lines_;
    std::vector<int> order_;  ///< the days in the order of the file
};

}  // namespace

Import importTable(const RawTable& raw, const ImportOptions& options, SunCheck& check) {
    if (raw.rows.size() > mostRows) throw ImportError(_("The file has more rows than any timetable."));
    return Reader(raw, options, check).read();
}

}  // namespace quode::timetables
