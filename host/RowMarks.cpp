// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/RowMarks.h"

#include <QEvent>
#include <QPainter>
#include <QPolygonF>

#include "common/GlobalFuncs.h"
#include "views/UITimesView.h"
#include "views/qt_conversions.h"

namespace quode::host {
namespace {

constexpr double markLeft = 34.0, markWidth = 4.0, markInset = 8.0;  // points; texts begin at 50

}  // namespace

RowMarks::RowMarks(QWidget* view) : QWidget(view) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    setGeometry(view->rect());
    view->installEventFilter(this);
    raise();
    show();
}

void RowMarks::setRows(std::optional<int> current, std::optional<int> next) {
    current_ = current;
    next_ = next;
    update();
}

// The rows are laid out again when the view is.
bool RowMarks::eventFilter(QObject*, QEvent* event) {
    const auto type = event->type();
    if (type == QEvent::Resize) setGeometry(parentWidget()->rect());
    if (type == QEvent::Resize || type == QEvent::LayoutRequest || type == QEvent::Show) update();
    return false;
}

std::optional<QRectF> RowMarks::markOf(std::optional<int> code) const {
    if (!code) return std::nullopt;
    for (const auto* row : parentWidget()->findChildren<UITimesView*>()) {
        if (row->tag() != *code || !row->isVisibleTo(parentWidget())) continue;
        const double top = row->mapTo(parentWidget(), QPoint()).y();
        return QRectF(markLeft, top + markInset, markWidth, row->height() - 2.0 * markInset);
    }
    return std::nullopt;
}

void RowMarks::paintEvent(QPaintEvent*) {
    if (!current_ && !next_) return;
    const GlobalFuncs& services = GlobalFuncs::globalFuncs();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    if (const auto bar = currentMark()) {
        painter.setBrush(toQt(services.secondColor()));
        painter.drawRoundedRect(*bar, markWidth / 2.0, markWidth / 2.0);
    }
    if (const auto bar = nextMark()) {
        const QPointF middle(bar->left(), bar->center().y());
        painter.setBrush(toQt(services.thirdColor()));
        painter.drawPolygon(
            QPolygonF({middle + QPointF(-1.0, -6.0), middle + QPointF(7.0, 0.0), middle + QPointF(-1.0, 6.0)}));
    }
}

}  // namespace quode::host
