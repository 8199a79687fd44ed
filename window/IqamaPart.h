// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <optional>

#include "data/city_day.h"
#include "window/Context.h"
#include "window/parts.h"

class QComboBox;
class QSpinBox;
class QTimeEdit;

namespace quode::window {

/// When the congregations begin in the home city: minutes after each prayer's time, or a fixed clock time.
class IqamaPart : public Card {
    Q_OBJECT

  public:
    IqamaPart(Context& context, QWidget* parent);

    /// Shows what is stored for the home city; nothing can be chosen without one.
    void refresh(const std::optional<CityRecord>& city);

  private:
    struct Row {
        int code = 0;
        QComboBox* kind = nullptr;
        QSpinBox* minutes = nullptr;  // after the time
        QTimeEdit* clock = nullptr;
        QLabel* today = nullptr;
    };

    Row newRow(int code);
    void chooseKind(const Row& row);
    void store(const Row& row, const std::optional<Iqama>& iqama);
    void show(const Row& row, const CityDay& day);
    QString todayText(const CityDay& day, int code);

    Context& context_;
    std::optional<CityRecord> city_;
    std::array<Row, 5> rows_;
    QLabel* table_;  // says that an imported timetable comes first
};

}  // namespace quode::window
