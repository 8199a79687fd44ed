// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "window/TimesPage.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include "app/city_changes.h"
#include "app/day_notes.h"
#include "app/day_view.h"
#include "app/method_choice.h"
#include "app/method_rules.h"
#include "app/user_data.h"
#include "common/labels.h"
#include "texts/translation.h"
#include "views/qt_conversions.h"
#include "window/parts.h"

namespace quode::window {
namespace {

using conventions::Convention;
using conventions::Method;

constexpr int largestMinutes = 120;
constexpr int usualOne = -1;  // of the rules for high latitudes

QString qt(std::string_view text) {
    return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

QString nameOf(const Convention& convention) {
    QString name = toQt(app::nameText(convention));
    if (&convention == &conventions::defaultConvention()) name += " — " + QString(_("the default"));
    return name;
}

CityDay todayBy(app::Session& session, CityRecord city, const Method& method) {
    city.choice.method = method;
    const Site site = siteOf(city);
    return computeCityDay(site, app::today(session, site));
}

}  // namespace

TimesPage::TimesPage(Context& context, QWidget* parent) : Page(context, parent), place_(newRemark({}, this)) {
    QVBoxLayout* const column = newColumn();
    column->addWidget(place_);
    column->addWidget(newMethodPart());
    column->addWidget(newPreviewPart());
    column->addStretch(1);
}

QWidget* TimesPage::newMethodPart() {
    auto* const card = new Card(this);
    method_ = newChoice(_("Method"), card);
    fillMethods();
    asr_ = newChoice(_("Asr"), card);
    asr_->addItem(_("as the method has it"), 0);
    asr_->addItem(_("standard: a shadow longer by once the height"), 1);
    asr_->addItem(_("Hanafi: a shadow longer by twice the height"), 2);
    highLatitude_ = newChoice(_("Where the Sun does not sink far enough"), card);
    highLatitude_->addItem(_("as the method has it"), usualOne);
    for (const auto& each : conventions::highLatitudeNames())
        highLatitude_->addItem(toQt(app::highLatitudeText(each.rule)), int(each.rule));
    auto* const form = new QFormLayout;
    form->setRowWrapPolicy(QFormLayout::WrapAllRows);
    form->addRow(_("Method"), method_);
    form->addRow(_("Asr"), asr_);
    form->addRow(_("Where the Sun does not sink far enough"), highLatitude_);
    usual_ = newRemark({}, card);
    authority_ = newRemark({}, card);
    rules_ = newLabel({}, card);
    rules_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    rules_->setAccessibleName(_("The rule behind each time"));
    card->column()->addLayout(form);
    card->column()->addWidget(usual_);
    card->addLine();
    card->column()->addWidget(newHeading(_("The rule behind each time"), card));
    card->column()->addWidget(rules_);
    card->column()->addWidget(authority_);
    connect(method_, &QComboBox::activated, this, [this] {
        take([this](Method& method) {
            method.key = method_->currentData().toString().toStdString();
            method.highLatitude.reset();
            method.fajrAngle.reset();
            method.ishaAngle.reset();
            method.zone.clear();
            method.height.reset();
        });
    });
    connect(asr_, &QComboBox::activated, this,
            [this] { take([this](Method& method) { method.asrFactor = asr_->currentData().toInt(); }); });
    connect(highLatitude_, &QComboBox::activated, this, [this] {
        take([this](Method& method) {
            const int rule = highLatitude_->currentData().toInt();
            method.highLatitude.reset();
            if (rule != usualOne) method.highLatitude = conventions::HighLatitudeRule(rule);
        });
    });
    return card;
}

void TimesPage::fillMethods() {
    for (const Convention& each : conventions::allConventions()) method_->addItem(nameOf(each), qt(each.key));
}

QWidget* TimesPage::newPreviewPart() {
    auto* const card = new Card(this);
    auto* const grid = new QGridLayout;
    grid->setColumnStretch(0, 1);
    grid->setHorizontalSpacing(12);
    grid->addWidget(newRemark(_("before"), card), 0, 1);
    grid->addWidget(newRemark(_("now"), card), 0, 2);
    grid->addWidget(newRemark(_("your minutes"), card), 0, 3);
    for (std::size_t row = 0; row < mainPrayerCount; ++row) {
        const int line = int(row) * 2 + 1;
        const QString name = toQt(session().prayerName(firstPrayer + int(row)));
        names_[row] = newLabel(name, card);
        former_[row] = newRemark({}, card);
        times_[row] = newHeading({}, card);
        marks_[row] = newRemark({}, card);
        marks_[row]->hide();
        for (QLabel* const time : {former_[row], times_[row]}) time->setWordWrap(false);
        minutes_[row] = new QSpinBox(card);
        minutes_[row]->setRange(-largestMinutes, largestMinutes);
        minutes_[row]->setSuffix(toQt(_(" min")));
        minutes_[row]->setAccessibleName(toQt(_("{}: your minutes", name.toStdString())));
        minutes_[row]->setKeyboardTracking(false);
        grid->addWidget(names_[row], line, 0);
        grid->addWidget(former_[row], line, 1);
        grid->addWidget(times_[row], line, 2);
        grid->addWidget(minutes_[row], line, 3);
        grid->addWidget(marks_[row], line + 1, 0, 1, 4);
        connect(minutes_[row], &QSpinBox::valueChanged, this,
                [this, row](int minutes) { take([row, minutes](Method& method) { method.adjust[row] = minutes; }); });
    }
    undo_ = new QPushButton(_("Restore"), card);
    card->column()->addWidget(newHeading(_("Today’s times"), card));
    card->column()->addLayout(grid);
    card->column()->addWidget(undo_, 0, Qt::AlignRight);
    connect(undo_, &QPushButton::clicked, this, [this] { restore(*before_); });
    return card;
}

void TimesPage::take(const std::function<void(Method&)>& change) {
    if (!city_) return;
    Method method = city_->choice.method;
    change(method);
    restore(method);
}

void TimesPage::restore(const Method& method) {
    if (!city_) return;
    const bool isDone = context().change([&] { app::chooseMethod(session(), *city_, method); });
    if (!isDone) refresh();
}

void TimesPage::refresh() {
    const std::optional<UserCity> home = app::storedHome(session());
    city_ = home ? home->city : std::nullopt;
    setEnabled(city_.has_value());
    if (!city_) return place_->setText(_("Choose your city first."));
    if (cityBefore_ != city_->id) {
        cityBefore_ = city_->id;
        before_ = city_->choice.method;
    }
    QString place = toQt(_("For {}.", city_->name));
    if (city_->choice.table) {
        place +=
            ' ' + toQt(_("On the dates of the imported table \"{}\" its times are shown.", city_->choice.table->name));
    }
    place_->setText(place);
    showMethod();
    showRules();
    showPreview();
}

void TimesPage::showMethod() {
    const Method& method = city_->choice.method;
    const Convention* const chosen = conventions::findConvention(method.key);
    choose(*method_, toQt(method.key));
    choose(*asr_, method.asrFactor);
    choose(*highLatitude_, method.highLatitude ? int(*method.highLatitude) : usualOne);
    const bool hasRules = chosen != nullptr && chosen->computation == conventions::Computation::rules;
    highLatitude_->setEnabled(hasRules);
    const Convention* const usual = conventions::usualIn(city_->countryCode);
    usual_->setVisible(usual != nullptr && usual != chosen);
    if (usual != nullptr) {
        const std::string borrowed = app::borrowedMethodText(session(), *city_, *usual);
        usual_->setText(toQt(
            borrowed.empty() ? _("Usual in this country: {}. Quode never switches by itself.", std::string(usual->name))
                             : borrowed + " " + _("Quode never switches by itself.")));
    }
}

void TimesPage::showRules() {
    const Method& method = city_->choice.method;
    const auto convention = conventions::conventionOf(method);
    if (!convention) return;
    if (convention->computation == conventions::Computation::engine) {
        rules_->setText(toQt(app::ruleText(siteOf(*city_))));
        authority_->setText(_("Quode’s own method, with its margin of safety."));
        return;
    }
    QStringList lines;
    for (int code = firstPrayer; code <= lastMainPrayer; ++code) {
        lines << toQt(session().prayerName(code)) + ": " + toQt(app::ruleSentence(*convention, Prayer(code)));
    }
    rules_->setText(lines.join('\n'));
    QStringList facts{toQt(app::authorityText(*convention))};
    if (!convention->remark.empty()) facts << toQt(app::remarkText(*convention));
    facts << toQt(_("Agreement: {}.", app::agreementText(session(), *convention)));
    authority_->setText(facts.join('\n'));
}

void TimesPage::showPreview() {
    const CityDay now = todayBy(session(), *city_, city_->choice.method);
    const CityDay before = todayBy(session(), *city_, *before_);
    for (std::size_t row = 0; row < mainPrayerCount; ++row) {
        const int code = firstPrayer + int(row);
        times_[row]->setText(toQt(app::clockText(session(), timeOfPrayer(now, code))));
        former_[row]->setText(toQt(app::clockText(session(), timeOfPrayer(before, code))));
        const int minutes = city_->choice.method.adjust[row];
        const QSignalBlocker quiet(minutes_[row]);
        if (!minutes_[row]->hasFocus() || minutes_[row]->value() != minutes) minutes_[row]->setValue(minutes);
        const auto note = app::sourceNote(now, code);
        QString mark = minutes != 0 ? QString(_("adjusted by you")) : QString();
        if (note && now.method.mark(code).source != TimeSource::engine) {
            if (mark.isEmpty() || now.method.mark(code).source != TimeSource::convention) {
                mark = mark.isEmpty() ? toQt(*note) : mark + "; " + toQt(*note);
            }
        }
        marks_[row]->setText(mark);
        marks_[row]->setVisible(!mark.isEmpty());
    }
    undo_->setEnabled(city_->choice.method != *before_);
}

}  // namespace quode::window
