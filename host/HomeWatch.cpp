// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/HomeWatch.h"

#include <utility>

namespace quode::host {

HomeWatch::HomeWatch(std::unique_ptr<MomentWatch> days, std::unique_ptr<MomentWatch> choices,
                     std::function<std::optional<int>()> home)
    : days_(std::move(days)), choices_(std::move(choices)), homeNow_(std::move(home)) {
    connect(days_.get(), &MomentWatch::stirred, this, &MomentWatch::stirred);
    connect(choices_.get(), &MomentWatch::stirred, this, &HomeWatch::compareHome);
}

void HomeWatch::watchFor(std::optional<Clock::TimePoint> moment) {
    if (moment) home_ = homeNow_();
    days_->watchFor(moment);
    choices_->watchFor(moment);
}

void HomeWatch::compareHome() {
    const std::optional<int> home = homeNow_();
    if (std::exchange(home_, home) != home) Q_EMIT stirred();
}

}  // namespace quode::host
