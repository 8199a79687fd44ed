// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "desktop/MomentWatch.h"

namespace quode::host {

/// Watches as another watch does, and also tells when the user has chosen otherwise, such as by a command in a
/// terminal.
class HomeWatch : public MomentWatch {
    Q_OBJECT

  public:
    /// @param days     what it watches for besides
    /// @param choices  tells that the user's choices were written; most of that has nothing to do with the home city
    /// @param shown    what the widget is built from, such as the number of the home city, in a text of any form
    /// @param settle   how long after a file was written it is read: who writes needs a moment to finish
    HomeWatch(std::unique_ptr<MomentWatch> days, std::unique_ptr<MomentWatch> choices,
              std::function<std::string()> shown, std::chrono::milliseconds settle = {});

    void watchFor(std::optional<Clock::TimePoint> moment) override;

    /// Looks once more after a while, for what could not be read; nothing happens where nothing is watched.
    void lookAgain();

    /// Tells whether all that is shown could be read. If not, `happened` comes as soon as it can be read, also when that
    /// is what was read before. The looks become rarer while each new presentation fails in the same way.
    void setShownWhole(bool isWhole);

  Q_SIGNALS:
    /// Something was chosen that the widget need not be rebuilt for, such as an alarm.
    void otherChoicesWritten();

  private:
    void onChoicesWritten();
    void compare();

    std::unique_ptr<MomentWatch> days_, choices_;
    std::function<std::string()> shownNow_;
    std::string shown_;  // when the watching began
    bool isWatching_ = false;
    bool isWhole_ = true;
    int failures_ = 0;  // presentations in a row that were not whole
    QTimer settling_, secondLook_;
};

}  // namespace quode::host
