// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "window/IqamaPart.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTimeEdit>

#include "app/city_changes.h"
#include "app/day_view.h"
#include "astro/prayer.h"
#include "common/GlobalFuncs.h"
#include "common/civil_date.h"
#include "data/iqama.h"
#include "texts/translation.h"
#include "views/qt_conversions.h"

namespace quode::window {
namespace {

enum Kind { none, after, fixed };

constexpr std::array congregations{Prayer::fajr, Prayer::dhuhr, Prayer::asr, Prayer::maghrib, Prayer::isha};
constexpr int usualWait = 10, clockStep = 5;  // minutes

const std::optional<Iqama>& ruleOf(const CityRecord& city, int code) {
    return city.choice.iqama.at(std::size_t(code - firstPrayer));
}

Kind kindOf(const std::optional<Iqama>& iqama) {
    if (!iqama) return none;
    return iqama->isFixed ? fixed : after;
}

int minuteOf(const QTime& clock) {
    return clock.hour() * minutesPerHour + clock.minute();
}

// The clock time with which a fixed begin starts: the one of today, on a multiple of five minutes.
int proposedClock(const CityDay& day, int code) {
    const std::optional<double> hours = timeOfPrayer(day, code);
    const int prayer = hours ? shownMinute(*hours) + usualWait : minutesPerDay / 2;
    const int begin = iqamaMinute(day, code).value_or(prayer);
    return (begin + clockStep - 1) / clockStep * clockStep % minutesPerDay;
}

CityDay todayOf(app::Session& session, const CityRecord& city) {
    const Site site = siteOf(city);
    return computeCityDay(site, app::today(session, site));
}

}  // namespace

IqamaPart::IqamaPart(Context& context, QWidget* parent) : Card(parent), context_(context) {
    column()->addWidget(newHeading(_("When the congregation begins (iqama)"), this));
    column()->addWidget(newRemark(_("It stands in the timetables, and below the prayer times of the panel."), this));
    for (std::size_t at = 0; at < rows_.size(); ++at) rows_.at(at) = newRow(int(congregations.at(at)));
    table_ = newRemark({}, this);
    column()->addWidget(table_);
}

IqamaPart::Row IqamaPart::newRow(int code) {
    const std::string name = context_.session().prayerName(code);
    Row row{code, newChoice(toQt(_("{}: the congregation", name)), this), new QSpinBox(this), new QTimeEdit(this),
            newRemark({}, this)};
    row.kind->addItem(_("not known"), none);
    row.kind->addItem(_("after the time"), after);
    row.kind->addItem(_("at a fixed time"), fixed);
    row.minutes->setRange(0, app::longestIqama);
    row.minutes->setSuffix(toQt(_(" min")));
    row.minutes->setAccessibleName(toQt(_("{}: minutes from the time to the congregation", name)));
    row.clock->setLayoutDirection(Qt::LeftToRight);  // else Qt puts the minutes before the hours
    row.clock->setDisplayFormat(context_.session().services().is24Hour() ? "HH:mm" : "h:mm AP");
    row.clock->setAccessibleName(toQt(_("{}: clock time of the congregation", name)));
    row.today->setAlignment((isRightToLeft() ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignAbsolute | Qt::AlignVCenter);
    QLabel* const title = newLabel(toQt(name), this);
    title->setWordWrap(false);
    title->setBuddy(row.kind);
    auto* const texts = new QHBoxLayout;
    texts->addWidget(title);
    texts->addWidget(row.today, 1);
    auto* const controls = new QHBoxLayout;
    controls->addWidget(row.kind, 1);
    controls->addWidget(row.minutes);
    controls->addWidget(row.clock);
    addLine();
    column()->addLayout(texts);
    column()->addLayout(controls);
    connect(row.kind, &QComboBox::activated, this, [this, row] { chooseKind(row); });
    connect(row.minutes, &QSpinBox::valueChanged, this, [this, row](int minutes) {
        store(row, Iqama{false, minutes});
    });
    connect(row.clock, &QTimeEdit::timeChanged, this, [this, row](QTime clock) {
        store(row, Iqama{true, minuteOf(clock)});
    });
    return row;
}

void IqamaPart::chooseKind(const Row& row) {
    const Kind kind = Kind(row.kind->currentData().toInt());
    if (!city_ || kind == kindOf(ruleOf(*city_, row.code))) return;
    if (kind == none) return store(row, std::nullopt);
    if (kind == after) return store(row, Iqama{false, usualWait});
    store(row, Iqama{true, proposedClock(todayOf(context_.session(), *city_), row.code)});
}

void IqamaPart::store(const Row& row, const std::optional<Iqama>& iqama) {
    if (!city_) return;
    context_.change([&] { app::chooseIqama(context_.session(), *city_, {row.code}, iqama); });
}

void IqamaPart::refresh(const std::optional<CityRecord>& city) {
    city_ = city;
    setEnabled(city_.has_value());
    table_->setVisible(city_ && city_->choice.table);
    if (!city_) return;
    if (city_->choice.table) {
        table_->setText(
            toQt(_("On the dates of the imported table \"{}\" its times are shown.", city_->choice.table->name)));
    }
    const CityDay day = todayOf(context_.session(), *city_);
    for (const Row& row : rows_) show(row, day);
}

void IqamaPart::show(const Row& row, const CityDay& day) {
    const std::optional<Iqama>& rule = ruleOf(*city_, row.code);
    const QSignalBlocker quietMinutes(row.minutes), quietClock(row.clock);
    choose(*row.kind, kindOf(rule));
    row.minutes->setVisible(kindOf(rule) == after);
    row.clock->setVisible(kindOf(rule) == fixed);
    if (kindOf(rule) == after && row.minutes->value() != rule->minutes) row.minutes->setValue(rule->minutes);
    if (kindOf(rule) == fixed && minuteOf(row.clock->time()) != rule->minutes) {
        row.clock->setTime(QTime(rule->minutes / minutesPerHour, rule->minutes % minutesPerHour));
    }
    row.today->setText(todayText(day, row.code));
}

QString IqamaPart::todayText(const CityDay& day, int code) {
    if (!hasIqama(day, code)) return {};
    if (const std::optional<int> minute = iqamaMinute(day, code)) {
        return toQt(_("today at {}", app::clockText(context_.session(), *minute / double(minutesPerHour))));
    }
    const bool isMissing = timeOfPrayer(day, code) == missingTime;
    return isMissing ? _("not today: the prayer has no time") : _("not today: it would be before the time");
}

}  // namespace quode::window
