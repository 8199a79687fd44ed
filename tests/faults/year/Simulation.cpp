// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "Simulation.h"

#include <algorithm>

#include "alarms/DatabaseFunctions.h"
#include "companion/AlarmHabits.h"
#include "companion/RingRecords.h"
#include "support/shared_services.h"

namespace quode::test {

using namespace std::chrono;

namespace {

constexpr sys_days start = year(2027) / January / 1;
constexpr int wakesTooMany = 600;  // within an hour
const std::map<int, int> offsets{{200, -15}, {201, 0}, {202, 0}, {203, 5}, {204, 0}, {205, 0}};
const std::map<int, int> reminders{{200, 10}, {202, -20}, {203, -30}, {205, 25}};

// The moments at which an alarm rings for a prayer, the later last.
std::vector<sys_seconds> ringsOf(const TableEntry& entry) {
    std::vector<sys_seconds> rings{entry.instant + minutes(offsets.at(entry.code))};
    const auto reminder = reminders.find(entry.code);
    if (reminder != reminders.end()) rings.push_back(entry.instant + minutes(reminder->second));
    std::ranges::sort(rings);
    return rings;
}

}  // namespace

Simulation::Simulation(const Plan& plan)
    : plan_(plan),
      random_(plan.seed),
      cities_(CityDatabase::fileIn(QUODE_BUNDLE)),
      clock_(std::make_shared<ZonedClock>("<+03>-3", "Europe/Istanbul")),
      agenda_(start),
      desk_(agenda_, ledger_),
      end_(start + days(plan.days)),
      booted_(start - hours(3)) {
    disk_.emplace(FaultyDisk::Fault::none);
    startServices(folder_.path(), clock_, calendar_);
    clock_->present = start;
    const CityRecord home = cities_.search(plan.city).at(0).city;
    const CityRecord other = cities_.search(plan.otherCity).at(0).city;
    table_ = yearTable(home, start - days(1), start + days(plan.days + 2));
    otherTable_ = yearTable(other, start - days(1), start + days(plan.days + 2));
    for (const auto* table : {&table_, &otherTable_}) {
        for (const TableEntry& entry : *table) {
            for (const Moment ring : ringsOf(entry)) moments_.insert(ring);
        }
    }
    UserDatabase database = open();
    for (const CityRecord& city : {home, other}) database.addCity(city.id);
    database.chooseHome(home.id);
    for (const auto& [code, offset] : offsets) {
        database.setUpAlarm(code, offset, "bell");
        UserAlarm alarm = database.alarm(code);
        if (reminders.contains(code)) alarm.reminder = reminders.at(code);
        storeHabits(database.connection(), alarm);
        DatabaseFunctions().reCalculateAlarm(code);
    }
    desk_.onShown = [this](std::uint32_t number, const Desktop::Shown& shown) { userAnswers(number, shown); };
    demandFrom(start + minutes(1));
}

Simulation::~Simulation() = default;

// --- the process

void Simulation::startProcess() {
    guarded([this] {
        AlarmSurroundings with;
        with.dataFolder = folder_.path();
        with.cities = &cities_;
        with.clock = clock_.get();
        with.uptime = [this] { return uptime(); };
        with.calendar = calendar_.get();
        with.useLayout = [](CalendarLayout) {};
        with.desk = &desk_;
        with.tell = [](std::string_view) {};
        with.lockPatience = milliseconds(1);
        keeper_ = std::make_unique<AlarmKeeper>(with);
        keeper_->onUnseen = [this] { agenda_.in(seconds(0), [this] { wake(); }); };
    });
    noteChance();
    wake();
}

void Simulation::endProcess() {
    keeper_.reset();
    desk_.forgetCaller();
    noteChance();
}

Uptime Simulation::uptime() const {
    return {"boot-" + std::to_string(boot_), agenda_.now() - booted_};
}

// Does something of the process, which may be killed meanwhile; it is started again then.
void Simulation::guarded(const std::function<void()>& action) {
    try {
        action();
    } catch (const Killed&) {
        endProcess();
        agenda_.in(between(seconds(1), minutes(8)), [this] {
            if (!keeper_) startProcess();
        });
    }
}

void Simulation::wake() {
    if (!keeper_ || isAsleep_) return;
    if (agenda_.now() - hour_ > hours(1)) {
        hour_ = agenda_.now();
        wakesOfThisHour_ = 0;
    }
    guarded([this] { nextWake_ = keeper_->wake(); });
    const bool isHanging = ++wakesOfThisHour_ > wakesTooMany || (keeper_ && nextWake_ <= clockNow());
    if (!isHanging) return;
    ++figures_.hangs;
    figures_.find("hang: woken too often");
    nextWake_ = clockNow() + hours(1);
}

// --- the device

void Simulation::noteChance() {
    const bool isRight = abs(desk_.clockError) <= seconds(1);
    ledger_.canRing(agenda_.now(), keeper_ && !isAsleep_ && isRight && desk_.isThere);
}

void Simulation::setClock(seconds error) {
    desk_.clockError = error;
    clock_->present = clockNow();
    noteChance();
    wake();  // the system reports it
}

// --- the user

void Simulation::demandFrom(Moment from) {
    for (const TableEntry& entry : isAtOther_ ? otherTable_ : table_) demand(entry, from);
}

void Simulation::demandFrom(Moment from, int code) {
    for (const TableEntry& entry : isAtOther_ ? otherTable_ : table_) {
        if (entry.code == code) demand(entry, from);
    }
}

void Simulation::demand(const TableEntry& entry, Moment from) {
    if (off_.contains(entry.code)) return;
    for (const Moment due : ringsOf(entry)) {
        const bool isReminder = due != entry.instant + minutes(offsets.at(entry.code));
        if (due > from && due < end_) ledger_.demand({entry.code, due, isReminder, entry.text, entry.city});
    }
}

Simulation::Moment Simulation::silentUntil(int code) const {
    const auto skipped = skippedUntil_.find(code);
    return skipped == skippedUntil_.end() ? mutedUntil_ : std::max(mutedUntil_, skipped->second);
}

void Simulation::mute(Moment until) {
    const Moment now = agenda_.now();
    UserDatabase database = open();
    muteUntil(database, until);
    mutedUntil_ = until;
    for (const auto& [code, offset] : offsets) ledger_.silence(code, now, silentUntil(code));
    ledger_.withdraw(now);
    demandFrom(now);
}

void Simulation::skipNext(int code) {
    const Moment now = agenda_.now();
    const auto& table = isAtOther_ ? otherTable_ : table_;
    const auto next = std::ranges::find_if(
        table, [&](const TableEntry& entry) { return entry.code == code && ringsOf(entry).back() > now; });
    if (next == table.end()) return;
    UserDatabase database = open();
    UserAlarm alarm = database.alarm(code);
    alarm.skippedUntil = skippedUntil_[code] = ringsOf(*next).back();
    storeHabits(database.connection(), alarm);
    ledger_.silence(code, now, silentUntil(code));
    ledger_.withdraw(code, now);
    demandFrom(now, code);
}

void Simulation::userAnswers(std::uint32_t number, const Desktop::Shown& shown) {
    const int kind = pick(10);
    if (kind >= 8) return;  // he does not hear it
    const NotificationId id{desk_.run(), number};
    const auto answer = [this, id, kind, alarm = shown.alarm] {
        if (id.run != desk_.run() || !desk_.isShown(id.number) || !keeper_ || isAsleep_) return;
        if (kind < 6) {
            ledger_.stop(alarm.code, alarm.due, agenda_.now());
            return guarded([&] { keeper_->stop(id); });
        }
        ledger_.stop(alarm.code, alarm.due, agenda_.now());
        ledger_.snooze(alarm.code, alarm.due, agenda_.now() + minutes(5));
        guarded([&] { keeper_->snooze(id); });
        wake();
    };
    agenda_.in(desk_.slowness + between(seconds(3), minutes(3)), answer);
}

// Whether the user can use the device, and no alarm is near, so that what he chooses is before or after it for everybody.
bool Simulation::canChoose() const {
    const auto next = moments_.lower_bound(agenda_.now() - minutes(17));
    const bool isQuiet = next == moments_.end() || *next > agenda_.now() + minutes(17);
    return isQuiet && !isAsleep_;
}

// --- incidents

seconds Simulation::between(seconds least, seconds most) {
    return least + seconds(long(random_()) % (most - least).count());
}

// Half of the incidents are about a ring.
void Simulation::planIncident() {
    if (plan_.faults.empty()) return;
    Moment when = agenda_.now() + between(minutes(10), 2 * plan_.interval);
    if (pick(2) == 0) {
        const auto ring = moments_.lower_bound(when);
        if (ring != moments_.end())
            when = std::max(agenda_.now() + seconds(1), *ring + between(-minutes(3), minutes(3)));
    }
    agenda_.at(when, [this] {
        ++figures_.faults;
        happen(plan_.faults[std::size_t(pick(int(plan_.faults.size())))]);
        planIncident();
    });
}

Figures Simulation::run() {
    startProcess();
    planIncident();
    while (agenda_.now() < end_) {
        const bool sleeps = !keeper_ || isAsleep_;
        const Moment woken = sleeps ? Moment::max() : std::max(agenda_.now(), nextWake_ - desk_.clockError);
        agenda_.advance(std::min({woken, agenda_.next(), end_}));
        clock_->present = clockNow();
        if (agenda_.next() <= agenda_.now()) {
            agenda_.act();
        } else if (woken <= agenda_.now()) {
            wake();
        }
    }
    figures_.add(ledger_.evaluate(end_));
    return figures_;
}

}  // namespace quode::test
