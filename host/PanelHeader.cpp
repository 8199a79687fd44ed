// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/PanelHeader.h"

#include <QLabel>
#include <QVBoxLayout>

#include "desktop/theme.h"
#include "host/panel_facts.h"
#include "host/widgets.h"

namespace quode::host {
namespace {

constexpr int headerSideMargin = 16, headerTopMargin = 12, headerBottomMargin = 10, lineGap = 2;
constexpr int nextSize = 17;  // pixels of the font

}  // namespace

PanelHeader::PanelHeader(QWidget* parent)
    : QWidget(parent), next_(newTextLabel(this, nextSize, true)), dates_(newTextLabel(this)) {
    next_->setObjectName("nextPrayer");
    dates_->setObjectName("dates");
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(headerSideMargin, headerTopMargin, headerSideMargin, headerBottomMargin);
    column->setSpacing(lineGap);
    column->addWidget(next_);
    column->addWidget(dates_);
    hide();
}

void PanelHeader::setFacts(const PanelFacts& facts) {
    next_->setText(facts.next);
    dates_->setText(facts.dates);
    next_->setVisible(!facts.next.isEmpty());
    dates_->setVisible(!facts.dates.isEmpty());
    setVisible(!facts.next.isEmpty() || !facts.dates.isEmpty());
}

void PanelHeader::setTheme(const Theme& theme) {
    setTextColor(*next_, theme.text);
    setTextColor(*dates_, theme.quietText);
}

}  // namespace quode::host
