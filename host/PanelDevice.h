// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>
#include <memory>

#include "companion/UserSettings.h"
#include "platform/Device.h"

namespace quode::host {

/// The screen as the widget is to see it: the panel is as wide as a phone, whatever the screen is.
class PanelDevice : public Device {
  public:
    /// @param screen  size of the screen, in points
    /// @param scale   pixels per point
    PanelDevice(Idiom idiom, QSize screen, double scale);

    std::optional<Idiom> idiom() const override { return idiom_; }
    /// Beyond every version that lacks something.
    std::string systemVersion() const override { return "9.0"; }
    Rect screenBounds() const override { return bounds_; }
    double screenScale() const override { return scale_; }

    /// Makes the panel of a phone as wide as its contents need, within limits.
    /// @return whether that is another width than before
    bool setWantedWidth(int width);

  private:
    Idiom idiom_;
    QSize screen_;
    Rect bounds_;
    double scale_;
};

/// The width in which the name of a city fits beside the buttons of its row.
int widthForCityName(const std::string& name);

/// What a device is: as the user chose, else a tablet when it is worked by touch alone and its screen is at least 600
/// points wide and high.
Idiom idiomOf(PanelLayout layout, QSize screen, bool onlyTouch);

/// The device on whose primary screen this application is shown.
/// @param layout  the user's own choice
std::shared_ptr<PanelDevice> panelDevice(PanelLayout layout);

}  // namespace quode::host
