// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "Ledger.h"

#include <fmt/format.h>

#include <algorithm>

#include "data/city_day.h"

namespace quode::test {
namespace {

using namespace std::chrono;

constexpr seconds latest{15 * 60};
constexpr seconds tolerance{5};
constexpr hours noRing{1};  // a ring that came earlier than that was none
// What the service may need: a clock that jumped proves itself for a minute and a half, and a failure is tried again
// after half a minute.
constexpr seconds enoughTime{150};

std::string clockText(double hours) {
    const int minute = (shownMinute(hours) % 1440 + 1440) % 1440;
    return fmt::format("{:02d}:{:02d}", minute / 60, minute % 60);
}

std::string momentText(sys_seconds moment) {
    const sys_days day = floor<days>(moment);
    const year_month_day date(day);
    const hh_mm_ss time(moment - day);
    return fmt::format("{}-{:02d}-{:02d} {:02d}:{:02d}:{:02d}", int(date.year()), unsigned(date.month()),
                       unsigned(date.day()), time.hours().count(), time.minutes().count(), time.seconds().count());
}

}  // namespace

void Ledger::demand(const Planned& ring) {
    const auto silence = silentUntil_.find(ring.code);
    if (silence != silentUntil_.end() && ring.due <= silence->second) {
        muted_.insert(keyOf(ring));
    } else {
        demands_.push_back({ring, ring.due});
    }
}

void Ledger::silence(int code, Moment now, Moment until) {
    silentUntil_[code] = until;
    for (const Demand& each : held_) {
        if (each.ring.code == code && each.due > now) demands_.push_back(each);
    }
    std::erase_if(held_, [&](const Demand& each) { return each.ring.code == code; });
    holdSilentSnoozes(code, now);
}

// Snoozes within a silence that may still end early.
void Ledger::holdSilentSnoozes(int code, Moment now) {
    const auto isSilent = [&](const Demand& each) {
        return each.ring.code == code && each.isSnooze && each.due > now && each.due <= silentUntil_[code] &&
               each.shown.empty();
    };
    std::ranges::copy_if(demands_, std::back_inserter(held_), isSilent);
    std::erase_if(demands_, isSilent);
}

void Ledger::withdraw(Moment after) {
    std::erase_if(demands_,
                  [&](const Demand& each) { return each.due > after && each.shown.empty() && !each.isSnooze; });
    std::erase_if(muted_, [&](const Key& each) { return each.second > after; });
}

void Ledger::withdraw(int code, Moment after) {
    std::erase_if(demands_,
                  [&](const Demand& each) { return each.ring.code == code && each.due > after && each.shown.empty(); });
    std::erase_if(muted_, [&](const Key& each) { return each.first == code && each.second > after; });
    std::erase_if(held_, [&](const Demand& each) { return each.ring.code == code && each.due > after; });
}

void Ledger::snooze(int code, Moment alarm, Moment due) {
    const auto first =
        std::ranges::find_if(demands_, [&](const Demand& each) { return keyOf(each.ring) == Key(code, alarm); });
    // One that a wrong clock brought was not shown as far as the demand goes; it is still to come.
    if (first == demands_.end() || first->shown.empty()) return;
    demands_.push_back({first->ring, due, true});
    holdSilentSnoozes(code, due - seconds(1));
}

void Ledger::stop(int code, Moment alarm, Moment now) {
    const auto isStopped = [&](const Demand& each) {
        return keyOf(each.ring) == Key(code, alarm) && each.isSnooze && each.due > now;
    };
    std::erase_if(demands_, isStopped);
    std::erase_if(held_, isStopped);
}

void Ledger::shown(const Ring& ring, const Showing& showing) {
    const Moment now = showing.moment;
    const seconds clockError = showing.clockError;
    const std::string what = fmt::format("{} of {} at {}, shown at {}, clock {:+d} s", ring.alarm.code, ring.city,
                                         momentText(ring.alarm.due), momentText(now), clockError.count());
    Demand* demand = nullptr;
    for (Demand& each : demands_) {
        const bool isIt = keyOf(each.ring) == Key(ring.alarm.code, ring.alarm.due) && each.due <= now + noRing;
        if (isIt) demand = &each;  // the last one: snoozes come after what was snoozed
    }
    // A snooze is so many minutes long, whatever the clock shows.
    const seconds error = demand && demand->isSnooze ? seconds(0) : clockError;
    const seconds lateByClock = demand ? now + error - demand->due : seconds(0);
    const Key key(ring.alarm.code, ring.alarm.due);
    if (muted_.contains(key) && ring.alarm.due <= silentUntil_[ring.alarm.code]) {
        ++figures_.wrong;
        figures_.find("wrong: muted: " + what);
    } else if (!demand) {
        const bool isByClock = isByWrongClock(ring, now, clockError);
        ++(isByClock ? figures_.byWrongClock : figures_.wrong);
        if (!isByClock) figures_.find("wrong: not in the timetable: " + what);
    } else if (lateByClock > latest + tolerance && clockError > seconds(0) && !demand->isSnooze) {
        ++figures_.byWrongClock;  // the snooze of a ring that came too early; it came within the hour and counts
    } else if (lateByClock < -tolerance || lateByClock > latest + tolerance) {
        ++figures_.wrong;
        figures_.find("wrong: not its moment: " + what + ", due at " + momentText(demand->due));
    } else if (demand->ring.text != clockText(ring.alarm.hours) || demand->ring.city != ring.city) {
        ++figures_.wrong;
        figures_.find("wrong: text: " + what);
    }
    if (demand) demand->shown.push_back(showing);
}

// A clock that is far ahead brings what is still to come; one that is far back, what was over when the user chose another
// city. Either can be snoozed.
bool Ledger::isByWrongClock(const Ring& ring, Moment now, seconds clockError) {
    const Key key{ring.alarm.code, ring.alarm.due};
    if (byWrongClock_.contains(key)) return true;
    const seconds lateByClock = now + clockError - ring.alarm.due;
    const bool isByClock = abs(clockError) > noRing && lateByClock >= -tolerance && lateByClock <= latest + tolerance;
    if (isByClock) byWrongClock_.insert(key);
    return isByClock;
}

void Ledger::canRing(Moment now, bool can) {
    chances_[now] = can;
}

// Whether the service could ring for long enough within the quarter of an hour.
bool Ledger::hadAChance(Moment due) const {
    const Moment end = due + latest;
    auto change = chances_.upper_bound(due);
    bool can = change != chances_.begin() && std::prev(change)->second;
    Moment since = due;
    for (; change != chances_.end() && change->first < end; ++change) {
        if (can && change->first - since >= enoughTime) return true;
        if (!can || !change->second) since = change->first;
        can = change->second;
    }
    return can && end - since >= enoughTime;
}

void Ledger::count(const Demand& demand) {
    ++figures_.rings;
    if (demand.ring.isReminder && !demand.isSnooze) ++figures_.reminders;
    const std::string what = fmt::format("{} of {} at {}", demand.ring.code, demand.ring.city, momentText(demand.due));
    if (demand.shown.empty()) {
        const bool isLost = hadAChance(demand.due);
        ++(isLost ? figures_.lost : figures_.excused);
        if (isLost) figures_.find("lost: " + what);
        return;
    }
    ++(demand.shown.front().moment - demand.due < minutes(1) ? figures_.rung : figures_.late);
    for (std::size_t i = 1; i < demand.shown.size(); ++i) {
        const Showing &former = demand.shown[i - 1], &again = demand.shown[i];
        // Neither the process nor the service that it asked remained to say what was shown.
        const bool isUnknowable = !former.isAnswerHeard && former.run != again.run;
        ++(isUnknowable ? figures_.repeated : figures_.doubled);
        if (isUnknowable) continue;
        figures_.find("doubled: " + what + ", at " + momentText(former.moment) + " and " + momentText(again.moment));
    }
}

Figures Ledger::evaluate(Moment end) {
    for (const Demand& demand : demands_) {
        if (demand.due + latest < end) count(demand);
    }
    for (const auto& [code, due] : muted_) {
        if (due + latest < end) ++figures_.muted;
    }
    return figures_;
}

}  // namespace quode::test
