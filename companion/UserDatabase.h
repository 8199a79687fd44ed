// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What the user has chosen: cities, home, alarms, settings. The widget reads this database, and switches alarms; here
// it is created, changed and repaired.
#pragma once

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "companion/alarm_times.h"
#include "data/CityDatabase.h"
#include "platform/Clock.h"

namespace quode {

class UserConnection;

/// Why the user database could not be used or changed. The message says what to do about it; nothing has been changed.
class UserDatabaseError : public std::runtime_error {
  public:
    enum class Reason {
        refused,     ///< the request makes no sense: no such city, an offset out of range
        locked,      ///< another program kept it locked for longer than one waits
        unwritable,  ///< no right to write there, or the disk is mounted to be read only
        full,        ///< no room on the disk
        newer,       ///< a later edition of this system made it
        failed,      ///< the disk or the system failed otherwise
    };
    UserDatabaseError(Reason reason, const std::string& message) : std::runtime_error(message), reason_(reason) {}
    Reason reason() const { return reason_; }

  private:
    Reason reason_;
};

/// One of the user's cities.
struct UserCity {
    int id = 0;
    bool isHome = false;
    std::optional<CityRecord> city;  ///< nothing when the place is in neither database any more
    bool isGuess = false;            ///< home, but put there by a new file, and never chosen by the user
};

/// The city with which a new file begins where no city lies in the device's time zone: Mecca.
inline constexpr int fallbackCity = 104515;

/// A place to be added by coordinates.
struct NewPlace {
    std::string name;
    double latitude = 0.0;   ///< degrees, -90..90, north positive
    double longitude = 0.0;  ///< degrees, -180..180, east positive
    std::string zone = {};   ///< IANA name; empty: that of the nearest place
};

/// The alarm of one prayer.
struct UserAlarm {
    int code = 0;                 ///< 200 (Imsak) to 205 (Yatsi)
    int offset = 0;               ///< minutes added to the prayer time
    double prayTime = 0.0;        ///< used by the alarm operation, see `UserDatabase::refreshPrayerTimes`
    std::string sound;            ///< empty: that of the settings
    bool isOn = false;            ///< a widget or a command switches it
    std::string eventIdentifier;  ///< the calendar event; empty when there is none

    // What is kept beside the row, see "companion/AlarmHabits.h".
    unsigned days = everyDay;                 ///< of the week on which it rings
    std::optional<int> reminder = {};         ///< minutes added to the prayer time for a second ring
    std::chrono::sys_seconds skippedUntil{};  ///< its rings up to this moment are left out
    std::chrono::sys_seconds mutedUntil{};    ///< so are those of all alarms up to this one

    std::chrono::sys_seconds silentUntil() const { return std::max(skippedUntil, mutedUntil); }

    /// When it rings; as its event stands in the calendar, without the second ring.
    AlarmRule rule() const { return {code, offset, days, {}, silentUntil()}; }

    /// The same with the second ring.
    AlarmRule ruleWithReminder() const { return {code, offset, days, reminder, silentUntil()}; }
};

/// The largest offset of an alarm, before and after the time.
inline constexpr int largestAlarmOffset = 720;  // minutes

/// The file "user.sqlite" of the data folder, opened for a task and closed again; programs that run for long open it
/// again for each task. Every operation that changes something either does so altogether or throws `UserDatabaseError`
/// and changes nothing. One object is used by one thread; several programs may use the file at once.
class UserDatabase {
  public:
    static constexpr std::chrono::milliseconds usualPatience{3000};

    /// Opens the file, creating folder and file where there is none: with the largest city of the device's zone as
    /// home, marked as a guess, and six alarms that are off. A damaged file is kept aside as "user.sqlite.damaged-N"
    /// and a fresh one is made; `notices` tells it. The city database and the clock must outlive the object. patience
    /// how long to wait for another program that keeps the file locked
    UserDatabase(const std::filesystem::path& dataFolder, const CityDatabase& cities, const Clock& device,
                 std::chrono::milliseconds patience = usualPatience);
    ~UserDatabase();
    UserDatabase(UserDatabase&&) noexcept;

    /// The same in a folder that is removed soon: no change waits until the disk has written it.
    static UserDatabase makeTemporary(const std::filesystem::path& dataFolder, const CityDatabase& cities,
                                      const Clock& device);

    /// Opens the file only to read from it: nothing is created, changed or repaired, and operations that change
    /// something fail. Throws `UserDatabaseError`, also for a damaged file.
    /// @return nothing when there is no file, or one without any table
    static std::optional<UserDatabase> openToRead(const std::filesystem::path& dataFolder, const CityDatabase& cities,
                                                  const Clock& device, std::chrono::milliseconds patience);

    /// The same open file once more; nothing when another file has taken its place meanwhile.
    std::optional<UserDatabase> again() const;

    /// Reads from a file that another program keeps locked what it held before that program began to change anything.
    /// Waits for nobody, creates and repairs nothing. Throws `UserDatabaseError`.
    /// @return false when that is unknown, because a change is being written or was cut off; what was read is void then
    static bool readBehindLock(const std::filesystem::path& dataFolder, const CityDatabase& cities, const Clock& device,
                               const std::function<void(UserDatabase&)>& reading);

    /// What to report to the user about opening the file: a damaged one kept aside, no city found for the zone.
    const std::vector<std::string>& notices() const { return notices_; }

    const std::filesystem::path& file() const;

    // --- cities

    /// The cities in the user's order.
    std::vector<UserCity> cities() const;

    /// The home city: the first that is marked so, else the first of all; nothing without cities.
    std::optional<UserCity> home() const;

    /// Adds a city of the city database, or a place added before, at the end; the first one becomes home, and takes the
    /// place of `fallbackCity` while that is a guess.
    /// @return false, and nothing is changed, when it is among them already
    bool addCity(int id);

    /// Adds a place by its coordinates at the end of the cities. One that is there already, with the same name,
    /// coordinates and zone, is not added again.
    /// @return its number, which is negative
    int addPlace(const NewPlace& place);

    /// Removes a city. When it was home, the first of the others becomes home. A place of the user's own is forgotten.
    void removeCity(int id);

    /// Moves a city to a position 0..(number of cities - 1).
    void moveCity(int id, std::size_t position);

    void chooseHome(int id);

    // --- alarms

    /// The six alarms in the order of the day.
    std::vector<UserAlarm> alarms() const;

    UserAlarm alarm(int code) const;

    /// Sets offset and sound. Whether the alarm is on stays as it is; `DatabaseFunctions` switches it.
    void setUpAlarm(int code, int offset, const std::string& sound);

    /// Writes the time of each prayer, by which `DatabaseFunctions::reCalculateAlarm` places the event: the wall
    /// clock's time in the device's zone, in the middle of a minute, so that the next alarm from now on comes out at
    /// its instant. Hours beyond 0..24 say that the prayer belongs to the day before or after. Every change of cities,
    /// home or alarms does it too; otherwise call it when the day, the clock or the zone of the device changed. For a
    /// prayer whose time does not come about within that day nothing is returned and written.
    /// @return the alarms that ring within a day, whether they are on or off
    std::vector<AlarmOccurrence> refreshPrayerTimes();

    // --- settings

    /// A setting; nothing when it was never set. See "companion/UserSettings.h" for those that have a meaning here.
    std::optional<std::string> setting(std::string_view name) const;
    void setSetting(std::string_view name, std::string_view value);

    /// All settings by name.
    std::map<std::string, std::string> settings() const;

    /// The connection, for the other records that are kept in the same file.
    UserConnection& connection() { return *connection_; }

  private:
    UserDatabase(const std::filesystem::path& dataFolder, const CityDatabase& cities, const Clock& device,
                 std::chrono::milliseconds patience, bool isToLast);
    UserDatabase(std::shared_ptr<UserConnection> connection, const CityDatabase& cities, const Clock& device);

    struct CityRow {
        int id = 0;
        bool isHome = false;
    };
    std::vector<CityRow> cityRows() const;
    void writeCityRows(std::vector<CityRow> rows);
    std::optional<CityRecord> place(int id) const;
    int samePlace(const NewPlace& wanted) const;
    std::optional<int> firstCity();
    std::optional<int> guessedHome() const;
    void forgetGuess();
    std::vector<UserAlarm> readAlarms(const std::string& condition) const;

    const CityDatabase* cities_;
    const Clock* device_;
    std::vector<std::string> notices_;
    std::shared_ptr<UserConnection> connection_;
};

}  // namespace quode
