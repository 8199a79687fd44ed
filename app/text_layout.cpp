// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/text_layout.h"

#include <fmt/format.h>

#include <algorithm>

#include "texts/character_width.h"
#include "texts/utf8.h"

namespace quode::app {
namespace {

constexpr int columnGap = 2;
constexpr char32_t replacementCharacter = 0xFFFD;

std::string blanks(int count) {
    return std::string(static_cast<std::size_t>(std::max(0, count)), ' ');
}

}  // namespace

int displayWidth(std::string_view text) {
    int width = 0;
    while (!text.empty()) width += characterWidth(takeCodePoint(text).value_or(replacementCharacter));
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
            lines += '\n';
            lines += blanks(indentation);
            column = indentation;
        } else if (!lines.empty()) {
            lines += ' ';
            ++column;
        }
        lines += word;
        column += length;
    }
    return lines;
}

std::string decimalText(double value, int places, std::string_view decimalMark, bool withSign) {
    std::string text = withSign ? fmt::format("{:+.{}f}", value, places) : fmt::format("{:.{}f}", value, places);
    if (places > 0) text.replace(text.find('.'), 1, decimalMark);
    return text;
}

std::vector<std::string> TextTable::lines() const {
    std::vector<int> widths(columns_.size(), 0);
    for (const auto& row : rows_) {
        for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], displayWidth(row[i]));
    }
    std::vector<std::string> lines;
    for (const auto& row : rows_) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (widths[i] == 0) continue;
            if (!line.empty()) line += blanks(columnGap);
            line += columns_[i] == Align::left ? padRight(row[i], widths[i]) : padLeft(row[i], widths[i]);
        }
        line.erase(line.find_last_not_of(' ') + 1);
        lines.push_back(std::move(line));
    }
    return lines;
}

}  // namespace quode::app
