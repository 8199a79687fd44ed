// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What the tests of the calendar stores share.
#pragma once

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include <unistd.h>

#include "platform/EventStore.h"
#include "platform/calendar_file.h"
#include "platform/file_calls.h"
#include "support/file_content.h"

namespace quode::test {

/// A folder that goes with its test.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "quode-calendar-XXXXXX").string();
        if (!::mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
        path_ = name;
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
};

inline void write(const std::filesystem::path& file, std::string_view content) {
    std::ofstream(file, std::ios::binary) << content;
}

/// Skips the waiting for the disk, in tests that save hundreds of times and cut no power.
class UnsynchronisedCalls : public FileCalls {
  public:
    int sync(int) override { return 0; }
};

/// Makes the call of a given number (from 1) go wrong.
class FaultyCalls : public FileCalls {
  public:
    enum class Fault { Fails, DiesBefore, DiesAfter };

    FaultyCalls(Fault fault, int atCall, int error = EIO) : fault_(fault), atCall_(atCall), error_(error) {}

    int calls() const { return calls_; }

    int createFile(const std::filesystem::path& path, mode_t mode) override {
        return at([&] { return FileCalls::createFile(path, mode); });
    }
    int openFolder(const std::filesystem::path& path) override {
        return at([&] { return FileCalls::openFolder(path); });
    }
    /// Writes a part only, as a full disk or a signal make it do.
    ssize_t write(int file, const void* bytes, std::size_t count) override {
        return at([&] { return FileCalls::write(file, bytes, count > 1 ? (count + 1) / 2 : count); });
    }
    int setOwnerAndMode(int file, uid_t owner, gid_t group, mode_t mode) override {
        return at([&] { return FileCalls::setOwnerAndMode(file, owner, group, mode); });
    }
    int setModificationTime(int file, const timespec& time) override {
        return at([&] { return FileCalls::setModificationTime(file, time); });
    }
    int sync(int file) override {
        return at([&] { return FileCalls::sync(file); });
    }
    int close(int file) override {
        const int result = FileCalls::close(file);
        return at([&] { return result; });
    }
    int link(const std::filesystem::path& from, const std::filesystem::path& to) override {
        return at([&] { return FileCalls::link(from, to); });
    }
    int rename(const std::filesystem::path& from, const std::filesystem::path& to) override {
        return at([&] { return FileCalls::rename(from, to); });
    }
    int exchange(const std::filesystem::path& one, const std::filesystem::path& other) override {
        return at([&] { return FileCalls::exchange(one, other); });
    }
    int unlink(const std::filesystem::path& path) override {
        return at([&] { return FileCalls::unlink(path); });
    }

  private:
    template <typename Call>
    auto at(const Call& call) -> decltype(call()) {
        const bool hit = ++calls_ == atCall_;
        if (hit && fault_ == Fault::DiesBefore) ::kill(::getpid(), SIGKILL);
        if (hit && fault_ == Fault::Fails) {
            errno = error_;
            return -1;
        }
        const auto result = call();
        if (hit && fault_ == Fault::DiesAfter) ::kill(::getpid(), SIGKILL);
        return result;
    }

    Fault fault_;
    int atCall_;
    int error_;
    int calls_ = 0;
};

inline constexpr std::chrono::sys_seconds kNow = std::chrono::sys_days(std::chrono::year(2025) / 3 / 1);

inline StoreSurroundings surroundingsWith(std::shared_ptr<FileCalls> files) {
    StoreSurroundings surroundings;
    surroundings.now = [] { return kNow; };
    surroundings.files = std::move(files);
    surroundings.lockPatience = std::chrono::milliseconds(200);
    return surroundings;
}

inline StoreSurroundings quickSurroundings() {
    return surroundingsWith(std::make_shared<UnsynchronisedCalls>());
}

/// An alarm of one minute at 05:00 UTC on a day of March 2025.
inline CalendarEvent alarmOnDay(unsigned dayOfMonth) {
    using namespace std::chrono;
    CalendarEvent event;
    event.title = "Prayer Alarm";
    event.location = "Quode";
    event.start = sys_days(year(2025) / March / day(dayOfMonth)) + hours(5);
    event.end = event.start + minutes(1);
    return event;
}

}  // namespace quode::test
