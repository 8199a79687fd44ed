// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include "companion/UserSettings.h"
#include "window/Context.h"
#include "window/parts.h"

class QSlider;
class QVBoxLayout;

namespace quode::window {

/// How every alarm rings: volume, fade-in, other media, urgency.
class MannerPart : public Card {
    Q_OBJECT

  public:
    MannerPart(Context& context, QWidget* parent);

    void refresh(const UserSettings& settings);

  private:
    void addVolume();
    void addFadeIn();
    Switch* addSwitch(const QString& name, const QString& remark, const char* setting, const char* on, const char* off);
    void change(const char* setting, const QString& value);

    Context& context_;
    QSlider* volume_ = nullptr;
    QLabel* percent_ = nullptr;
    QComboBox* fadeIn_ = nullptr;
    Switch *media_ = nullptr, *urgent_ = nullptr;
};

}  // namespace quode::window
