// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include "window/Page.h"

class QComboBox;
class QLabel;
class QPushButton;

namespace quode::window {

class Switch;

/// Where the alarms stand as events, which program shows and rings them, and the calendar of the prayers.
class CalendarPage : public Page {
    Q_OBJECT

  public:
    CalendarPage(Context& context, QWidget* parent);

    void refresh() override;

  private:
    QWidget* newFilePart();
    QWidget* newPublishedPart();
    QWidget* newEvolutionPart();
    QString publishedFile();
    void publish(bool isWanted, const QString& file);
    void showPublished();

    QComboBox* layout_ = nullptr;
    QLabel *file_ = nullptr, *state_ = nullptr;
    QPushButton* connect_ = nullptr;
    Switch* rings_ = nullptr;
    Switch* publishes_ = nullptr;
    QLabel* published_ = nullptr;
    QComboBox* reminder_ = nullptr;
    QPushButton* otherFile_ = nullptr;
    bool isConnected_ = false;
};

}  // namespace quode::window
