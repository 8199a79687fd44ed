// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <cstddef>
#include <vector>

#include "views/View.h"

namespace quode {

/// A row of a table, both counted from 0.
struct IndexPath {
    int section = 0;
    int row = 0;
};

/// The cell of a row. It keeps its tag and its view until they are replaced.
///
/// The accessory view keeps its size. It is vertically centred in the cell, `accessoryMargin` from the right edge: a view
/// as wide as the cell extends beyond the left edge by the same distance.
class WidgetTableCell final : public View {
    Q_OBJECT

  public:
    static constexpr double accessoryMargin = 15.0;

    using View::View;

    /// Not owned; null for an empty row, which is not shown.
    View* accessoryView() const { return accessoryView_.data(); }
    void setAccessoryView(View* view);

    void setFrame(const Rect& frame) override;

  private:
    void placeAccessoryView();

    QPointer<View> accessoryView_;
};

/// The source of a table's rows. Fixed names: all.
class WidgetTableSource {
  public:
    virtual int numberOfSectionsInTableView() const = 0;
    virtual int numberOfRowsInSection(int section) const = 0;
    virtual double heightForRowAtIndexPath(IndexPath path) const = 0;
    /// Fills the cell of a row, which is empty with tag 0 before its first use.
    virtual void cellForRowAtIndexPath(WidgetTableCell& cell, IndexPath path) const = 0;

  protected:
    ~WidgetTableSource() = default;
};

/// Distances from the edges of a row.
struct EdgeInsets {
    double top = 0.0, left = 0.0, bottom = 0.0, right = 0.0;

    friend bool operator==(const EdgeInsets&, const EdgeInsets&) = default;
};

/// A plain table: rows one below the other on a transparent background, with a thin line under each. It does not scroll,
/// and rows cannot be selected; rows beyond its height are not visible. A row with a height of almost 0, such as 0.01, is
/// hidden.
class WidgetTable final : public View {
    Q_OBJECT

  public:
    explicit WidgetTable(const Rect& frame, QWidget* parent = nullptr);

    /// Sets the source, which is not owned. The rows are read at the next layout: when the frame is set, or in the event
    /// loop.
    void setDataSource(const WidgetTableSource* source);

    /// Reads all rows from the source again, at once.
    void reloadData();

    const EdgeInsets& separatorInset() const { return separatorInset_; }
    void setSeparatorInset(const EdgeInsets& inset) { separatorInset_ = inset; }

    int numberOfRows() const { return static_cast<int>(rows_.size()); }
    const WidgetTableCell& cellForRow(int row) const { return *rows_.at(static_cast<std::size_t>(row)).cell; }

    /// The area of a row, counted over all sections; it may extend below the table.
    Rect rectForRow(int row) const;

    void setFrame(const Rect& frame) override;

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    struct Row {
        WidgetTableCell* cell = nullptr;
        double y = 0.0;
        double height = 0.0;
    };

    WidgetTableCell* cellToReuse(std::size_t row);
    void layoutSubviews();

    const WidgetTableSource* source_ = nullptr;
    bool needsReload_ = false;
    EdgeInsets separatorInset_;
    std::vector<Row> rows_;
};

}  // namespace quode
