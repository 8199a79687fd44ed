// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/PanelDevice.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QInputDevice>
#include <QScreen>
#include <algorithm>
#include <cmath>

#include "common/Settings.h"
#include "views/fonts.h"

namespace quode::host {
namespace {

constexpr int panelWidth = 340, widestPanel = 440;
constexpr int besideCityName = 155;  // the margin before the name, and the buttons
constexpr int smallestTablet = 600;

bool isWorkedByTouchAlone() {
    using Type = QInputDevice::DeviceType;
    const auto devices = QInputDevice::devices();
    const auto has = [&](Type type) {
        return std::ranges::any_of(devices, [type](const QInputDevice* device) { return device->type() == type; });
    };
    return has(Type::TouchScreen) && !has(Type::Mouse) && !has(Type::TouchPad);
}

}  // namespace

PanelDevice::PanelDevice(Idiom idiom, QSize screen, double scale)
    : idiom_(idiom),
      screen_(screen),
      bounds_{0.0, 0.0, double(screen.width()), double(screen.height())},
      scale_(scale) {
    setWantedWidth(panelWidth);
}

bool PanelDevice::setWantedWidth(int width) {
    if (idiom_ != Idiom::phone) return false;
    const double before = bounds_.width;
    bounds_.width = std::min(std::clamp(width, panelWidth, widestPanel), screen_.width());
    return bounds_.width != before;
}

// The name stands to the left of the two buttons, which take the rest of the row.
int widthForCityName(const std::string& name) {
    const Settings settings;
    const QFont font = fontNamed(settings.fontName, settings.fontSize);
    return int(std::ceil(QFontMetricsF(font).horizontalAdvance(QString::fromStdString(name)))) + besideCityName;
}

Idiom idiomOf(PanelLayout layout, QSize screen, bool onlyTouch) {
    if (layout != PanelLayout::automatic) return layout == PanelLayout::tablet ? Idiom::tablet : Idiom::phone;
    const bool isLarge = std::min(screen.width(), screen.height()) >= smallestTablet;
    return onlyTouch && isLarge ? Idiom::tablet : Idiom::phone;
}

std::shared_ptr<PanelDevice> panelDevice(PanelLayout layout) {
    const QScreen& screen = *QGuiApplication::primaryScreen();
    const Idiom idiom = idiomOf(layout, screen.size(), isWorkedByTouchAlone());
    return std::make_shared<PanelDevice>(idiom, screen.size(), screen.devicePixelRatio());
}

}  // namespace quode::host
