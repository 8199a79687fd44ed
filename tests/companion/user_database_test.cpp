// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "companion/UserDatabase.h"

#include <gmock/gmock.h>
#include <sqlite3.h>

#include "alarms/DatabaseFunctions.h"
#include "alarms/alarm_moment.h"
#include "companion/UserSettings.h"
#include "companion/user_connection.h"
#include "fixture.h"
#include "support/memory_event_store.h"
#include "support/shared_services.h"

namespace quode::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class UserDatabaseTest : public CompanionTest {};

UserDatabaseError::Reason reasonOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const UserDatabaseError& error) {
        EXPECT_THAT(error.what(), testing::EndsWith("."));
        return error.reason();
    }
    ADD_FAILURE() << "nothing was thrown";
    return UserDatabaseError::Reason::failed;
}

#define EXPECT_REFUSED(action) EXPECT_EQ(reasonOf([&] { action; }), UserDatabaseError::Reason::refused)

TEST_F(UserDatabaseTest, GivesEveryAlarmTheUsualSound) {
    const UserDatabase database = open();
    for (const UserAlarm& alarm : database.alarms()) EXPECT_EQ(alarm.sound, "") << "that of the settings";
    sqlite3* opened = nullptr;
    sqlite3_open(file().c_str(), &opened);
    const sqlite::Database file(opened);
    const sqlite::Statement row = sqlite::prepare(opened, "SELECT COUNT(*) FROM USER_ALARMS WHERE MELODYNAME <> ''");
    ASSERT_EQ(sqlite3_step(row.get()), SQLITE_ROW);
    EXPECT_EQ(sqlite3_column_int(row.get(), 0), 6) << "a widget takes an alarm without one for not set up";
}

TEST_F(UserDatabaseTest, BeginsWithTheLargestCityOfTheZone) {
    const UserDatabase database = open();
    EXPECT_EQ(listOf(database), "Istanbul*");
    EXPECT_THAT(database.notices(), IsEmpty());
}

TEST_F(UserDatabaseTest, KeepsAGuessedHomeMarkedUntilTheUserChooses) {
    UserDatabase database = open();
    ASSERT_TRUE(database.home());
    EXPECT_TRUE(database.home()->isGuess);
    EXPECT_TRUE(open().home()->isGuess) << "whoever opens it";
    database.chooseHome(database.home()->id);
    EXPECT_FALSE(open().home()->isGuess);
}

TEST_F(UserDatabaseTest, BeginsWithTheFallbackInAZoneWithoutPlaces) {
    clock.setZone("UTC0", "Etc/UTC");
    const UserDatabase database = open();
    ASSERT_TRUE(database.home());
    EXPECT_EQ(database.home()->id, fallbackCity);
    EXPECT_TRUE(database.home()->isGuess);
    EXPECT_THAT(database.notices(), ElementsAre(HasSubstr("Etc/UTC")));
    EXPECT_THAT(open().notices(), IsEmpty()) << "it is reported once";
}

TEST_F(UserDatabaseTest, BeginsWithSixAlarmsThatAreOff) {
    const std::vector<UserAlarm> alarms = open().alarms();
    ASSERT_EQ(alarms.size(), 6U);
    for (int i = 0; i < 6; ++i) {
        const UserAlarm& alarm = alarms[static_cast<std::size_t>(i)];
        EXPECT_EQ(alarm.code, 200 + i);
        EXPECT_EQ(alarm.offset, 0);
        EXPECT_EQ(alarm.sound, "");
        EXPECT_FALSE(alarm.isOn);
    }
}

TEST_F(UserDatabaseTest, MakesTheFolderThatIsMissing) {
    const UserDatabase database(folder.path() / "a" / "b", cities, clock);
    EXPECT_TRUE(std::filesystem::exists(folder.path() / "a" / "b" / "user.sqlite"));
}

TEST_F(UserDatabaseTest, LeavesNothingBesideTheFileAndTheRoomForNotesOfRings) {
    open().chooseHome(open().cities().at(0).id);
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
        names.push_back(entry.path().filename());
    EXPECT_THAT(names, testing::UnorderedElementsAre("user.sqlite", "alarmd.rings"));
    EXPECT_GT(std::filesystem::file_size(folder.path() / "alarmd.rings"), 40000U);
}

TEST_F(UserDatabaseTest, GivesAlarmsOfTheFirstEditionTheUsualSound) {
    {
        UserDatabase database = open();
        database.setUpAlarm(203, 0, "gong");
        database.connection().run("UPDATE USER_ALARMS SET MELODYNAME = '' WHERE TIMEID <> 4");
        database.connection().run("PRAGMA user_version = 1");
    }
    UserDatabase database = open();
    const sqlite::Statement row = database.connection().query("SELECT MELODYNAME FROM USER_ALARMS ORDER BY TIMEID");
    std::vector<std::string> sounds;
    while (database.connection().next(row)) sounds.push_back(sqlite::text(row.get(), 0));
    EXPECT_THAT(sounds, ElementsAre("default", "default", "default", "gong", "default", "default"));
}

TEST_F(UserDatabaseTest, KeepsTheOrderOfTheCities) {
    UserDatabase database = open();
    EXPECT_TRUE(database.addCity(cityNamed("Zurich")));
    EXPECT_TRUE(database.addCity(cityNamed("Ankara")));
    EXPECT_FALSE(database.addCity(cityNamed("Ankara")));
    EXPECT_EQ(listOf(database), "Istanbul* Zürich Ankara");
    database.moveCity(cityNamed("Ankara"), 0);
    EXPECT_EQ(listOf(database), "Ankara Istanbul* Zürich");
    database.moveCity(cityNamed("Ankara"), 2);
    EXPECT_EQ(listOf(open()), "Istanbul* Zürich Ankara");
    EXPECT_REFUSED(database.moveCity(cityNamed("Ankara"), 3));
    EXPECT_REFUSED(database.moveCity(cityNamed("Berlin"), 0));
}

// The widget asks for the rows without naming an order.
TEST_F(UserDatabaseTest, GivesTheRowsInTheUsersOrderToAQueryWithoutOne) {
    UserDatabase database = open();
    for (const char* name : {"Zurich", "Ankara", "Berlin", "Cairo"}) database.addCity(cityNamed(name));
    database.moveCity(cityNamed("Cairo"), 0);
    database.moveCity(cityNamed("Berlin"), 1);

    sqlite3* opened = nullptr;
    ASSERT_EQ(sqlite3_open(file().c_str(), &opened), SQLITE_OK);
    const sqlite::Database connection(opened);
    const sqlite::Statement row = sqlite::prepare(opened, "SELECT ID, SETASHOME FROM USER_CITY");
    std::vector<int> ids;
    while (sqlite3_step(row.get()) == SQLITE_ROW) ids.push_back(std::stoi(sqlite::text(row.get(), 0)));
    EXPECT_THAT(ids, ElementsAre(cityNamed("Cairo"), cityNamed("Berlin"), cityNamed("Istanbul"), cityNamed("Zurich"),
                                 cityNamed("Ankara")));
}

TEST_F(UserDatabaseTest, HasExactlyOneHome) {
    UserDatabase database = open();
    database.addCity(cityNamed("Ankara"));
    database.chooseHome(cityNamed("Ankara"));
    EXPECT_EQ(listOf(database), "Istanbul Ankara*");
    EXPECT_EQ(database.home()->city->name, "Ankara");
    EXPECT_REFUSED(database.chooseHome(cityNamed("Berlin")));
    database.removeCity(cityNamed("Ankara"));
    EXPECT_EQ(listOf(database), "Istanbul*");
    database.removeCity(cityNamed("Istanbul"));
    EXPECT_EQ(listOf(database), "");
    EXPECT_REFUSED(database.removeCity(cityNamed("Istanbul")));
    EXPECT_EQ(listOf(open()), "") << "the first city comes only with a new file";
    database.addCity(cityNamed("Berlin"));
    EXPECT_EQ(listOf(database), "Berlin*");
}

TEST_F(UserDatabaseTest, RefusesACityThatDoesNotExist) {
    UserDatabase database = open();
    EXPECT_REFUSED(database.addCity(987654321));
    EXPECT_REFUSED(database.addCity(-5));
    EXPECT_EQ(listOf(database), "Istanbul*");
}

TEST_F(UserDatabaseTest, SetsUpAnAlarm) {
    open().setUpAlarm(203, -15, "O'Bell \"x\" ☾");
    const UserAlarm alarm = open().alarm(203);
    EXPECT_EQ(alarm.offset, -15);
    EXPECT_EQ(alarm.sound, "O'Bell \"x\" ☾");
    EXPECT_FALSE(alarm.isOn);
}

TEST_F(UserDatabaseTest, RefusesAnAlarmThatMakesNoSense) {
    UserDatabase database = open();
    EXPECT_REFUSED(database.setUpAlarm(199, 0, "chime"));
    EXPECT_REFUSED(database.setUpAlarm(206, 0, "chime"));
    EXPECT_REFUSED(database.setUpAlarm(200, 721, "chime"));
    EXPECT_REFUSED(database.setUpAlarm(200, -721, "chime"));
    EXPECT_REFUSED(database.alarm(0));
    EXPECT_NO_THROW(database.setUpAlarm(200, -720, "chime"));
}

TEST_F(UserDatabaseTest, HoldsAnOffsetOfAnotherProgramWithinItsRange) {
    UserDatabase database = open();
    for (const auto& [written, read] : {std::pair{"2147483647", 720}, {"-99999999999", -720}, {"'soon'", 0}}) {
        database.connection().run(std::string("UPDATE USER_ALARMS SET MINUTE = ") + written);
        EXPECT_EQ(database.alarm(200).offset, read);
        EXPECT_EQ(database.refreshPrayerTimes().size(), 6U);
    }
}

TEST_F(UserDatabaseTest, KeepsSettings) {
    UserDatabase database = open();
    EXPECT_EQ(loadSettings(database), UserSettings{});
    const UserSettings settings{"/home/u/adhan.ogg", CalendarLayout::vdir, Ringer::evolution};
    saveSettings(database, settings);
    EXPECT_EQ(loadSettings(open()), settings);
    database.setSetting("calendar.layout", "papyrus");
    database.setSetting("alarm.ringer", "");
    database.setSetting("alarm.sound", "");
    EXPECT_EQ(loadSettings(database), UserSettings{}) << "what has no meaning has its default";
    EXPECT_FALSE(database.setting("never set"));
}

TEST_F(UserDatabaseTest, AdoptsAFileThatHasOnlyTheTablesOfTheWidget) {
    sqlite3* opened = nullptr;
    sqlite3_open(file().c_str(), &opened);
    const sqlite::Database connection(opened);
    const std::string sql =
        "CREATE TABLE USER_CITY (ID TEXT, SETASHOME TEXT);"
        "CREATE TABLE USER_ALARMS (TIMEID, MINUTE, PRAYTIME, MELODYTIME, MELODYNAME, ACTIVE, EVENTID);"
        "INSERT INTO USER_ALARMS VALUES (2, -10, 6.5, 0, 'bell', 1, 'e');"
        "INSERT INTO USER_CITY VALUES ('" +
        std::to_string(cityNamed("Ankara")) + "', '0'), ('" + std::to_string(cityNamed("Berlin")) + "', '1')";
    ASSERT_EQ(sqlite3_exec(opened, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
    UserDatabase database = open();
    EXPECT_THAT(database.notices(), IsEmpty());
    EXPECT_EQ(listOf(database), "Ankara Berlin*");
    EXPECT_EQ(database.alarm(201).offset, -10);
    EXPECT_TRUE(database.alarm(201).isOn);
    EXPECT_EQ(database.alarms().size(), 6U);
    database.chooseHome(cityNamed("Ankara"));
    EXPECT_EQ(listOf(open()), "Ankara* Berlin");
}

// --- prayer times

// The alarm operation and the companion together, as the alarm service uses them.
class PrayerTimesTest : public CompanionTest {
  protected:
    PrayerTimesTest() { startServices(folder.path(), shared, store); }

    UserDatabase openShared() { return {folder.path(), cities, *shared}; }

    /// Where the alarm operation places the event of a prayer that is switched on now.
    std::chrono::sys_seconds eventOf(int code) {
        store->events.clear();
        DatabaseFunctions().reCalculateAlarm(code);
        return store->events.empty() ? std::chrono::sys_seconds{} : store->events.begin()->second.start;
    }

    /// Checks at a moment that the event of every alarm comes out at the instant that rings next.
    void expectEventsAtTheirInstants(UserDatabase& database) {
        const std::vector<AlarmOccurrence> next = database.refreshPrayerTimes();
        EXPECT_EQ(next.size(), 6U);
        for (const AlarmOccurrence& alarm : next) {
            EXPECT_GT(alarm.due, shared->present);
            EXPECT_EQ(eventOf(alarm.code), alarm.due)
                << "prayer " << alarm.code << " at second "
                << std::chrono::floor<std::chrono::seconds>(shared->present).time_since_epoch().count();
        }
    }

    std::shared_ptr<ZonedClock> shared = std::make_shared<ZonedClock>(istanbulRule, "Europe/Istanbul");
    std::shared_ptr<MemoryEventStore> store = std::make_shared<MemoryEventStore>();
};

TEST_F(PrayerTimesTest, AreTheMinutesThatAreShown) {
    shared->present = utc("2026-10-16 21:00");  // midnight in Istanbul
    UserDatabase database = openShared();
    database.refreshPrayerTimes();
    const CityDay day = computeCityDay(siteOf(*database.home()->city), VAKDateMake(17, 10, 2026, 0, 0, 0));
    for (const UserAlarm& alarm : database.alarms()) {
        const int truncated = static_cast<int>(alarm.prayTime * 60.0);
        EXPECT_EQ(truncated, shownMinute(timeOfPrayer(day.times, alarm.code).value()));
        EXPECT_EQ(shownMinute(alarm.prayTime), truncated) << "rounding leads to the same minute as truncating";
    }
}

TEST_F(PrayerTimesTest, LeadTheAlarmToItsInstantAtEveryHourOfTheYear) {
    shared->present = utc("2026-01-01 00:07:13");
    UserDatabase database = openShared();
    for (int step = 0; step < 60; ++step) {
        expectEventsAtTheirInstants(database);
        shared->present += std::chrono::hours(147);
    }
}

TEST_F(PrayerTimesTest, LeadThereWithOffsetsThatCrossMidnight) {
    shared->present = utc("2026-06-15 00:00:30");
    UserDatabase database = openShared();
    for (const int offset : {-720, -400, -31, 31, 200, 720}) {
        for (int code = 200; code <= 205; ++code) database.setUpAlarm(code, offset, "chime");
        for (int hour = 0; hour < 24; hour += 3) {
            expectEventsAtTheirInstants(database);
            shared->present += std::chrono::minutes(181);
        }
    }
}

TEST_F(PrayerTimesTest, LeadThereFromAnotherZoneAndWhereTheClocksChange) {
    shared->setZone(newYorkRule, "America/New_York");
    shared->present = utc("2026-03-07 12:00");
    UserDatabase database = openShared();
    EXPECT_EQ(listOf(database), "New York City*");
    const auto goThrough = [&](const std::string& from, int hours) {
        shared->present = utc(from);
        for (int hour = 0; hour < hours; hour += 5) {
            expectEventsAtTheirInstants(database);
            shared->present += std::chrono::minutes(5 * 60 + 7);
        }
    };
    goThrough("2026-03-07 12:00", 40);  // the clocks go forward at home
    goThrough("2026-10-31 12:00", 40);  // and back
    database.addCity(cityNamed("Istanbul"));
    database.chooseHome(cityNamed("Istanbul"));
    goThrough("2026-07-01 00:00", 24);
    goThrough("2026-03-07 12:00", 40);
}

// There the engine counts the times from the day before or after; the alarm must not come a day late for that.
TEST_F(PrayerTimesTest, LeadToTheSameDayBeyondTheDateLine) {
    struct Case {
        const char* rule;
        const char* zone;
        const char* city;
        const char* midnight;  ///< just after it there, in universal time
    };
    for (const Case& place : {Case{"<+13>-13", "Pacific/Apia", "Apia", "2026-11-20 11:00"},
                              Case{"<+14>-14", "Pacific/Kiritimati", "Kiritimati", "2026-11-20 10:00"},
                              Case{"<+13>-13", "Pacific/Tongatapu", "Nuku'alofa", "2026-06-20 11:00"},
                              Case{"<-11>11", "Pacific/Pago_Pago", "Pago Pago", "2026-11-21 11:00"}}) {
        SCOPED_TRACE(place.city);
        for (const bool isAtHome : {true, false}) {
            std::filesystem::remove(file());
            shared->setZone(place.rule, place.zone);
            shared->present = utc(place.midnight);
            UserDatabase database = openShared();
            const std::optional<UserCity> home = database.home();
            ASSERT_TRUE(home && home->city);
            EXPECT_EQ(home->city->zone, place.zone);
            if (!isAtHome) shared->setZone(berlinRule, "Europe/Berlin");
            const auto today = wallClock(home->city->rule, utc(place.midnight));
            for (const AlarmOccurrence& alarm : database.refreshPrayerTimes()) {
                EXPECT_EQ(alarm.date, VAKDateMake(today.Days, today.Months, today.Years, 0, 0, 0)) << alarm.code;
                EXPECT_LT(alarm.due, shared->present + std::chrono::hours(24)) << alarm.code;
                EXPECT_GT(alarm.hours, 0.0);
                EXPECT_LT(alarm.hours, 24.0);
            }
            for (int hour = 0; hour < 26; hour += 2) {
                expectEventsAtTheirInstants(database);
                shared->present += std::chrono::minutes(121);
            }
        }
    }
}

TEST_F(PrayerTimesTest, FollowAChangeOfTheZoneWhileRunning) {
    shared->present = utc("2026-10-17 00:00");
    UserDatabase database = openShared();
    expectEventsAtTheirInstants(database);
    const double before = database.alarm(202).prayTime;
    shared->setZone(berlinRule, "Europe/Berlin");
    expectEventsAtTheirInstants(database);
    EXPECT_NEAR(database.alarm(202).prayTime, before - 1.0, 0.02);  // Berlin is an hour behind Istanbul in summer
}

TEST_F(PrayerTimesTest, AreWrittenWithEveryChange) {
    shared->present = utc("2026-10-17 00:00");
    UserDatabase database = openShared();
    const double istanbul = database.alarm(202).prayTime;
    EXPECT_GT(istanbul, 12.0) << "written with the first city";
    database.addCity(cityNamed("Erzurum"));
    EXPECT_EQ(database.alarm(202).prayTime, istanbul);
    database.chooseHome(cityNamed("Erzurum"));
    EXPECT_LT(database.alarm(202).prayTime, istanbul - 0.5);
    database.moveCity(cityNamed("Erzurum"), 0);
    database.removeCity(cityNamed("Erzurum"));
    EXPECT_EQ(database.alarm(202).prayTime, istanbul);
}

TEST_F(PrayerTimesTest, LeaveTheFileAloneWhenNothingChanged) {
    shared->present = utc("2026-10-17 00:00");
    openShared().refreshPrayerTimes();
    const auto before = std::filesystem::last_write_time(file());
    openShared().refreshPrayerTimes();
    EXPECT_EQ(std::filesystem::last_write_time(file()), before);
}

}  // namespace
}  // namespace quode::test
