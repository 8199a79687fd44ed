// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "window/CityRows.h"

#include <QHBoxLayout>
#include <QRadioButton>
#include <QVBoxLayout>

#include "app/city_changes.h"
#include "app/user_data.h"
#include "desktop/CityFinder.h"
#include "texts/translation.h"
#include "views/qt_conversions.h"

namespace quode::window {
namespace {

std::vector<UserCity> citiesOf(app::Session& session) {
    const std::optional<UserDatabase> database = app::userDatabaseToRead(session);
    return database ? database->cities() : std::vector<UserCity>{};
}

bool isGuess(app::Session& session) {
    const std::optional<UserDatabase> database = app::userDatabaseToRead(session);
    const std::optional<UserCity> home = database ? database->home() : std::nullopt;
    return home && home->isGuess;
}

QString nameOf(const UserCity& city) {
    return city.city ? toQt(city.city->name) : QString::number(city.id);
}

QString detailsOf(const UserCity& each, bool isGuessed) {
    if (!each.city) return toQt(_("no longer in the city database"));
    QString text = regionAndCountryOf(*each.city) + " · " + toQt(each.city->zone);
    if (isGuessed) text += "\n" + toQt(_("Guessed from the time zone of this device."));
    return text;
}

}  // namespace

CityRows::CityRows(Context& context, QWidget* parent) : Card(parent), context_(context) {
    setAccessibleName(_("Your cities"));
}

void CityRows::refresh() {
    const std::vector<UserCity> cities = citiesOf(context_.session());
    const bool isGuessed = isGuess(context_.session());
    QString wanted = isGuessed ? "guess" : "";
    for (const UserCity& each : cities) wanted += QString(" %1 %2 %3").arg(each.id).arg(each.isHome).arg(nameOf(each));
    if (wanted == shown_ && column()->count() > 0) return;
    shown_ = wanted;
    const QWidget* const focus = focusWidget();
    const QString key = focus != nullptr && isAncestorOf(focus) && focus->hasFocus() ? focus->objectName() : QString();
    removeAll(*column());
    if (cities.empty()) column()->addWidget(newLabel(_("You have no cities yet. Search for one below."), this));
    for (std::size_t position = 0; position < cities.size(); ++position) {
        if (position > 0) addLine();
        addRow(cities, position);
    }
    if (auto* const former = key.isEmpty() ? nullptr : findChild<QWidget*>(key)) former->setFocus();
}

void CityRows::addRow(const std::vector<UserCity>& cities, std::size_t position) {
    const UserCity& each = cities[position];
    const int id = each.id;
    const QString name = nameOf(each);
    const QString key = QString::number(id);
    auto* const row = new QHBoxLayout;
    row->setSpacing(4);
    auto* const home = new QRadioButton(this);
    home->setObjectName("home " + key);
    home->setAutoExclusive(false);
    home->setChecked(each.isHome);
    home->setAccessibleName(toQt(_("{}: home city", name.toStdString())));
    home->setToolTip(_("Make it home"));
    connect(home, &QRadioButton::toggled, this, [this, id, home] {
        context_.change(
            [&] { app::changeCities(context_.session(), [id](UserDatabase& database) { database.chooseHome(id); }); });
        showChecked(*home, true);
    });
    auto* const texts = new QVBoxLayout;
    texts->setSpacing(1);
    texts->addWidget(newHeading(name, this));
    texts->addWidget(newRemark(detailsOf(each, each.isHome && isGuess(context_.session())), this));
    row->addWidget(home);
    row->addSpacing(4);
    row->addLayout(texts, 1);
    const std::string plain = name.toStdString();
    if (position > 0) {
        addButton(*row, "↑", toQt(_("Move {} up", plain)), "up " + key,
                  [this, id, position] { move(id, position - 1); });
    }
    if (position + 1 < cities.size()) {
        addButton(*row, "↓", toQt(_("Move {} down", plain)), "down " + key,
                  [this, id, position] { move(id, position + 1); });
    }
    if (cities.size() > 1) {
        addButton(*row, "✕", toQt(_("Remove {}", plain)), "remove " + key, [this, each] { remove(each); });
    }
    column()->addLayout(row);
}

void CityRows::addButton(QHBoxLayout& row, const char* sign, const QString& name, const QString& key,
                         const std::function<void()>& action) {
    QToolButton* const button = newSignButton(sign, name, this);
    button->setObjectName(key);
    connect(button, &QToolButton::clicked, this, action);
    row.addWidget(button);
}

void CityRows::move(int id, std::size_t position) {
    context_.change([&] {
        app::changeCities(context_.session(),
                          [id, position](UserDatabase& database) { database.moveCity(id, position); });
    });
}

void CityRows::remove(const UserCity& city) {
    app::RemovedCity removed;
    const bool isDone = context_.change([&] { removed = app::removeCity(context_.session(), city.id); });
    if (!isDone) return;
    context_.tell(toQt(_("{} was removed.", nameOf(city).toStdString())),
                  [this, removed] { context_.change([&] { app::bringBack(context_.session(), removed); }); });
}

}  // namespace quode::window
