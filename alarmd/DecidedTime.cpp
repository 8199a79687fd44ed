// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "alarmd/DecidedTime.h"

#include <algorithm>
#include <utility>

#include "alarmd/ring_decision.h"

namespace quode {
namespace {

using namespace std::chrono;

constexpr seconds inaccuracy{1};  // of two clocks that count whole seconds
constexpr seconds jump{60};       // a clock that goes ahead by less is being put right
constexpr seconds holdTime{90};   // how long a clock that jumped has to prove itself
constexpr hours farBack{24};      // rings from before are not even looked for

constexpr seconds sameClock{120};

// What a clock showed when the device started.
seconds zeroOf(sys_seconds clock, const Uptime& uptime) {
    return clock.time_since_epoch() - floor<seconds>(uptime.time);
}

}  // namespace

DecidedTime::DecidedTime(std::optional<DecidedNote> note) : note_(std::move(note)) {}

// Finds out whether the clock was set since the last time.
void DecidedTime::followClock(const Present& present, Span& span) {
    const sys_seconds now = present.clock;
    const seconds passed = floor<seconds>(present.uptime.time - note_->uptime.time);
    const seconds shift = now - (note_->clock + passed);
    if (abs(shift) > inaccuracy) span.shift = shift;
    const seconds zero = zeroOf(present.clock, present.uptime);
    const seconds zeroBefore = zeroOf(note_->clock, note_->uptime);
    if (shift < -inaccuracy) {
        span.isTakenBack = true;
        // What is held was never decided, so that the moment is still that of the clock before it jumped.
        note_->until = hold_ ? std::min(note_->until, now) : note_->until + shift;
        hold_.reset();
        if (note_->left && abs(zero - note_->left->zero) < sameClock) {
            // What was decided while it was wrong is open again, from where it left.
            span.wrongSince = note_->left->at;
            note_->until = std::min(note_->until, sys_seconds(note_->left->zero + floor<seconds>(note_->left->at)));
            note_->left.reset();
        } else if (!wentBackFrom_) {
            wentBackFrom_ = zeroBefore;
        }
    } else if (shift > jump) {
        hold_ = Hold{now, present.uptime.time + holdTime};
        // One that was back for a while, and comes to itself, leaves no clock that was right.
        const bool comesBack = wentBackFrom_ && abs(zero - *wentBackFrom_) < sameClock;
        if (comesBack) wentBackFrom_.reset();
        if (!comesBack && !note_->left) note_->left = LeftClock{zeroBefore, present.uptime.time};
    }
}

DecidedTime::Span DecidedTime::begin(const Present& present) {
    Span span;
    const sys_seconds now = present.clock;
    if (hold_ && present.uptime.time >= hold_->end) hold_.reset();
    if (!note_) {
        span.since = now - stillInTime;
        return span;
    }
    if (areComparable(note_->uptime, present.uptime)) {
        followClock(present, span);
    } else if (note_->until > now) {
        note_->until = now - latestRing;
        span.isTakenBack = true;
        note_->left.reset();
    }
    note_->clock = now;
    note_->uptime = present.uptime;
    note_->until = std::clamp(note_->until, now - farBack, now);
    span.since = note_->until;
    if (hold_) span.heldUntil = hold_->until;
    return span;
}

void DecidedTime::finish(const Present& present) {
    if (!note_) note_.emplace();
    note_->clock = present.clock;
    note_->uptime = present.uptime;
    if (!hold_) note_->until = present.clock;
}

std::optional<sys_seconds> DecidedTime::holdEnds(const Present& present) const {
    if (!hold_) return std::nullopt;
    return present.clock + ceil<seconds>(hold_->end - present.uptime.time);
}

}  // namespace quode
