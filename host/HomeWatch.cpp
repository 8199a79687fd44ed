// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/HomeWatch.h"

#include <algorithm>
#include <utility>

namespace quode::host {
namespace {

constexpr std::chrono::milliseconds secondLook{500};
constexpr int mostDoublings = 4;

}  // namespace

HomeWatch::HomeWatch(std::unique_ptr<MomentWatch> days, std::unique_ptr<MomentWatch> choices,
                     std::function<std::string()> shown, std::chrono::milliseconds settle)
    : days_(std::move(days)), choices_(std::move(choices)), shownNow_(std::move(shown)) {
    settling_.setSingleShot(true);
    settling_.setInterval(settle);
    connect(days_.get(), &MomentWatch::happened, this, &MomentWatch::happened);
    connect(choices_.get(), &MomentWatch::happened, this, &HomeWatch::onChoicesWritten);
    secondLook_.setSingleShot(true);
    connect(&settling_, &QTimer::timeout, this, &HomeWatch::compare);
    connect(&secondLook_, &QTimer::timeout, this, &HomeWatch::compare);
}

void HomeWatch::watchFor(std::optional<Clock::TimePoint> moment) {
    if (moment) shown_ = shownNow_();
    isWatching_ = moment.has_value();
    isWhole_ = true;
    settling_.stop();
    secondLook_.stop();
    days_->watchFor(moment);
    choices_->watchFor(moment);
}

void HomeWatch::lookAgain() {
    if (isWatching_ && !secondLook_.isActive()) secondLook_.start(secondLook);
}

void HomeWatch::setShownWhole(bool isWhole) {
    if (!isWatching_) return;
    isWhole_ = isWhole;
    failures_ = isWhole ? 0 : failures_ + 1;
    if (!isWhole) secondLook_.start(secondLook * (1 << std::min(failures_ - 1, mostDoublings)));
}

// Not later with each further write: a program may write all the time. What is not whole is looked at again anyway.
void HomeWatch::onChoicesWritten() {
    if (!isWhole_) return;
    if (settling_.interval() == 0) return compare();
    if (!settling_.isActive()) settling_.start();
}

void HomeWatch::compare() {
    std::string now = shownNow_();
    if (!isWhole_ && now.empty()) return secondLook_.start(secondLook);
    const bool wasWhole = std::exchange(isWhole_, true);
    if (!wasWhole || std::exchange(shown_, std::move(now)) != shown_) {
        Q_EMIT happened();
    } else {
        Q_EMIT otherChoicesWritten();
    }
}

}  // namespace quode::host
