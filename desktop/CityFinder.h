// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

#include "data/CityDatabase.h"

class QLabel;
class QLineEdit;
class QListWidget;

namespace quode {

/// Finds a city: the places that go with what is typed are listed with each key stroke, and the arrow keys walk the list
/// while the text keeps the focus.
class CityFinder : public QWidget {
    Q_OBJECT

  public:
    using Search = std::function<std::vector<CityHit>(const std::string& text)>;

    CityFinder(Search search, QWidget* parent);

    /// The place that is marked in the list; nothing without places.
    std::optional<CityRecord> current() const;

    /// Forgets what was typed.
    void clear();

    QLineEdit& field() { return *field_; }
    QListWidget& list() { return *list_; }

  Q_SIGNALS:
    /// Another place is marked, or none.
    void currentChanged(bool isAny);
    /// The marked place was chosen, by Return or a double click.
    void chosen();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void find(const QString& text);
    bool isStep(int key);

    Search search_;
    std::vector<CityHit> hits_;
    QLineEdit* field_;
    QListWidget* list_;
    QLabel* nothing_;
};

/// "Illinois, United States", the region only where it is not the country.
QString regionAndCountryOf(const CityRecord& city);

}  // namespace quode
