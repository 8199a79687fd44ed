// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include "window/Page.h"

class QPushButton;

namespace quode {
class CityFinder;
}

namespace quode::window {

class CityRows;
class NewPlacePart;

/// The user's cities: their order, the home, further ones by name or coordinates.
class CitiesPage : public Page {
    Q_OBJECT

  public:
    CitiesPage(Context& context, QWidget* parent);

    void refresh() override;

  private:
    QWidget* newSearchPart();
    void add(bool asHome);

    CityRows* rows_;
    CityFinder* finder_ = nullptr;
    QPushButton* add_ = nullptr;
    QPushButton* makeHome_ = nullptr;
    NewPlacePart* newPlace_;
};

}  // namespace quode::window
