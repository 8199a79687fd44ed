// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "platform/system_platform.h"

namespace quode {
namespace {

class DesktopDevice : public Device {
  public:
    // A desktop panel has the layout of a phone, with the width it gets, not a tablet's fixed column.
    std::optional<Idiom> idiom() const override { return Idiom::phone; }

    // Desktops have no version that describes drawing, so this one exceeds every limit.
    std::string systemVersion() const override { return "9.0"; }

    Rect screenBounds() const override { return {0.0, 0.0, 1280.0, 800.0}; }
    double screenScale() const override { return 1.0; }
};

}  // namespace

std::shared_ptr<Device> desktopDevice() {
    return std::make_shared<DesktopDevice>();
}

}  // namespace quode
