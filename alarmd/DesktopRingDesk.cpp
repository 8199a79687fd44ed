// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "alarmd/DesktopRingDesk.h"

#include "alarmd/ring_texts.h"
#include "common/GlobalFuncs.h"
#include "companion/sounds.h"

namespace quode {
namespace {

// How long a sound begins anew when nobody stops it.
constexpr std::chrono::seconds soundTime{60};

}  // namespace

DesktopRingDesk::DesktopRingDesk(NotificationService& notifications, SoundPlayer& player, GlobalFuncs& services)
    : notifications_(&notifications), player_(&player), services_(&services) {}

std::uint32_t DesktopRingDesk::show(const Ring& ring) {
    const Notification notification = notificationOf(ring, *services_);
    const std::optional<std::uint32_t> number = notifications_->show(notification);
    if (!number) {
        services_->NSLogToFile("No notification service: only the sound rings for " + notification.title + ".");
    }
    return number.value_or(0);
}

void DesktopRingDesk::sound(const Ring& ring, std::uint32_t number) {
    sounding_ = number;
    player_->play(soundNamed(ring.sound, services_->appBundlePath()), soundTime);
}

void DesktopRingDesk::silence(std::uint32_t number) {
    if (number == sounding_) player_->stop();
    if (number != 0) notifications_->close(number);
}

}  // namespace quode
