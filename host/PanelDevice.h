#pragma once

#include <QSize>
#include <memory>

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

  private:
    Idiom idiom_;
    Rect bounds_;
    double scale_;
};

/// A tablet is a device that is worked by touch alone and whose screen is at least 600 points wide and high.
Idiom idiomOf(QSize screen, bool onlyTouch);

/// The device on whose primary screen this application is shown.
std::shared_ptr<Device> panelDevice();

}  // namespace quode::host
