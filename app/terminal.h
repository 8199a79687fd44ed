// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What is known of the terminal, and writing to it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/Environment.h"

namespace quode::app {

/// Emphasis for a terminal; plain text without colours.
struct Style {
    bool colours = false;

    std::string strong(std::string_view text) const;  ///< a heading, the row that matters
    std::string dim(std::string_view text) const;     ///< remarks
    std::string warning(std::string_view text) const;
};

/// True when the standard output is a terminal that can be drawn on.
bool isTerminal(const Environment& environment);

/// The columns of the terminal to which the output goes: what $COLUMNS says, else the terminal itself. Nothing where
/// neither tells it.
std::optional<int> terminalColumns(const Environment& environment);

/// Keeps the standard streams from being taken by the next file that is opened, and a reader who goes away from ending
/// the program silently. To be called first.
void guardStandardStreams();

enum class WriteResult { written, readerGone, failed };

/// Writes everything to the standard output. After `failed`, errno tells why.
WriteResult writeOutput(std::string_view text);

/// Writes a line "quode: ..." to the standard error, with the name of the program.
void writeMessage(std::string_view text);

}  // namespace quode::app
