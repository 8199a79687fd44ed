// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "alarmd/ring_texts.h"

#include <fmt/format.h>

#include <array>
#include <cstdlib>

#include "common/GlobalFuncs.h"

namespace quode {
namespace {

struct Texts {
    const char* prayer;  // where the language pack has no name for it
    const char* before;
    const char* after;
    const char* late;
    const char* stop;
    const char* snooze;
};

constexpr Texts english{"Prayer time", "{} min before the time", "{} min after the time", "Rings {} min late",
                        "Stop",        "Snooze {} min"};
constexpr Texts turkish{"Namaz vakti", "Vaktinden {} dk önce", "Vaktinden {} dk sonra", "{} dk gecikmeyle çalıyor",
                        "Durdur",      "{} dk ertele"};
constexpr Texts french{"Heure de prière", "{} min avant l’heure", "{} min après l’heure", "Sonne avec {} min de retard",
                       "Arrêter",         "Rappeler dans {} min"};
constexpr Texts german{"Gebetszeit", "{} Min. vor der Zeit", "{} Min. nach der Zeit", "Klingelt {} Min. zu spät",
                       "Stopp",      "In {} Min. erneut"};

const Texts& textsOf(std::int32_t language) {
    return inLanguage(language, turkish, english, french, german);
}

}  // namespace

Notification notificationOf(const Ring& ring, const GlobalFuncs& services) {
    const Texts& texts = textsOf(services.languageId());
    const auto filled = [](const char* format, long long minutes) {
        return fmt::format(fmt::runtime(format), minutes);
    };
    Notification notification;
    notification.title = services.GetTextPrayLabels(ring.alarm.code).value_or(texts.prayer);
    notification.body = ring.city + ", " + services.timeLeadingZero(ring.alarm.hours);
    const auto offset = std::chrono::duration_cast<std::chrono::minutes>(ring.alarm.due - ring.alarm.prayer).count();
    if (offset != 0) {
        notification.body += '\n';
        notification.body += filled(offset < 0 ? texts.before : texts.after, std::abs(offset));
    }
    if (ring.late.count() > 0) {
        notification.body += '\n';
        notification.body += filled(texts.late, ring.late.count());
    }
    notification.actions = {{stopAction, texts.stop}, {snoozeAction, filled(texts.snooze, snoozeTime.count())}};
    return notification;
}

}  // namespace quode
