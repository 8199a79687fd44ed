// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "widget/WidgetTable.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPainter>
#include <cmath>
#include <memory>
#include <utility>

#include "common/GlobalFuncs.h"
#include "views/qt_conversions.h"

namespace quode {
namespace {

constexpr double smallestVisibleHeight = 1.0;
constexpr double separatorOpacity = 0.25;

}  // namespace

// ---- a cell ---------------------------------------------------------------------------------------------------------

// A view that stays in its row keeps its parent, and so the keyboard focus.
void WidgetTableCell::setAccessoryView(View* view) {
    if (accessoryView_ != view && accessoryView_ && accessoryView_->parentWidget() == this) {
        accessoryView_->setParent(nullptr);
    }
    accessoryView_ = view;
    setVisible(view != nullptr);
    if (view == nullptr) return;
    view->setParent(this);
    placeAccessoryView();
    view->show();
}

void WidgetTableCell::setFrame(const Rect& frame) {
    View::setFrame(frame);
    placeAccessoryView();
}

void WidgetTableCell::placeAccessoryView() {
    if (!accessoryView_) return;
    const Size size{accessoryView_->frame().width, accessoryView_->frame().height};
    accessoryView_->setFrame(
        {frame().width - accessoryMargin - size.width, (frame().height - size.height) * 0.5, size.width, size.height});
}

// ---- the table ------------------------------------------------------------------------------------------------------

WidgetTable::WidgetTable(const Rect& frame, QWidget* parent) : View(frame, parent) {}

void WidgetTable::setDataSource(const WidgetTableSource* source) {
    source_ = source;
    needsReload_ = true;
    QCoreApplication::postEvent(this, new QEvent(QEvent::LayoutRequest));
}

void WidgetTable::reloadData() {
    needsReload_ = false;
    std::vector<Row> rows;
    double y = 0.0;
    for (int section = 0; source_ != nullptr && section < source_->numberOfSectionsInTableView(); ++section) {
        for (int row = 0; row < source_->numberOfRowsInSection(section); ++row) {
            const double height = source_->heightForRowAtIndexPath({section, row});
            WidgetTableCell* cell = cellToReuse(rows.size());
            cell->setFrame({0.0, y, frame().width, height});
            source_->cellForRowAtIndexPath(*cell, {section, row});
            rows.push_back({cell, y, height});
            y += height;
        }
    }
    for (std::size_t row = rows.size(); row < rows_.size(); ++row) delete rows_[row].cell;
    rows_ = std::move(rows);
    update();
}

// Each row reuses its own cell, so that no view moves between cells.
WidgetTableCell* WidgetTable::cellToReuse(std::size_t row) {
    return row < rows_.size() ? rows_[row].cell : addSubview(*this, std::make_unique<WidgetTableCell>());
}

Rect WidgetTable::rectForRow(int row) const {
    const Row& found = rows_.at(static_cast<std::size_t>(row));
    return {0.0, found.y, frame().width, found.height};
}

void WidgetTable::setFrame(const Rect& frame) {
    View::setFrame(frame);
    layoutSubviews();
}

void WidgetTable::layoutSubviews() {
    if (needsReload_) {
        reloadData();
        return;
    }
    for (const Row& row : rows_) row.cell->setFrame({0.0, row.y, frame().width, row.height});
}

bool WidgetTable::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest) layoutSubviews();
    return View::event(event);
}

void WidgetTable::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QColor color = toQt(GlobalFuncs::globalFuncs().firstColor());
    color.setAlphaF(separatorOpacity);
    const double pixel = 1.0 / painter.device()->devicePixelRatioF();
    const double left = separatorInset_.left;
    const double width = frame().width - left - separatorInset_.right;
    for (const Row& row : rows_) {
        if (row.height < smallestVisibleHeight) continue;
        painter.fillRect(QRectF(left, std::round(row.y + row.height) - pixel, width, pixel), color);
    }
}

}  // namespace quode
