// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <vector>

namespace quode::window {

/// Buttons of equal width side by side; in two rows where one is too narrow for their texts.
class ButtonRow : public QWidget {
    Q_OBJECT

  public:
    using QWidget::QWidget;

    /// Adds a button that is a child of this widget.
    void add(QWidget* button);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    int count() const { return int(buttons_.size()); }
    int columnsOfTwoRows() const { return (count() + 1) / 2; }
    int columnsIn(int width) const;
    QSize largest() const;
    QSize sizeOf(int columns) const;

    std::vector<QWidget*> buttons_;
};

}  // namespace quode::window
