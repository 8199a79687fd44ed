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

void Ledger::demand(int code, Moment prayer, Moment due, const std::string& text, const std::string& city) {
    demands_.push_back({code, prayer, due, text, city});
}

void Ledger::withdraw(Moment after) {
    std::erase_if(demands_,
                  [&](const Demand& each) { return each.due > after && each.shown.empty() && !each.isSnooze; });
}

void Ledger::withdraw(int code, Moment after) {
    std::erase_if(demands_,
                  [&](const Demand& each) { return each.code == code && each.due > after && each.shown.empty(); });
}

void Ledger::snooze(int code, Moment prayer, Moment due) {
    const auto first =
        std::ranges::find_if(demands_, [&](const Demand& each) { return each.code == code && each.prayer == prayer; });
    if (first == demands_.end() || first->due > due + noRing) return;  // a wrong clock brought it
    Demand again = *first;
    again.due = due;
    again.isSnooze = true;
    again.shown.clear();
    demands_.push_back(again);
}

void Ledger::stop(int code, Moment prayer, Moment now) {
    std::erase_if(demands_, [&](const Demand& each) {
        return each.code == code && each.prayer == prayer && each.isSnooze && each.due > now;
    });
}

void Ledger::shown(const Ring& ring, Moment now, seconds clockError) {
    const std::string what = fmt::format("{} of {} at {}, shown at {}, clock {:+d} s", ring.alarm.code, ring.city,
                                         momentText(ring.alarm.due), momentText(now), clockError.count());
    Demand* demand = nullptr;
    for (Demand& each : demands_) {
        const bool isIt = each.code == ring.alarm.code && each.prayer == ring.alarm.prayer && each.due <= now + noRing;
        if (isIt) demand = &each;  // the last one: snoozes come after what was snoozed
    }
    // A snooze is so many minutes long, whatever the clock shows.
    const seconds error = demand && demand->isSnooze ? seconds(0) : clockError;
    const seconds lateByClock = demand ? now + error - demand->due : seconds(0);
    if (!demand) {
        // A clock that is far ahead brings what is still to come.
        const bool isEarly = now + clockError >= ring.alarm.due && clockError > noRing;
        ++(isEarly ? figures_.early : figures_.wrong);
        if (!isEarly) figures_.find("wrong: not in the timetable: " + what);
    } else if (lateByClock > latest + tolerance && clockError > seconds(0) && !demand->isSnooze) {
        ++figures_.early;  // the snooze of a ring that came too early; it came within the hour and counts
    } else if (lateByClock < -tolerance || lateByClock > latest + tolerance) {
        ++figures_.wrong;
        figures_.find("wrong: not its moment: " + what + ", due at " + momentText(demand->due));
    } else if (demand->text != clockText(ring.alarm.hours) || demand->city != ring.city) {
        ++figures_.wrong;
        figures_.find("wrong: text: " + what);
    }
    if (demand) demand->shown.push_back(now);
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
    const std::string what = fmt::format("{} of {} at {}", demand.code, demand.city, momentText(demand.due));
    if (demand.shown.empty()) {
        const bool isLost = hadAChance(demand.due);
        ++(isLost ? figures_.lost : figures_.excused);
        if (isLost) figures_.find("lost: " + what);
        return;
    }
    ++(demand.shown.front() - demand.due < minutes(1) ? figures_.rung : figures_.late);
    if (demand.shown.size() == 1) return;
    figures_.doubled += long(demand.shown.size()) - 1;
    figures_.find("doubled: " + what + ", at " + momentText(demand.shown[0]) + " and " + momentText(demand.shown[1]));
}

Figures Ledger::evaluate(Moment end) {
    for (const Demand& demand : demands_) {
        if (demand.due + latest < end) count(demand);
    }
    return figures_;
}

}  // namespace quode::test
