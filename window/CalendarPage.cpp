// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "window/CalendarPage.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QPushButton>

#include "app/calendar_connection.h"
#include "app/published_calendar.h"
#include "app/ringer.h"
#include "app/settings.h"
#include "app/user_data.h"
#include "companion/UserEventStore.h"
#include "texts/translation.h"
#include "views/qt_conversions.h"
#include "window/parts.h"

namespace quode::window {
namespace {

constexpr int noReminder = -1;

}  // namespace

CalendarPage::CalendarPage(Context& context, QWidget* parent) : Page(context, parent) {
    QVBoxLayout* const column = newColumn();
    column->addWidget(
        newRemark(_("Each alarm that is on stands in a calendar as an event, which other programs can show."), this));
    column->addWidget(newFilePart());
    column->addWidget(newPublishedPart());
    column->addWidget(newEvolutionPart());
    column->addStretch(1);
}

QWidget* CalendarPage::newFilePart() {
    auto* const card = new Card(this);
    layout_ = newChoice(_("How the events are stored"), card);
    layout_->addItem(_("one file"), valueOf(CalendarLayout::ics));
    layout_->addItem(_("a folder with a file for each event"), valueOf(CalendarLayout::vdir));
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

QWidget* CalendarPage::newPublishedPart() {
    auto* const card = new Card(this);
    const QString name = _("A calendar of the prayers");
    publishes_ = new Switch(name, card);
    auto* const row = new QHBoxLayout;
    row->addWidget(newHeading(name, card), 1);
    row->addWidget(publishes_);
    published_ = newRemark({}, card);
    published_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    published_->setAccessibleName(_("Where the calendar of the prayers is"));
    reminder_ = newChoice(_("Reminder in that calendar"), card);
    reminder_->addItem(_("no reminder"), noReminder);
    reminder_->addItem(_("reminder at the time"), 0);
    for (const int minutes : {5, 10, 15, 30, 60}) {
        reminder_->addItem(toQt(_n("reminder {0} minute before", "reminder {0} minutes before", minutes)), minutes);
    }
    otherFile_ = new QPushButton(_("Another file…"), card);
    otherFile_->setAccessibleName(_("Another file for the calendar of the prayers"));
    card->column()->addLayout(row);
    card->column()->addWidget(
        newRemark(_("A file with an event for each prayer of the next three months, kept current by the alarm "
                    "service. Calendar programs of this device subscribe to it."),
                  card));
    card->column()->addWidget(published_);
    card->column()->addWidget(reminder_);
    card->column()->addWidget(otherFile_, 0, Qt::AlignLeading);
    connect(publishes_, &QAbstractButton::toggled, this, [this](bool isOn) { publish(isOn, publishedFile()); });
    connect(reminder_, &QComboBox::activated, this, [this] { publish(publishes_->isChecked(), publishedFile()); });
    connect(otherFile_, &QPushButton::clicked, this, [this] {
        const QString file =
            QFileDialog::getSaveFileName(this, _("A calendar of the prayers"), publishedFile(), "iCalendar (*.ics)");
        if (!file.isEmpty()) publish(true, file);
    });
    return card;
}

// The file that is published, else one beside the user's other files.
QString CalendarPage::publishedFile() {
    const auto database = app::userDatabaseToRead(session());
    const auto calendar = database ? app::publishedCalendar(*database) : std::nullopt;
    return toQt((calendar ? calendar->file : session().dataFolder() / "prayers.ics").string());
}

void CalendarPage::publish(bool isWanted, const QString& file) {
    const bool isDone = context().change([&] {
        if (!isWanted) {
            app::unpublishCalendar(session());
            return;
        }
        app::PublishedCalendar calendar{std::filesystem::absolute(file.toStdString()), std::nullopt};
        const int minutes = reminder_->currentData().toInt();
        if (minutes != noReminder) calendar.alarm = std::chrono::minutes(minutes);
        app::publishCalendar(session(), calendar);
    });
    if (!isDone) refresh();
}

void CalendarPage::showPublished() {
    const auto database = app::userDatabaseToRead(session());
    const auto calendar = database ? app::publishedCalendar(*database) : std::nullopt;
    showChecked(*publishes_, calendar.has_value());
    published_->setVisible(calendar.has_value());
    otherFile_->setVisible(calendar.has_value());
    if (!calendar) return;
    published_->setText(toQt("file://" + calendar->file.string()));
    const int minutes = calendar->alarm ? int(calendar->alarm->count()) : noReminder;
    if (reminder_->findData(minutes) < 0) {
        reminder_->addItem(toQt(_n("reminder {0} minute before", "reminder {0} minutes before", minutes)), minutes);
    }
    choose(*reminder_, minutes);
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
    showPublished();
    state_->setText(isConnected_ ? _("They show the alarms as the calendar \"Quode\".")
                                 : _("They do not show the alarms."));
    connect_->setText(isConnected_ ? _("Disconnect") : _("Connect"));
    rings_->setEnabled(isConnected_);
    showChecked(*rings_, isConnected_ && settings.ringer == Ringer::evolution);
}

}  // namespace quode::window
