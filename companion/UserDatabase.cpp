// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "companion/UserDatabase.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "alarms/user_database_schema.h"
#include "common/numbers.h"
#include "common/printable.h"
#include "common/utf8.h"
#include "companion/AlarmHabits.h"
#include "companion/RingRecords.h"
#include "companion/SiteChoices.h"
#include "companion/user_connection.h"
#include "data/user_places.h"
#include "texts/translation.h"

namespace quode {
namespace {

using std::chrono::sys_seconds;
using Reason = UserDatabaseError::Reason;

[[noreturn]] void refuse(const std::string& message) {
    throw UserDatabaseError(Reason::refused, message);
}

void checkCode(int code) {
    if (!isMainPrayer(code)) refuse(_("There is no alarm for the prayer code {}.", code));
}

bool isBlank(const std::string& text) {
    return text.find_first_not_of(" \t\r\n") == std::string::npos;
}

// The row of a city among the user's; refuses when it is not there.
template <typename Rows>
auto rowOf(Rows& rows, int id) {
    const auto row = std::ranges::find(rows, id, [](const auto& each) { return each.id; });
    if (row == rows.end()) refuse(_("City {} is not in your list. Show your cities: quode city list.", id));
    return row;
}

}  // namespace

UserDatabase::UserDatabase(const std::filesystem::path& dataFolder, const CityDatabase& cities, const Clock& device,
                           std::chrono::milliseconds patience)
    : UserDatabase(dataFolder, cities, device, patience, true) {}

UserDatabase::UserDatabase(const std::filesystem::path& dataFolder, const CityDatabase& cities, const Clock& device,
                           std::chrono::milliseconds patience, bool isToLast)
    : cities_(&cities),
      device_(&device),
      connection_(std::make_shared<UserConnection>(
          userDatabaseFile(dataFolder), patience, [this] { return firstCity(); }, notices_, isToLast)) {
    if (!connection_->isNew()) return;
    RingRecords::reserve(dataFolder);  // the alarm service tries again, and reports a failure
    refreshPrayerTimes();
}

UserDatabase::UserDatabase(std::shared_ptr<UserConnection> connection, const CityDatabase& cities, const Clock& device)
    : cities_(&cities), device_(&device), connection_(std::move(connection)) {}

UserDatabase UserDatabase::makeTemporary(const std::filesystem::path& dataFolder, const CityDatabase& cities,
                                         const Clock& device) {
    return UserDatabase(dataFolder, cities, device, usualPatience, false);
}

std::optional<UserDatabase> UserDatabase::openToRead(const std::filesystem::path& dataFolder,
                                                     const CityDatabase& cities, const Clock& device,
                                                     std::chrono::milliseconds patience) {
    const std::filesystem::path file = userDatabaseFile(dataFolder);
    std::error_code unreachable;  // such a file is reported when it is opened
    if (!std::filesystem::exists(file, unreachable) && !unreachable) return std::nullopt;
    auto connection = std::make_shared<UserConnection>(file, patience);
    if (connection->isEmpty()) return std::nullopt;
    return UserDatabase(std::move(connection), cities, device);
}

std::optional<UserDatabase> UserDatabase::again() const {
    if (connection_->isOfAnotherFile()) return std::nullopt;
    return UserDatabase(connection_, *cities_, *device_);
}

UserDatabase::~UserDatabase() = default;
UserDatabase::UserDatabase(UserDatabase&&) noexcept = default;

const std::filesystem::path& UserDatabase::file() const {
    return connection_->file();
}

// The largest city of the device's zone. Without one the user gets a notice.
std::optional<int> UserDatabase::firstCity() {
    const std::string zone = device_->zoneName();
    if (const std::optional<CityRecord> city = cities_->largestCityOfZone(zone)) return city->id;
    notices_.push_back(
        zone.empty()
            ? std::string(_("The time zone of this device has no name. Add your city: quode city add NAME."))
            : _("There is no city in the time zone of this device, {}. Add your city: quode city add NAME.", zone));
    return cities_->city(fallbackCity) ? std::optional(fallbackCity) : std::nullopt;
}

std::optional<int> UserDatabase::guessedHome() const {
    return numberOf<int>(setting(guessedHomeSetting).value_or(""));
}

void UserDatabase::forgetGuess() {
    connection_->run("DELETE FROM USER_SETTING WHERE NAME = ?", {std::string(guessedHomeSetting)});
}

// --- cities

std::vector<UserDatabase::CityRow> UserDatabase::cityRows() const {
    std::vector<CityRow> rows;
    const sqlite::Statement row = connection_->query("SELECT ID, SETASHOME FROM USER_CITY ORDER BY rowid");
    while (connection_->next(row)) {
        rows.push_back({sqlite3_column_int(row.get(), 0), sqlite3_column_int(row.get(), 1) == 1});
    }
    return rows;
}

// Writes all cities, with exactly one of them as home.
void UserDatabase::writeCityRows(std::vector<CityRow> rows) {
    auto home = std::ranges::find(rows, true, &CityRow::isHome);
    if (home == rows.end()) home = rows.begin();
    for (auto row = rows.begin(); row != rows.end(); ++row) row->isHome = row == home;
    connection_->run("DELETE FROM USER_CITY");
    for (const CityRow& row : rows) {
        connection_->run("INSERT OR IGNORE INTO USER_CITY (ID, SETASHOME) VALUES (?, ?)", {row.id, row.isHome ? 1 : 0});
    }
    refreshPrayerTimes();
}

std::optional<CityRecord> UserDatabase::place(int id) const {
    auto place = isUserPlace(id) ? userPlace(connection_->handle(), *cities_, id) : cities_->city(id);
    if (place) place->choice = readSiteChoice(connection_->handle(), id);
    return place;
}

std::vector<UserCity> UserDatabase::cities() const {
    std::vector<UserCity> cities;
    for (const CityRow& row : cityRows()) cities.push_back({row.id, row.isHome, place(row.id)});
    return cities;
}

std::optional<UserCity> UserDatabase::home() const {
    const std::vector<CityRow> rows = cityRows();
    if (rows.empty()) return std::nullopt;
    auto home = std::ranges::find(rows, true, &CityRow::isHome);
    if (home == rows.end()) home = rows.begin();
    return UserCity{home->id, true, place(home->id), home->id == guessedHome()};
}

bool UserDatabase::addCity(int id) {
    bool isAdded = false;
    connection_->change([&] {
        std::vector<CityRow> rows = cityRows();
        const std::optional<int> guess = guessedHome();
        if (guess == id) forgetGuess();  // who names it has chosen it
        if (std::ranges::find(rows, id, &CityRow::id) != rows.end()) return;
        if (guess == fallbackCity) std::erase_if(rows, [](const CityRow& row) { return row.id == fallbackCity; });
        if (!place(id)) refuse(_("There is no city with the number {}.", id));
        rows.push_back({id, rows.empty()});
        writeCityRows(std::move(rows));
        isAdded = true;
    });
    return isAdded;
}

int UserDatabase::addPlace(const NewPlace& newPlace) {
    if (isBlank(newPlace.name)) refuse(_("A place needs a name."));
    if (!isUtf8(newPlace.name) || hasControls(newPlace.name)) {
        refuse(_("The name of the place has control characters or is not UTF-8. Use letters, digits and punctuation."));
    }
    const std::optional<NearestCity> nearest = cities_->nearest(newPlace.latitude, newPlace.longitude);
    if (!nearest) {
        refuse(_("The coordinates {}, {} are out of range: latitudes are -90 to 90, longitudes -180 to 180.",
                 newPlace.latitude, newPlace.longitude));
    }
    if (!newPlace.zone.empty() && !cities_->largestCityOfZone(newPlace.zone)) {
        refuse(_("There is no time zone \"{}\" with cities. Use a name such as Europe/Istanbul.", newPlace.zone));
    }
    int id = 0;
    connection_->change([&] {
        id = samePlace(newPlace);
        if (id != 0) {
            addCity(id);
            return;
        }
        const sqlite::Statement lowest = connection_->query(
            "SELECT MIN(0, COALESCE(MIN(ID), 0)) - 1 FROM (SELECT ID FROM USER_PLACE UNION ALL SELECT ID FROM "
            "USER_CITY)");
        connection_->next(lowest);
        id = sqlite3_column_int(lowest.get(), 0);
        connection_->run("INSERT INTO USER_PLACE (ID, NAME, LATITUDE, LONGITUDE, ZONE) VALUES (?, ?, ?, ?, ?)",
                         {id, newPlace.name, newPlace.latitude, newPlace.longitude,
                          newPlace.zone.empty() ? nearest->city.zone : newPlace.zone});
        addCity(id);
    });
    return id;
}

// The number of a place that is the same in all; 0 for none.
int UserDatabase::samePlace(const NewPlace& wanted) const {
    for (const UserCity& each : cities()) {
        const bool isSame = isUserPlace(each.id) && each.city && each.city->name == wanted.name &&
                            each.city->latitude == wanted.latitude && each.city->longitude == wanted.longitude &&
                            (wanted.zone.empty() || each.city->zone == wanted.zone);
        if (isSame) return each.id;
    }
    return 0;
}

void UserDatabase::removeCity(int id) {
    connection_->change([&] {
        std::vector<CityRow> rows = cityRows();
        rows.erase(rowOf(rows, id));
        connection_->run("DELETE FROM USER_PLACE WHERE ID = ?", {id});
        forgetSiteChoice(*connection_, id);
        writeCityRows(std::move(rows));
    });
}

void UserDatabase::moveCity(int id, std::size_t position) {
    connection_->change([&] {
        std::vector<CityRow> rows = cityRows();
        const auto row = rowOf(rows, id);
        if (position >= rows.size()) {
            refuse(_("Position {} is out of range (1–{}).", position + 1, rows.size()));
        }
        const CityRow moved = *row;
        rows.erase(row);
        rows.insert(rows.begin() + static_cast<std::ptrdiff_t>(position), moved);
        writeCityRows(std::move(rows));
    });
}

void UserDatabase::chooseHome(int id) {
    connection_->change([&] {
        std::vector<CityRow> rows = cityRows();
        const auto home = rowOf(rows, id);
        forgetGuess();
        for (CityRow& row : rows) row.isHome = false;
        home->isHome = true;
        writeCityRows(std::move(rows));
    });
}

// --- alarms

std::vector<UserAlarm> UserDatabase::readAlarms(const std::string& condition) const {
    std::vector<UserAlarm> alarms;
    const sqlite::Statement row =
        connection_->query("SELECT TIMEID, MINUTE, PRAYTIME, MELODYNAME, ACTIVE, EVENTID FROM USER_ALARMS WHERE " +
                           condition + " ORDER BY TIMEID");
    while (connection_->next(row)) {
        sqlite3_stmt* const columns = row.get();
        // A number that another program wrote may be any.
        const auto offset =
            std::clamp<long long>(sqlite3_column_int64(columns, 1), -largestAlarmOffset, largestAlarmOffset);
        std::string sound = sqlite::text(columns, 3);
        if (sound == usualSound) sound.clear();
        alarms.push_back({prayerOfAlarm(sqlite3_column_int(columns, 0)), static_cast<int>(offset),
                          sqlite3_column_double(columns, 2), std::move(sound), sqlite3_column_int(columns, 4) != 0,
                          sqlite::text(columns, 5)});
    }
    readHabits(*connection_, alarms);
    return alarms;
}

std::vector<UserAlarm> UserDatabase::alarms() const {
    return readAlarms("TIMEID BETWEEN 1 AND 6");
}

UserAlarm UserDatabase::alarm(int code) const {
    checkCode(code);
    const std::vector<UserAlarm> found = readAlarms("TIMEID = " + std::to_string(alarmNumber(code)));
    if (found.empty()) refuse(_("The alarm of the prayer code {} is missing.", code));
    return found.front();
}

void UserDatabase::setUpAlarm(int code, int offset, const std::string& sound) {
    checkCode(code);
    if (std::abs(offset) > largestAlarmOffset) {
        refuse(_("An alarm rings at most {} minutes before or after its time, not {}.", largestAlarmOffset, offset));
    }
    connection_->change([&] {
        connection_->run("UPDATE USER_ALARMS SET MINUTE = ?, MELODYNAME = ? WHERE TIMEID = ?",
                         {offset, sound.empty() ? std::string(usualSound) : sound, alarmNumber(code)});
        refreshPrayerTimes();
    });
}

std::vector<AlarmOccurrence> UserDatabase::refreshPrayerTimes() {
    const std::optional<UserCity> homeCity = home();
    if (!homeCity || !homeCity->city) return {};
    requireReadableChoice(*homeCity->city);
    const sys_seconds now = std::chrono::floor<std::chrono::seconds>(device_->now());
    std::vector<AlarmOccurrence> next;
    std::vector<std::pair<int, double>> changed;
    const std::vector<UserAlarm> all = alarms();
    std::vector<AlarmRule> rules;
    for (const UserAlarm& alarm : all) rules.push_back(alarm.rule());
    const std::vector<AlarmOccurrence> ofTheDay =
        alarmOccurrences(siteOf(*homeCity->city), rules, now, now + std::chrono::hours(25));
    for (const UserAlarm& alarm : all) {
        const auto first = std::ranges::find(ofTheDay, alarm.code, &AlarmOccurrence::code);
        if (first == ofTheDay.end()) continue;
        const std::optional<double> prayTime = prayTimeFor(*device_, now, first->due, alarm.offset);
        if (!prayTime) continue;
        next.push_back(*first);
        if (*prayTime != alarm.prayTime) changed.emplace_back(alarm.code, *prayTime);
    }
    if (changed.empty()) return next;
    connection_->change([&] {
        for (const auto& [code, prayTime] : changed) {
            connection_->run("UPDATE USER_ALARMS SET PRAYTIME = ? WHERE TIMEID = ?", {prayTime, alarmNumber(code)});
        }
    });
    return next;
}

// --- settings

std::optional<std::string> UserDatabase::setting(std::string_view name) const {
    const sqlite::Statement row =
        connection_->query("SELECT VALUE FROM USER_SETTING WHERE NAME = ?", {std::string(name)});
    if (!connection_->next(row)) return std::nullopt;
    return sqlite::text(row.get(), 0);
}

std::map<std::string, std::string> UserDatabase::settings() const {
    std::map<std::string, std::string> settings;
    const sqlite::Statement row = connection_->query("SELECT NAME, VALUE FROM USER_SETTING");
    while (connection_->next(row)) settings.emplace(sqlite::text(row.get(), 0), sqlite::text(row.get(), 1));
    return settings;
}

void UserDatabase::setSetting(std::string_view name, std::string_view value) {
    connection_->change([&] {
        connection_->run(
            "INSERT INTO USER_SETTING (NAME, VALUE) VALUES (?, ?) ON CONFLICT (NAME) DO UPDATE SET VALUE = "
            "excluded.VALUE",
            {std::string(name), std::string(value)});
    });
}

}  // namespace quode
