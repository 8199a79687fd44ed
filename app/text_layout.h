// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Text in columns, counted as a terminal shows it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "texts/translation.h"

namespace quode::app {

/// The columns that a page has.
inline constexpr int pageWidth = 78;

/// The number of terminal columns that a UTF-8 text takes: combining marks take none, wide characters two.
int displayWidth(std::string_view text);

std::string padRight(std::string_view text, int width);  ///< filled with blanks on the right
std::string padLeft(std::string_view text, int width);   ///< filled with blanks on the left

/// The text in lines of at most `width` columns, broken at blanks; later lines begin with `indentation` blanks.
std::string wrapped(std::string_view text, int width, int indentation);

/// A number with a fixed count of decimals and this sign before them.
std::string decimalText(double value, int places, std::string_view decimalMark, bool withSign = false);

/// Rows of cells, each column as wide as its widest cell, with two blanks between. Blanks at the end of a line are left
/// out.
class TextTable {
  public:
    enum class Align { left, right };

    explicit TextTable(std::vector<Align> columns) : columns_(std::move(columns)) {}

    void add(std::vector<std::string> cells) { rows_.push_back(std::move(cells)); }

    /// The lines, without line breaks.
    std::vector<std::string> lines() const;

  private:
    std::vector<Align> columns_;
    std::vector<std::vector<std::string>> rows_;
};

}  // namespace quode::app
