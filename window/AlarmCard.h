// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <array>

#include "app/user_alarms.h"
#include "window/Context.h"
#include "window/parts.h"

class QCheckBox;
class QFormLayout;
class QPushButton;

namespace quode::window {

class OffsetEdit;
class TrialRinging;

/// The alarm of one prayer: a switch and what it does, with all that can be chosen below when it is opened.
class AlarmCard : public Card {
    Q_OBJECT

  public:
    AlarmCard(int code, Context& context, TrialRinging& trial, QWidget* parent);

    /// Shows the alarm as it is stored.
    void refresh(const app::UserAlarms& all);

  private:
    void addHead();
    void addDetails();
    void addSound(QFormLayout& form);
    void addDays(QFormLayout& form);
    void addActions();
    void showSummary(const app::UserAlarms& all, const UserAlarm& alarm);
    void showSounds(const app::UserAlarms& all, const UserAlarm& alarm);
    void chooseSound();
    void takeSound(const std::string& sound);
    void chooseDays();
    QString named(const char* what) const;

    const int code_;
    Context& context_;
    TrialRinging& trial_;
    const QString name_;
    QString sound_;  // as it is stored; empty: that of the settings
    Switch* switch_ = nullptr;
    QLabel* summary_ = nullptr;
    QToolButton* open_ = nullptr;
    QWidget* details_ = nullptr;
    OffsetEdit *offset_ = nullptr, *reminder_ = nullptr;
    QCheckBox* hasReminder_ = nullptr;
    QComboBox* sounds_ = nullptr;
    QToolButton* preview_ = nullptr;
    std::array<QToolButton*, 7> days_{};  // 0 = Sunday
    QPushButton *test_ = nullptr, *skip_ = nullptr;
};

}  // namespace quode::window
