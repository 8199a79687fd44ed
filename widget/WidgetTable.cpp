#include "widget/WidgetTable.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

#include "common/GlobalFuncs.h"
#include "views/qt_conversions.h"

namespace quode {
namespace {

constexpr double smallestVisibleHeight = 1.0;
constexpr double separatorOpacity = 0.25;

}  // namespace

WidgetTable::WidgetTable(const Rect& frame, QWidget* parent) : View(frame, parent) {}

void WidgetTable::setDataSource(const WidgetTableSource* source) {
    source_ = source;
    needsReload_ = true;
    QCoreApplication::postEvent(this, new QEvent(QEvent::LayoutRequest));
}

void WidgetTable::reloadData() {
    needsReload_ = false;
    std::vector<Row> before = std::move(rows_);
    rows_.clear();
    double y = 0.0;
    for (int section = 0; source_ != nullptr && section < source_->numberOfSectionsInTableView(); ++section) {
        for (int row = 0; row < source_->numberOfRowsInSection(section); ++row) {
            Row next;
            if (rows_.size() < before.size()) next.cell = before[rows_.size()].cell;
            source_->cellForRowAtIndexPath(next.cell, {section, row});
            next.y = y;
            next.height = source_->heightForRowAtIndexPath({section, row});
            y += next.height;
            rows_.push_back(next);
        }
    }
    for (const Row& row : before) {
        View* view = row.cell.accessoryView;
        const auto showsIt = [view](const Row& other) { return other.cell.accessoryView == view; };
        if (view != nullptr && std::ranges::none_of(rows_, showsIt)) view->setParent(nullptr);
    }
    placeRows();
}

// A view that stays in its row keeps its parent, and with it the keyboard's focus.
void WidgetTable::placeRows() {
    for (const Row& row : rows_) {
        View* view = row.cell.accessoryView;
        if (view == nullptr) continue;
        if (view->parentWidget() != this) view->setParent(this);
        const Size size{view->frame().width, view->frame().height};
        view->setFrame({frame().width - accessoryMargin - size.width, row.y + (row.height - size.height) * 0.5,
                        size.width, size.height});
        view->raise();  // the order of the rows is the order of reading
        view->show();
    }
    update();
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
    } else {
        placeRows();
    }
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
