// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Quode as a library, for C++20. Everything here is a thin layer, compiled into the program, on the functions of
// quode_c.h; what is said there about units, ranges, threads and data holds here too.
//
// The names are in `quode`, by way of an inline namespace `v1`. A file that also includes the headers of the astronomy
// engine defines QUODE_EXPLICIT_VERSION first and writes `quode::v1::Place`, for the engine has names of its own in `quode`.
//
// Fixed names: everything in this header except `detail`. Programs use the names, so new ones may be added, and none is
// changed or removed.
#ifndef QUODE_QUODE_CPP_H
#define QUODE_QUODE_CPP_H

#include <quode/quode_c.h>

#include <array>
#include <chrono>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace quode {
#ifndef QUODE_EXPLICIT_VERSION
inline
#endif
    namespace v1 {

/// Thrown for a wrong argument, an unknown place and unusable data. A time that does not exist throws nothing.
class Error : public std::runtime_error {
  public:
    explicit Error(const quode_error& error) : std::runtime_error(error.message), status_(error.status) {}

    /// QUODE_BAD_ARGUMENT, QUODE_NOT_FOUND, QUODE_NO_DATA or QUODE_FAILED.
    quode_status status() const { return status_; }

  private:
    quode_status status_;
};

enum class Prayer : std::int32_t { fajr, sunrise, dhuhr, asr, maghrib, isha, ishraq, asrHanafi, isfirar };

/// Where a time comes from; see QUODE_BY_RULE and its neighbours.
enum class Origin : std::int32_t { rule, highLatitude, otherLatitude, earlierDay, ownRule };

/// Why there is no such time; see QUODE_SUN_NOT_LOW_ENOUGH and its neighbours.
enum class Absence : std::int32_t { present, sunNotLowEnough, sunNotHighEnough, sunNotAtHorizon };

enum class HijriCalendar : std::int32_t { table, ummAlQura };

/// The clock text of a minute.
/// @param minute  after 0 h, of whatever day
/// @return "05:43"; "--:--" for nothing
inline std::string clockText(std::optional<std::chrono::minutes> minute) {
    char text[6];
    quode_clock_text(minute ? static_cast<std::int32_t>(minute->count()) : QUODE_NO_MINUTE, text);
    return text;
}

/// One time of a day.
struct PrayerTime {
    Prayer prayer = Prayer::fajr;
    std::optional<std::chrono::sys_seconds> instant;  ///< of the shown minute; nothing when there is no such time
    std::optional<std::chrono::minutes> minute;       ///< as shown, after 0 h of the day
    double hours = 0.0;                               ///< see quode_time; NaN when there is none
    Origin origin = Origin::rule;
    Absence absence = Absence::present;
    int adjusted = 0;  ///< minutes that the method's "adjust" added

    bool exists() const { return instant.has_value(); }
    std::string clock() const { return clockText(minute); }
    /// "fajr", "asr_hanafi".
    const char* key() const { return quode_time_key(static_cast<std::int32_t>(prayer)); }
    /// A sentence; empty for a time that exists.
    const char* whyMissing() const { return quode_absence_text(static_cast<std::int32_t>(absence)); }
};

/// The times of a day.
///
/// @code
///   const quode::Day day = quode::dayFor(quode::findPlace("Cairo"), std::chrono::year(2026) / 3 / 20);
///   for (const quode::PrayerTime& time : day.times) std::cout << time.key() << ' ' << time.clock() << '\n';
///   if (!day[quode::Prayer::isha].exists()) std::cout << day[quode::Prayer::isha].whyMissing() << '\n';
/// @endcode
struct Day {
    std::chrono::year_month_day date;
    std::chrono::seconds utcOffset{};  ///< east of Greenwich, summer time included
    bool isSummerTime = false;
    std::array<PrayerTime, QUODE_TIME_COUNT> times;  ///< in the order of `Prayer`

    const PrayerTime& operator[](Prayer prayer) const { return times[static_cast<std::size_t>(prayer)]; }
};

/// A coming prayer.
struct NextPrayer {
    Prayer prayer = Prayer::fajr;
    std::chrono::sys_seconds instant;
    std::chrono::minutes minute{};     ///< as shown, after 0 h of `date`
    std::chrono::year_month_day date;  ///< the day to which the time belongs

    std::string clock() const { return clockText(minute); }
    const char* key() const { return quode_time_key(static_cast<std::int32_t>(prayer)); }
};

struct Qibla {
    double bearing = 0.0;     ///< degrees clockwise from true north
    double distanceKm = 0.0;  ///< along the great circle
};

struct HijriDate {
    int year = 0, month = 0, day = 0;

    friend auto operator<=>(const HijriDate&, const HijriDate&) = default;
};

/// A method of calculation, as the lists of users show it.
struct MethodName {
    std::string_view key;   ///< "diyanet"
    std::string_view name;  ///< "Diyanet, Türkiye"
};

/// What the operations below have in common; not for programs.
namespace detail {

inline void check(quode_status status, const quode_error& error) {
    if (status != QUODE_OK) throw Error(error);
}

inline quode_date dateOf(const std::chrono::year_month_day& date) {
    return {static_cast<int>(date.year()), static_cast<std::int32_t>(static_cast<unsigned>(date.month())),
            static_cast<std::int32_t>(static_cast<unsigned>(date.day()))};
}

inline std::chrono::year_month_day dateOf(const quode_date& date) {
    return {std::chrono::year(date.year), std::chrono::month(static_cast<unsigned>(date.month)),
            std::chrono::day(static_cast<unsigned>(date.day))};
}

inline PrayerTime timeOf(Prayer prayer, const quode_time& time) {
    PrayerTime result{prayer, {}, {}, time.hours, Origin(time.origin), Absence(time.absence), time.adjusted};
    if (time.absence != QUODE_PRESENT) return result;
    result.instant = std::chrono::sys_seconds(std::chrono::seconds(time.instant));
    result.minute = std::chrono::minutes(time.minute);
    return result;
}

inline Day dayOf(const quode_day& day) {
    Day result{dateOf(day.date), std::chrono::seconds(day.utc_offset), day.is_summer_time != 0, {}};
    for (std::size_t i = 0; i < result.times.size(); ++i) {
        result.times[i] = timeOf(Prayer(static_cast<std::int32_t>(i)), day.times[i]);
    }
    return result;
}

}  // namespace detail

/// A place with its clock and the method of its times. A copy costs little; many threads may use it at once.
///
/// @code
///   const quode::Place ankara = quode::findPlace("Ankara").withMethod("diyanet");
///   std::cout << ankara.name() << ", " << ankara.zone() << '\n';
/// @endcode
class Place {
  public:
    /// @param handle  of quode_c.h; the object frees it
    /// @throw Error  made of `error`, when the handle is null
    Place(quode_place* handle, const quode_error& error) : handle_(handle, quode_place_free) {
        if (handle == nullptr) throw Error(error);
    }

    int id() const { return quode_place_id(get()); }  ///< 0 for a point
    std::string_view name() const { return quode_place_name(get()); }
    std::string_view region() const { return quode_place_region(get()); }
    std::string_view country() const { return quode_place_country(get()); }  ///< ISO 3166-1 alpha-2
    std::string_view zone() const { return quode_place_zone(get()); }        ///< IANA name
    std::string_view method() const { return quode_place_method(get()); }
    double latitude() const { return quode_place_latitude(get()); }
    double longitude() const { return quode_place_longitude(get()); }
    std::int64_t population() const { return quode_place_population(get()); }  ///< 0 when not known

    /// The same place with another method.
    /// @param method  such as "diyanet" or "mwl asr=2"
    /// @throw Error  for an unknown method
    Place withMethod(const std::string& method) const {
        quode_error error{};
        return Place(quode_place_with_method(get(), method.c_str(), &error), error);
    }

    /// The handle for the functions of quode_c.h; it stays the object's.
    const quode_place* get() const { return handle_.get(); }

  private:
    std::shared_ptr<const quode_place> handle_;
};

/// The database of places and zones, for programs that look up many. One object serves many threads.
///
/// @code
///   const quode::Database database;
///   for (const quode::Place& place : database.search("istanb")) std::cout << place.name() << '\n';
///   const quode::Place here = database.at(51.5, -0.12, "Europe/London");
/// @endcode
class Database {
  public:
    /// @param bundle  the folder "Quode.bundle"; that of the installation when the text is empty
    /// @throw Error  when there is no database, or a damaged one
    explicit Database(const std::string& bundle = {}) {
        quode_error error{};
        data_.reset(quode_data_open(bundle.empty() ? nullptr : bundle.c_str(), &error), quode_data_close);
        if (!data_) throw Error(error);
    }

    /// The edition of the data, such as "places 2026-09, zones 2026f".
    std::string_view edition() const { return quode_data_edition(data_.get()); }

    /// The most populous place with a name.
    /// @param name  with country or region where needed, as "London, CA"
    /// @throw Error  when no place has the name; the message proposes others
    Place find(const std::string& name) const {
        quode_error error{};
        return Place(quode_place_find(data_.get(), name.c_str(), &error), error);
    }

    /// Places by the beginning of a name; forgives a typing mistake.
    /// @return at most `limit` places, the best first
    std::vector<Place> search(const std::string& text, std::size_t limit = 10) const {
        quode_error error{};
        std::vector<quode_place*> handles(limit);
        handles.resize(quode_place_search(data_.get(), text.c_str(), handles.data(), limit, &error));
        detail::check(error.status, error);
        std::vector<Place> places;
        places.reserve(handles.size());
        for (quode_place* handle : handles) places.emplace_back(handle, error);
        return places;
    }

    /// The place with a number of the database.
    /// @param id  as `Place::id` gives it
    /// @throw Error  for an unknown number
    Place byId(int id) const {
        quode_error error{};
        return Place(quode_place_by_id(data_.get(), id, &error), error);
    }

    /// The place of the database nearest to a point.
    Place nearest(double latitude, double longitude) const {
        quode_error error{};
        return Place(quode_place_nearest(data_.get(), latitude, longitude, &error), error);
    }

    /// A point as a place.
    /// @param zone  an IANA name; empty: the zone of the nearest place
    /// @throw Error  for a point out of range and an unknown zone
    Place at(double latitude, double longitude, const std::string& zone = {}) const {
        quode_error error{};
        const char* given = zone.empty() ? nullptr : zone.c_str();
        return Place(quode_place_at(data_.get(), latitude, longitude, given, &error), error);
    }

  private:
    std::shared_ptr<quode_data> data_;
};

/// The same as the members of `Database`, with a database that is opened for the call.
inline Place findPlace(const std::string& name) {
    return Database().find(name);
}
inline std::vector<Place> searchPlaces(const std::string& text, std::size_t limit = 10) {
    return Database().search(text, limit);
}
inline Place placeAt(double latitude, double longitude, const std::string& zone = {}) {
    return Database().at(latitude, longitude, zone);
}

/// The times of a day.
/// @throw Error  for a date that does not exist or is out of range
inline Day dayFor(const Place& place, std::chrono::year_month_day date) {
    quode_error error{};
    quode_day day{};
    detail::check(quode_day_of(place.get(), detail::dateOf(date), &day, &error), error);
    return detail::dayOf(day);
}

inline Day dayFor(double latitude, double longitude, const std::string& zone, std::chrono::year_month_day date,
                  const std::string& method = "quode") {
    return dayFor(placeAt(latitude, longitude, zone).withMethod(method), date);
}

/// The times of days in a row.
/// @param days  receives them, as many as it has room for
/// @throw Error  as `dayFor` does
inline void daysFor(const Place& place, std::chrono::year_month_day first, std::span<Day> days) {
    quode_error error{};
    std::vector<quode_day> records(days.size());
    detail::check(quode_days_of(place.get(), detail::dateOf(first), days.size(), records.data(), &error), error);
    for (std::size_t i = 0; i < days.size(); ++i) days[i] = detail::dayOf(records[i]);
}

inline std::vector<Day> daysFor(const Place& place, std::chrono::year_month_day first, std::size_t count) {
    std::vector<Day> days(count);
    daysFor(place, first, days);
    return days;
}

/// The first of the six main times after an instant.
/// @return nothing when yesterday, today and tomorrow have none
inline std::optional<NextPrayer> nextPrayer(const Place& place, std::chrono::sys_seconds instant) {
    quode_error error{};
    quode_next next{};
    const quode_status status = quode_next_of(place.get(), instant.time_since_epoch().count(), &next, &error);
    if (status == QUODE_NOT_FOUND) return std::nullopt;
    detail::check(status, error);
    return NextPrayer{Prayer(next.prayer), std::chrono::sys_seconds(std::chrono::seconds(next.instant)),
                      std::chrono::minutes(next.minute), detail::dateOf(next.date)};
}

/// The date on a place's clock at an instant.
inline std::chrono::year_month_day dateAt(const Place& place, std::chrono::sys_seconds instant) {
    return detail::dateOf(quode_date_at(place.get(), instant.time_since_epoch().count()));
}

/// The direction and distance of the Kaaba.
/// @throw Error  for a point out of range
inline Qibla qibla(double latitude, double longitude) {
    quode_error error{};
    quode_qibla qibla{};
    detail::check(quode_qibla_at(latitude, longitude, &qibla, &error), error);
    return {qibla.bearing, qibla.distance_km};
}

inline Qibla qibla(const Place& place) {
    return qibla(place.latitude(), place.longitude());
}

/// The Hijri date of a day.
/// @return nothing where the calendar does not reach it
inline std::optional<HijriDate> hijriDate(std::chrono::year_month_day date,
                                          HijriCalendar calendar = HijriCalendar::table) {
    quode_date hijri{};
    if (quode_hijri_of(detail::dateOf(date), static_cast<std::int32_t>(calendar), &hijri) == 0) return std::nullopt;
    return HijriDate{hijri.year, hijri.month, hijri.day};
}

/// The day of a Hijri date.
/// @return nothing where the calendar has no such date
inline std::optional<std::chrono::year_month_day> gregorianDate(HijriDate hijri,
                                                                HijriCalendar calendar = HijriCalendar::table) {
    quode_date date{};
    const quode_date asked{hijri.year, hijri.month, hijri.day};
    if (quode_date_of_hijri(asked, static_cast<std::int32_t>(calendar), &date) == 0) return std::nullopt;
    return detail::dateOf(date);
}

/// All methods; the first is the default.
inline std::vector<MethodName> methods() {
    std::vector<MethodName> names;
    for (std::size_t i = 0; i < quode_method_count(); ++i) names.push_back({quode_method_key(i), quode_method_name(i)});
    return names;
}

}  // namespace v1
}  // namespace quode

#endif
