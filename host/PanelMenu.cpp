// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/PanelMenu.h"

#include <QActionGroup>
#include <QPainter>
#include <QPixmap>

#include "common/color_schemes.h"
#include "desktop/theme.h"
#include "texts/translation.h"
#include "views/qt_conversions.h"

namespace quode::host {
namespace {

constexpr int swatchSide = 16;

QString qt(const std::string& text) {
    return QString::fromStdString(text);
}

// Three stripes in the colours of the rows, on the card that they are shown on.
QIcon swatchOf(int scheme) {
    const ColorScheme colors = colorScheme(scheme);
    QPixmap picture(swatchSide, swatchSide);
    picture.fill(cardColor);
    QPainter painter(&picture);
    for (int stripe = 0; stripe < 3; ++stripe) {
        painter.fillRect(2, 2 + stripe * 4, swatchSide - 4, 3, toQt(colors[static_cast<std::size_t>(stripe)]));
    }
    return picture;
}

}  // namespace

PanelMenu::PanelMenu(std::function<MenuState()> state)
    : state_(std::move(state)),
      next_(addAction(QString())),
      copy_(nullptr),
      alarms_(nullptr),
      mute_(nullptr),
      colors_(nullptr) {
    setAccessibleName("Quode");
    connect(next_, &QAction::triggered, this, &PanelMenu::openAsked);
    addSeparator();
    connect(addEntry(N_("Show prayer times")), &QAction::triggered, this, &PanelMenu::openAsked);
    copy_ = addEntry(N_("Copy today’s times"));
    copy_->setShortcut(QKeySequence::Copy);
    connect(copy_, &QAction::triggered, this, &PanelMenu::copyAsked);
    addSeparator();
    QAction* const city = addEntry(N_("Choose city…"));
    city->setShortcut(QKeySequence::Find);
    connect(city, &QAction::triggered, this, &PanelMenu::cityAsked);
    addAlarms();
    addColors();
    QAction* const timetable = addEntry(N_("Timetable and print…"));
    timetable->setShortcut(QKeySequence::Print);
    connect(timetable, &QAction::triggered, this, [this] { Q_EMIT settingsAsked("timetable"); });
    QAction* const settings = addEntry(N_("Settings…"));
    settings->setShortcut(Qt::CTRL | Qt::Key_Comma);
    connect(settings, &QAction::triggered, this, [this] { Q_EMIT settingsAsked({}); });
    addSeparator();
    QAction* const help = addEntry(N_("Help"));
    help->setShortcut(Qt::Key_F1);
    connect(help, &QAction::triggered, this, &PanelMenu::helpAsked);
    connect(addEntry(N_("About Quode")), &QAction::triggered, this, &PanelMenu::aboutAsked);
    addSeparator();
    QAction* const quit = addEntry(N_("Quit"));
    quit->setShortcut(Qt::CTRL | Qt::Key_Q);
    connect(quit, &QAction::triggered, this, &PanelMenu::quitAsked);
    connect(this, &QMenu::aboutToShow, this, &PanelMenu::refresh);
    setTexts();
}

// A menu that is emptied takes its entries back from the desktop; one that is deleted leaves them there.
PanelMenu::~PanelMenu() {
    clear();
}

QAction* PanelMenu::addEntry(const char* english) {
    return texts_.emplace_back(addAction(QString()), english).first;
}

// Again with each refresh, for the language may have changed.
void PanelMenu::setTexts() {
    for (const auto& [action, english] : texts_) action->setText(qt(_(english)));
    for (QAction* const action : colors_->actions()) action->setText(qt(_("Scheme {}", action->data().toInt() + 1)));
}

void PanelMenu::addAlarms() {
    alarms_ = addMenu(QString());
    texts_.emplace_back(alarms_->menuAction(), N_("Alarms"));
    connect(alarms_, &QMenu::triggered, this,
            [this](QAction* action) { Q_EMIT alarmSwitched(action->data().toInt(), action->isChecked()); });
    mute_ = addEntry(N_("Mute until tomorrow"));
    mute_->setCheckable(true);
    connect(mute_, &QAction::triggered, this, &PanelMenu::muteAsked);
    connect(addEntry(N_("Set up alarms…")), &QAction::triggered, this, [this] { Q_EMIT settingsAsked("alarms"); });
}

void PanelMenu::addColors() {
    colors_ = addMenu(QString());
    texts_.emplace_back(colors_->menuAction(), N_("Colours"));
    auto* const group = new QActionGroup(colors_);
    for (int scheme = 0; scheme < colorSchemeCount; ++scheme) {
        QAction* const action = colors_->addAction(swatchOf(scheme), QString());
        action->setCheckable(true);
        action->setData(scheme);
        group->addAction(action);
    }
    connect(colors_, &QMenu::triggered, this,
            [this](QAction* action) { Q_EMIT colorSchemeChosen(action->data().toInt()); });
}

void PanelMenu::refresh() {
    const MenuState state = state_();
    setTexts();
    next_->setText(qt(state.next));
    copy_->setVisible(state.hasCity);
    showAlarms(state.alarms);
    mute_->setChecked(state.isMuted);
    for (QAction* const action : colors_->actions()) action->setChecked(action->data().toInt() == state.colorScheme);
}

// The entries stay the same where there are as many: the desktop keeps a copy of them.
void PanelMenu::showAlarms(const std::vector<MenuState::Alarm>& alarms) {
    alarms_->menuAction()->setVisible(!alarms.empty());
    if (alarms_->actions().size() != int(alarms.size())) {
        alarms_->clear();
        for (const MenuState::Alarm& alarm : alarms) {
            QAction* const action = alarms_->addAction(QString());
            action->setCheckable(true);
            action->setData(alarm.code);
        }
    }
    for (std::size_t at = 0; at < alarms.size(); ++at) {
        QAction* const action = alarms_->actions().at(int(at));
        action->setText(qt(alarms[at].name));
        action->setChecked(alarms[at].isOn);
    }
}

QString PanelMenu::next() const {
    return next_->text();
}

}  // namespace quode::host
