// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "common/labels.h"

#include <array>
#include <optional>

#include "astro/prayer.h"
#include "common/GlobalFuncs.h"
#include "common/numbers.h"
#include "texts/translation.h"

namespace quode {
namespace {

// Translators: the names of the prayers are those in common use; the last three are further times of the day.
constexpr std::array<const char*, 9> prayers{N_("Fajr"),   N_("Sunrise"),      N_("Dhuhr"),
                                             N_("Asr"),    N_("Maghrib"),      N_("Isha"),
                                             N_("Ishraq"), N_("Asr al-Thani"), N_("Isfirar al-Shams")};

constexpr std::array<const char*, 12> hijriMonths{N_("Muharram"),      N_("Safar"),         N_("Rabi al-Awwal"),
                                                  N_("Rabi al-Thani"), N_("Jumada al-Ula"), N_("Jumada al-Akhirah"),
                                                  N_("Rajab"),         N_("Sha’ban"),       N_("Ramadan"),
                                                  N_("Shawwal"),       N_("Dhu al-Qa’dah"), N_("Dhu al-Hijjah")};

template <std::size_t size>
const char* entry(const std::array<const char*, size>& texts, int index) {
    return index >= 0 && index < static_cast<int>(size) ? texts[static_cast<std::size_t>(index)] : nullptr;
}

bool packSpeaksOurLanguage(const GlobalFuncs& services) {
    return languageName(services.languageId()) == languageInUse();
}

}  // namespace

std::string prayerLabel(const GlobalFuncs& services, int code) {
    const auto own = packSpeaksOurLanguage(services) ? services.GetTextPrayLabels(code) : std::nullopt;
    if (own) return *own;
    const char* name = entry(prayers, code - firstPrayer);
    return _(name != nullptr ? name : "Prayer time");
}

std::string hijriMonthLabel(const GlobalFuncs& services, int month) {
    const auto own = packSpeaksOurLanguage(services) ? services.GetTextHijriMonth(month) : std::nullopt;
    if (own) return *own;
    const char* name = entry(hijriMonths, month - 1);
    return name != nullptr ? _(name) : std::to_string(month);
}

std::string decimalText(double value, int places, std::string_view decimalMark, bool withSign) {
    std::string text = fixedText(value, places);
    if (withSign && !text.starts_with('-')) text.insert(0, "+");
    if (places > 0) text.replace(text.find('.'), 1, decimalMark);
    return text;
}

std::string durationLabel(std::chrono::minutes duration) {
    const auto hours = duration.count() / 60;
    const auto minutes = duration.count() % 60;
    if (hours == 0) return _("{} min", minutes);
    return minutes == 0 ? _("{} h", hours) : _("{} h {} min", hours, minutes);
}

}  // namespace quode
