// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QLabel;
class QMenu;
class QToolButton;

namespace quode {
struct Theme;
}

namespace quode::host {

struct PanelFacts;

/// Below the widget: the footnotes of the day, and the button of the menu.
class PanelFooter : public QWidget {
    Q_OBJECT

  public:
    explicit PanelFooter(QWidget* parent);

    void setFacts(const PanelFacts& facts);
    void setTheme(const Theme& theme);

    /// Gives the button its menu, which stays with its owner; without one yet, the button is drawn already.
    /// @param name  what the button is called, and its tool tip; empty for no button
    void setMenu(QMenu* menu, const QString& name);

    QToolButton* menuButton() const { return button_; }

  private:
    void showWhatThereIs();

    QLabel* notes_;
    QToolButton* button_;
};

}  // namespace quode::host
