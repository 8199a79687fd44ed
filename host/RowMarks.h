// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QWidget>
#include <optional>

namespace quode::host {

/// Lies over the widget and marks two of its rows at their left edge: a bar for the prayer whose time it is, a pointer
/// for the one that comes next. The widget does not know it, and taps go through. It is deleted with the widget's
/// view.
class RowMarks : public QWidget {
    Q_OBJECT

  public:
    /// @param view  the widget's root view
    explicit RowMarks(QWidget* view);

    /// The rows by the codes of their prayers.
    void setRows(std::optional<int> current, std::optional<int> next);

    /// Where the marks are drawn, in points of the view; nothing for a row that is not marked or not shown.
    std::optional<QRectF> currentMark() const { return markOf(current_); }
    std::optional<QRectF> nextMark() const { return markOf(next_); }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    std::optional<QRectF> markOf(std::optional<int> code) const;

    std::optional<int> current_, next_;
};

}  // namespace quode::host
