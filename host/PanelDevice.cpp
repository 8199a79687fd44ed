// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/PanelDevice.h"

#include <QGuiApplication>
#include <QInputDevice>
#include <QScreen>
#include <algorithm>

namespace quode::host {
namespace {

constexpr int panelWidth = 340;
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
    : idiom_(idiom), bounds_{0.0, 0.0, double(screen.width()), double(screen.height())}, scale_(scale) {
    if (idiom == Idiom::phone) bounds_.width = std::min(panelWidth, screen.width());
}

Idiom idiomOf(PanelLayout layout, QSize screen, bool onlyTouch) {
    if (layout != PanelLayout::automatic) return layout == PanelLayout::tablet ? Idiom::tablet : Idiom::phone;
    const bool isLarge = std::min(screen.width(), screen.height()) >= smallestTablet;
    return onlyTouch && isLarge ? Idiom::tablet : Idiom::phone;
}

std::shared_ptr<Device> panelDevice(PanelLayout layout) {
    const QScreen& screen = *QGuiApplication::primaryScreen();
    const Idiom idiom = idiomOf(layout, screen.size(), isWorkedByTouchAlone());
    return std::make_shared<PanelDevice>(idiom, screen.size(), screen.devicePixelRatio());
}

}  // namespace quode::host
