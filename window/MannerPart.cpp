// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "window/MannerPart.h"

#include <QHBoxLayout>
#include <QSlider>
#include <QVBoxLayout>

#include "app/settings.h"
#include "texts/translation.h"
#include "views/qt_conversions.h"

namespace quode::window {
namespace {

QString percentText(int percent) {
    return QString("%1 %").arg(percent);
}

}  // namespace

MannerPart::MannerPart(Context& context, QWidget* parent) : Card(parent), context_(context) {
    column()->addWidget(newHeading(_("How alarms ring"), this));
    addVolume();
    addFadeIn();
    media_ = addSwitch(_("Pause music and films"), _("While an alarm sounds; they go on after it."), "media", "pause",
                       "keep");
    urgent_ = addSwitch(_("Show alarms urgently"),
                        _("Also while the desktop is set not to disturb. The sound is heard either way."), "urgency",
                        "urgent", "normal");
}

void MannerPart::change(const char* setting, const QString& value) {
    context_.change([&] { app::changeSetting(context_.session(), setting, value.toStdString()); });
}

// A slider that is drawn is stored when it is let go.
void MannerPart::addVolume() {
    volume_ = new QSlider(Qt::Horizontal, this);
    volume_->setAccessibleName(_("Volume of alarms, percent"));
    volume_->setToolTip(_("Volume of alarms, percent"));
    volume_->setRange(softestSound, loudestSound);
    volume_->setSingleStep(5);
    volume_->setPageStep(10);
    volume_->setTracking(false);
    percent_ = newRemark(percentText(loudestSound), this);
    percent_->setWordWrap(false);
    percent_->setMinimumWidth(percent_->sizeHint().width());
    auto* const row = new QHBoxLayout;
    row->addWidget(newLabel(_("Volume"), this));
    row->addWidget(volume_, 1);
    row->addWidget(percent_);
    column()->addLayout(row);
    connect(volume_, &QSlider::sliderMoved, this, [this](int percent) { percent_->setText(percentText(percent)); });
    connect(volume_, &QSlider::valueChanged, this, [this](int percent) { change("volume", QString::number(percent)); });
}

void MannerPart::addFadeIn() {
    fadeIn_ = newChoice(_("Becomes louder"), this);
    fadeIn_->addItem(_("at once at its volume"), 0);
    for (const int seconds : {10, 20, 30, 60}) {
        fadeIn_->addItem(toQt(_n("within {0} second", "within {0} seconds", seconds)), seconds);
    }
    column()->addWidget(newLabel(_("The sound becomes louder"), this));
    column()->addWidget(fadeIn_);
    connect(fadeIn_, &QComboBox::activated, this, [this] { change("fade", fadeIn_->currentData().toString()); });
}

Switch* MannerPart::addSwitch(const QString& name, const QString& remark, const char* setting, const char* on,
                              const char* off) {
    auto* const control = new Switch(name, this);
    auto* const texts = new QVBoxLayout;
    texts->setSpacing(1);
    texts->addWidget(newLabel(name, this));
    texts->addWidget(newRemark(remark, this));
    auto* const row = new QHBoxLayout;
    row->addLayout(texts, 1);
    row->addWidget(control, 0, Qt::AlignTop);
    addLine();
    column()->addLayout(row);
    connect(control, &QAbstractButton::toggled, this,
            [this, setting, on, off](bool isOn) { change(setting, isOn ? on : off); });
    return control;
}

void MannerPart::refresh(const UserSettings& settings) {
    const RingManner& manner = settings.manner;
    const QSignalBlocker quiet(volume_);
    if (!volume_->isSliderDown()) {
        volume_->setValue(manner.volume);
        percent_->setText(percentText(manner.volume));
    }
    if (fadeIn_->findData(manner.fadeIn) < 0) {
        fadeIn_->addItem(toQt(_n("within {0} second", "within {0} seconds", manner.fadeIn)), manner.fadeIn);
    }
    choose(*fadeIn_, manner.fadeIn);
    showChecked(*media_, manner.pausesMedia);
    showChecked(*urgent_, manner.isUrgent);
}

}  // namespace quode::window
