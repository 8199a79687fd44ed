// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "companion/ring_lines.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <vector>

#include "common/numbers.h"
#include "texts/utf8.h"

namespace quode {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using std::chrono::sys_seconds;

constexpr char separator = '\t';
constexpr std::size_t checksumLength = 8;
constexpr std::size_t contentLength = ringLineLength - checksumLength - 1;
constexpr std::size_t longestText = 120;

long long countOf(sys_seconds moment) {
    return moment.time_since_epoch().count();
}

std::uint32_t checksumOf(std::string_view text) {
    std::uint32_t sum = 2166136261U;
    for (const char c : text) sum = (sum ^ static_cast<unsigned char>(c)) * 16777619U;
    return sum;
}

// What may stand between separators, not longer than fits.
std::string field(std::string text) {
    std::ranges::replace_if(
        text, [](unsigned char c) { return c < ' '; }, ' ');
    return std::string(beginningOf(text, longestText));
}

std::string lineOf(std::string content) {
    content.resize(contentLength, ' ');
    return fmt::format("{}{:08x}\n", content, checksumOf(content));
}

/// Takes a line apart, field by field.
class Fields {
  public:
    explicit Fields(std::string_view line) {
        if (line.size() != ringLineLength) return;
        const std::string_view content = line.substr(0, contentLength);
        if (fmt::format("{:08x}", checksumOf(content)) != line.substr(contentLength, checksumLength)) return;
        rest_ = content.substr(0, content.find_last_not_of(' ') + 1);
        isGood_ = !rest_.empty();
    }

    bool isGood() const { return isGood_; }

    std::string text() {
        const std::size_t end = std::min(rest_.find(separator), rest_.size());
        const std::string_view field = rest_.substr(0, end);
        rest_.remove_prefix(std::min(end + 1, rest_.size()));
        return std::string(field);
    }

    template <typename Number>
    Number number() {
        const std::optional<Number> value = numberOf<Number>(text());
        isGood_ = isGood_ && value.has_value();
        return value.value_or(Number{});
    }

    sys_seconds moment() { return sys_seconds(seconds(number<long long>())); }

    Uptime uptime() {
        Uptime uptime;
        uptime.boot = text();
        uptime.time = milliseconds(number<long long>());
        return uptime;
    }

  private:
    std::string_view rest_;
    bool isGood_ = false;
};

constexpr std::string_view ringMark = "ring";
constexpr std::string_view repeatedMark = "repeated";
constexpr std::string_view decidedMark = "decided";

// Versions without habits read the first two numbers of a rule and pass over the others.
std::string rulesText(const std::vector<AlarmRule>& rules) {
    std::string text;
    for (const AlarmRule& rule : rules) {
        text += fmt::format("{}:{}:{}:{}:", rule.code, rule.offset, rule.days, countOf(rule.silentUntil));
        if (rule.reminder) text += fmt::format("{}", *rule.reminder);
        text += ';';
    }
    return text;
}

std::string leftText(const std::vector<LeftClock>& left) {
    std::string text;
    for (const LeftClock& each : left) text += fmt::format("{}:{};", each.zero.count(), each.at.count());
    return text;
}

/// Calls `take` with the numbers of each "1:2:3;" in a text; one that is missing is nothing.
template <typename Take>
void eachGroup(std::string_view text, Take take) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(';'), text.size());
        std::string_view each = text.substr(0, end);
        std::array<std::optional<long long>, 5> numbers;
        for (std::optional<long long>& number : numbers) {
            number = takeNumber<long long>(each);
            if (!each.empty()) each.remove_prefix(1);  // the colon
        }
        take(numbers);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

std::vector<LeftClock> leftFrom(std::string_view text) {
    std::vector<LeftClock> left;
    eachGroup(text, [&](const auto& numbers) {
        if (numbers[0] && numbers[1]) left.push_back({seconds(*numbers[0]), milliseconds(*numbers[1])});
    });
    if (left.size() > mostLeft) left.resize(mostLeft);
    return left;
}

std::vector<AlarmRule> rulesFrom(std::string_view text) {
    std::vector<AlarmRule> rules;
    eachGroup(text, [&](const auto& numbers) {
        if (!numbers[0] || !numbers[1]) return;
        AlarmRule& rule = rules.emplace_back();
        rule.code = static_cast<int>(*numbers[0]);
        rule.offset = static_cast<int>(*numbers[1]);
        rule.days = static_cast<unsigned>(numbers[2].value_or(everyDay)) & everyDay;
        rule.silentUntil = sys_seconds(seconds(numbers[3].value_or(0)));
        if (numbers[4]) rule.reminder = static_cast<int>(*numbers[4]);
    });
    return rules;
}

}  // namespace

std::string ringLine(const NumberedRing& ring) {
    const RingRecord& record = ring.record;
    const AlarmOccurrence& alarm = record.alarm;
    return lineOf(fmt::format(
        "{}\t{}\t{}\t{}\t{}\t{}\t{}\t{}\t{}\t{}\t{}\t{}\t{}\t{}\t{}\t{}\t{}\t{}", ringMark, ring.serial, alarm.code,
        countOf(alarm.due), countOf(alarm.prayer), alarm.hours, alarm.date.Years, alarm.date.Months, alarm.date.Days,
        static_cast<int>(record.state), countOf(record.ringAt), record.notification.number,
        field(record.notification.run), field(record.rangAt.boot), record.rangAt.time.count(), field(record.city),
        record.isRepeated ? repeatedMark : "", record.clockZero ? std::to_string(record.clockZero->count()) : ""));
}

std::string decidedLine(const DecidedNote& note) {
    return lineOf(fmt::format("{}\t{}\t{}\t{}\t{}\t{}\t{}\t{}", decidedMark, countOf(note.until), countOf(note.clock),
                              field(note.uptime.boot), note.uptime.time.count(), note.city, rulesText(note.rules),
                              leftText(note.left)));
}

std::string emptyLine() {
    return lineOf({});
}

std::optional<NumberedRing> ringFrom(std::string_view line) {
    Fields fields(line);
    if (!fields.isGood() || fields.text() != ringMark) return std::nullopt;
    NumberedRing ring;
    RingRecord& record = ring.record;
    ring.serial = fields.number<std::uint64_t>();
    record.alarm.code = fields.number<int>();
    record.alarm.due = fields.moment();
    record.alarm.prayer = fields.moment();
    record.alarm.hours = fields.number<double>();
    record.alarm.date.Years = fields.number<int>();
    record.alarm.date.Months = fields.number<int>();
    record.alarm.date.Days = fields.number<int>();
    const int state = fields.number<int>();
    record.state = static_cast<RingState>(state);
    record.ringAt = fields.moment();
    record.notification.number = fields.number<std::uint32_t>();
    record.notification.run = fields.text();
    record.rangAt = fields.uptime();
    record.city = fields.text();
    record.isRepeated = fields.text() == repeatedMark;
    // Older versions do not write it, and pass over it.
    if (const auto zero = numberOf<long long>(fields.text())) record.clockZero = seconds(*zero);
    const bool isState = state >= 0 && state <= static_cast<int>(RingState::unseen);
    return fields.isGood() && isState ? std::optional(ring) : std::nullopt;
}

std::optional<DecidedNote> decidedFrom(std::string_view line) {
    Fields fields(line);
    if (!fields.isGood() || fields.text() != decidedMark) return std::nullopt;
    DecidedNote note;
    note.until = fields.moment();
    note.clock = fields.moment();
    note.uptime = fields.uptime();
    note.city = fields.number<int>();
    note.rules = rulesFrom(fields.text());
    note.left = leftFrom(fields.text());
    return fields.isGood() ? std::optional(note) : std::nullopt;
}

}  // namespace quode
