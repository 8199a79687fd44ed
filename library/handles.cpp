// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "library/handles.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <new>

#include "texts/utf8.h"

namespace quode::library {
namespace {

using std::chrono::sys_days;
using std::chrono::year;

constexpr sys_days firstDay = year(1582) / 10 / 15;  // of the Gregorian calendar

}  // namespace

void report(quode_error* error, quode_status status, const char* message) noexcept {
    if (error == nullptr) return;
    const std::string_view fitting = beginningOf(message, sizeof error->message - 1);
    error->status = status;
    *std::ranges::copy(fitting, error->message).out = '\0';
}

quode_status reportCurrent(quode_error* error) noexcept {
    quode_status status = QUODE_FAILED;
    try {
        throw;
    } catch (const Failure& failure) {
        status = failure.status();
        report(error, status, failure.what());
    } catch (const CityDatabaseError& failure) {
        status = QUODE_NO_DATA;
        report(error, status, failure.what());
    } catch (const std::bad_alloc&) {
        report(error, status, "There is not enough memory. Ask for fewer days or places.");
    } catch (const std::exception& failure) {
        report(error, status, failure.what());
    } catch (...) {
        report(error, status, "The library failed for an unknown reason.");
    }
    return status;
}

void checkPoint(double latitude, double longitude) {
    if (std::abs(latitude) <= 90.0 && std::abs(longitude) <= 180.0) return;  // false for what is no number
    throw Failure(QUODE_BAD_ARGUMENT,
                  "The point is not on the Earth. Give a latitude from -90 to 90 and a longitude from -180 to 180.");
}

std::optional<sys_days> dayOf(const quode_date& date) {
    if (date.year < 1582 || date.year > 9999 || date.month < 1 || date.month > 12 || date.day < 1 || date.day > 31) {
        return std::nullopt;
    }
    const std::chrono::year_month_day civil{year(date.year), std::chrono::month(static_cast<unsigned>(date.month)),
                                            std::chrono::day(static_cast<unsigned>(date.day))};
    if (!civil.ok() || sys_days(civil) < firstDay) return std::nullopt;
    return sys_days(civil);
}

quode_date dateOf(sys_days day) {
    const std::chrono::year_month_day civil(day);
    return {int(civil.year()), static_cast<std::int32_t>(unsigned(civil.month())),
            static_cast<std::int32_t>(unsigned(civil.day()))};
}

}  // namespace quode::library
