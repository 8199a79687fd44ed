// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Sets an alarm that rings at the next full minute, as a user would with the next prayer and an offset.
//   set_alarm BUNDLE [SOUND]
// Prints the moment of the ring in seconds since 1970. The data folder is that of the environment.
#include <cmath>
#include <cstdio>
#include <exception>

#include "alarms/DatabaseFunctions.h"
#include "common/GlobalFuncs.h"
#include "companion/UserDatabase.h"
#include "companion/UserEventStore.h"
#include "platform/system_platform.h"

using namespace quode;
using namespace std::chrono;

namespace {

void setAlarm(const std::string& bundle, const std::string& sound) {
    Platform platform = systemPlatform();
    platform.eventStore = std::make_shared<UserEventStore>(platform.dataFolder, CalendarLayout::ics);
    const std::shared_ptr<Clock> clock = platform.clock;
    GlobalFuncs& services = GlobalFuncs::startUp(std::move(platform));
    const CityDatabase cities(CityDatabase::fileIn(bundle));
    UserDatabase database(services.dataFolder(), cities, *clock);
    const sys_seconds due = floor<minutes>(floor<seconds>(clock->now())) + minutes(1);
    const NextPrayer prayer = nextPrayer(siteOf(*database.home()->city), due - minutes(1)).value();
    database.setUpAlarm(prayer.code, static_cast<int>(duration_cast<minutes>(due - prayer.instant).count()), sound);
    DatabaseFunctions().reCalculateAlarm(prayer.code);
    std::printf("%lld\n", static_cast<long long>(due.time_since_epoch().count()));
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) return 2;
    try {
        setAlarm(argv[1], argc > 2 ? argv[2] : "bell");
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "set_alarm: %s\n", error.what());
        return 1;
    }
}
