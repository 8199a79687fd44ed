// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "views/religious_days.h"

#include <stdexcept>

#include "common/calendar.h"
#include "common/text_format.h"

namespace quode {
namespace {

enum Key : std::int32_t {
    hijriNewYear = 1041,
    ashura = 1042,
    mawlid = 1043,
    raghaib = 1044,
    miraj = 1045,
    baraah = 1046,
    qadr = 1047,
    eveOfFitr = 1048,
    dayOfFitr = 1049,
    tarwiyah = 1050,
    arafah = 1051,
    eveOfAdha = 1052,
    dayOfAdha = 1053,
    festivalPrayerTime = 1054,
    gregorianNewYear = 1055,
    eve = 1056,
};

enum HijriMonth { muharram = 1, rabiAlAwwal = 3, rajab = 7, shaban = 8, ramadan = 9, shawwal = 10, dhuAlHijjah = 12 };

constexpr int thursday = 4;

bool isDay(const VAKDate& date, int day, int month) {
    return date.Days == day && date.Months == month;
}

// The Hijri date of the next day.
VAKDate following(const VAKDate& hijri) {
    return calendar::JulianToHijri(calendar::HijriDateToJulian(hijri) + 1.0);
}

class Entries {
  public:
    Entries(const ReligiousDaysInput& input, std::vector<std::string>& list)
        : input_(input), today_(input.hijri), tomorrow_(following(input.hijri)), list_(list) {}

    void addAll() {
        addHijriNewYear();
        addGregorianNewYear();
        addDayOrEve(10, muharram, ashura);
        addDayOrEve(11, rabiAlAwwal, mawlid);
        addRaghaib();
        addDayOrEve(26, rajab, miraj);
        addDayOrEve(14, shaban, baraah);
        addDayOrEve(26, ramadan, qadr);
        addFestivalDay(1, 3, shawwal, dayOfFitr);
        addFestivalEve(1, shawwal, eveOfFitr);
        addDayOrEve(8, dhuAlHijjah, tarwiyah);
        addDayOrEve(9, dhuAlHijjah, arafah);
        addFestivalDay(10, 13, dhuAlHijjah, dayOfAdha);
        addFestivalEve(10, dhuAlHijjah, eveOfAdha);
    }

  private:
    std::string text(Key key) const {
        std::optional<std::string> found = input_.text(key);
        if (!found) throw std::runtime_error("The language pack has no text " + std::to_string(key) + ".");
        return *std::move(found);
    }

    std::string filled(Key key, const FormatValue& value) const { return filledFormat(text(key), {value}); }

    void add(std::string entry) { list_.push_back(std::move(entry)); }
    void addEve(const std::string& day) { add(text(eve) + " " + day); }

    void addHijriNewYear() {
        if (isDay(today_, 1, muharram)) {
            add(filled(hijriNewYear, today_.Years));
        } else if (isDay(tomorrow_, 1, muharram)) {
            addEve(filled(hijriNewYear, tomorrow_.Years));
        }
    }

    void addGregorianNewYear() {
        if (isDay(input_.gregorian, 1, 1)) add(filled(gregorianNewYear, input_.gregorian.Years));
        if (isDay(input_.gregorian, 31, 12)) addEve(filled(gregorianNewYear, input_.gregorian.Years + 1));
    }

    void addDayOrEve(int day, HijriMonth month, Key key) {
        if (isDay(today_, day, month)) {
            add(text(key));
        } else if (isDay(tomorrow_, day, month)) {
            addEve(text(key));
        }
    }

    // The first Thursday of Rajab.
    void addRaghaib() {
        const VAKDate& date = input_.gregorian;
        if (isInFirstWeekOfRajab(today_) &&
            calendar::DayOfWeekWithYear(date.Years, date.Months, date.Days) == thursday) {
            add(text(raghaib));
        } else if (isInFirstWeekOfRajab(tomorrow_) &&
                   calendar::DayOfHijriWeekWithYear(tomorrow_.Years, tomorrow_.Months, tomorrow_.Days) == thursday) {
            addEve(text(raghaib));
        }
    }

    static bool isInFirstWeekOfRajab(const VAKDate& date) { return date.Months == rajab && date.Days <= 7; }

    void addFestivalDay(int first, int last, HijriMonth month, Key key) {
        if (today_.Months == month && today_.Days >= first && today_.Days <= last) {
            add(filled(key, today_.Days - first + 1));
        }
    }

    void addFestivalEve(int day, HijriMonth month, Key key) {
        if (!isDay(tomorrow_, day, month)) return;
        add(text(key));
        const std::optional<std::string> time = input_.festivalPrayer();
        if (time) add(filled(festivalPrayerTime, std::string_view(*time)));
    }

    const ReligiousDaysInput& input_;
    VAKDate today_;
    VAKDate tomorrow_;
    std::vector<std::string>& list_;
};

}  // namespace

void addReligiousDays(const ReligiousDaysInput& input, std::vector<std::string>& entries) {
    Entries(input, entries).addAll();
}

}  // namespace quode
