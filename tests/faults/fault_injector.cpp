// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// A library that is loaded before the C library (LD_PRELOAD) and makes one call of a program go wrong: the program dies
// before it, or in the middle of it, or the call fails. Counted are the calls that concern files below FAULT_ROOT.
//
//   FAULT_ROOT    folders, separated by colons
//   FAULT_COUNTS  "changes": calls that change something; "all": those that open and read, too
//   FAULT_AT      the number of the call, from 1; 0: calls are only counted
//   FAULT_KIND    "kill": dies before it; "torn": dies after half of a write; "fail": it fails with FAULT_ERRNO;
//                 "full": it and every later one that needs room fails
//   FAULT_REPORT  a file to which the number of calls is written when the program ends
#include <dlfcn.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

namespace {

template <typename Function>
Function real(const char* name, Function) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

int numberIn(const char* name) {
    const char* const text = std::getenv(name);
    int value = 0;
    if (text) std::from_chars(text, text + std::strlen(text), value);
    return value;
}

std::string textIn(const char* name) {
    const char* const text = std::getenv(name);
    return text ? text : "";
}

struct Plan {
    std::string roots = textIn("FAULT_ROOT");
    std::string kind = textIn("FAULT_KIND");
    std::string report = textIn("FAULT_REPORT");
    bool countsAll = textIn("FAULT_COUNTS") == "all";
    int at = numberIn("FAULT_AT");
    int error = numberIn("FAULT_ERRNO");
    int calls = 0;
    std::array<bool, 1024> concerned{};

    ~Plan() {
        if (report.empty()) return;
        static const auto realOpen = real("open", &::open);
        static const auto realWrite = real("write", &::write);
        const int file = realOpen(report.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        const std::string text = std::to_string(calls) + "\n";
        if (file >= 0) [[maybe_unused]]
            const ssize_t ignored = realWrite(file, text.data(), text.size());
    }
};

Plan& plan() {
    static Plan one;
    return one;
}

bool concerns(const char* path) {
    std::string_view roots = plan().roots;
    if (!path) return false;
    while (!roots.empty()) {
        const std::string_view root = roots.substr(0, roots.find(':'));
        if (!root.empty() && std::string_view(path).starts_with(root)) return true;
        roots.remove_prefix(std::min(root.size() + 1, roots.size()));
    }
    return false;
}

bool concerns(int file) {
    return file >= 0 && file < static_cast<int>(plan().concerned.size()) &&
           plan().concerned[static_cast<std::size_t>(file)];
}

void note(int file, bool isConcerned) {
    if (file >= 0 && file < static_cast<int>(plan().concerned.size())) {
        plan().concerned[static_cast<std::size_t>(file)] = isConcerned;
    }
}

[[noreturn]] void die() {
    ::kill(::getpid(), SIGKILL);
    for (;;) ::pause();
}

enum class Call { opens, reads, changes, needsRoom };

// Whether this call is to fail; errno is set then. "torn" is left to those that write.
bool goesWrong(Call call, bool isConcerned) {
    Plan& all = plan();
    if (!isConcerned) return false;
    const bool counts = all.countsAll || call == Call::changes || call == Call::needsRoom;
    if (!counts) return false;
    ++all.calls;
    if (all.at == 0) return false;
    if (all.kind == "full" && call == Call::needsRoom && all.calls >= all.at) {
        errno = ENOSPC;
        return true;
    }
    if (all.calls != all.at) return false;
    if (all.kind == "kill" || (all.kind == "torn" && call != Call::needsRoom)) die();
    if (all.kind != "fail") return false;
    errno = all.error;
    return true;
}

bool isTorn() {
    return plan().kind == "torn" && plan().calls == plan().at;
}

int opened(int file, bool isConcerned) {
    note(file, isConcerned && file >= 0);
    return file;
}

bool takesMode(int flags) {
    return (flags & (O_CREAT | O_TMPFILE)) != 0;
}

Call callFor(int flags) {
    return (flags & (O_CREAT | O_TRUNC)) != 0 ? Call::needsRoom : Call::opens;
}

template <typename Open>
int openBy(Open next, const char* path, int flags, mode_t mode) {
    const bool isConcerned = concerns(path);
    if (goesWrong(callFor(flags), isConcerned)) return -1;
    return opened(next(path, flags, mode), isConcerned);
}

}  // namespace

extern "C" {

int open(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = takesMode(flags) ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    static const auto next = real("open", &::open);
    return openBy(next, path, flags, mode);
}

int open64(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = takesMode(flags) ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    static const auto next = real("open64", &::open64);
    return openBy(next, path, flags, mode);
}

int close(int file) {
    note(file, false);
    static const auto next = real("close", &::close);
    return next(file);
}

ssize_t read(int file, void* bytes, size_t count) {
    if (goesWrong(Call::reads, concerns(file))) return -1;
    static const auto next = real("read", &::read);
    return next(file, bytes, count);
}

ssize_t pread(int file, void* bytes, size_t count, off_t at) {
    if (goesWrong(Call::reads, concerns(file))) return -1;
    static const auto next = real("pread", &::pread);
    return next(file, bytes, count, at);
}

ssize_t pread64(int file, void* bytes, size_t count, off64_t at) {
    if (goesWrong(Call::reads, concerns(file))) return -1;
    static const auto next = real("pread64", &::pread64);
    return next(file, bytes, count, at);
}

ssize_t write(int file, const void* bytes, size_t count) {
    const bool isConcerned = concerns(file);
    if (goesWrong(Call::needsRoom, isConcerned)) return -1;
    static const auto next = real("write", &::write);
    if (isConcerned && isTorn()) {
        next(file, bytes, count / 2);
        die();
    }
    return next(file, bytes, count);
}

ssize_t pwrite(int file, const void* bytes, size_t count, off_t at) {
    const bool isConcerned = concerns(file);
    if (goesWrong(Call::needsRoom, isConcerned)) return -1;
    static const auto next = real("pwrite", &::pwrite);
    if (isConcerned && isTorn()) {
        next(file, bytes, count / 2, at);
        die();
    }
    return next(file, bytes, count, at);
}

ssize_t pwrite64(int file, const void* bytes, size_t count, off64_t at) {
    const bool isConcerned = concerns(file);
    if (goesWrong(Call::needsRoom, isConcerned)) return -1;
    static const auto next = real("pwrite64", &::pwrite64);
    if (isConcerned && isTorn()) {
        next(file, bytes, count / 2, at);
        die();
    }
    return next(file, bytes, count, at);
}

int fsync(int file) {
    if (goesWrong(Call::changes, concerns(file))) return -1;
    static const auto next = real("fsync", &::fsync);
    return plan().roots.empty() ? next(file) : 0;  // nobody pulls the plug here
}

int fdatasync(int file) {
    if (goesWrong(Call::changes, concerns(file))) return -1;
    static const auto next = real("fdatasync", &::fdatasync);
    return plan().roots.empty() ? next(file) : 0;
}

int ftruncate(int file, off_t size) {
    if (goesWrong(Call::changes, concerns(file))) return -1;
    static const auto next = real("ftruncate", &::ftruncate);
    return next(file, size);
}

int ftruncate64(int file, off64_t size) {
    if (goesWrong(Call::changes, concerns(file))) return -1;
    static const auto next = real("ftruncate64", &::ftruncate64);
    return next(file, size);
}

int rename(const char* from, const char* to) {
    if (goesWrong(Call::changes, concerns(to))) return -1;
    static const auto next = real("rename", &::rename);
    return next(from, to);
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) {
    if (goesWrong(Call::changes, concerns(to))) return -1;
    static const auto next = real("renameat2", &::renameat2);
    return next(fromFolder, from, toFolder, to, flags);
}

int link(const char* from, const char* to) {
    if (goesWrong(Call::needsRoom, concerns(to))) return -1;
    static const auto next = real("link", &::link);
    return next(from, to);
}

int unlink(const char* path) {
    if (goesWrong(Call::changes, concerns(path))) return -1;
    static const auto next = real("unlink", &::unlink);
    return next(path);
}

int mkdir(const char* path, mode_t mode) {
    if (goesWrong(Call::needsRoom, concerns(path))) return -1;
    static const auto next = real("mkdir", &::mkdir);
    return next(path, mode);
}

int fchmod(int file, mode_t mode) {
    if (goesWrong(Call::changes, concerns(file))) return -1;
    static const auto next = real("fchmod", &::fchmod);
    return next(file, mode);
}

int flock(int file, int operation) {
    if (goesWrong(Call::reads, concerns(file))) return -1;
    static const auto next = real("flock", &::flock);
    return next(file, operation);
}

}  // extern "C"
