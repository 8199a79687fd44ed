// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The standard streams of a program, and what is known of its terminal.
#pragma once

#include <optional>
#include <string_view>

#include "app/failure.h"
#include "platform/Environment.h"

namespace quode::terminal {

/// True when the standard output is a terminal that can be drawn on.
bool isTerminal(const Environment& environment);

/// The columns of the terminal to which the output goes: $COLUMNS, else those of the terminal itself. Nothing where
/// neither is known.
std::optional<int> terminalColumns(const Environment& environment);

/// Keeps the next opened file from taking the place of a closed standard stream, and a reader who goes away from ending
/// the program silently. Call it first.
void guardStandardStreams();

enum class WriteResult { written, readerGone, failed };

/// Writes everything to the standard output. After `failed`, errno has the reason.
WriteResult writeOutput(std::string_view text);

/// Writes a line "quode: ..." to the standard error, with the name of the program.
void writeMessage(std::string_view text);

/// Writes the message of a problem; see `app::Session::Options`.
void writeProblem(const app::Problem& problem);

}  // namespace quode::terminal
