// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <vector>

#include "app/first_start.h"

class QCheckBox;
class QLabel;

namespace quode {

namespace app {
class Session;
}

class CityFinder;

/// The one question of the first start: is the guessed city right, and which prayers ring? Return accepts what stands
/// there; closing it leaves the guess a guess.
class FirstStartDialog : public QDialog {
    Q_OBJECT

  public:
    FirstStartDialog(app::Session& session, const CityRecord& guess, QWidget* parent);

    /// What is chosen now.
    app::FirstAnswer answer() const;

  private:
    QWidget* newCityPart();
    QWidget* newAlarmPart();
    QWidget* newButtons();
    const CityRecord& city() const;
    void showCity();

    app::Session& session_;
    const CityRecord guess_;
    std::optional<CityRecord> found_;
    QLabel* question_ = nullptr;
    CityFinder* finder_ = nullptr;
    std::vector<QCheckBox*> alarms_;
    QLabel* authority_ = nullptr;
    QCheckBox* method_ = nullptr;
};

/// Asks on a first start, once, and does what is answered.
/// @return what went wrong, for the user to read; empty when all is well
QString askOnFirstStart(app::Session& session, QWidget* parent);

}  // namespace quode
