// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "window/AlarmCard.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <algorithm>

#include "app/alarm_changes.h"
#include "app/alarm_habits.h"
#include "app/alarm_sounds.h"
#include "app/day_view.h"
#include "companion/sounds.h"
#include "texts/translation.h"
#include "views/qt_conversions.h"
#include "window/ButtonRow.h"
#include "window/OffsetEdit.h"
#include "window/TrialRinging.h"

namespace quode::window {
namespace {

constexpr int usualReminder = -15;  // minutes
constexpr std::array<int, 7> week{1, 2, 3, 4, 5, 6, 0};
constexpr const char* otherFile = "/";  // no sound is called so

}  // namespace

AlarmCard::AlarmCard(int code, Context& context, TrialRinging& trial, QWidget* parent)
    : Card(parent), code_(code), context_(context), trial_(trial), name_(toQt(context.session().prayerName(code))) {
    setAccessibleName(name_);
    addHead();
    addDetails();
    connect(&trial_, &TrialRinging::changed, this, [this] {
        test_->setText(trial_.isRinging() ? _("Stop") : _("Try it"));
        preview_->setText(trial_.isRinging() ? "■" : "▶");
    });
}

QString AlarmCard::named(const char* what) const {
    return name_ + ": " + QString(what);
}

void AlarmCard::addHead() {
    switch_ = new Switch(name_, this);
    summary_ = newRemark({}, this);
    open_ = newSignButton({}, named(_("details")), this);
    open_->setCheckable(true);
    open_->setArrowType(Qt::DownArrow);
    auto* const texts = new QVBoxLayout;
    texts->setSpacing(1);
    texts->addWidget(newHeading(name_, this));
    texts->addWidget(summary_);
    auto* const row = new QHBoxLayout;
    row->addLayout(texts, 1);
    row->addWidget(open_);
    row->addWidget(switch_);
    column()->addLayout(row);
    connect(switch_, &QAbstractButton::toggled, this,
            [this](bool isOn) { context_.change([&] { app::switchAlarms(context_.session(), {code_}, isOn); }); });
    connect(open_, &QToolButton::toggled, this, [this](bool isOpen) {
        details_->setVisible(isOpen);
        open_->setArrowType(isOpen ? Qt::UpArrow : Qt::DownArrow);
    });
}

void AlarmCard::addDetails() {
    details_ = new QWidget(this);
    details_->hide();
    auto* const form = new QFormLayout;
    form->setRowWrapPolicy(QFormLayout::WrapAllRows);
    auto* const all = new QVBoxLayout(details_);
    all->setContentsMargins({});
    all->addLayout(form);
    offset_ = new OffsetEdit(named(_("rings")), details_);
    form->addRow(_("Rings"), offset_);
    hasReminder_ = new QCheckBox(_("Rings a second time"), details_);
    hasReminder_->setAccessibleName(named(_("rings a second time")));
    reminder_ = new OffsetEdit(named(_("second ring")), details_);
    form->addRow(hasReminder_);
    form->addRow(reminder_);
    addSound(*form);
    addDays(*form);
    addActions();
    column()->addWidget(details_);
    const auto storeReminder = [this] {
        const std::optional<int> minutes =
            hasReminder_->isChecked() ? std::optional(reminder_->minutes()) : std::nullopt;
        context_.change([&] { app::chooseReminder(context_.session(), {code_}, minutes); });
    };
    connect(offset_, &OffsetEdit::edited, this, [this](int minutes) {
        context_.change([&] { app::setUpAlarms(context_.session(), {code_}, minutes, std::nullopt); });
    });
    connect(hasReminder_, &QCheckBox::toggled, this, [this, storeReminder](bool isOn) {
        if (isOn && reminder_->minutes() == 0) reminder_->setMinutes(usualReminder);
        storeReminder();
    });
    connect(reminder_, &OffsetEdit::edited, this, storeReminder);
}

void AlarmCard::addSound(QFormLayout& form) {
    auto* const row = new QHBoxLayout;
    sounds_ = newChoice(named(_("sound")), details_);
    preview_ = newSignButton("▶", named(_("play the sound")), details_);
    row->addWidget(sounds_, 1);
    row->addWidget(preview_);
    form.addRow(_("Sound"), row);
    connect(sounds_, &QComboBox::activated, this, &AlarmCard::chooseSound);
    connect(preview_, &QToolButton::clicked, this, [this] {
        if (trial_.isRinging()) return trial_.stop();
        trial_.play(sounds_->currentData().toString());
    });
}

void AlarmCard::addDays(QFormLayout& form) {
    auto* const row = new ButtonRow(details_);
    for (const int day : week) {
        QToolButton* const button = newSignButton(toQt(context_.session().shortWeekdayName(day)),
                                                  toQt(context_.session().weekdayName(day)), row);
        button->setAccessibleName(named(button->accessibleName().toUtf8().constData()));
        button->setCheckable(true);
        button->setAutoRaise(false);
        button->setMinimumWidth(std::max(28, button->fontMetrics().horizontalAdvance(button->text()) + 6));
        days_.at(std::size_t(day)) = button;
        row->add(button);
        connect(button, &QToolButton::toggled, this, &AlarmCard::chooseDays);
    }
    form.addRow(_("On these days"), row);
}

void AlarmCard::addActions() {
    test_ = new QPushButton(_("Try it"), details_);
    test_->setAccessibleName(named(_("try the alarm")));
    test_->setToolTip(_("Rings for a few seconds, as the alarm will"));
    skip_ = new QPushButton(details_);
    auto* const row = new QHBoxLayout;
    row->addWidget(test_);
    row->addStretch(1);
    row->addWidget(skip_);
    static_cast<QVBoxLayout*>(details_->layout())->addLayout(row);
    connect(test_, &QPushButton::clicked, this, [this] {
        if (trial_.isRinging()) return trial_.stop();
        trial_.ring(code_);
    });
    connect(skip_, &QPushButton::clicked, this, [this] {
        context_.change([this] {
            const app::UserAlarms all = app::readAlarms(context_.session());
            if (all.alarm(code_).skippedUntil > context_.session().now()) {
                app::unskip(context_.session(), code_);
            } else {
                app::skipNext(context_.session(), code_);
            }
        });
    });
}

void AlarmCard::chooseDays() {
    unsigned days = 0;
    for (std::size_t day = 0; day < days_.size(); ++day) days |= days_[day]->isChecked() ? 1U << day : 0U;
    context_.change([&] { app::chooseDays(context_.session(), {code_}, days); });
}

void AlarmCard::chooseSound() {
    const QString chosen = sounds_->currentData().toString();
    if (chosen != otherFile) return takeSound(chosen.toStdString());
    const QString file = QFileDialog::getOpenFileName(this, _("Choose a sound"), {},
                                                      toQt(std::string(_("Sounds")) + " (*.wav *.oga *.ogg)"));
    if (!file.isEmpty()) return takeSound(file.toStdString());
    choose(*sounds_, sound_);
}

void AlarmCard::takeSound(const std::string& sound) {
    context_.change([&] {
        app::Session& session = context_.session();
        app::setUpAlarms(session, {code_}, std::nullopt, app::soundNamedByUser(session, sound));
    });
}

void AlarmCard::refresh(const app::UserAlarms& all) {
    const UserAlarm& alarm = all.alarm(code_);
    showChecked(*switch_, alarm.isOn);
    offset_->setMinutes(alarm.offset);
    showChecked(*hasReminder_, alarm.reminder.has_value());
    reminder_->setEnabled(alarm.reminder.has_value());
    if (alarm.reminder) reminder_->setMinutes(*alarm.reminder);
    for (std::size_t day = 0; day < days_.size(); ++day) showChecked(*days_[day], (alarm.days & (1U << day)) != 0);
    showSounds(all, alarm);
    showSummary(all, alarm);
    const bool isSkipped = alarm.skippedUntil > context_.session().now();
    skip_->setText(isSkipped ? _("Do not skip") : _("Skip the next ring"));
    skip_->setAccessibleName(name_ + ": " + skip_->text());
    skip_->setEnabled(alarm.isOn);
}

void AlarmCard::showSounds(const app::UserAlarms& all, const UserAlarm& alarm) {
    sound_ = toQt(app::soundOf(all, alarm));
    sounds_->clear();
    for (const std::string& each : bundledSounds(context_.session().bundle())) sounds_->addItem(toQt(each), toQt(each));
    if (sounds_->findData(sound_) < 0) sounds_->addItem(sound_.section('/', -1), sound_);
    sounds_->addItem(_("Another file…"), otherFile);
    choose(*sounds_, sound_);
}

// "Rings 15 min before: tomorrow 05:28" and what is special.
void AlarmCard::showSummary(const app::UserAlarms& all, const UserAlarm& alarm) {
    app::Session& session = context_.session();
    QStringList parts;
    if (!alarm.isOn) parts << _c("alarm", "off");
    if (all.city && alarm.isOn) {
        const auto next = app::nextRing(*all.city, alarm, session.now(), true);
        parts << (next ? toQt(_("Next: {}", app::ringMoment(session, *all.city, next->due)))
                       : QString(_("does not ring soon")));
    }
    if (alarm.isOn && alarm.offset != 0) parts << toQt(app::offsetText(alarm.offset));
    for (const std::string& text : app::habitTexts(session, all, alarm)) parts << toQt(text);
    summary_->setText(parts.join(" · "));
}

}  // namespace quode::window
