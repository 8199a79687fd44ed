// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "alarmd/AlarmService.h"

#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/timerfd.h>

#include <cerrno>
#include <fstream>

#include "alarmd/ring_texts.h"
#include "alarms/DatabaseFunctions.h"
#include "companion/RingRecords.h"
#include "platform/Uptime.h"
#include "recording_desk.h"
#include "support/memory_event_store.h"
#include "support/shared_services.h"
#include "support/temporary_folder.h"
#include "support/zoned_clock.h"

namespace {

std::function<void()> clockSetter;  // sets the clock just before the next timer is armed

}  // namespace

// As the system does it: the timer is armed, and the call fails when the clock was set since the last one.
extern "C" int timerfd_settime(int timer, int flags, const itimerspec* value, itimerspec* former) noexcept {
    static const auto real =
        reinterpret_cast<int (*)(int, int, const itimerspec*, itimerspec*)>(dlsym(RTLD_NEXT, "timerfd_settime"));
    const int result = real(timer, flags, value, former);
    if ((flags & TFD_TIMER_CANCEL_ON_SET) == 0 || !clockSetter) return result;
    std::exchange(clockSetter, nullptr)();
    errno = ECANCELED;
    return -1;
}

namespace quode::test {
namespace {

using namespace std::chrono;
using testing::ElementsAre;

class SilentNotifications : public NotificationService {
  public:
    std::string run() override { return ""; }
    void show(const Notification&, Answer answered) override { answered(std::nullopt); }
    void close(const NotificationId&) override {}
};

// The service with its loop; its clock stands still in a far future, so that no timer expires by itself.
class AlarmServiceTest : public testing::Test {
  protected:
    AlarmServiceTest() {
        startServices(folder.path(), clock, calendar);
        clock->present = utc("2040-10-17 00:00");
        std::filesystem::create_directory(zoneFile.parent_path());
        sd_event_new(&loop);
    }
    ~AlarmServiceTest() override { sd_event_unref(loop); }

    UserDatabase open() { return {folder.path(), cities, *clock}; }

    /// Does something once the service sleeps, and lets it serve until a condition holds, or for two seconds.
    bool serve(const std::function<void()>& action, const std::function<bool()>& condition) {
        AlarmKeeper keeper({folder.path(), &cities, clock.get(), &systemUptime, calendar.get(),
                            [](CalendarLayout) { return StoreStatus{}; }, &desk, [](std::string_view) {}});
        AlarmService service(loop, keeper, notifications, folder.path(), zoneFile);
        steps = 0;
        step = [&] {
            if (++steps == 1) action();
            if (condition() || steps > 100) sd_event_exit(loop, 0);
        };
        sd_event_source* ticking = nullptr;
        sd_event_add_time_relative(loop, &ticking, CLOCK_MONOTONIC, 0, 0, &AlarmServiceTest::tick, this);
        sd_event_source_set_enabled(ticking, SD_EVENT_ON);
        EXPECT_EQ(service.run(), 0);
        sd_event_source_unref(ticking);
        return condition();
    }

    static int tick(sd_event_source* source, std::uint64_t, void* self) {
        static_cast<AlarmServiceTest*>(self)->step();
        sd_event_source_set_time_relative(source, 20'000);
        return 0;
    }

    TemporaryFolder folder;
    std::filesystem::path zoneFile = folder.path() / "etc" / "localtime";
    CityDatabase cities{CityDatabase::fileIn(QUODE_BUNDLE)};
    std::shared_ptr<ZonedClock> clock = std::make_shared<ZonedClock>("<+03>-3", "Europe/Istanbul");
    std::shared_ptr<MemoryEventStore> calendar = std::make_shared<MemoryEventStore>();
    RecordingDesk desk;
    SilentNotifications notifications;
    sd_event* loop = nullptr;
    std::function<void()> step;
    int steps = 0;
};

TEST_F(AlarmServiceTest, SeesAnAlarmThatIsSwitchedOn) {
    open();
    EXPECT_TRUE(serve([&] { DatabaseFunctions().executeSQL("UPDATE USER_ALARMS SET ACTIVE = 1 WHERE TIMEID = 3"); },
                      [&] { return calendar->events.size() == 1; }));
    EXPECT_LT(steps, 50);
}

TEST_F(AlarmServiceTest, SeesANewHomeCity) {
    open().addCity(cities.search("Ankara").at(0).city.id);
    DatabaseFunctions().reCalculateAlarm(202);
    const auto istanbul = calendar->events.begin()->second.start;
    EXPECT_TRUE(serve([&] { open().chooseHome(cities.search("Ankara").at(0).city.id); },
                      [&] { return calendar->events.begin()->second.start < istanbul - minutes(10); }));
}

TEST_F(AlarmServiceTest, SeesANewZone) {
    const double before = open().alarm(202).prayTime;
    EXPECT_TRUE(serve(
        [&] {
            clock->setZone("CET-1CEST,M3.5.0,M10.5.0/3", "Europe/Berlin");
            std::ofstream(zoneFile.string() + ".new") << "zone";
            std::filesystem::rename(zoneFile.string() + ".new", zoneFile);  // as the system's tools do it
        },
        [&] { return open().alarm(202).prayTime < before - 0.9; }));
}

TEST_F(AlarmServiceTest, SeesThatTheClockIsSetWhileItIsAwake) {
    open();
    DatabaseFunctions().reCalculateAlarm(202);
    const auto event = [&] { return calendar->events.begin()->second.start; };
    const auto before = event();
    clockSetter = [&] { clock->present -= days(3); };
    EXPECT_TRUE(serve([] {}, [&] { return event() < before - days(2); }));
}

TEST_F(AlarmServiceTest, PassesTheUsersAnswersOn) {
    open();
    DatabaseFunctions().reCalculateAlarm(202);
    const auto now = floor<seconds>(clock->present);
    {
        RingRecords records(folder.path());
        std::uint32_t number = 7;
        for (const int code : {202, 203, 204}) {
            const AlarmOccurrence alarm{code, now, now, 13.0, VAKDateMake(17, 10, 2040, 0, 0, 0)};
            records.keep({alarm, RingState::shown, now, {desk.service, number++}, "Istanbul", {}});
        }
    }
    serve(
        [&] {
            notifications.onAction({desk.service, 7}, snoozeAction);
            notifications.onAction({desk.service, 8}, stopAction);
            notifications.onClosed({desk.service, 9});
        },
        [&] { return steps > 1; });
    EXPECT_THAT(desk.closed, ElementsAre(7, 8)) << "9 is closed";
    EXPECT_THAT(desk.silenced, ElementsAre(202, 203, 204));
    const std::vector<RingRecord> left = RingRecords(folder.path()).unfinished();
    ASSERT_EQ(left.size(), 1U);
    EXPECT_EQ(left[0].alarm.code, 202);
    EXPECT_EQ(left[0].state, RingState::snoozed);
    EXPECT_EQ(left[0].ringAt, now + minutes(5));
}

}  // namespace
}  // namespace quode::test
