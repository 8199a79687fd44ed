// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "terminal/Console.h"

#include "terminal/streams.h"
#include "texts/reading_order.h"

namespace quode::terminal {
namespace {

std::string emphasised(bool colours, std::string_view code, std::string_view text) {
    if (!colours || text.empty()) return std::string(text);
    std::string marked("\x1b[");
    marked.append(code).append("m").append(text).append("\x1b[0m");
    return marked;
}

}  // namespace

std::string Style::strong(std::string_view text) const {
    return emphasised(colours, "1", text);
}

std::string Style::dim(std::string_view text) const {
    return emphasised(colours, "2", text);
}

std::string Style::warning(std::string_view text) const {
    return emphasised(colours, "33", text);
}

Console::Console(const Environment& environment, const Options& options)
    : session_(environment,
               {.language = options.language,
                .onProblem = [this](const app::Problem& problem) { report(problem.message, problem.code); }}),
      wantsJson_(options.json),
      drawsOnTerminal_(isTerminal(environment)) {
    if (const auto columns = terminalColumns(environment)) columns_ = std::max(*columns, narrowestPage);
    style_.colours = drawsOnTerminal_ && !options.noColours && !nonEmpty(environment, "NO_COLOR");
}

std::string Console::wrapped(std::string_view text, int indentation) const {
    return terminal::wrapped(text, textWidth(), indentation);
}

void Console::print(std::string_view line) {
    printData(inReadingOrder(columns_ ? fitted(line, *columns_) : std::string(line)));
}

void Console::printData(std::string_view line) {
    output_ += line;
    output_ += '\n';
}

void Console::print(const TextTable& table, int indentation) {
    const std::string blanks(static_cast<std::size_t>(indentation), ' ');
    for (const std::string& row : table.lines(rowWidth() - indentation)) print(blanks + indented(row, indentation));
}

void Console::printWarning(std::string_view text) {
    print(style_.warning(wrapped("! " + std::string(text), 2)));
}

void Console::report(std::string_view message, app::ExitCode code) {
    writeMessage(message);
    if (code != app::ExitCode::ok) exitCode_ = code;
}

}  // namespace quode::terminal
