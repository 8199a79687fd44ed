// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include "window/Page.h"

class QComboBox;
class QLabel;
class QPushButton;

namespace quode::window {

class Switch;

/// Where the alarms stand as events, and which program shows and rings them.
class CalendarPage : public Page {
    Q_OBJECT

  public:
    CalendarPage(Context& context, QWidget* parent);

    void refresh() override;

  private:
    QWidget* newFilePart();
    QWidget* newEvolutionPart();

    QComboBox* layout_ = nullptr;
    QLabel *file_ = nullptr, *state_ = nullptr;
    QPushButton* connect_ = nullptr;
    Switch* rings_ = nullptr;
    bool isConnected_ = false;
};

}  // namespace quode::window
