// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/PanelFooter.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QToolButton>

#include "desktop/theme.h"
#include "host/panel_facts.h"
#include "host/widgets.h"

namespace quode::host {
namespace {

constexpr int footerSideMargin = 16, buttonMargin = 8, footerTopMargin = 8, footerBottomMargin = 8;
constexpr int buttonSide = 32;

/// A round button with three lines, drawn in the colours of the panel.
class MenuButton : public QToolButton {
  public:
    explicit MenuButton(QWidget* parent) : QToolButton(parent) {
        setFixedSize(buttonSide, buttonSide);
        setPopupMode(QToolButton::InstantPopup);
        setFocusPolicy(Qt::StrongFocus);
    }

    void setColors(const QColor& lines, const QColor& hover) {
        lines_ = lines;
        hover_ = hover;
        update();
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QRectF area = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
        if (underMouse() || isDown()) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(hover_);
            painter.drawEllipse(area);
        }
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(lines_, 2.0, Qt::SolidLine, Qt::RoundCap));
        if (hasFocus()) painter.drawEllipse(area);
        const QPointF middle = area.center();
        for (const double y : {-5.0, 0.0, 5.0}) {
            painter.drawLine(middle + QPointF(-6.0, y), middle + QPointF(6.0, y));
        }
    }

  private:
    QColor lines_, hover_;
};

}  // namespace

PanelFooter::PanelFooter(QWidget* parent) : QWidget(parent), notes_(newTextLabel(this)), button_(new MenuButton(this)) {
    notes_->setObjectName("footnotes");
    notes_->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    button_->setObjectName("menuButton");
    button_->hide();
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(buttonMargin, footerTopMargin, buttonMargin, footerBottomMargin);
    row->addSpacing(footerSideMargin - buttonMargin);  // changes the side with the language, as margins do not
    row->addWidget(notes_, 1);
    row->addWidget(button_, 0, Qt::AlignBottom);
    hide();
}

void PanelFooter::setFacts(const PanelFacts& facts) {
    notes_->setText(facts.notes.join('\n'));
    showWhatThereIs();
}

void PanelFooter::setTheme(const Theme& theme) {
    setTextColor(*notes_, theme.quietText);
    static_cast<MenuButton*>(button_)->setColors(theme.text, theme.hover);
}

void PanelFooter::setMenu(QMenu* menu, const QString& name) {
    button_->setMenu(menu);
    button_->setAccessibleName(name);
    button_->setToolTip(name);
    button_->setVisible(!name.isEmpty());
    showWhatThereIs();
}

void PanelFooter::showWhatThereIs() {
    setVisible(!notes_->text().isEmpty() || !button_->isHidden());
}

}  // namespace quode::host
