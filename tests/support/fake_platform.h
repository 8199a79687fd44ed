// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <chrono>
#include <map>
#include <memory>
#include <string>
#include <system_error>

#include "platform/Platform.h"

/// A device whose every fact is set by the test.
namespace quode::test {

/// A clock that stands still, in a zone with a fixed offset.
class FixedClock : public Clock {
  public:
    TimePoint present = std::chrono::sys_days(std::chrono::January / 1 / 2024);
    std::chrono::seconds offset{0};
    std::string zone = "UTC";

    TimePoint now() const override { return present; }
    std::chrono::seconds utcOffset(TimePoint) const override { return offset; }
    std::string zoneName() const override { return zone; }

    CivilTime civilTime(TimePoint moment) const override {
        const auto local = std::chrono::floor<std::chrono::seconds>(moment) + offset;
        const auto midnight = std::chrono::floor<std::chrono::days>(local);
        const std::chrono::year_month_day date(midnight);
        const std::chrono::hh_mm_ss time(local - midnight);
        return {int(date.year()),          int(unsigned(date.month())), int(unsigned(date.day())),
                int(time.hours().count()), int(time.minutes().count()), int(time.seconds().count())};
    }

    /// Sets the clock so that it shows this local date and time.
    void show(int year, int month, int day, int hour, int minute, int second) {
        const std::chrono::year_month_day date{std::chrono::year(year), std::chrono::month(unsigned(month)),
                                               std::chrono::day(unsigned(day))};
        present = std::chrono::sys_days(date) + std::chrono::hours(hour) + std::chrono::minutes(minute) +
                  std::chrono::seconds(second) - offset;
    }
};

/// A locale made of plain texts; English with 24 hours unless changed.
class FixedLocale : public Locale {
  public:
    std::string am = "AM";
    std::string pm = "PM";
    std::string pattern = "HH";
    std::array<std::string, 12> months{"January", "February", "March",     "April",   "May",      "June",
                                       "July",    "August",   "September", "October", "November", "December"};

    std::string amSymbol() const override { return am; }
    std::string pmSymbol() const override { return pm; }
    std::string hourPattern() const override { return pattern; }
    std::string shortMonthName(int month) const override { return monthName(month).substr(0, 3); }
    std::string monthName(int month) const override {
        return month >= 1 && month <= 12 ? months[static_cast<std::size_t>(month) - 1] : "";
    }

    std::string weekdayName(int weekday) const override {
        constexpr std::array<const char*, 7> names{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                   "Thursday", "Friday", "Saturday"};
        return weekday >= 0 && weekday < 7 ? names[static_cast<std::size_t>(weekday)] : "";
    }
    std::string shortWeekdayName(int weekday) const override { return weekdayName(weekday).substr(0, 3); }
    std::string decimalMark() const override { return "."; }

    std::string lowerAmSymbol() const override { return lowerCased(am); }
    std::string lowerPmSymbol() const override { return lowerCased(pm); }

    /// Knows the letters A to Z, Ö and Ş.
    static std::string lowerCased(std::string_view text) {
        std::string lower(text);
        std::transform(lower.begin(), lower.end(), lower.begin(),
                       [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
        for (const auto& [capital, small] : {std::pair{"Ö", "ö"}, std::pair{"Ş", "ş"}}) {
            for (std::size_t at; (at = lower.find(capital)) != std::string::npos;) lower.replace(at, 2, small);
        }
        return lower;
    }
};

/// A phone with a screen of 320 by 480 points unless changed.
class FixedDevice : public Device {
  public:
    std::optional<Idiom> kind = Idiom::phone;
    std::string version = "8.1";
    Rect bounds{0.0, 0.0, 320.0, 480.0};
    double scale = 2.0;

    std::optional<Idiom> idiom() const override { return kind; }
    std::string systemVersion() const override { return version; }
    Rect screenBounds() const override { return bounds; }
    double screenScale() const override { return scale; }
};

/// Files that live in memory, and that can be made to fail.
class MemoryFiles : public Files {
  public:
    std::map<std::string, std::string> contents;
    bool readOnly = false;  ///< every change fails
    bool broken = false;    ///< every operation fails

    bool exists(const std::filesystem::path& path) const override {
        failIf(broken, path);
        return contents.contains(path.string());
    }
    bool writable(const std::filesystem::path& path) const override {
        failIf(broken, path);
        return !readOnly;
    }
    bool deletable(const std::filesystem::path& path) const override { return exists(path) && !undeletable; }
    std::string read(const std::filesystem::path& path) const override {
        failIf(broken || !exists(path), path);
        return contents.at(path.string());
    }
    void append(const std::filesystem::path& path, std::string_view text) override {
        failIf(broken || readOnly, path);
        contents[path.string()] += text;
    }
    void write(const std::filesystem::path& path, std::string_view content) override {
        failIf(broken || readOnly, path);
        contents[path.string()] = content;
    }
    void remove(const std::filesystem::path& path) override {
        failIf(broken || readOnly, path);
        contents.erase(path.string());
    }
    void createFolders(const std::filesystem::path& path) override { failIf(broken, path); }

    bool undeletable = false;  ///< nothing may be deleted, but all may be written

  private:
    static void failIf(bool failing, const std::filesystem::path& path) {
        if (failing) {
            const auto reason = std::make_error_code(std::errc::permission_denied);
            throw std::filesystem::filesystem_error("refused", path, reason);
        }
    }
};

/// The parts of a platform whose facts a test sets; `platform()` is what GlobalFuncs takes.
struct FakePlatform {
    std::shared_ptr<FixedClock> clock = std::make_shared<FixedClock>();
    std::shared_ptr<FixedLocale> locale = std::make_shared<FixedLocale>();
    std::shared_ptr<FixedDevice> device = std::make_shared<FixedDevice>();
    std::shared_ptr<MemoryFiles> files = std::make_shared<MemoryFiles>();
    std::string dataFolder = "/data";

    Platform platform() const { return {clock, locale, device, files, dataFolder}; }
};

}  // namespace quode::test
