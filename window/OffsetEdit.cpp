// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "window/OffsetEdit.h"

#include <QHBoxLayout>
#include <QSpinBox>
#include <cstdlib>

#include "companion/UserDatabase.h"
#include "texts/translation.h"
#include "views/qt_conversions.h"
#include "window/parts.h"

namespace quode::window {

OffsetEdit::OffsetEdit(const QString& name, QWidget* parent)
    : QWidget(parent), minutes_(new QSpinBox(this)), side_(newChoice({}, this)) {
    const std::string plain = name.toStdString();
    minutes_->setRange(0, largestAlarmOffset);
    minutes_->setSuffix(toQt(_(" min")));
    minutes_->setAccessibleName(toQt(_("{}: minutes", plain)));
    minutes_->setKeyboardTracking(false);
    side_->setAccessibleName(toQt(_("{}: before or after the time", plain)));
    side_->setToolTip(_("Before or after the time"));
    side_->setMinimumContentsLength(6);
    side_->addItem(_("before"), -1);
    side_->addItem(_("after"), 1);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->addWidget(minutes_);
    row->addWidget(side_);
    connect(minutes_, &QSpinBox::valueChanged, this, [this] { Q_EMIT edited(minutes()); });
    connect(side_, &QComboBox::activated, this, [this] {
        if (minutes_->value() != 0) Q_EMIT edited(minutes());
    });
}

int OffsetEdit::minutes() const {
    return minutes_->value() * side_->currentData().toInt();
}

void OffsetEdit::setMinutes(int minutes) {
    if (minutes == this->minutes()) return;
    const QSignalBlocker quiet(minutes_);
    minutes_->setValue(std::abs(minutes));
    choose(*side_, minutes > 0 ? 1 : -1);
}

}  // namespace quode::window
