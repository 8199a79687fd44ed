// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What goes wrong on the simulated device.
#include <sqlite3.h>
#include <sys/resource.h>

#include <csignal>
#include <fstream>

#include "Simulation.h"
#include "alarms/DatabaseFunctions.h"
#include "data/sqlite_reading.h"

namespace quode::test {

using namespace std::chrono;

namespace {

void limitFiles(rlim_t longest) {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{longest, RLIM_INFINITY};
    setrlimit(RLIMIT_FSIZE, &limit);
}

}  // namespace

const char* nameOf(Fault fault) {
    switch (fault) {
        case Fault::kill:
            return "service killed";
        case Fault::suspend:
            return "device asleep";
        case Fault::clockAhead:
            return "clock ahead";
        case Fault::clockBack:
            return "clock back";
        case Fault::epochStart:
            return "start in 1970";
        case Fault::zone:
            return "change of zone";
        case Fault::fullDisk:
            return "disk full";
        case Fault::failingWrites:
            return "no write succeeds";
        case Fault::lock:
            return "database locked";
        case Fault::damage:
            return "database damaged";
        case Fault::notifications:
            return "notification service slow, ended, missing";
        case Fault::foreignEdits:
            return "events edited by others";
        case Fault::choices:
            return "home moved, alarms switched";
        case Fault::silence:
            return "alarms muted, rings skipped";
    }
    return "";
}

const std::vector<Fault>& allFaults() {
    static const std::vector<Fault> all{Fault::kill,       Fault::suspend, Fault::clockAhead,    Fault::clockBack,
                                        Fault::epochStart, Fault::zone,    Fault::fullDisk,      Fault::failingWrites,
                                        Fault::lock,       Fault::damage,  Fault::notifications, Fault::foreignEdits,
                                        Fault::choices,    Fault::silence};
    return all;
}

void Simulation::happen(Fault fault) {
    if (isAsleep_) return;
    switch (fault) {
        case Fault::kill:
            return killOrCrash();
        case Fault::suspend:
            isAsleep_ = true;
            noteChance();
            return agenda_.in(pick(2) == 0 ? between(minutes(1), minutes(20)) : between(minutes(20), hours(9)), [this] {
                isAsleep_ = false;
                noteChance();
                wake();
            });
        case Fault::clockAhead:
            return moveClock(pick(2) == 0 ? seconds(60) : between(minutes(2), hours(10)),
                             pick(2) == 0 ? seconds(60) : between(seconds(20), hours(3)));
        case Fault::clockBack:
            return moveClock(-(pick(2) == 0 ? seconds(60) : between(minutes(2), hours(10))),
                             pick(2) == 0 ? seconds(60) : between(seconds(20), hours(3)));
        case Fault::epochStart:
            return startFromEpoch();
        case Fault::zone: {
            static const std::vector<std::pair<const char*, const char*>> zones{
                {"<+03>-3", "Europe/Istanbul"},
                {"EST5EDT,M3.2.0,M11.1.0", "America/New_York"},
                {"CET-1CEST,M3.5.0,M10.5.0/3", "Europe/Berlin"},
                {"JST-9", "Asia/Tokyo"},
                {"<+1245>-12:45<+1345>,M9.5.0/2:45,M4.1.0/3:45", "Pacific/Chatham"}};
            const auto& [rule, name] = zones[std::size_t(pick(int(zones.size())))];
            clock_->setZone(rule, name);
            return wake();
        }
        case Fault::notifications:
            return troubleNotifications();
        case Fault::foreignEdits:
            return editEvents();
        case Fault::choices:
            return choose();
        case Fault::silence:
            return silence();
        case Fault::fullDisk:
        case Fault::failingWrites:
        case Fault::lock:
        case Fault::damage:
            break;
    }
    if (isDiskBusy_) return;
    if (fault == Fault::damage) return damageDatabase();
    const seconds time = pick(2) == 0 ? between(seconds(10), minutes(20)) : between(minutes(20), hours(3));
    if (fault == Fault::lock) return lockDatabase(time);
    isDiskBusy_ = true;
    if (fault == Fault::fullDisk) {
        disk_.emplace(FaultyDisk::Fault::full, 1);
        calendar_->failing = true;
    } else {
        areWritesFailing_ = true;
        desk_.killPoint = Desktop::KillPoint::none;  // see killOrCrash
        limitFiles(0);
    }
    agenda_.in(time, [this] {
        limitFiles(RLIM_INFINITY);
        disk_.emplace(FaultyDisk::Fault::none);
        calendar_->failing = false;
        areWritesFailing_ = false;
        isDiskBusy_ = false;
    });
}

void Simulation::killOrCrash() {
    if (!keeper_ || areWritesFailing_) return;  // what nobody can write nobody can know after a kill
    static constexpr Desktop::KillPoint points[]{Desktop::KillPoint::beforeAsking, Desktop::KillPoint::beforeTheAnswer,
                                                 Desktop::KillPoint::afterTheAnswer};
    if (plan_.killsWhileAsking) {
        desk_.killPoint = Desktop::KillPoint::whileAsking;
    } else if (const int kind = pick(4); kind < 3) {
        desk_.killPoint = points[kind];
    } else {
        const bool isOrderly = pick(2) == 0;
        if (isOrderly) keeper_->rest();
        endProcess();
        agenda_.in(pick(3) == 0 ? between(minutes(10), hours(4)) : between(seconds(1), minutes(10)), [this] {
            if (!keeper_) startProcess();
        });
    }
}

void Simulation::moveClock(seconds error, seconds time) {
    if (isClockWrong_) return;
    isClockWrong_ = true;
    setClock(error);
    agenda_.in(time, [this] {
        isClockWrong_ = false;
        setClock(seconds(0));
    });
}

void Simulation::startFromEpoch() {
    if (isClockWrong_ || !keeper_ || areWritesFailing_) return;
    isClockWrong_ = true;
    if (pick(2) == 0) keeper_->rest();
    endProcess();
    desk_.restart(false);
    agenda_.in(between(seconds(20), minutes(5)), [this] {
        ++boot_;
        booted_ = agenda_.now();
        desk_.restart(true);
        desk_.clockError = sys_seconds(seconds(pick(900))) - agenda_.now();
        clock_->present = clockNow();
        startProcess();
        agenda_.in(between(seconds(5), minutes(10)), [this] {
            isClockWrong_ = false;
            setClock(seconds(0));
        });
    });
}

void Simulation::damageDatabase() {
    const std::filesystem::path file = folder_.path() / "user.sqlite";
    const auto length = std::filesystem::file_size(file);
    switch (pick(3)) {
        case 0:
            std::filesystem::resize_file(file, length / 2 + 100);
            break;
        case 1:
            std::fstream(file, std::ios::in | std::ios::out) << std::string(100, '\0');
            break;
        default: {
            std::fstream pages(file, std::ios::in | std::ios::out);
            pages.seekp(4096) << std::string(std::size_t(length) - 4096, '\xFF');
        }
    }
    if (keeper_ && !isAsleep_ && keeper_->choicesChanged()) wake();
}

void Simulation::lockDatabase(seconds time) {
    sqlite3* opened = nullptr;
    sqlite3_open((folder_.path() / "user.sqlite").c_str(), &opened);
    const auto other = std::make_shared<sqlite::Database>(opened);
    if (sqlite3_exec(opened, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr) != SQLITE_OK) return;
    isDiskBusy_ = true;
    agenda_.in(time, [this, other] {
        sqlite3_exec(other->get(), "COMMIT", nullptr, nullptr, nullptr);
        other->reset();
        isDiskBusy_ = false;
    });
}

void Simulation::troubleNotifications() {
    if (areNotificationsTroubled_) return;
    areNotificationsTroubled_ = true;
    const int kind = pick(3);
    if (kind == 0) {
        desk_.restart(false);
    } else if (kind == 1) {
        desk_.restart(true);
    } else {
        desk_.slowness = between(seconds(1), minutes(4));
    }
    noteChance();
    wake();
    agenda_.in(between(seconds(5), minutes(30)), [this] {
        areNotificationsTroubled_ = false;
        desk_.slowness = seconds(0);
        desk_.restart(true);
        noteChance();
        wake();
    });
}

void Simulation::editEvents() {
    auto& events = calendar_->events;
    if (events.empty()) return;
    const auto event = std::next(events.begin(), pick(int(events.size())));
    switch (pick(3)) {
        case 0:
            events.clear();
            break;
        case 1:
            events.erase(event);
            break;
        default:
            event->second.start += between(-hours(5), hours(5));
    }
}

void Simulation::choose() {
    if (isDiskBusy_ || isClockWrong_) return;
    if (!canChoose()) return agenda_.in(minutes(9), [this] { choose(); });
    if (pick(2) == 0) {
        isAtOther_ = !isAtOther_;
        UserDatabase database = open();
        const int id = cities_.search(isAtOther_ ? plan_.otherCity : plan_.city).at(0).city.id;
        database.addCity(id);
        database.chooseHome(id);
        ledger_.withdraw(agenda_.now());
        demandFrom(agenda_.now());
        for (const auto& alarm : database.alarms()) {
            if (alarm.isOn) DatabaseFunctions().reCalculateAlarm(alarm.code);
        }
    } else if (off_.empty()) {
        const int code = firstPrayer + pick(6);
        off_.insert(code);
        DatabaseFunctions().deleteAlarm(code);
        ledger_.withdraw(code, agenda_.now());
        agenda_.in(between(hours(1), hours(30)), [this] { switchOnAgain(); });
    }
    if (keeper_ && keeper_->choicesChanged()) wake();
}

// Up to any moment, or to that of a ring, which is left out; an earlier mute may still last, and is replaced or ended.
void Simulation::silence() {
    if (isDiskBusy_ || isClockWrong_) return;
    if (!canChoose()) return agenda_.in(minutes(9), [this] { silence(); });
    const Moment now = agenda_.now();
    switch (pick(4)) {
        case 0:
            mute(now + between(minutes(30), hours(30)));
            break;
        case 1: {
            const auto ring = moments_.lower_bound(now + between(minutes(30), hours(30)));
            mute(ring == moments_.end() ? now + hours(1) : *ring);
            break;
        }
        case 2:
            mute({});
            break;
        default:
            skipNext(firstPrayer + pick(6));
    }
    if (keeper_ && keeper_->choicesChanged()) wake();
}

void Simulation::switchOnAgain() {
    if (isDiskBusy_ || isClockWrong_ || !canChoose()) {
        return agenda_.in(minutes(9), [this] { switchOnAgain(); });
    }
    for (const int code : std::exchange(off_, {})) {
        DatabaseFunctions().reCalculateAlarm(code);
        demandFrom(agenda_.now(), code);
    }
    if (keeper_ && keeper_->choicesChanged()) wake();
}

}  // namespace quode::test
