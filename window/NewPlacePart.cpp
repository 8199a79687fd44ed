// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "window/NewPlacePart.h"

#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <cmath>

#include "app/city_changes.h"
#include "texts/translation.h"
#include "views/qt_conversions.h"

namespace quode::window {

NewPlacePart::NewPlacePart(Context& context, QWidget* parent)
    : Card(parent),
      context_(context),
      name_(new QLineEdit(this)),
      latitude_(newCoordinate(N_("Latitude"), 90.0)),
      longitude_(newCoordinate(N_("Longitude"), 180.0)),
      nearest_(newRemark({}, this)),
      add_(new QPushButton(_("Add this place"), this)) {
    name_->setAccessibleName(_("Name of the place"));
    auto* const form = new QFormLayout;
    form->setRowWrapPolicy(QFormLayout::WrapLongRows);
    form->addRow(_("Name"), name_);
    form->addRow(_("Latitude"), latitude_);
    form->addRow(_("Longitude"), longitude_);
    column()->addWidget(newHeading(_("Add a place by its coordinates"), this));
    column()->addWidget(newRemark(_("In degrees; south and west are negative."), this));
    column()->addLayout(form);
    column()->addWidget(nearest_);
    column()->addWidget(add_, 0, Qt::AlignRight);
    connect(name_, &QLineEdit::textChanged, this, &NewPlacePart::showNearest);
    connect(name_, &QLineEdit::returnPressed, this, [this] {
        if (add_->isEnabled()) add();
    });
    for (QDoubleSpinBox* const box : {latitude_, longitude_}) {
        connect(box, &QDoubleSpinBox::valueChanged, this, &NewPlacePart::showNearest);
    }
    connect(add_, &QPushButton::clicked, this, &NewPlacePart::add);
    showNearest();
}

QDoubleSpinBox* NewPlacePart::newCoordinate(const char* name, double limit) {
    auto* const box = new QDoubleSpinBox(this);
    box->setAccessibleName(_(name));
    box->setRange(-limit, limit);
    box->setDecimals(4);
    box->setSuffix("°");
    return box;
}

void NewPlacePart::showNearest() {
    add_->setEnabled(!name_->text().trimmed().isEmpty());
    const auto nearest = context_.session().cities().nearest(latitude_->value(), longitude_->value());
    if (!nearest) return nearest_->setText(_("There is no city near enough to take the clock from."));
    nearest_->setText(toQt(_("Nearest city: {}, {} km. Time zone: {}.", nearest->city.name,
                             std::lround(nearest->distanceKm), nearest->city.zone)));
}

void NewPlacePart::add() {
    const NewPlace place{name_->text().trimmed().toStdString(), latitude_->value(), longitude_->value()};
    const bool isDone = context_.change(
        [&] { app::changeCities(context_.session(), [&](UserDatabase& database) { database.addPlace(place); }); });
    if (isDone) name_->clear();
}

}  // namespace quode::window
