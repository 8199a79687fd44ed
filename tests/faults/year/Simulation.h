// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The alarm service on a device where things go wrong, in simulated time.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "World.h"
#include "alarmd/AlarmKeeper.h"
#include "support/faulty_disk.h"
#include "support/memory_event_store.h"
#include "support/temporary_folder.h"

namespace quode::test {

enum class Fault {
    kill,           ///< the service is killed, at any moment or in the middle of a ring, and started again
    suspend,        ///< the device sleeps
    clockAhead,     ///< the clock runs ahead for a while, by a minute or by hours
    clockBack,      ///< the clock is back for a while
    epochStart,     ///< the device starts with a clock of 1970
    zone,           ///< the device comes to another zone
    fullDisk,       ///< nothing that needs room can be written
    failingWrites,  ///< nothing at all can be written
    lock,           ///< another program keeps the user database locked
    damage,         ///< the user database is damaged
    notifications,  ///< the notification service is slow, ends, and is missing
    foreignEdits,   ///< another program deletes and moves the events
    choices,        ///< the user moves home, and switches alarms off and on
    silence,        ///< the user mutes all alarms for a while, and skips the next ring of one
};

const char* nameOf(Fault fault);
const std::vector<Fault>& allFaults();

struct Plan {
    std::string city;
    std::string otherCity;  ///< where the user moves to
    int days = 365;
    unsigned seed = 1;
    std::vector<Fault> faults;
    std::chrono::hours interval{20};  ///< the mean time between two incidents
    bool killsWhileAsking = false;    ///< the service is always killed in the one instant of which nobody can know
};

/// One simulated time at one place.
class Simulation {
  public:
    explicit Simulation(const Plan& plan);
    ~Simulation();

    Figures run();

  private:
    using Moment = std::chrono::sys_seconds;
    void startProcess();
    void endProcess();
    void wake();
    void guarded(const std::function<void()>& action);
    void setClock(std::chrono::seconds error);
    std::chrono::sys_seconds clockNow() const { return agenda_.now() + desk_.clockError; }
    Uptime uptime() const;
    void noteChance();
    void demandFrom(Moment from);
    void demandFrom(Moment from, int code);
    void demand(const TableEntry& entry, Moment from);
    void mute(Moment until);
    void skipNext(int code);
    void silence();
    Moment silentUntil(int code) const;
    void userAnswers(std::uint32_t number, const Desktop::Shown& shown);
    void planIncident();
    void happen(Fault fault);
    void killOrCrash();
    void moveClock(std::chrono::seconds error, std::chrono::seconds time);
    void startFromEpoch();
    void damageDatabase();
    void lockDatabase(std::chrono::seconds time);
    void troubleNotifications();
    void editEvents();
    void choose();
    void switchOnAgain();
    bool canChoose() const;
    std::chrono::seconds between(std::chrono::seconds least, std::chrono::seconds most);
    int pick(int count) { return int(random_() % unsigned(count)); }
    UserDatabase open() { return {folder_.path(), cities_, *clock_}; }

    Plan plan_;
    std::mt19937 random_;
    TemporaryFolder folder_;
    CityDatabase cities_;
    std::shared_ptr<ZonedClock> clock_;
    std::shared_ptr<MemoryEventStore> calendar_ = std::make_shared<MemoryEventStore>();
    Agenda agenda_;
    Ledger ledger_;
    Desktop desk_;
    std::vector<TableEntry> table_, otherTable_;
    std::set<Moment> moments_;  // of all prayers of both cities
    bool isAtOther_ = false;
    std::set<int> off_;
    Moment mutedUntil_{};
    std::map<int, Moment> skippedUntil_;
    Moment end_;
    Moment booted_;
    int boot_ = 1;
    bool isAsleep_ = false;
    // Incidents of one kind do not overlap.
    bool isDiskBusy_ = false;
    bool areWritesFailing_ = false;
    bool isClockWrong_ = false;
    bool areNotificationsTroubled_ = false;
    std::optional<FaultyDisk> disk_;
    std::unique_ptr<AlarmKeeper> keeper_;
    Moment nextWake_{};
    long wakesOfThisHour_ = 0;
    Moment hour_{};
    Figures figures_;
};

}  // namespace quode::test
