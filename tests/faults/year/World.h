// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The device of a simulation, with true time running beside its clock.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "Ledger.h"
#include "alarmd/RingDesk.h"
#include "platform/Uptime.h"
#include "support/zoned_clock.h"

namespace quode::test {

/// Thrown where a process is killed. No `std::exception`, so that nothing survives it.
struct Killed {};

/// True time, and what is to happen at which moment of it.
class Agenda {
  public:
    using Moment = std::chrono::sys_seconds;

    explicit Agenda(Moment start) : now_(start) {}
    Moment now() const { return now_; }
    void advance(Moment moment) { now_ = std::max(now_, moment); }
    void at(Moment moment, std::function<void()> action) { actions_.emplace(moment, std::move(action)); }
    void in(std::chrono::seconds time, std::function<void()> action) { at(now_ + time, std::move(action)); }
    Moment next() const { return actions_.empty() ? Moment::max() : actions_.begin()->first; }

    /// Does what is due now.
    void act() {
        while (next() <= now_) {
            const auto first = actions_.begin();
            const std::function<void()> action = std::move(first->second);
            actions_.erase(first);
            action();
        }
    }

  private:
    Moment now_;
    std::multimap<Moment, std::function<void()>> actions_;
};

/// The desktop: a notification service that comes and goes, and a user who answers it.
class Desktop : public RingDesk {
  public:
    /// Where the process that asks is killed next.
    enum class KillPoint { none, beforeAsking, whileAsking, beforeTheAnswer, afterTheAnswer };

    Desktop(Agenda& agenda, Ledger& ledger) : agenda_(&agenda), ledger_(&ledger) {}

    std::string run() override { return isThere ? "service-" + std::to_string(runs_) : ""; }
    void show(const Ring& ring, NotificationService::Answer answered) override;
    void sound(const Ring& ring) override;
    void silence(const AlarmOccurrence&) override {}
    void close(const NotificationId& notification) override { shown_.erase(notification.number); }
    void warn(std::string_view) override { ++warnings; }

    /// A new run of the service, or none.
    void restart(bool there);

    /// The process that asked is gone: nobody waits for its answers any longer.
    void forgetCaller() { ++caller_; }

    struct Shown {
        AlarmOccurrence alarm;
    };
    std::function<void(std::uint32_t number, const Shown& shown)> onShown;
    std::chrono::seconds clockError{0};  ///< what the device's clock is ahead
    std::chrono::seconds slowness{0};    ///< how long the service takes to answer
    bool isThere = true;
    bool isShown(std::uint32_t number) const { return shown_.contains(number); }
    KillPoint killPoint = KillPoint::none;
    int warnings = 0;

  private:
    void killAt(KillPoint point) {
        if (killPoint != point) return;
        killPoint = KillPoint::none;
        throw Killed();
    }

    Agenda* agenda_;
    Ledger* ledger_;
    std::map<std::uint32_t, Shown> shown_;
    std::uint32_t lastNumber_ = 0;
    int runs_ = 1;
    int caller_ = 0;
};

}  // namespace quode::test
