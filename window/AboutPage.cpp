// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "window/AboutPage.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <string_view>

#include "app/repairs.h"
#include "desktop/alarm_service.h"
#include "desktop/help.h"
#include "texts/translation.h"
#include "views/qt_conversions.h"
#include "window/parts.h"

namespace quode::window {
namespace {

using State = app::Finding::State;

const char* signOf(State state) {
    return state == State::ok ? "✓" : state == State::note ? "–" : "!";
}

QString nameOf(State state) {
    return state == State::ok ? _("OK") : state == State::note ? _("note") : _("problem");
}

// A line with a word in Arabic letters is read from the right, also where it begins with a name in Latin ones.
QString inReadingDirection(const QString& text) {
    const bool isMixed = std::ranges::any_of(text, [](QChar c) { return c.direction() == QChar::DirAL; });
    return isMixed && !text.isRightToLeft() ? QChar(0x200f) + text : text;
}

// "It is not running. Start it:" introduces a command, which a button of the window stands for.
QString withoutCommand(const std::string& text) {
    QString shown = toQt(text);
    if (!shown.endsWith(':')) return shown;
    const qsizetype last = std::max(shown.lastIndexOf(". "), shown.lastIndexOf("۔ "));
    if (last >= 0) return shown.left(last + 1);
    return shown.chopped(1) + '.';
}

}  // namespace

AboutPage::AboutPage(Context& context, QWidget* parent) : Page(context, parent), checks_(new Card(this)) {
    QVBoxLayout* const column = newColumn();
    checks_->setAccessibleName(_("What was checked"));
    column->addWidget(checks_);
    column->addWidget(newFactsPart());
    column->addStretch(1);
}

QWidget* AboutPage::newFactsPart() {
    auto* const card = new Card(this);
    auto* const text = new QLabel(aboutPage(session()), card);
    text->setWordWrap(true);
    text->setTextInteractionFlags(Qt::TextBrowserInteraction);
    text->setAccessibleName(_("About Quode"));
    card->column()->addWidget(text);
    auto* const help = new QPushButton(_("Help"), card);
    connect(help, &QPushButton::clicked, this, [this] { showPage(_("Help"), helpPage(), window()); });
    card->column()->addWidget(help, 0, Qt::AlignLeft);
    return card;
}

void AboutPage::refresh() {
    if (isVisible()) examine();
}

void AboutPage::examine() {
    const std::vector<app::Finding> findings = app::examine(session());
    QString wanted;
    for (const app::Finding& each : findings) wanted += toQt(each.name + each.text + each.advice) + signOf(each.state);
    if (wanted == shown_) return;
    shown_ = wanted;
    removeAll(*checks_->column());
    checks_->column()->addWidget(newHeading(_("Checks"), checks_));
    for (const app::Finding& each : findings) addFinding(each, &each == &findings.front());
}

void AboutPage::addFinding(const app::Finding& finding, bool isFirst) {
    if (!isFirst) checks_->addLine();
    auto* const row = new QHBoxLayout;
    QLabel* const sign = newHeading(signOf(finding.state), checks_);
    sign->setAccessibleName(nameOf(finding.state));
    sign->setToolTip(nameOf(finding.state));
    sign->setFixedWidth(18);
    auto* const texts = new QVBoxLayout;
    texts->setSpacing(1);
    texts->addWidget(newHeading(toQt(finding.name), checks_));
    texts->addWidget(newRemark(inReadingDirection(withoutCommand(finding.text)), checks_));
    if (!finding.advice.empty())
        texts->addWidget(newLabel(inReadingDirection(withoutCommand(finding.advice)), checks_));
    row->addWidget(sign, 0, Qt::AlignTop);
    row->addLayout(texts, 1);
    if (app::canRepair(finding)) {
        auto* const button = new QPushButton(_("Repair"), checks_);
        button->setAccessibleName(toQt(_("Repair: {}", finding.name)));
        connect(button, &QPushButton::clicked, this, [this, finding] { repair(finding); });
        row->addWidget(button, 0, Qt::AlignTop);
    }
    checks_->column()->addLayout(row);
}

void AboutPage::repair(const app::Finding& finding) {
    context().change([&] {
        app::repair(session(), finding);
        if (std::string_view(finding.key) == "alarm_service") startAlarmService(session().dataFolder());
    });
}

}  // namespace quode::window
