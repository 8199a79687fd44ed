// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <array>

#include "window/Page.h"
#include "window/TrialRinging.h"

namespace quode::window {

class AlarmCard;
class MannerPart;
class MutePart;

/// The six alarms, and how all of them ring.
class AlarmsPage : public Page {
    Q_OBJECT

  public:
    AlarmsPage(Context& context, QWidget* parent);

    void refresh() override;

  private:
    TrialRinging trial_;
    MutePart* mute_;
    MannerPart* manner_;
    std::array<AlarmCard*, 6> cards_{};
};

}  // namespace quode::window
