// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "terminal/text_layout.h"

#include <fmt/format.h>

#include <algorithm>
#include <numeric>
#include <utility>

#include "texts/character_width.h"
#include "texts/utf8.h"

namespace quode::terminal {
namespace {

constexpr int columnGap = 2;
constexpr char32_t replacementCharacter = 0xFFFD;
constexpr char32_t escape = 0x1b;  // a colour begins with it and ends with "m"

std::string blanks(int count) {
    return std::string(static_cast<std::size_t>(std::max(0, count)), ' ');
}

// A word in parts, the first of at most `first` columns, the others of `others` and on lines of their own.
std::string broken(std::string_view word, int first, int others, int indentation) {
    std::string lines;
    int room = first;
    while (!word.empty()) {
        std::string_view rest = word;
        const int width = characterWidth(takeCodePoint(rest).value_or(replacementCharacter));
        if (width > room && room < others) {
            lines += '\n' + blanks(indentation);
            room = others;
        }
        room -= width;
        lines += word.substr(0, word.size() - rest.size());
        word = rest;
    }
    return lines;
}

std::vector<std::string> splitAt(std::string_view text, char mark) {
    std::vector<std::string> parts;
    for (std::size_t end = 0; end != std::string_view::npos; text.remove_prefix(end + 1)) {
        end = text.find(mark);
        parts.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) break;
    }
    return parts;
}

int widestWord(std::string_view text) {
    int widest = 0;
    for (const std::string& word : splitAt(text, ' ')) widest = std::max(widest, displayWidth(word));
    return widest;
}

}  // namespace

int displayWidth(std::string_view text) {
    int width = 0;
    bool isColour = false;
    while (!text.empty()) {
        const char32_t character = takeCodePoint(text).value_or(replacementCharacter);
        if (character == escape) isColour = true;
        if (!isColour) width += characterWidth(character);
        if (character == 'm') isColour = false;
    }
    return width;
}

std::string padRight(std::string_view text, int width) {
    return std::string(text) + blanks(width - displayWidth(text));
}

std::string padLeft(std::string_view text, int width) {
    return blanks(width - displayWidth(text)) + std::string(text);
}

std::string wrapped(std::string_view text, int width, int indentation) {
    std::string lines;
    int column = 0;
    while (!text.empty()) {
        const std::string_view word = text.substr(0, text.find(' '));
        text.remove_prefix(std::min(text.size(), word.size() + 1));
        const int length = displayWidth(word);
        if (column > 0 && column + 1 + length > width) {
            while (lines.ends_with(' ')) lines.pop_back();
            lines += '\n';
            lines += blanks(indentation);
            column = indentation;
        } else if (!lines.empty()) {
            lines += ' ';
            ++column;
        }
        const bool isTooWide = column + length > width && word.find('/') == std::string_view::npos;
        lines += isTooWide ? broken(word, width - column, width - indentation, indentation) : std::string(word);
        column += length;
    }
    return lines;
}

std::string indented(std::string text, int indentation) {
    for (std::size_t at = 0; (at = text.find('\n', at)) != std::string::npos; ++at) {
        text.insert(at + 1, blanks(indentation));
    }
    return text;
}

std::string fitted(std::string_view text, int width) {
    std::string lines;
    for (const std::string& line : splitAt(text, '\n')) {
        const auto start = std::min(line.find_first_not_of(' '), line.size());
        const int indentation = std::min(static_cast<int>(start), width / 2);
        const bool fits = displayWidth(line) <= width;
        lines += fits
                     ? line
                     : blanks(indentation) + indented(wrapped(line.substr(start), width - indentation, 0), indentation);
        lines += '\n';
    }
    lines.pop_back();
    return lines;
}

std::vector<int> TextTable::columnWidths() const {
    std::vector<int> widths(columns_.size(), 0);
    for (const auto& row : rows_) {
        for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], displayWidth(row[i]));
    }
    return widths;
}

// Takes columns from the widest texts, down to their widest words.
bool TextTable::makeFit(std::vector<int>& widths, int width) const {
    constexpr int narrowestColumn = 12;
    std::vector<int> least(widths);
    for (std::size_t i = 0; i < widths.size(); ++i) {
        if (columns_[i] == Align::right) continue;
        least[i] = std::min(narrowestColumn, widths[i]);
        for (const auto& row : rows_) {
            if (i < row.size()) least[i] = std::max(least[i], widestWord(row[i]));
        }
    }
    const auto filled = static_cast<int>(std::ranges::count_if(widths, [](int each) { return each > 0; }));
    int excess = std::accumulate(widths.begin(), widths.end(), columnGap * std::max(0, filled - 1)) - width;
    for (; excess > 0; --excess) {
        std::size_t widest = widths.size();
        for (std::size_t i = 0; i < widths.size(); ++i) {
            if (widths[i] > least[i] && (widest == widths.size() || widths[i] > widths[widest])) widest = i;
        }
        if (widest == widths.size()) return false;
        --widths[widest];
    }
    return true;
}

std::string TextTable::rowText(const std::vector<std::string>& row, const std::vector<int>& widths) const {
    std::vector<std::vector<std::string>> cells;
    std::size_t height = 1;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const bool fits = displayWidth(row[i]) <= widths[i];
        cells.push_back(fits ? std::vector{row[i]} : splitAt(wrapped(row[i], widths[i], 0), '\n'));
        height = std::max(height, cells.back().size());
    }
    std::string text;
    for (std::size_t level = 0; level < height; ++level) {
        std::string line;
        bool isFirst = true;
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (widths[i] == 0) continue;
            if (!std::exchange(isFirst, false)) line += blanks(columnGap);
            const std::string part = level < cells[i].size() ? cells[i][level] : "";
            line += columns_[i] == Align::left ? padRight(part, widths[i]) : padLeft(part, widths[i]);
        }
        line.erase(line.find_last_not_of(' ') + 1);
        text += (level > 0 ? "\n" : "") + line;
    }
    return text;
}

std::vector<std::string> TextTable::lines(int width) const {
    constexpr int indentation = 4;
    std::vector<int> widths = columnWidths();
    const bool fits = makeFit(widths, width);
    std::vector<std::string> lines;
    for (const auto& row : rows_) {
        if (fits) {
            lines.push_back(rowText(row, widths));
            continue;
        }
        std::string words;
        for (const std::string& cell : row) {
            if (cell.find_first_not_of(' ') != std::string::npos) words += (words.empty() ? "" : "  ") + cell;
        }
        lines.push_back(wrapped(words, width, indentation));
    }
    return lines;
}

}  // namespace quode::terminal
