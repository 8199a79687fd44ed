// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "alarmd/ring_texts.h"

#include "common/GlobalFuncs.h"
#include "common/labels.h"
#include "companion/AlarmHabits.h"
#include "texts/translation.h"

namespace quode {

Notification notificationOf(const Ring& ring, const GlobalFuncs& services) {
    Notification notification;
    notification.title = prayerLabel(services, ring.alarm.code);
    notification.body = isolated(ring.city) + ", " + isolated(services.timeLeadingZero(ring.alarm.hours));
    if (ring.isAdjusted) notification.body += std::string(" (") + _("adjusted by you") + ")";
    const auto offset = std::chrono::duration_cast<std::chrono::minutes>(ring.alarm.due - ring.alarm.prayer);
    if (offset.count() != 0) {
        notification.body += '\n';
        notification.body += offset.count() < 0 ? _("{} before the time", durationLabel(-offset))
                                                : _("{} after the time", durationLabel(offset));
    }
    if (ring.late.count() > 0) {
        notification.body += '\n';
        notification.body += _("Rings {} late", durationLabel(ring.late));
    }
    notification.actions = {{stopAction, _c("alarm", "Stop")},
                            {snoozeAction, _("Snooze {}", durationLabel(snoozeTime))},
                            {muteAction, _("Mute today")}};
    notification.isUrgent = ring.manner.isUrgent;
    return notification;
}

}  // namespace quode
