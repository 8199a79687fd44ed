// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "World.h"

namespace quode::test {

void Desktop::show(const Ring& ring, NotificationService::Answer answered) {
    killAt(KillPoint::beforeAsking);
    if (!isThere) return answered(std::nullopt);
    const NotificationId id{run(), ++lastNumber_};
    shown_[id.number] = {ring.alarm};
    const bool answersLater = slowness > std::chrono::seconds(0) || killPoint == KillPoint::beforeTheAnswer;
    if (onShown) onShown(id.number, shown_[id.number]);
    const auto note = [this, ring, now = agenda_->now(), run = id.run, error = clockError, caller = caller_] {
        ledger_->shown(ring, {now, run, caller == caller_, error});
    };
    if (!answersLater) {
        note();
        killAt(KillPoint::whileAsking);
        return answered(id);
    }
    agenda_->in(slowness + std::chrono::seconds(1), [this, id, note, answered = std::move(answered), caller = caller_] {
        const bool isOfThisRun = id.run == run();
        if (isOfThisRun) note();  // else it was gone before the service could even answer
        if (caller == caller_) answered(isOfThisRun ? std::optional(id) : std::nullopt);
    });
}

// The sound begins when the desktop was asked, whether it has answered or not.
void Desktop::sound(const Ring&) {
    killAt(KillPoint::beforeTheAnswer);
    killAt(KillPoint::afterTheAnswer);
}

void Desktop::restart(bool there) {
    ++runs_;
    isThere = there;
    shown_.clear();
    lastNumber_ = 0;  // every run counts from the beginning
}

}  // namespace quode::test
