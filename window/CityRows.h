// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "companion/UserDatabase.h"
#include "window/Context.h"
#include "window/parts.h"

class QHBoxLayout;

namespace quode::window {

/// The user's cities, a row for each: home, order, removal.
class CityRows : public Card {
    Q_OBJECT

  public:
    CityRows(Context& context, QWidget* parent);

    /// Shows the cities as they are stored.
    void refresh();

  private:
    void addRow(const std::vector<UserCity>& cities, std::size_t position);
    void addButton(QHBoxLayout& row, const char* sign, const QString& name, const QString& key,
                   const std::function<void()>& action);
    void move(int id, std::size_t position);
    void remove(const UserCity& city);

    Context& context_;
    QString shown_;  // what the rows were made from
};

}  // namespace quode::window
