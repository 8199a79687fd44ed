// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "alarmd/ring_decision.h"

namespace quode {

RingDecision decideRing(std::chrono::sys_seconds ringAt, std::chrono::sys_seconds now) {
    const std::chrono::seconds late = now - ringAt;
    if (late < std::chrono::seconds(0)) return RingDecision::wait;
    if (late < stillInTime) return RingDecision::ring;
    if (late <= latestRing) return RingDecision::ringLate;
    return RingDecision::drop;
}

}  // namespace quode
