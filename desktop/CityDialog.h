// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <optional>

#include "desktop/CityFinder.h"

class QPushButton;

namespace quode {

/// Asks for a city.
class CityDialog : public QDialog {
    Q_OBJECT

  public:
    CityDialog(CityFinder::Search search, QWidget* parent);

    /// The place that was chosen; nothing before.
    std::optional<CityRecord> chosen() const;

    QLineEdit& field() { return finder_->field(); }
    QListWidget& list() { return finder_->list(); }

  private:
    CityFinder* finder_;
    QPushButton* accept_;
};

}  // namespace quode
