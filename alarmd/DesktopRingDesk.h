// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

#include "alarmd/RingDesk.h"
#include "platform/NotificationService.h"
#include "platform/SoundPlayer.h"

namespace quode {

class GlobalFuncs;

/// Rings through the desktop's notifications, and plays the sound itself, for the notification services play none.
class DesktopRingDesk : public RingDesk {
  public:
    /// All are used as long as the object lives.
    DesktopRingDesk(NotificationService& notifications, SoundPlayer& player, GlobalFuncs& services);

    std::uint32_t show(const Ring& ring) override;
    void sound(const Ring& ring, std::uint32_t number) override;
    void silence(std::uint32_t number) override;

  private:
    NotificationService* notifications_;
    SoundPlayer* player_;
    GlobalFuncs* services_;
    std::uint32_t sounding_ = 0;  // the notification that the sound belongs to
};

}  // namespace quode
