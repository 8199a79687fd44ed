// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include "app/user_alarms.h"
#include "window/Context.h"
#include "window/parts.h"

class QDateTimeEdit;
class QPushButton;

namespace quode::window {

/// What rings next and who rings it; silence for all alarms.
class MutePart : public Card {
    Q_OBJECT

  public:
    MutePart(Context& context, QWidget* parent);

    void refresh(const app::UserAlarms& all);

  private:
    void showNext(const app::UserAlarms& all);
    void showRinger(const app::UserAlarms& all);
    void muteUntilChosen();

    Context& context_;
    QLabel *next_, *ringer_;
    QPushButton *mend_, *tomorrow_, *until_, *unmute_;
    QDateTimeEdit* moment_;
    std::optional<CityRecord> city_;
};

}  // namespace quode::window
