// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "platform/ical_text.h"

#include <algorithm>
#include <iterator>

#include "common/numbers.h"
#include "texts/translation.h"

namespace quode {

namespace {

// Real calendars have three levels (VCALENDAR, VEVENT, VALARM); the limit protects recursive readers.
constexpr std::size_t kDeepestNesting = 16;

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string inCapitals(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return result;
}

/// The colon that ends name and parameters: the first one outside quotes.
std::size_t colonOf(std::string_view line) {
    bool quoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '"') quoted = !quoted;
        if (line[i] == ':' && !quoted) return i;
    }
    return line.size();
}

void nameAndValue(std::string_view unfolded, ContentLine& line) {
    const std::size_t colon = colonOf(unfolded);
    line.name = inCapitals(unfolded.substr(0, std::min(colon, unfolded.find(';'))));
    line.value = colon < unfolded.size() ? unfolded.substr(colon + 1) : std::string_view{};
}

/// Follows the nesting of components line by line.
class Scanner {
  public:
    void take(const ContentLine& line) {
        if (!problem_.empty()) return;
        if (line.name == "BEGIN") {
            open(line);
        } else if (line.name == "END") {
            close(line);
        } else if (nesting_.empty()) {
            problem_ = _("it is not an iCalendar file");
        } else if (nesting_.size() == 2) {
            if (line.name == "UID") component_.uid = unescapedText(trimmed(line.value));
            if (line.name == "RECURRENCE-ID") component_.isRecurrenceOverride = true;
        }
    }

    std::string finish() {
        if (problem_.empty() && !nesting_.empty()) problem_ = _("it is cut off inside a {}", nesting_.back());
        if (problem_.empty() && result.calendarEnds.empty()) problem_ = _("it holds no calendar");
        return problem_;
    }

    CalendarText result;

  private:
    void open(const ContentLine& line) {
        const std::string name = componentName(line);
        if (nesting_.empty() != (name == "VCALENDAR") || nesting_.size() == kDeepestNesting) {
            problem_ = _("its components are wrongly nested");
            return;
        }
        if (nesting_.size() == 1) {
            component_ = {};
            component_.name = name;
            component_.begin = line.begin;
            component_.calendar = result.calendarEnds.size();
        }
        nesting_.push_back(name);
    }

    void close(const ContentLine& line) {
        const std::string name = componentName(line);
        if (nesting_.empty() || nesting_.back() != name) {
            problem_ = _("its components are wrongly nested");
            return;
        }
        nesting_.pop_back();
        if (nesting_.empty()) result.calendarEnds.push_back(line.begin);
        if (nesting_.size() == 1) {
            component_.end = line.end;
            result.components.push_back(component_);
        }
    }

    std::vector<std::string> nesting_;
    CalendarComponent component_;
    std::string problem_;
};

}  // namespace

std::string componentName(const ContentLine& line) {
    return inCapitals(trimmed(line.value));
}

std::string unescapedText(std::string_view value) {
    std::string result;
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] != '\\' || i + 1 == value.size()) {
            result += value[i];
            continue;
        }
        ++i;
        result += value[i] == 'n' || value[i] == 'N' ? '\n' : value[i];
    }
    return result;
}

void forEachContentLine(std::string_view text, const std::function<void(const ContentLine&)>& use) {
    std::size_t position = text.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
    while (position < text.size()) {
        ContentLine line;
        line.begin = position;
        std::string unfolded;
        bool continues = true;
        while (continues) {
            const std::size_t lineBreak = std::min(text.find('\n', position), text.size());
            std::string_view piece = text.substr(position, lineBreak - position);
            if (piece.ends_with('\r')) piece.remove_suffix(1);
            if (position != line.begin) piece.remove_prefix(1);
            unfolded += piece;
            position = std::min(lineBreak + 1, text.size());
            continues = position < text.size() && (text[position] == ' ' || text[position] == '\t');
        }
        line.end = position;
        if (trimmed(unfolded).empty()) continue;
        nameAndValue(unfolded, line);
        use(line);
    }
}

ScannedCalendar scanCalendar(std::string text) {
    if (text.find('\0') != std::string::npos) return {std::nullopt, _("it holds bytes that are not text")};
    Scanner scanner;
    forEachContentLine(text, [&scanner](const ContentLine& line) { scanner.take(line); });
    std::string problem = scanner.finish();
    if (!problem.empty()) return {std::nullopt, std::move(problem)};
    scanner.result.text = std::move(text);
    return {std::move(scanner.result), {}};
}

std::vector<CalendarComponent> eventParts(const CalendarText& calendar, std::string_view identifier) {
    std::vector<CalendarComponent> parts;
    if (identifier.empty()) return parts;  // events without an identifier are not one event
    std::ranges::copy_if(calendar.components, std::back_inserter(parts), [&](const CalendarComponent& component) {
        return component.name == "VEVENT" && component.uid == identifier;
    });
    return parts;
}

std::string withEventText(const CalendarText& calendar, std::string_view identifier, std::string_view eventText) {
    const std::string_view old = calendar.text;
    std::string text;
    std::size_t copied = 0;
    for (const CalendarComponent& part : eventParts(calendar, identifier)) {
        text += old.substr(copied, part.begin - copied);
        if (copied == 0) text += eventText;
        copied = part.end;
    }
    if (copied == 0) {
        copied = calendar.calendarEnds.front();
        text += old.substr(0, copied);
        text += eventText;
    }
    return text += old.substr(copied);
}

std::string zonesOf(const CalendarText& calendar, std::size_t index) {
    std::string zones;
    for (const CalendarComponent& component : calendar.components) {
        if (component.calendar == index && component.name == "VTIMEZONE") zones += textOf(calendar, component);
    }
    return zones;
}

std::string_view textOf(const CalendarText& calendar, const CalendarComponent& component) {
    return std::string_view(calendar.text).substr(component.begin, component.end - component.begin);
}

}  // namespace quode
