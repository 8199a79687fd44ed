// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What stands behind the handles of quode_c.h, and how a failure becomes a `quode_error`.
#pragma once

#include <quode/quode_c.h>

#include <mutex>
#include <optional>
#include <stdexcept>
#include <string>

#include "data/CityDatabase.h"
#include "data/city_day.h"

/// The database, with the lock by which threads share it.
struct quode_data {
    std::mutex mutex;
    quode::CityDatabase cities;
    std::string edition;
};

struct quode_place {
    quode::CityRecord record;
    quode::Site site;
    std::string method;
};

namespace quode::library {

/// What a function of the library reports to its caller.
class Failure : public std::runtime_error {
  public:
    Failure(quode_status status, const std::string& message) : std::runtime_error(message), status_(status) {}
    quode_status status() const { return status_; }

  private:
    quode_status status_;
};

/// Writes a failure where the caller wants it.
void report(quode_error* error, quode_status status, const char* message) noexcept;

/// Reports the exception that is being handled, and gives its status.
quode_status reportCurrent(quode_error* error) noexcept;

/// What `work` returns; `onFailure` when it throws, which is reported. No exception reaches a caller from C.
template <typename Result, typename Work>
Result guarded(quode_error* error, Result onFailure, const Work& work) noexcept {
    try {
        return work();
    } catch (...) {
        reportCurrent(error);
        return onFailure;
    }
}

/// The same for functions that return a status.
template <typename Work>
quode_status guarded(quode_error* error, const Work& work) noexcept {
    try {
        work();
        return QUODE_OK;
    } catch (...) {
        return reportCurrent(error);
    }
}

/// Throws `Failure` for coordinates that are not on the Earth.
void checkPoint(double latitude, double longitude);

/// A date of the caller as a day. Nothing when there is no such date, or it is out of the library's range.
std::optional<std::chrono::sys_days> dayOf(const quode_date& date);
quode_date dateOf(std::chrono::sys_days day);

/// The last day of the library's range.
inline constexpr std::chrono::sys_days lastDay = std::chrono::year(9999) / 12 / 31;

}  // namespace quode::library
