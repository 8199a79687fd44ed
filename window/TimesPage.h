// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <optional>

#include "conventions/Method.h"
#include "data/CityDatabase.h"
#include "window/Page.h"

class QComboBox;
class QGridLayout;
class QLabel;
class QPushButton;
class QSpinBox;

namespace quode::window {

class Card;

/// The method of the home city's times: the convention, its options, minutes of one's own, and what they change today.
class TimesPage : public Page {
    Q_OBJECT

  public:
    TimesPage(Context& context, QWidget* parent);

    void refresh() override;

  private:
    QWidget* newMethodPart();
    QWidget* newPreviewPart();
    void fillMethods();
    void showMethod();
    void showRules();
    void showPreview();
    void take(const std::function<void(conventions::Method&)>& change);
    void restore(const conventions::Method& method);

    std::optional<CityRecord> city_;
    std::optional<conventions::Method> before_;  // when the page was first shown for the city
    int cityBefore_ = 0;
    QLabel* place_;
    QComboBox *method_ = nullptr, *asr_ = nullptr, *highLatitude_ = nullptr;
    QLabel *usual_ = nullptr, *authority_ = nullptr, *rules_ = nullptr;
    std::array<QLabel*, mainPrayerCount> names_{}, times_{}, former_{}, marks_{};
    std::array<QSpinBox*, mainPrayerCount> minutes_{};
    QPushButton* undo_ = nullptr;
};

}  // namespace quode::window
