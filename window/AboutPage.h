// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include "app/doctor_checks.h"
#include "window/Page.h"

class QPushButton;

namespace quode::window {

class Card;

/// What Quode is made from, how exact it is, and whether all is in order.
class AboutPage : public Page {
    Q_OBJECT

  public:
    AboutPage(Context& context, QWidget* parent);

    /// Examines all, which takes a moment; only while the page is seen.
    void refresh() override;

  private:
    QWidget* newFactsPart();
    void addFinding(const app::Finding& finding, bool isFirst);
    void repair(const app::Finding& finding);
    void examine();

    Card* checks_;
    QString shown_;
};

}  // namespace quode::window
