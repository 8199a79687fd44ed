// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <array>

#include "window/Page.h"
#include "window/TrialRinging.h"

namespace quode::window {

class AlarmCard;
class MutePart;

/// The six alarms.
class AlarmsPage : public Page {
    Q_OBJECT

  public:
    AlarmsPage(Context& context, QWidget* parent);

    void refresh() override;

  private:
    TrialRinging trial_;
    MutePart* mute_;
    std::array<AlarmCard*, 6> cards_{};
};

}  // namespace quode::window
