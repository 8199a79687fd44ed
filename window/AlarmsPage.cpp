// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "window/AlarmsPage.h"

#include <QVBoxLayout>

#include "app/user_alarms.h"
#include "astro/prayer.h"
#include "window/AlarmCard.h"
#include "window/MannerPart.h"
#include "window/MutePart.h"

namespace quode::window {

AlarmsPage::AlarmsPage(Context& context, QWidget* parent)
    : Page(context, parent), trial_(this), mute_(new MutePart(context, this)), manner_(new MannerPart(context, this)) {
    QVBoxLayout* const column = newColumn();
    column->addWidget(mute_);
    for (std::size_t at = 0; at < cards_.size(); ++at) {
        cards_[at] = new AlarmCard(firstPrayer + int(at), context, trial_, this);
        column->addWidget(cards_[at]);
    }
    column->addWidget(manner_);
    column->addStretch(1);
    connect(&trial_, &TrialRinging::failed, this, [this](const QString& message) { this->context().tell(message); });
}

void AlarmsPage::refresh() {
    const app::UserAlarms all = app::readAlarms(session());
    mute_->refresh(all);
    manner_->refresh(all.settings);
    for (AlarmCard* const card : cards_) card->refresh(all);
}

}  // namespace quode::window
