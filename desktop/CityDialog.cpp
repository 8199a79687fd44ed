// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "desktop/CityDialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "texts/translation.h"

namespace quode {
namespace {

constexpr QSize usualSize{340, 420};  // points

}  // namespace

CityDialog::CityDialog(CityFinder::Search search, QWidget* parent)
    : QDialog(parent), finder_(new CityFinder(std::move(search), this)), accept_(nullptr) {
    setWindowTitle(_("Choose city"));
    resize(usualSize);
    auto* const caption = new QLabel(_("Type the name of your city:"), this);
    caption->setBuddy(finder_);

    auto* const buttons = new QDialogButtonBox(this);
    accept_ = buttons->addButton(_("Make it home"), QDialogButtonBox::AcceptRole);
    buttons->addButton(_("Cancel"), QDialogButtonBox::RejectRole);
    accept_->setEnabled(false);
    accept_->setDefault(true);

    auto* const column = new QVBoxLayout(this);
    column->addWidget(caption);
    column->addWidget(finder_, 1);
    column->addWidget(buttons);

    connect(finder_, &CityFinder::chosen, this, &QDialog::accept);
    connect(finder_, &CityFinder::currentChanged, accept_, &QWidget::setEnabled);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    finder_->setFocus();
}

std::optional<CityRecord> CityDialog::chosen() const {
    return result() == Accepted ? finder_->current() : std::nullopt;
}

}  // namespace quode
