// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <functional>
#include <vector>

#include "data/CityDatabase.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace quode::host {

/// Asks for a city: the places that go with what is typed are listed with each key stroke, and the arrow keys walk the
/// list while the text keeps the focus.
class CityDialog : public QDialog {
    Q_OBJECT

  public:
    using Search = std::function<std::vector<CityHit>(const std::string& text)>;

    CityDialog(Search search, QWidget* parent);

    /// The place that was chosen; nothing before.
    std::optional<CityRecord> chosen() const;

    QLineEdit& field() { return *field_; }
    QListWidget& list() { return *list_; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void find(const QString& text);

    Search search_;
    std::vector<CityHit> hits_;
    QLineEdit* field_;
    QListWidget* list_;
    QLabel* nothing_;
    QPushButton* accept_;
};

}  // namespace quode::host
