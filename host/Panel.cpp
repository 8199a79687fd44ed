// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/Panel.h"

#include <chrono>
#include <cmath>

#include "data/next_midnight.h"
#include "views/UIButtonX.h"
#include "views/UICityNameView.h"
#include "views/UITimesView.h"

namespace quode::host {
namespace {

constexpr std::int32_t shapeAlarmOn = 9, shapeAlarmOff = 10;
constexpr int sameClick = 300;  // ms between the loss of focus and the rest of the click that caused it

QSize wholePoints(const Size& size) {
    return {int(std::lround(size.width)), int(std::ceil(size.height))};
}

}  // namespace

Panel::Panel(WidgetViewController& widget, PanelWindow& window, const Clock& clock, MomentWatch& watch,
             std::function<void()> prepare)
    : widget_(widget), window_(window), clock_(clock), watch_(watch), prepare_(std::move(prepare)) {
    widget_.setWidgetHost(this);
    connect(&watch_, &MomentWatch::happened, this, &Panel::presentAgain);
    minute_.setSingleShot(true);
    connect(&minute_, &QTimer::timeout, this, &Panel::refreshFacts);
    connect(&window_, &PanelWindow::dismissAsked, this, &Panel::dismissByUser);
}

Panel::~Panel() {
    if (isPresented_) hideWidget();
    widget_.setWidgetHost(nullptr);
}

void Panel::present(QPoint pointer) {
    if (!isPresented_) showWidget();
    window_.open(pointer);
}

void Panel::dismiss() {
    if (!isPresented_) return;
    isPresented_ = false;
    window_.hide();
    hideWidget();
    watch_.watchFor(std::nullopt);
    Q_EMIT dismissed();
}

void Panel::dismissByUser() {
    if (!isPresented_) return;
    sinceDismissal_.start();
    dismiss();
}

void Panel::toggle(QPoint pointer) {
    if (isPresented_) return dismiss();
    const bool isSameClick = sinceDismissal_.isValid() && sinceDismissal_.elapsed() < sameClick;
    sinceDismissal_.invalidate();
    if (!isSameClick) present(pointer);
}

void Panel::showWidget() {
    isPresented_ = true;
    prepare_();
    watch_.watchFor(nextMidnight(clock_, std::chrono::floor<std::chrono::seconds>(clock_.now())));
    widget_.hostDidPresent();
    if (fit_ && fit_()) widget_.hostDidPresent();
    openRememberedRows();
    dressWidget();
    window_.setContent(widget_.view());
    refreshFacts();
    isAttached_ = true;
    fitWindow();
    Q_EMIT built();
}

void Panel::hideWidget() {
    openRows_ = openRows();
    isAttached_ = false;
    minute_.stop();
    window_.releaseContent();
    widget_.hostDidDismiss();
}

void Panel::presentAgain() {
    if (!isPresented_) return;
    window_.setUpdatesEnabled(false);
    hideWidget();
    showWidget();
    window_.setUpdatesEnabled(true);
}

void Panel::refreshFacts() {
    if (!isPresented_ || !facts_) return;
    window_.setFacts(facts_());
    waitForNextMinute();
}

// By the machine's clock, on which the widget's own ticks run too. The watch tells when it is set.
void Panel::waitForNextMinute() {
    const auto now = std::chrono::system_clock::now();
    const auto next = std::chrono::floor<std::chrono::minutes>(now) + std::chrono::minutes(1);
    minute_.start(std::chrono::ceil<std::chrono::milliseconds>(next - now));
}

OpenRows Panel::openRows() const {
    if (!isAttached_) return openRows_;
    OpenRows rows;
    for (const auto* const button : widget_.view()->findChildren<UIButtonX*>()) {
        if (button->tag() == tagCityInfo) rows.details = button->selected();
        if (button->tag() == tagShowAll) rows.otherTimes = button->selected();
    }
    return rows;
}

void Panel::openRememberedRows() {
    for (auto* const button : widget_.view()->findChildren<UIButtonX*>()) {
        const bool isWanted = (button->tag() == tagCityInfo && openRows_.details) ||
                              (button->tag() == tagShowAll && openRows_.otherTimes);
        if (isWanted && !button->selected()) button->tap();
    }
}

// Adds what the widget leaves to its host: tool tips, and an end before the buttons for a name that is too long even
// for the widest panel.
void Panel::dressWidget() {
    for (auto* const button : widget_.view()->findChildren<UIButtonX*>()) {
        button->setToolTip(QString::fromStdString(button->spokenName()));
    }
    for (auto* const row : widget_.view()->findChildren<UICityNameView*>()) {
        if (row->buttonCompass()->isHidden()) continue;
        Label& name = *row->labelCityName();
        const double width = row->buttonCompass()->frame().x - name.frame().x;
        const Rect whole = name.frame();
        name.setFrame({whole.x, whole.y, width, whole.height});
        const Label::Layout fitted = name.layout();
        if (fitted.scale >= 1.0) name.setFrame(whole);
        if (fitted.lines.front() != name.text()) row->setToolTip(QString::fromStdString(name.text()));
    }
}

void Panel::showAlarms(const std::map<int, bool>& alarmsOn) {
    if (!isPresented_) return;
    for (const auto* const row : widget_.view()->findChildren<UITimesView*>()) {
        const auto found = alarmsOn.find(row->tag());
        UIButtonX& bell = *row->buttonAlarmOnOff();
        if (found == alarmsOn.end() || !bell.enabled() || bell.selected() == found->second) continue;
        bell.setButtonShape(found->second ? shapeAlarmOn : shapeAlarmOff);
        bell.setSelected(found->second);
        bell.update();
    }
}

void Panel::fitWindow() {
    window_.setContentSize(wholePoints(widget_.preferredViewSize()));
}

// While the widget builds itself its view is not in the window yet; the size is requested afterwards.
void Panel::invalidatePreferredViewSize() {
    if (!isAttached_) return;
    fitWindow();
    if (const OpenRows rows = openRows(); rows != openRows_) {
        openRows_ = rows;
        Q_EMIT rowsToggled();
    }
}

}  // namespace quode::host
