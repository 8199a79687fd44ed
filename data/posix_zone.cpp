// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/posix_zone.h"

#include "common/numbers.h"

namespace quode {
namespace {

// Removes the parts of a line from its front, one after the other.
class Reader {
  public:
    explicit Reader(std::string_view text) : text_(text) {}

    bool atEnd() const { return text_.empty(); }

    bool take(char wanted) {
        if (text_.empty() || text_.front() != wanted) return false;
        text_.remove_prefix(1);
        return true;
    }

    std::optional<int> takeNumber(int least, int most) {
        const std::optional<int> value = quode::takeNumber<int>(text_);
        return value && *value >= least && *value <= most ? value : std::nullopt;
    }

    // An abbreviation: three letters or more, or anything between angle brackets.
    bool takeAbbreviation() {
        const bool bracketed = take('<');
        const std::size_t end = bracketed ? text_.find('>') : text_.find_first_of("+-0123456789,");
        const std::size_t length = end == std::string_view::npos ? text_.size() : end;
        if (length < 3 || (bracketed && end == std::string_view::npos)) return false;
        text_.remove_prefix(length + (bracketed ? 1 : 0));
        return true;
    }

    // Hours with an optional sign, minutes and seconds: "2", "-1", "2:45"; in seconds.
    std::optional<int> takeTime() {
        const bool negative = take('-');
        if (!negative) take('+');
        const std::optional<int> hours = takeNumber(0, 167);
        if (!hours) return std::nullopt;
        int seconds = *hours * 3600;
        for (int unit = 60; unit >= 1 && take(':'); unit /= 60) {
            const std::optional<int> value = takeNumber(0, 59);
            if (!value) return std::nullopt;
            seconds += *value * unit;
        }
        return negative ? -seconds : seconds;
    }

    std::optional<PosixChange> takeChange() {
        if (!take(',') || !take('M')) return std::nullopt;
        const auto month = takeNumber(1, 12);
        if (!month || !take('.')) return std::nullopt;
        const auto week = takeNumber(1, 5);
        if (!week || !take('.')) return std::nullopt;
        const auto weekday = takeNumber(0, 6);
        if (!weekday) return std::nullopt;
        const auto time = take('/') ? takeTime() : std::optional<int>(2 * 3600);
        if (!time) return std::nullopt;
        return PosixChange{*month, *week, *weekday, *time};
    }

  private:
    std::string_view text_;
};

std::optional<PosixZone::Summer> takeSummer(Reader& reader, int standardOffset) {
    PosixZone::Summer summer;
    summer.offset = standardOffset + 3600;
    if (!reader.takeAbbreviation()) return std::nullopt;
    if (const auto west = reader.takeTime()) summer.offset = -*west;
    const auto start = reader.takeChange();
    const auto end = reader.takeChange();
    if (!start || !end) return std::nullopt;
    summer.start = *start;
    summer.end = *end;
    return summer;
}

}  // namespace

std::chrono::sys_days PosixChange::namedDay(std::chrono::year year) const {
    const std::chrono::weekday day(static_cast<unsigned>(weekday));
    const auto inMonth = year / month;
    if (week == 5) return std::chrono::sys_days(inMonth / day[std::chrono::last]);
    return std::chrono::sys_days(inMonth / day[static_cast<unsigned>(week)]);
}

bool PosixZone::isSummerAt(std::chrono::sys_seconds moment) const {
    if (!summer) return false;
    using std::chrono::seconds;
    const std::chrono::year_month_day local(std::chrono::floor<std::chrono::days>(moment + seconds(offset)));
    const auto start = summer->start.namedDay(local.year()) + seconds(summer->start.seconds - offset);
    const auto end = summer->end.namedDay(local.year()) + seconds(summer->end.seconds - summer->offset);
    return start < end ? moment >= start && moment < end : moment >= start || moment < end;
}

std::optional<PosixZone> parsePosixZone(std::string_view text) {
    Reader reader(text);
    PosixZone zone;
    if (!reader.takeAbbreviation()) return std::nullopt;
    const auto west = reader.takeTime();
    if (!west) return std::nullopt;
    zone.offset = -*west;
    if (reader.atEnd()) return zone;
    zone.summer = takeSummer(reader, zone.offset);
    if (!zone.summer || !reader.atEnd()) return std::nullopt;
    return zone;
}

}  // namespace quode
