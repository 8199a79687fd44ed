// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "window/CalendarPage.h"

#include <QHBoxLayout>
#include <QPushButton>

#include "app/calendar_connection.h"
#include "app/ringer.h"
#include "app/settings.h"
#include "companion/UserEventStore.h"
#include "texts/translation.h"
#include "views/qt_conversions.h"
#include "window/parts.h"

namespace quode::window {

CalendarPage::CalendarPage(Context& context, QWidget* parent) : Page(context, parent) {
    auto* const column = new QVBoxLayout(this);
    column->addWidget(
        newRemark(_("Each alarm that is on stands in a calendar as an event, which other programs can show."), this));
    column->addWidget(newFilePart());
    column->addWidget(newEvolutionPart());
    column->addStretch(1);
}

QWidget* CalendarPage::newFilePart() {
    auto* const card = new Card(this);
    layout_ = newChoice(_("How the events are stored"), card);
    layout_->addItem(_("one file"), "ics");
    layout_->addItem(_("a folder with a file for each event"), "vdir");
    file_ = newRemark({}, card);
    file_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    file_->setAccessibleName(_("Where the events are"));
    card->column()->addWidget(newHeading(_("How the events are stored"), card));
    card->column()->addWidget(layout_);
    card->column()->addWidget(file_);
    connect(layout_, &QComboBox::activated, this, [this] {
        const std::string wanted = layout_->currentData().toString().toStdString();
        const bool isDone = this->context().change([&] { app::changeSetting(session(), "calendar", wanted); });
        if (!isDone) refresh();
    });
    return card;
}

QWidget* CalendarPage::newEvolutionPart() {
    auto* const card = new Card(this);
    state_ = newLabel({}, card);
    connect_ = new QPushButton(card);
    rings_ = new Switch(_("Evolution rings in place of Quode"), card);
    auto* const row = new QHBoxLayout;
    row->addWidget(newLabel(_("Evolution rings in place of Quode"), card), 1);
    row->addWidget(rings_);
    card->column()->addWidget(newHeading(_("Evolution and GNOME’s calendar"), card));
    card->column()->addWidget(state_);
    card->column()->addWidget(connect_, 0, Qt::AlignLeft);
    card->column()->addLayout(row);
    connect(connect_, &QPushButton::clicked, this, [this] {
        this->context().change([this] {
            if (isConnected_) {
                app::disconnectEvolution(session());
            } else {
                app::connectEvolution(session(), false);
            }
        });
    });
    connect(rings_, &QAbstractButton::toggled, this, [this](bool isOn) {
        const bool isDone =
            this->context().change([&] { app::changeSetting(session(), "ringer", isOn ? "evolution" : "quode"); });
        if (!isDone) refresh();
    });
    return card;
}

void CalendarPage::refresh() {
    const UserSettings settings = app::presentSettings(session());
    isConnected_ = app::evolutionSource(session()).isConnected();
    choose(*layout_, toQt(app::settingNamed("calendar").value(settings)));
    file_->setText(
        toQt(UserEventStore(session().dataFolder(), settings.calendarLayout).defaultCalendar().location.string()));
    state_->setText(isConnected_ ? _("They show the alarms as the calendar \"Quode\".")
                                 : _("They do not show the alarms."));
    connect_->setText(isConnected_ ? _("Disconnect") : _("Connect"));
    rings_->setEnabled(isConnected_);
    showChecked(*rings_, isConnected_ && settings.ringer == Ringer::evolution);
}

}  // namespace quode::window
