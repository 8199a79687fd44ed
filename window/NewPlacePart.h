// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include "window/Context.h"
#include "window/parts.h"

class QDoubleSpinBox;
class QLineEdit;
class QPushButton;

namespace quode::window {

/// Adds a place by its coordinates, with the zone of the nearest city.
class NewPlacePart : public Card {
    Q_OBJECT

  public:
    NewPlacePart(Context& context, QWidget* parent);

  private:
    QDoubleSpinBox* newCoordinate(const char* name, double limit);
    void showNearest();
    void add();

    Context& context_;
    QLineEdit* name_;
    QDoubleSpinBox *latitude_, *longitude_;
    QLabel* nearest_;
    QPushButton* add_;
};

}  // namespace quode::window
