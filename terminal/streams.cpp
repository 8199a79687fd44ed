// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "terminal/streams.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>

#include "common/numbers.h"
#include "common/printable.h"
#include "terminal/text_layout.h"
#include "texts/reading_order.h"

namespace quode::terminal {
namespace {

WriteResult writeAll(int stream, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = ::write(stream, text.data(), text.size());
        if (written >= 0) {
            text.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno != EINTR) {
            return errno == EPIPE ? WriteResult::readerGone : WriteResult::failed;
        }
    }
    return WriteResult::written;
}

}  // namespace

bool isTerminal(const Environment& environment) {
    return isatty(STDOUT_FILENO) == 1 && environment("TERM").value_or("dumb") != "dumb";
}

std::optional<int> terminalColumns(const Environment& environment) {
    constexpr int mostColumns = 10'000;
    const auto named = numberOf<int>(environment("COLUMNS").value_or(""));
    winsize size{};
    if (named && *named > 0 && *named <= mostColumns) return named;
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return std::nullopt;
    return size.ws_col;
}

void guardStandardStreams() {
    std::signal(SIGPIPE, SIG_IGN);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(stream, F_GETFD) != -1) continue;
        // The lowest free number is this stream's. The output stays closed to writing, so that its loss is noticed.
        const int mode = stream == STDERR_FILENO ? O_WRONLY : O_RDONLY;
        if (::open("/dev/null", mode) != stream) return;
    }
}

WriteResult writeOutput(std::string_view text) {
    return writeAll(STDOUT_FILENO, text);
}

void writeMessage(std::string_view text) {
    std::string message = std::string(program_invocation_short_name) + ": " + printableLines(text);
    winsize size{};
    if (ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) {
        message = fitted(message, std::max(narrowestPage, int{size.ws_col}));
    }
    writeAll(STDERR_FILENO, inReadingOrder(message) + "\n");
}

void writeProblem(const app::Problem& problem) {
    writeMessage(problem.message);
}

}  // namespace quode::terminal
