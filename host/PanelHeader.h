// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QLabel;

namespace quode {
struct Theme;
}

namespace quode::host {

struct PanelFacts;

/// Above the widget: the coming prayer with the time left, and the dates.
class PanelHeader : public QWidget {
    Q_OBJECT

  public:
    explicit PanelHeader(QWidget* parent);

    void setFacts(const PanelFacts& facts);
    void setTheme(const Theme& theme);

  private:
    QLabel* next_;
    QLabel* dates_;
};

}  // namespace quode::host
