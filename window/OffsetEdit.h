// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QComboBox;
class QSpinBox;

namespace quode::window {

/// Minutes before or after a prayer's time.
class OffsetEdit : public QWidget {
    Q_OBJECT

  public:
    /// @param name  what the minutes are for, such as "Asr: rings"
    OffsetEdit(const QString& name, QWidget* parent);

    int minutes() const;  ///< negative: before
    void setMinutes(int minutes);

  Q_SIGNALS:
    /// The user has entered other minutes.
    void edited(int minutes);

  private:
    QSpinBox* minutes_;
    QComboBox* side_;
};

}  // namespace quode::window
