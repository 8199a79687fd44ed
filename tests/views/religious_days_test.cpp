// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <chrono>
#include <map>

#include "common/hijri_table.h"
#include "views/Label.h"
#include "views/UIReligiousView.h"
#include "views_support.h"

namespace quode::test {
namespace {

using Entries = std::vector<std::string>;

constexpr Rect religiousFrame{0.0, 7.0, 320.0, 40.0};

// ---- expected entries, from the table of months alone

constexpr int firstYear = 1430;
constexpr int lastYear = 1470;

// The number of a day: increases by one at each midnight.
int dayNumber(int year, int month, int day) {
    const auto index = static_cast<std::size_t>(12 * (year - 1430) + month);
    return static_cast<int>(HijriFirstDayOfMonths[index] - 0.5) + day - 1;
}

std::chrono::sys_days gregorianDay(int number) {
    constexpr int numberOf1970 = 2440587;
    return std::chrono::sys_days(std::chrono::days(number - numberOf1970));
}

VAKDate gregorianDate(int number) {
    const std::chrono::year_month_day date(gregorianDay(number));
    return VAKDateMake(int(unsigned(date.day())), int(unsigned(date.month())), int(date.year()), 0, 0, 0);
}

// The entries of each day, by the number of their rule.
class Almanac {
  public:
    Almanac() {
        for (int year = firstYear; year <= lastYear; ++year) addYear(year);
        for (int number = dayNumber(firstYear, 1, 1); number < dayNumber(lastYear + 1, 1, 1); ++number) {
            const VAKDate date = gregorianDate(number);
            if (date.Months == 1 && date.Days == 1) add(2.0, number, "New Year " + std::to_string(date.Years));
            if (date.Months == 12 && date.Days == 31) {
                add(2.5, number, "Tomorrow: New Year " + std::to_string(date.Years + 1));
            }
        }
    }

    Entries entriesOf(int number) const {
        Entries entries;
        const auto day = days_.find(number);
        if (day == days_.end()) return entries;
        for (const auto& [rule, entry] : day->second) entries.push_back(entry);
        return entries;
    }

  private:
    void add(double rule, int number, const std::string& entry) { days_[number].emplace(rule, entry); }

    // The eves of 1430 and 1471 are left out: the table of months ends with 1470.
    void addWithEve(double rule, int number, const std::string& entry) {
        add(rule, number, entry);
        add(rule, number - 1, "Tomorrow: " + entry);
    }

    void addYear(int year) {
        addWithEve(1.0, dayNumber(year, 1, 1), "Islamic New Year " + std::to_string(year));
        addWithEve(3.0, dayNumber(year, 1, 10), "Day of Ashura");
        addWithEve(4.0, dayNumber(year, 3, 11), "Mawlid an-Nabi");
        int raghaib = dayNumber(year, 7, 1);
        while (std::chrono::weekday(gregorianDay(raghaib)) != std::chrono::Thursday) ++raghaib;
        addWithEve(5.0, raghaib, "Laylat al-Raghaib");
        addWithEve(6.0, dayNumber(year, 7, 26), "Laylat al-Mi’raj");
        addWithEve(7.0, dayNumber(year, 8, 14), "Laylat al-Bara’ah");
        addWithEve(8.0, dayNumber(year, 9, 26), "Laylat al-Qadr");
        for (int day = 1; day <= 3; ++day) {
            add(9.0, dayNumber(year, 10, day), "Eid al-Fitr, day " + std::to_string(day));
        }
        addFestivalEve(10.0, dayNumber(year, 10, 1) - 1, "Tomorrow: Eid al-Fitr");
        addWithEve(11.0, dayNumber(year, 12, 8), "Day of Tarwiyah");
        addWithEve(12.0, dayNumber(year, 12, 9), "Day of Arafah");
        for (int day = 1; day <= 4; ++day) {
            add(13.0, dayNumber(year, 12, 9 + day), "Eid al-Adha, day " + std::to_string(day));
        }
        addFestivalEve(14.0, dayNumber(year, 12, 9), "Tomorrow: Eid al-Adha");
    }

    void addFestivalEve(double rule, int number, const std::string& entry) {
        add(rule, number, entry);
        add(rule + 0.5, number, "Eid prayer : 06:30");
    }

    std::map<int, std::multimap<double, std::string>> days_;
};

City cityWithForenoon(double time) {
    City city;
    PrayTimes times;
    times.Duha = time;
    city.setPrayerTimes(times);
    return city;
}

class ReligiousDays : public ViewsTest {
  protected:
    Entries entriesOf(const VAKDate& hijri, const VAKDate& gregorian) {
        view.calculateReligiousDays(hijri, gregorian);
        return view.religiousDaysArray();
    }

    // A Gregorian day without entries: 14 May 2026, a Thursday, and the day after.
    const VAKDate thursday = VAKDateMake(14, 5, 2026, 0, 0, 0);
    const VAKDate friday = VAKDateMake(15, 5, 2026, 0, 0, 0);

    static VAKDate hijri(int day, int month, int year) { return VAKDateMake(day, month, year, 0, 0, 0); }

    std::string log() const {
        const auto file = device.files->contents.find("/data/QuodeLog.txt");
        return file == device.files->contents.end() ? "" : file->second;
    }

    UIReligiousView view{religiousFrame};
};

TEST_F(ReligiousDays, AreFoundOnEveryDayOf41YearsInTheirOrder) {
    const Almanac almanac;
    view.setUserCities({cityWithForenoon(6.5)});
    view.setCurrentCityId(0);
    int days = 0;
    int found = 0;
    for (int year = firstYear; year <= lastYear; ++year) {
        for (int month = 1; month <= 12; ++month) {
            const int next = month < 12 ? dayNumber(year, month + 1, 1) : dayNumber(year + 1, 1, 1);
            const int length = next - dayNumber(year, month, 1);
            for (int day = 1; day <= length; ++day, ++days) {
                const int number = dayNumber(year, month, day);
                const Entries entries = entriesOf(hijri(day, month, year), gregorianDate(number));
                ASSERT_EQ(almanac.entriesOf(number), entries) << day << "/" << month << "/" << year;
                found += static_cast<int>(entries.size());
            }
        }
    }
    EXPECT_EQ(dayNumber(lastYear + 1, 1, 1) - dayNumber(firstYear, 1, 1), days);
    EXPECT_GT(found, 41 * 30);
}

TEST_F(ReligiousDays, OnTheLastOfDecemberHoldOnlyTheEveOfTheNewYear) {
    EXPECT_EQ(Entries{"Tomorrow: New Year 2027"}, entriesOf(hijri(21, 7, 1448), VAKDateMake(31, 12, 2026, 0, 0, 0)));
    EXPECT_EQ(Entries{"New Year 2027"}, entriesOf(hijri(22, 7, 1448), VAKDateMake(1, 1, 2027, 0, 0, 0)));
}

TEST_F(ReligiousDays, OnTheEveOfShawwalWithoutCitiesNameTheFestivalAlone) {
    const int last = dayNumber(1447, 10, 1) - dayNumber(1447, 9, 1);
    EXPECT_EQ(Entries{"Tomorrow: Eid al-Fitr"}, entriesOf(hijri(last, 9, 1447), friday));
}

TEST_F(ReligiousDays, OnTheDayOfArafahTellOfTheFestivalToo) {
    view.setUserCities({cityWithForenoon(7.25)});
    view.setCurrentCityId(0);
    EXPECT_EQ((Entries{"Day of Arafah", "Tomorrow: Eid al-Adha", "Eid prayer : 07:15"}),
              entriesOf(hijri(9, 12, 1447), friday));
}

TEST_F(ReligiousDays, TellTheFestivalPrayerOfTheCityShown) {
    view.setUserCities({cityWithForenoon(7.25), cityWithForenoon(5.5)});
    view.setCurrentCityId(1);
    EXPECT_EQ("Eid prayer : 05:30", entriesOf(hijri(9, 12, 1447), friday).back());
    device.locale->pattern = "h a";
    globalFuncs.getTimeFormat();
    EXPECT_EQ("Eid prayer : " + globalFuncs.timeLeadingZero(5.5), entriesOf(hijri(9, 12, 1447), friday).back());
}

TEST_F(ReligiousDays, ShowDashesForAFestivalPrayerThatDoesNotExist) {
    view.setUserCities({cityWithForenoon(-1.0)});
    view.setCurrentCityId(0);
    EXPECT_EQ("Eid prayer : --:--", entriesOf(hijri(9, 12, 1447), friday).back());
}

TEST_F(ReligiousDays, CountTheDaysOfTheFestivals) {
    EXPECT_EQ(Entries{"Eid al-Fitr, day 3"}, entriesOf(hijri(3, 10, 1447), friday));
    EXPECT_TRUE(entriesOf(hijri(4, 10, 1447), friday).empty());
    EXPECT_EQ(Entries{"Eid al-Adha, day 1"}, entriesOf(hijri(10, 12, 1447), friday));
    EXPECT_EQ(Entries{"Eid al-Adha, day 4"}, entriesOf(hijri(13, 12, 1447), friday));
    EXPECT_TRUE(entriesOf(hijri(14, 12, 1447), friday).empty());
}

TEST_F(ReligiousDays, TakeTheNightOfRaghaibFromTheFirstThursday) {
    EXPECT_EQ(Entries{"Laylat al-Raghaib"}, entriesOf(hijri(7, 7, 1447), thursday));
    EXPECT_EQ(Entries{}, entriesOf(hijri(8, 7, 1447), thursday));
    EXPECT_EQ(Entries{}, entriesOf(hijri(7, 8, 1447), thursday));
}

TEST_F(ReligiousDays, ForgetTheDayBefore) {
    EXPECT_EQ(1U, entriesOf(hijri(10, 1, 1447), friday).size());
    EXPECT_TRUE(entriesOf(hijri(20, 1, 1447), friday).empty());
}

TEST_F(ReligiousDays, AreFewOutsideTheTableOfMonths) {
    EXPECT_EQ(Entries{"Day of Ashura"}, entriesOf(hijri(10, 1, 1500), friday));
    EXPECT_EQ(Entries{}, entriesOf(VAKDate{-1, -1, -1}, friday));
}

TEST_F(ReligiousDays, SpeakTheLanguageChosen) {
    speak("tr");
    EXPECT_EQ(Entries{"Yarın: Aşure Günü"}, entriesOf(hijri(9, 1, 1447), friday));
}

TEST_F(ReligiousDays, EndBeforeATextThatIsMissing) {
    std::string& pack = device.files->contents["/bundle/en.lproj/en.plist"];
    pack.replace(pack.find("<key>1052</key>"), 15, "<key>9052</key>");
    speak("en");
    EXPECT_EQ(Entries{"Day of Arafah"}, entriesOf(hijri(9, 12, 1447), friday));
    EXPECT_NE(std::string::npos, log().find("1052"));
}

TEST_F(ReligiousDays, EndBeforeATextThatDoesNotFitItsValue) {
    std::string& pack = device.files->contents["/bundle/en.lproj/en.plist"];
    pack.replace(pack.find("Eid prayer : %@"), 15, "Eid prayer : %d");
    speak("en");
    view.setUserCities({cityWithForenoon(7.25)});
    view.setCurrentCityId(0);
    EXPECT_EQ((Entries{"Day of Arafah", "Tomorrow: Eid al-Adha"}), entriesOf(hijri(9, 12, 1447), friday));
    EXPECT_NE(std::string::npos, log().find("Eid prayer"));
}

TEST_F(ReligiousDays, EndBeforeTheFestivalPrayerOfACityThatIsNotThere) {
    view.setUserCities({cityWithForenoon(7.25)});
    view.setCurrentCityId(-1);
    EXPECT_EQ((Entries{"Day of Arafah", "Tomorrow: Eid al-Adha"}), entriesOf(hijri(9, 12, 1447), friday));
}

TEST_F(ReligiousDays, AreShownOneBelowTheOther) {
    view.setUserCities({cityWithForenoon(7.25)});
    view.setCurrentCityId(0);
    view.calculateReligiousDays(hijri(9, 12, 1447), friday);
    view.showReligiousDays();
    EXPECT_EQ((Rect{0.0, 7.0, 320.0, 120.0}), view.frame());
    const QList<Label*> labels = view.findChildren<Label*>();
    ASSERT_EQ(3, labels.size());
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ((Rect{65.0, 40.0 * i, 255.0, 40.0}), labels[i]->frame());
        EXPECT_EQ(view.religiousDaysArray()[static_cast<std::size_t>(i)], labels[i]->text());
        EXPECT_EQ(17.0, labels[i]->fontSize());
        EXPECT_EQ("Verdana", labels[i]->fontName());
        EXPECT_EQ(alignCenter, labels[i]->textAlign());
        EXPECT_EQ(globalFuncs.firstColor(), labels[i]->textColor());
        EXPECT_FALSE(labels[i]->isHidden());
        EXPECT_FALSE(labels[i]->shadow());
        EXPECT_EQ(0, labels[i]->tag());
    }
    EXPECT_EQ((Entries{"Religious days", "Day of Arafah", "Tomorrow: Eid al-Adha", "Eid prayer : 07:15"}),
              spokenNames(view));
}

TEST_F(ReligiousDays, TakeNoHeightWhenThereAreNone) {
    view.calculateReligiousDays(hijri(20, 1, 1447), friday);
    view.showReligiousDays();
    EXPECT_EQ((Rect{0.0, 7.0, 320.0, 0.0}), view.frame());
    EXPECT_TRUE(view.findChildren<Label*>().isEmpty());
}

TEST_F(ReligiousDays, LeaveTheLabelsOfAnEarlierCall) {
    view.setReligiousDaysArray({"One", "Two"});
    view.showReligiousDays();
    view.showReligiousDays();
    EXPECT_EQ(4, view.findChildren<Label*>().size());
    EXPECT_EQ(80.0, view.frame().height);
}

}  // namespace
}  // namespace quode::test
