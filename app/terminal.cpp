// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/terminal.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

#include "common/printable.h"

namespace quode::app {
namespace {

std::string emphasised(bool colours, std::string_view code, std::string_view text) {
    if (!colours || text.empty()) return std::string(text);
    std::string marked("\x1b[");
    marked.append(code).append("m").append(text).append("\x1b[0m");
    return marked;
}

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

std::string Style::strong(std::string_view text) const {
    return emphasised(colours, "1", text);
}

std::string Style::dim(std::string_view text) const {
    return emphasised(colours, "2", text);
}

std::string Style::warning(std::string_view text) const {
    return emphasised(colours, "33", text);
}

bool isTerminal(const Environment& environment) {
    return isatty(STDOUT_FILENO) == 1 && environment("TERM").value_or("dumb") != "dumb";
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
    writeAll(STDERR_FILENO, std::string(program_invocation_short_name) + ": " + printableLines(text) + "\n");
}

}  // namespace quode::app
