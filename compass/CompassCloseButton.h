// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>

#include "compass/CompassPlate.h"

namespace quode {

/// A round button with a cross.
class CompassCloseButton : public QAbstractButton {
    Q_OBJECT

  public:
    static constexpr int side = 40;

    CompassCloseButton(const CompassInk& ink, QWidget* parent);

    void setAlpha(double alpha);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool hitButton(const QPoint& position) const override;

  private:
    CompassInk ink_;
    double alpha_ = 1.0;
};

}  // namespace quode
