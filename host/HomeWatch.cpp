// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/HomeWatch.h"

#include <utility>

namespace quode::host {
namespace {

constexpr int secondLook = 500;  // ms

}  // namespace

HomeWatch::HomeWatch(std::unique_ptr<MomentWatch> days, std::unique_ptr<MomentWatch> choices,
                     std::function<std::string()> shown, std::chrono::milliseconds settle)
    : days_(std::move(days)), choices_(std::move(choices)), shownNow_(std::move(shown)) {
    settling_.setSingleShot(true);
    settling_.setInterval(settle);
    connect(days_.get(), &MomentWatch::stirred, this, &MomentWatch::stirred);
    connect(choices_.get(), &MomentWatch::stirred, this, &HomeWatch::onChoicesWritten);
    secondLook_.setSingleShot(true);
    secondLook_.setInterval(secondLook);
    connect(&settling_, &QTimer::timeout, this, &HomeWatch::compare);
    connect(&secondLook_, &QTimer::timeout, this, &HomeWatch::compare);
}

void HomeWatch::watchFor(std::optional<Clock::TimePoint> moment) {
    if (moment) shown_ = shownNow_();
    isWatching_ = moment.has_value();
    settling_.stop();
    secondLook_.stop();
    days_->watchFor(moment);
    choices_->watchFor(moment);
}

void HomeWatch::lookAgain() {
    if (isWatching_) secondLook_.start();
}

// Not later with each further write: a program may write all the time.
void HomeWatch::onChoicesWritten() {
    if (settling_.interval() == 0) return compare();
    if (!settling_.isActive()) settling_.start();
}

void HomeWatch::compare() {
    std::string now = shownNow_();
    if (std::exchange(shown_, std::move(now)) != shown_) {
        Q_EMIT stirred();
    } else {
        Q_EMIT otherChoicesWritten();
    }
}

}  // namespace quode::host
