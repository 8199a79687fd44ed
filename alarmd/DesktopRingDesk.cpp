// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "alarmd/DesktopRingDesk.h"

#include "alarmd/ring_texts.h"
#include "common/GlobalFuncs.h"
#include "companion/sounds.h"

namespace quode {
namespace {

// How long a sound repeats unless it is stopped.
constexpr std::chrono::seconds soundTime{60};

// A file that was deleted, or is none, is replaced before anybody tries to play it.
Sound playable(Sound sound, const std::filesystem::path& bundle) {
    const auto* const file = std::get_if<std::filesystem::path>(&sound);
    std::error_code error;
    if (!file || std::filesystem::is_regular_file(*file, error)) return sound;
    return soundNamed(fallbackSound, bundle);
}

}  // namespace

DesktopRingDesk::DesktopRingDesk(NotificationService& notifications, SoundPlayer& player, MediaPlayers& media,
                                 GlobalFuncs& services, std::function<void()> chooseLanguage)
    : notifications_(&notifications),
      player_(&player),
      media_(&media),
      services_(&services),
      chooseLanguage_(std::move(chooseLanguage)) {
    player_->onEnd = [this] { media_->resume(); };
}

std::string DesktopRingDesk::run() {
    return notifications_->run();
}

void DesktopRingDesk::show(const Ring& ring, NotificationService::Answer answered) {
    chooseLanguage_();
    const Notification notification = notificationOf(ring, *services_);
    const auto log = [services = services_, title = notification.title,
                      answered = std::move(answered)](const std::optional<NotificationId>& shown) {
        if (!shown) services->NSLogToFile("No notification service: only the sound rings for " + title + ".");
        answered(shown);
    };
    notifications_->show(notification, log);
}

void DesktopRingDesk::sound(const Ring& ring) {
    sounding_ = ring.alarm;
    const std::string bundle = services_->appBundlePath();
    if (ring.manner.pausesMedia) media_->pause();
    player_->play(playable(soundNamed(ring.sound, bundle), bundle), soundNamed(fallbackSound, bundle), soundTime,
                  {ring.manner.volume, std::chrono::seconds(ring.manner.fadeIn)});
}

void DesktopRingDesk::silence(const AlarmOccurrence& alarm) {
    if (sounding_ != alarm) return;
    sounding_.reset();
    player_->stop();
    media_->resume();
}

void DesktopRingDesk::close(const NotificationId& notification) {
    notifications_->close(notification);
}

void DesktopRingDesk::warn(std::string_view message) {
    notifications_->show({"Quode", std::string(message), {}}, [](const std::optional<NotificationId>&) {});
}

}  // namespace quode
