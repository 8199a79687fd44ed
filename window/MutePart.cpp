// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "window/MutePart.h"

#include <QDateTimeEdit>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/alarm_habits.h"
#include "app/ringer.h"
#include "desktop/alarm_service.h"
#include "texts/translation.h"
#include "views/qt_conversions.h"

namespace quode::window {
namespace {

constexpr int shownHours = 8;  // until when muting is offered first

// A wall clock of the city, kept in a date-time without a zone.
QDateTime shownAt(const CityRecord& city, std::chrono::sys_seconds instant) {
    const VAKDate clock = wallClock(siteOf(city).clock(), instant);
    return QDateTime(QDate(clock.Years, clock.Months, clock.Days), QTime(clock.Hours, clock.Minutes), Qt::UTC);
}

std::chrono::sys_seconds instantOf(const CityRecord& city, const QDateTime& shown) {
    const std::chrono::sys_seconds asUtc{std::chrono::seconds(shown.toSecsSinceEpoch())};
    const auto day = std::chrono::floor<std::chrono::days>(asUtc);
    return asUtc - std::chrono::seconds(siteOf(city).clock().offsetOn(std::chrono::year_month_day(day)));
}

}  // namespace

MutePart::MutePart(Context& context, QWidget* parent)
    : Card(parent),
      context_(context),
      next_(newHeading({}, this)),
      ringer_(newRemark({}, this)),
      mend_(new QPushButton(_("Start the alarm service"), this)),
      tomorrow_(new QPushButton(_("Mute until tomorrow"), this)),
      until_(new QPushButton(_("Mute until:"), this)),
      unmute_(new QPushButton(_("Ring again"), this)),
      moment_(new QDateTimeEdit(this)) {
    moment_->setAccessibleName(_("Mute until"));
    moment_->setCalendarPopup(true);
    const QString format = moment_->displayFormat();
    moment_->setLayoutDirection(Qt::LeftToRight);  // else Qt puts the minutes before the hours
    moment_->setDisplayFormat(format);
    moment_->setTimeSpec(Qt::UTC);
    auto* const first = new QHBoxLayout;
    first->addWidget(tomorrow_);
    first->addWidget(unmute_);
    first->addStretch(1);
    auto* const second = new QFormLayout;  // below each other where the screen is narrow
    second->setRowWrapPolicy(QFormLayout::WrapLongRows);
    second->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    second->addRow(until_, moment_);
    column()->addWidget(next_);
    column()->addWidget(ringer_);
    column()->addWidget(mend_, 0, Qt::AlignLeft);
    column()->addLayout(first);
    column()->addLayout(second);
    app::Session& session = context_.session();
    connect(mend_, &QPushButton::clicked, this, [&session, this] {
        startAlarmService(session.dataFolder());
        Q_EMIT context_.changed();
    });
    connect(tomorrow_, &QPushButton::clicked, this,
            [&session, this] { context_.change([&] { app::mute(session, app::startOfTomorrow(session)); }); });
    connect(unmute_, &QPushButton::clicked, this,
            [&session, this] { context_.change([&] { app::mute(session, std::nullopt); }); });
    connect(until_, &QPushButton::clicked, this, &MutePart::muteUntilChosen);
}

void MutePart::muteUntilChosen() {
    if (!city_) return;
    context_.change([this] { app::mute(context_.session(), instantOf(*city_, moment_->dateTime())); });
}

void MutePart::refresh(const app::UserAlarms& all) {
    city_ = all.city;
    const auto now = context_.session().now();
    const bool isMuted = !all.alarms.empty() && all.alarms.front().mutedUntil > now;
    unmute_->setVisible(isMuted);
    tomorrow_->setVisible(!isMuted);
    if (city_ && moment_->dateTime() < shownAt(*city_, now)) {
        moment_->setDateTime(shownAt(*city_, now + std::chrono::hours(shownHours)));
    }
    showNext(all);
    showRinger(all);
}

void MutePart::showNext(const app::UserAlarms& all) {
    app::Session& session = context_.session();
    const std::string muted = all.anyIsOn() ? app::muteText(session, all) : "";
    next_->setText(toQt((muted.empty() ? "" : muted + "\n") + app::nextRingText(session, all)));
}

void MutePart::showRinger(const app::UserAlarms& all) {
    const app::RingerState state = app::ringerState(context_.session(), all.settings);
    mend_->setVisible(!state.serviceRuns);
    if (state.isReady()) {
        ringer_->setText(state.ringer == Ringer::quode
                             ? _("The alarm service of Quode rings; it is running.")
                             : _("Evolution rings, by its reminders; the alarm service of Quode renews the events."));
    } else {
        ringer_->setText(state.serviceRuns ? toQt(state.problem)
                                           : QString(_("The alarm service is not running: nothing rings.")));
    }
}

}  // namespace quode::window
