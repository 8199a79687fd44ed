// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "desktop/FirstStartDialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QEventLoop>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>
#include <chrono>

#include "app/method_choice.h"
#include "app/session.h"
#include "app/user_alarms.h"
#include "astro/prayer.h"
#include "conventions/Convention.h"
#include "desktop/CityFinder.h"
#include "desktop/icon.h"
#include "texts/translation.h"
#include "views/qt_conversions.h"

namespace quode {
namespace {

constexpr int usualWidth = 360, listHeight = 150;  // points

QLabel* newText(QWidget* parent) {
    auto* const label = new QLabel(parent);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    return label;
}

// Until the window manager has placed a window nobody knows where its middle is, on which a dialog is to stand.
void waitForPlace(const QWidget* parent) {
    constexpr std::chrono::milliseconds patience{1000}, interval{10};
    const QWindow* const window = parent != nullptr ? parent->windowHandle() : nullptr;
    if (window == nullptr || window->isExposed()) return;
    QEventLoop loop;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &loop, [&] {
        if (window->isExposed()) loop.quit();
    });
    look.start(interval);
    QTimer::singleShot(patience, &loop, &QEventLoop::quit);
    loop.exec();
}

}  // namespace

FirstStartDialog::FirstStartDialog(app::Session& session, const CityRecord& guess, QWidget* parent)
    : QDialog(parent), session_(session), guess_(guess) {
    setWindowTitle(_("Welcome to Quode"));
    setWindowIcon(quodeIcon());
    setMinimumWidth(std::min(usualWidth, screen()->availableSize().width()));
    auto* const column = new QVBoxLayout(this);
    column->setSizeConstraint(QLayout::SetFixedSize);  // it grows with the list of cities
    column->addWidget(newCityPart());
    column->addWidget(newAlarmPart());
    column->addWidget(newButtons());
    showCity();
}

QWidget* FirstStartDialog::newCityPart() {
    auto* const part = new QWidget(this);
    question_ = newText(part);
    QFont font = question_->font();
    font.setBold(true);
    question_->setFont(font);
    finder_ = new CityFinder([this](const std::string& text) { return session_.cities().search(text); }, part);
    finder_->field().setPlaceholderText(_("Search for another city"));
    finder_->list().setFixedHeight(listHeight);
    finder_->list().hide();
    auto* const column = new QVBoxLayout(part);
    column->setContentsMargins({});
    column->addWidget(question_);
    column->addWidget(finder_);
    connect(finder_, &CityFinder::currentChanged, this, [this](bool isAny) {
        finder_->list().setVisible(isAny);
        found_ = finder_->current();
        showCity();
    });
    connect(finder_, &CityFinder::chosen, this, &QDialog::accept);
    connect(&finder_->list(), &QListWidget::currentRowChanged, this, [this] {
        found_ = finder_->current();
        showCity();
    });
    return part;
}

QWidget* FirstStartDialog::newAlarmPart() {
    auto* const part = new QWidget(this);
    auto* const column = new QVBoxLayout(part);
    column->setContentsMargins({});
    auto* const caption = newText(part);
    caption->setText(_("An alarm rings at:"));
    column->addWidget(caption);
    const app::UserAlarms stored = app::readAlarms(session_);
    auto* const grid = new QGridLayout;
    for (int code = firstPrayer; code <= lastMainPrayer; ++code) {
        auto* const box = new QCheckBox(toQt(session_.prayerName(code)), part);
        box->setChecked(stored.alarm(code).isOn);
        grid->addWidget(box, (code - firstPrayer) / 2, (code - firstPrayer) % 2);
        alarms_.push_back(box);
    }
    column->addLayout(grid);
    authority_ = newText(part);
    method_ = new QCheckBox(part);
    column->addWidget(authority_);
    column->addWidget(method_);
    return part;
}

QWidget* FirstStartDialog::newButtons() {
    auto* const buttons = new QDialogButtonBox(this);
    QPushButton* const accept = buttons->addButton(_("Accept"), QDialogButtonBox::AcceptRole);
    accept->setDefault(true);
    buttons->addButton(_("Not now"), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    accept->setFocus();
    return buttons;
}

const CityRecord& FirstStartDialog::city() const {
    return found_ ? *found_ : guess_;
}

// No method is chosen for the user: the box is empty at first.
void FirstStartDialog::showCity() {
    const std::string name = city().name;
    const auto cityOfZone = session_.cities().largestCityOfZone(session_.systemZone());
    const bool isOfZone = cityOfZone && cityOfZone->id == guess_.id;
    question_->setText(
        toQt(found_     ? _("Your city is {}, {}.", name, regionAndCountryOf(city()).toStdString())
             : isOfZone ? _("Your city is {}, according to the time zone. Keep it, or search.", name)
                        : _("The time zone of this device has no city: {} is shown. Search for your city.", name)));
    // Nothing is known of the user's country where not even the zone tells it.
    const conventions::Convention* const usual =
        found_ || isOfZone ? conventions::usualIn(city().countryCode) : nullptr;
    const bool isOther = usual != nullptr && usual != &conventions::defaultConvention();
    authority_->setVisible(isOther);
    method_->setVisible(isOther);
    if (!isOther) return method_->setChecked(false);
    const std::string authority(usual->name), borrowed = app::borrowedMethodText(session_, city(), *usual);
    authority_->setText(toQt(borrowed.empty() ? _("Usual in your country: {}.", authority) : borrowed));
    method_->setText(_("Use its times instead of Quode’s own"));
}

app::FirstAnswer FirstStartDialog::answer() const {
    app::FirstAnswer answer{city().id, {}};
    for (std::size_t at = 0; at < alarms_.size(); ++at) {
        if (alarms_[at]->isChecked()) answer.alarms.push_back(firstPrayer + int(at));
    }
    if (method_->isChecked()) answer.method = conventions::usualIn(city().countryCode)->key;
    return answer;
}

QString askOnFirstStart(app::Session& session, QWidget* parent) {
    try {
        const std::optional<CityRecord> guess = app::cityToAskAbout(session);
        if (!guess) return {};
        waitForPlace(parent);
        FirstStartDialog dialog(session, *guess, parent);
        if (dialog.exec() == QDialog::Accepted) {
            app::takeAnswer(session, dialog.answer());
        } else {
            app::skipQuestion(session);
        }
        return {};
    } catch (const std::exception& error) {
        return QString::fromUtf8(error.what());
    }
}

}  // namespace quode
