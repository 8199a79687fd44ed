// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "window/LookPage.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QLocale>
#include <QVBoxLayout>

#include "app/day_view.h"
#include "app/panel_start.h"
#include "app/settings.h"
#include "app/user_data.h"
#include "texts/translation.h"
#include "views/qt_conversions.h"
#include "window/SchemePicture.h"
#include "window/parts.h"

namespace quode::window {
namespace {

constexpr int schemesPerRow = 2;

// A language by its own name, "Türkçe".
QString nameOfLanguage(const std::string& code) {
    QString name = QLocale(toQt(code)).nativeLanguageName();
    if (!name.isEmpty()) name[0] = name[0].toUpper();
    return name.isEmpty() ? toQt(code) : name;
}

QHBoxLayout* switchRow(Switch* control, const QString& text, const QString& remark, QWidget* parent) {
    auto* const row = new QHBoxLayout;
    auto* const texts = new QVBoxLayout;
    texts->setSpacing(1);
    texts->addWidget(newLabel(text, parent));
    texts->addWidget(newRemark(remark, parent));
    row->addLayout(texts, 1);
    row->addWidget(control, 0, Qt::AlignTop);
    return row;
}

}  // namespace

LookPage::LookPage(Context& context, QWidget* parent) : Page(context, parent) {
    QVBoxLayout* const column = newColumn();
    column->addWidget(newColorPart());
    column->addWidget(newChoicePart());
    column->addWidget(newStartPart());
    column->addStretch(1);
}

QWidget* LookPage::newColorPart() {
    auto* const card = new Card(this);
    card->column()->addWidget(newHeading(_("Colours of the panel"), card));
    auto* const grid = new QGridLayout;
    grid->setColumnStretch(0, 1);  // the pictures stand in the middle
    grid->setColumnStretch(schemesPerRow + 1, 1);
    for (int scheme = 0; scheme < colorSchemeCount; ++scheme) {
        auto* const picture = new SchemePicture(scheme, toQt(_("Scheme {}", scheme + 1)), card);
        schemes_[std::size_t(scheme)] = picture;
        grid->addWidget(picture, scheme / schemesPerRow, scheme % schemesPerRow + 1);
        connect(picture, &QAbstractButton::toggled, this, [this, scheme](bool isOn) {
            if (!isOn) return;
            context().change([&] { app::changeSetting(session(), "colors", std::to_string(scheme + 1)); });
        });
    }
    card->column()->addLayout(grid);
    return card;
}

QWidget* LookPage::newChoicePart() {
    auto* const card = new Card(this);
    textSize_ = newChoice(_("Size of texts"), card);
    for (const int percent : {100, 115, 130, 150, 175, 200}) {
        textSize_->addItem(QString("%1 %").arg(percent), QString::number(percent));
    }
    layout_ = newChoice(_("Layout of the panel"), card);
    layout_->addItem(_("by the screen"), "auto");
    layout_->addItem(_("phone"), "phone");
    layout_->addItem(_("tablet"), "tablet");
    language_ = newChoice(_("Language"), card);
    language_->addItem(_("that of the system"), "auto");
    for (const std::string& code : availableLanguages(session().bundle())) {
        language_->addItem(nameOfLanguage(code), toQt(code));
    }
    auto* const form = new QFormLayout;
    form->setRowWrapPolicy(QFormLayout::WrapAllRows);
    form->addRow(_("Size of texts"), textSize_);
    form->addRow(_("Layout of the panel"), layout_);
    form->addRow(_("Language"), language_);
    card->column()->addLayout(form);
    card->column()->addWidget(
        newRemark(_("A program that is running takes size, layout and language with its next start."), card));
    follow(*textSize_, "text");
    follow(*layout_, "panel");
    follow(*language_, "language");
    return card;
}

QWidget* LookPage::newStartPart() {
    auto* const card = new Card(this);
    login_ = new Switch(_("Start the panel at login"), card);
    tray_ = new Switch(_("Icon in the tray"), card);
    card->column()->addLayout(switchRow(login_, _("Start the panel at login"),
                                        _("The alarms do not need it: their service starts by itself."), card));
    card->addLine();
    card->column()->addLayout(switchRow(tray_, _("Icon in the tray"),
                                        _("Without it the panel is a window, and ends when it is closed."), card));
    connect(login_, &QAbstractButton::toggled, this,
            [this](bool isOn) { context().change([&] { app::startPanelAtLogin(session(), isOn); }); });
    connect(tray_, &QAbstractButton::toggled, this, [this](bool isOn) {
        context().change([&] { app::changeSetting(session(), "tray", isOn ? "on" : "off"); });
    });
    return card;
}

void LookPage::follow(QComboBox& box, const char* setting) {
    connect(&box, &QComboBox::activated, this, [this, &box, setting] {
        context().change([&] { app::changeSetting(session(), setting, box.currentData().toString().toStdString()); });
    });
}

void LookPage::showColors() {
    std::vector<SchemePicture::Row> rows;
    const std::optional<CityRecord> city = app::homeCity(session());
    const Site site = city ? siteOf(*city) : Site{};
    const CityDay day = computeCityDay(site, app::today(session(), site));
    for (const int code : {codeOf(Prayer::dhuhr), codeOf(Prayer::asr)}) {
        rows.push_back({toQt(session().prayerName(code)), toQt(app::clockText(session(), timeOfPrayer(day, code)))});
    }
    for (SchemePicture* const picture : schemes_) picture->setRows(rows);
}

void LookPage::refresh() {
    const UserSettings settings = app::presentSettings(session());
    showChecked(*schemes_.at(std::size_t(settings.colorScheme)), true);
    showColors();
    choose(*textSize_, QString::number(settings.textSize));
    choose(*layout_, toQt(app::settingNamed("panel").value(settings)));
    choose(*language_, toQt(settings.language));
    showChecked(*login_, app::panelStartsAtLogin(session()));
    showChecked(*tray_, settings.hasTrayIcon);
}

}  // namespace quode::window
