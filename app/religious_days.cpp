// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/religious_days.h"

#include <algorithm>
#include <array>

#include "texts/translation.h"

namespace quode::app {
namespace {

enum HijriMonth { muharram = 1, rabiAlAwwal = 3, rajab = 7, shaban = 8, ramadan = 9, shawwal = 10, dhuAlHijjah = 12 };

struct FixedDay {
    int month, day;
    const char* name;
};

constexpr std::array<FixedDay, 8> fixedDays{{
    {muharram, 10, N_("Day of Ashura")},
    {rabiAlAwwal, 11, N_("Mawlid an-Nabi")},
    {rajab, 26, N_("Laylat al-Mi’raj")},
    {shaban, 14, N_("Laylat al-Bara’ah")},
    {ramadan, 1, N_("Beginning of Ramadan")},
    {ramadan, 26, N_("Laylat al-Qadr")},
    {dhuAlHijjah, 8, N_("Day of Tarwiyah")},
    {dhuAlHijjah, 9, N_("Day of Arafah")},
}};

constexpr int thursday = 4;
constexpr int lastDayOfFitr = 3, firstDayOfAdha = 10, lastDayOfAdha = 13;

}  // namespace

std::optional<std::string> religiousDay(const VAKDate& hijri, int weekday) {
    const int month = hijri.Months, day = hijri.Days;
    if (month == muharram && day == 1) return _("Islamic New Year {}", hijri.Years);
    if (month == shawwal && day <= lastDayOfFitr) return _("Eid al-Fitr, day {}", day);
    if (month == dhuAlHijjah && day >= firstDayOfAdha && day <= lastDayOfAdha) {
        return _("Eid al-Adha, day {}", day - firstDayOfAdha + 1);
    }
    if (month == rajab && day <= 7 && weekday == thursday) return _("Laylat al-Raghaib");
    const auto* const found =
        std::ranges::find_if(fixedDays, [&](const FixedDay& each) { return each.month == month && each.day == day; });
    if (found == fixedDays.end()) return std::nullopt;
    return _(found->name);
}

}  // namespace quode::app
