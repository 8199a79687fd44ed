// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include <functional>

#include "alarmd/RingDesk.h"
#include "platform/MediaPlayers.h"
#include "platform/NotificationService.h"
#include "platform/SoundPlayer.h"

namespace quode {

class GlobalFuncs;

/// Rings through the desktop's notifications, and plays the sound itself, for the notification services play none. Where the
/// user has chosen so, media players are silent meanwhile.
class DesktopRingDesk : public RingDesk {
  public:
    /// All are used as long as the object lives.
    /// @param chooseLanguage  called before a text is made; the user may have chosen another language since the last
    /// one
    DesktopRingDesk(
        NotificationService& notifications, SoundPlayer& player, MediaPlayers& media, GlobalFuncs& services,
        std::function<void()> chooseLanguage = [] {});

    std::string run() override;
    void show(const Ring& ring, NotificationService::Answer answered) override;
    void sound(const Ring& ring) override;
    void silence(const AlarmOccurrence& alarm) override;
    void close(const NotificationId& notification) override;
    void warn(std::string_view message) override;

  private:
    NotificationService* notifications_;
    SoundPlayer* player_;
    MediaPlayers* media_;
    GlobalFuncs* services_;
    std::function<void()> chooseLanguage_;
    std::optional<AlarmOccurrence> sounding_;  // the alarm that the sound belongs to
};

}  // namespace quode
