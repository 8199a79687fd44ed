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

}  // namespace

DecidedTime::DecidedTime(std::optional<DecidedNote> note) : note_(std::move(note)) {}

// The clock is another one now. Of those that it was before, all are forgotten that it had since it was this one the
// last time: it has come back to itself.
// Returns when it left, if it comes back to itself.
std::optional<milliseconds> DecidedTime::followJump(seconds zeroBefore, seconds zero, milliseconds uptime) {
    std::vector<LeftClock>& left = note_->left;
    const auto same =
        std::ranges::find_if(left, [&](const LeftClock& each) { return abs(each.zero - zero) < sameClock; });
    if (same != left.end()) {
        const milliseconds leftAt = same->at;
        left.erase(same, left.end());
        return leftAt;
    }
    if (left.size() == mostLeft) left.erase(left.begin());
    left.push_back({zeroBefore, uptime});
    return std::nullopt;
}

// Finds out whether the clock was set since the last time.
void DecidedTime::followClock(const Present& present, Span& span) {
    const sys_seconds now = present.clock;
    const seconds passed = floor<seconds>(present.uptime.time - note_->uptime.time);
    const seconds shift = now - (note_->clock + passed);
    if (abs(shift) > inaccuracy) span.shift = shift;
    std::optional<milliseconds> leftAt;
    const seconds zero = zeroOf(present);
    if (abs(shift) >= sameClock) leftAt = followJump(zero - shift, zero, present.uptime.time);
    if (shift < -inaccuracy) {
        span.isTakenBack = true;
        // What is held was never decided, so that the moment is still that of the clock before it jumped.
        note_->until = hold_ ? std::min(note_->until, now) : note_->until + shift;
        hold_.reset();
        if (!leftAt) return;
        // What was decided while it was wrong is open again, from where it left.
        span.wrongSince = leftAt;
        note_->until = std::min(note_->until, sys_seconds(zero + floor<seconds>(*leftAt)));
    } else if (shift > jump) {
        hold_ = Hold{now, present.uptime.time + holdTime};
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
    } else {
        note_->left.clear();  // they were those of another start of the device
        if (note_->until > now) {
            note_->until = now - latestRing;
            span.isTakenBack = true;
        }
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
