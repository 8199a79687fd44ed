// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What a command of `quode` writes.
#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include "app/json.h"
#include "app/session.h"
#include "terminal/text_layout.h"

namespace quode::terminal {

/// Emphasis for a terminal; plain text without colours.
struct Style {
    bool colours = false;

    std::string strong(std::string_view text) const;  ///< a heading, the row that matters
    std::string dim(std::string_view text) const;     ///< remarks
    std::string warning(std::string_view text) const;
};

/// The output of a command, laid out for the terminal, and the exit code; problems of its session go to the standard
/// error. Nothing is written to the standard output: the program writes `output()` at its end.
class Console {
  public:
    struct Options {
        std::optional<LanguageChoice> language = {};  ///< see app::Session::Options
        bool json = false;
        bool noColours = false;
    };

    Console(const Environment& environment, const Options& options);
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    app::Session& session() { return session_; }

    bool wantsJson() const { return wantsJson_; }
    const Style& style() const { return style_; }
    bool drawsOnTerminal() const { return drawsOnTerminal_; }

    /// The columns that output is laid out for: those of the terminal, else those of a page.
    int width() const { return columns_.value_or(pageWidth); }
    /// Those of a text for reading.
    int textWidth() const { return std::min(width(), pageWidth); }
    /// Those that rows are broken at; without a terminal they are not, for another program may read them.
    int rowWidth() const { return columns_.value_or(unlimitedWidth); }
    /// A text in lines that fit; later ones begin with blanks.
    std::string wrapped(std::string_view text, int indentation = 0) const;

    /// Adds a line to the output; it is wrapped where the terminal is narrower.
    void print(std::string_view line = "");
    /// Adds a line as it is, for another program to read.
    void printData(std::string_view line);
    /// Adds the lines of a table, after blanks.
    void print(const TextTable& table, int indentation);
    /// Adds a remark, wrapped and dimmed.
    void printRemark(std::string_view text) { print(style_.dim(wrapped(text))); }
    /// Adds a warning: "! " and the text, wrapped.
    void printWarning(std::string_view text);
    /// Adds bytes to the output as they are.
    void write(std::string_view bytes) { output_ += bytes; }
    /// Adds a JSON document to the output.
    void printJson(const app::Json& json) { output_ += json.text(); }
    const std::string& output() const { return output_; }

    /// Writes a message to the standard error. The program ends with `code` unless that is `ok`.
    void report(std::string_view message, app::ExitCode code = app::ExitCode::ok);

    /// What the program ends with after a command that did not throw.
    app::ExitCode exitCode() const { return exitCode_; }
    void endWith(app::ExitCode code) { exitCode_ = code; }

  private:
    app::Session session_;
    bool wantsJson_ = false;
    bool drawsOnTerminal_ = false;
    std::optional<int> columns_;  // of the terminal, where it is known
    Style style_;
    std::string output_;
    app::ExitCode exitCode_ = app::ExitCode::ok;
};

}  // namespace quode::terminal
