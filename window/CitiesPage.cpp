// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "window/CitiesPage.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/city_changes.h"
#include "desktop/CityFinder.h"
#include "texts/translation.h"
#include "views/qt_conversions.h"
#include "window/CityRows.h"
#include "window/NewPlacePart.h"
#include "window/parts.h"

namespace quode::window {
namespace {

constexpr int listHeight = 170;

}  // namespace

CitiesPage::CitiesPage(Context& context, QWidget* parent)
    : Page(context, parent), rows_(new CityRows(context, this)), newPlace_(new NewPlacePart(context, this)) {
    QVBoxLayout* const column = newColumn();
    column->addWidget(newRemark(_("The times of the home city are shown and ring."), this));
    column->addWidget(rows_);
    column->addWidget(newSearchPart());
    column->addWidget(newPlace_);
    column->addStretch(1);
}

QWidget* CitiesPage::newSearchPart() {
    auto* const card = new Card(this);
    QLabel* const caption = newHeading(_("Add a city"), card);
    finder_ = new CityFinder([this](const std::string& text) { return session().cities().search(text); }, card);
    finder_->field().setPlaceholderText(_("Type its name"));
    finder_->list().setFixedHeight(listHeight);
    finder_->list().hide();
    caption->setBuddy(finder_);
    add_ = new QPushButton(_("Add"), card);
    makeHome_ = new QPushButton(_("Make it home"), card);
    auto* const buttons = new QHBoxLayout;
    buttons->addStretch(1);
    for (QPushButton* const button : {add_, makeHome_}) {
        button->setEnabled(false);
        buttons->addWidget(button);
    }
    card->column()->addWidget(caption);
    card->column()->addWidget(finder_);
    card->column()->addLayout(buttons);
    connect(finder_, &CityFinder::currentChanged, this, [this](bool isAny) {
        finder_->list().setVisible(isAny);
        add_->setEnabled(isAny);
        makeHome_->setEnabled(isAny);
    });
    connect(finder_, &CityFinder::chosen, this, [this] { add(false); });
    connect(add_, &QPushButton::clicked, this, [this] { add(false); });
    connect(makeHome_, &QPushButton::clicked, this, [this] { add(true); });
    return card;
}

void CitiesPage::add(bool asHome) {
    const std::optional<CityRecord> city = finder_->current();
    if (!city) return;
    bool isNew = false;
    const bool isDone = context().change([&] {
        app::changeCities(session(), [&](UserDatabase& database) {
            isNew = database.addCity(city->id);
            if (asHome) database.chooseHome(city->id);
        });
    });
    if (!isDone) return;
    finder_->clear();
    if (!isNew && !asHome) context().tell(toQt(_("{} is already in your list.", city->name)));
}

void CitiesPage::refresh() {
    rows_->refresh();
}

}  // namespace quode::window
