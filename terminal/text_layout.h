// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Text in columns, counted as a terminal shows it.
#pragma once

#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "texts/translation.h"

namespace quode::terminal {

/// The columns that text has where nothing is known of the terminal, and the most that it takes.
inline constexpr int pageWidth = 78;

inline constexpr int unlimitedWidth = std::numeric_limits<int>::max();

/// The fewest columns for which output is laid out.
inline constexpr int narrowestPage = 40;

/// The number of terminal columns that a UTF-8 text takes: combining marks and colours take none, wide characters two.
int displayWidth(std::string_view text);

std::string padRight(std::string_view text, int width);  ///< filled with blanks on the right
std::string padLeft(std::string_view text, int width);   ///< filled with blanks on the left

/// The text in lines of at most `width` columns, broken at blanks; later lines begin with `indentation` blanks. A word
/// wider than a line is broken too, unless it has a slash, as paths and addresses do.
std::string wrapped(std::string_view text, int width, int indentation);

/// A text whose lines after the first begin with blanks.
std::string indented(std::string text, int indentation);

/// The lines of a text as they are where they have at most `width` columns, else wrapped, each below its beginning.
std::string fitted(std::string_view text, int width);

/// Rows of cells, each column as wide as its widest cell, with two blanks between. Blanks at the end of a line are left
/// out.
class TextTable {
  public:
    enum class Align { left, right };

    explicit TextTable(std::vector<Align> columns) : columns_(std::move(columns)) {}

    void add(std::vector<std::string> cells) { rows_.push_back(std::move(cells)); }

    /// A text for each row, of one line. Where a row would be wider than `width` columns the texts of left-aligned
    /// columns are wrapped, and a row has more than one line; where that is not enough either, its cells follow each
    /// other as words do.
    std::vector<std::string> lines(int width) const;

  private:
    std::vector<int> columnWidths() const;
    bool makeFit(std::vector<int>& widths, int width) const;
    std::string rowText(const std::vector<std::string>& row, const std::vector<int>& widths) const;

    std::vector<Align> columns_;
    std::vector<std::vector<std::string>> rows_;
};

}  // namespace quode::terminal
