// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>

#include "common/numbers.h"
#include "texts/translation.h"
#include "timetables/RawTable.h"
#include "timetables/cells.h"
#include "timetables/columns.h"
#include "timetables/encoding.h"

namespace quode::timetables {
namespace {

constexpr std::array separators = {';', '\t', ',', '|'};
constexpr std::size_t largestFile = 4'000'000;
constexpr int fewestColumns = 3;
constexpr int headWithin = 30;  // lines

std::vector<std::string> linesOf(std::string_view content) {
    std::vector<std::string> lines(1);
    for (std::size_t i = 0; i < content.size(); ++i) {
        if (content[i] == '\r' && i + 1 < content.size() && content[i + 1] == '\n') continue;
        if (content[i] == '\n' || content[i] == '\r') {
            lines.emplace_back();
        } else {
            lines.back() += content[i];
        }
    }
    return lines;
}

/// The cells of a line; nothing in them when a quotation mark has no partner.
std::vector<std::string> cellsOf(const std::string& line, char separator) {
    std::vector<std::string> cells(1);
    bool isQuoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        if (c == '"' && isQuoted && i + 1 < line.size() && line[i + 1] == '"') {
            cells.back() += c;
            ++i;
        } else if (c == '"') {
            isQuoted = !isQuoted;
        } else if (c == separator && !isQuoted) {
            cells.emplace_back();
        } else {
            cells.back() += c;
        }
    }
    if (isQuoted) return {};
    for (std::string& cell : cells) cell = std::string(trimmed(cell));
    return cells;
}

int knownColumns(const std::vector<std::string>& cells) {
    return int(std::ranges::count_if(cells, [](const auto& cell) { return columnOf(cell).has_value(); }));
}

/// The line that names the columns.
struct Head {
    std::size_t line = 0;
    std::size_t lines = 1;  ///< more than one where quoted names have line breaks
    std::string text;
    char separator = ',';
    int known = 0;
};

/// A line as the head, with those that follow it as long as a quotation mark is open.
Head headAt(const std::vector<std::string>& lines, std::size_t line) {
    constexpr std::size_t longest = 12;  // lines
    const auto isOpen = [](const std::string& text) { return std::ranges::count(text, '"') % 2 != 0; };
    Head head{line, 1, lines[line]};
    while (isOpen(head.text) && head.lines < longest && line + head.lines < lines.size()) {
        head.text += ' ' + lines[line + head.lines++];
    }
    return isOpen(head.text) ? Head{line, 1, lines[line]} : head;
}

Head findHead(const std::vector<std::string>& lines) {
    Head best;
    for (std::size_t i = 0; i < std::min<std::size_t>(lines.size(), headWithin); ++i) {
        Head head = headAt(lines, i);
        for (const char separator : separators) {
            head.separator = separator;
            head.known = knownColumns(cellsOf(head.text, separator));
            if (head.known > best.known) best = head;
        }
    }
    return best;
}

/// Whether a line looks like a day: some of its cells are times, whatever separates them.
bool holdsTimes(const std::string& line) {
    constexpr int fewestTimes = 2, fewestNumbers = 4;  // "5:12", and "0512", which may be a year
    std::string cells = line;
    for (char& c : cells) {
        if (c == '"' || std::ranges::find(separators, c) != separators.end()) c = '\n';
    }
    int times = 0, numbers = 0;
    for (const std::string& text : linesOf(cells)) {
        if (!clockTimeOf(text)) continue;
        ++(text.find_first_of(":.hH") == std::string::npos ? numbers : times);
    }
    return times >= fewestTimes || numbers >= fewestNumbers;
}

/// The headings of a second line below the first, such as "Adhan" and "Iqama" below "Fajr" and nothing.
std::vector<std::string> withSecondLine(std::vector<std::string> headings, const std::vector<std::string>& second) {
    std::string above;
    for (std::size_t i = 0; i < headings.size(); ++i) {
        if (!headings[i].empty()) above = headings[i];
        if (i < second.size() && !second[i].empty()) headings[i] = above + " " + second[i];
    }
    return headings;
}

/// Whether a line below the head only says which of the times of a prayer its columns hold.
bool isSecondLine(const std::vector<std::string>& headings, const std::vector<std::string>& cells) {
    const bool hasDigits = std::ranges::any_of(cells, [](const std::string& cell) {
        return plainText(cell).find_first_of("0123456789") != std::string::npos;
    });
    return !hasDigits && knownColumns(withSecondLine(headings, cells)) > knownColumns(headings);
}

}  // namespace

RawTable readCsv(std::string_view content) {
    const auto lines = linesOf(content);
    const Head head = findHead(lines);
    if (head.known < fewestColumns) {
        throw ImportError(
            _("No line names the columns. The first line must name the date and the prayers, such as "
              "date,fajr,sunrise,dhuhr,asr,maghrib,isha."));
    }
    RawTable table;
    table.format = head.separator == '\t' ? _("CSV, separated by tabs")
                                          : _("CSV, separated by {}", std::string(1, head.separator));
    table.headings = cellsOf(head.text, head.separator);
    for (std::size_t i = 0; i < head.line; ++i) {
        if (!holdsTimes(lines[i])) continue;
        table.problems.push_back(
            {int(i) + 1, _("it holds times above line {}, which names the columns", head.line + 1)});
    }
    std::size_t first = head.line + head.lines;
    const auto below = first < lines.size() ? cellsOf(lines[first], head.separator) : std::vector<std::string>();
    if (isSecondLine(table.headings, below)) {
        table.headings = withSecondLine(table.headings, below);
        ++first;
    }
    for (std::size_t i = first; i < lines.size(); ++i) {
        if (trimmed(lines[i]).empty()) continue;
        table.rows.push_back({int(i) + 1, cellsOf(lines[i], head.separator)});
    }
    return table;
}

RawTable readRawTable(std::string_view content, const ZoneClock& clock) {
    if (content.size() > largestFile) throw ImportError(_("The file is larger than any timetable of a few years."));
    const std::string text = utf8Of(content);
    const std::string_view start = trimmed(text);
    if (start.empty()) throw ImportError(_("The file is empty."));
    if (start.starts_with("BEGIN:VCALENDAR")) return readCalendar(text, clock);
    if (start.front() == '{' || start.front() == '[') return readJson(start);
    return readCsv(text);
}

}  // namespace quode::timetables
