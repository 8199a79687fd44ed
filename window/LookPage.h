// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <array>

#include "common/color_schemes.h"
#include "window/Page.h"

class QComboBox;

namespace quode::window {

class SchemePicture;
class Switch;

/// How Quode looks and when it starts: colours, text size, layout, language, login, tray.
class LookPage : public Page {
    Q_OBJECT

  public:
    LookPage(Context& context, QWidget* parent);

    void refresh() override;

  private:
    QWidget* newColorPart();
    QWidget* newChoicePart();
    QWidget* newStartPart();
    void follow(QComboBox& box, const char* setting);
    void showColors();

    std::array<SchemePicture*, colorSchemeCount> schemes_{};
    QComboBox *layout_ = nullptr, *language_ = nullptr, *textSize_ = nullptr;
    Switch *login_ = nullptr, *tray_ = nullptr;
};

}  // namespace quode::window
