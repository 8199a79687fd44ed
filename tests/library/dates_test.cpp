// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Hijri dates and the qibla by the library.
#include <gtest/gtest.h>
#include <quode/quode.h>

namespace {

using namespace std::chrono;
using quode::HijriCalendar;
using quode::HijriDate;

TEST(LibraryHijri, KnowsThePublishedUmmAlQuraDates) {
    // Announced beginnings of years and of Ramadan of the Umm al-Qura calendar.
    EXPECT_EQ(quode::hijriDate(2024y / 7 / 7, HijriCalendar::ummAlQura), (HijriDate{1446, 1, 1}));
    EXPECT_EQ(quode::hijriDate(2025y / 3 / 1, HijriCalendar::ummAlQura), (HijriDate{1446, 9, 1}));
    EXPECT_EQ(quode::hijriDate(2025y / 6 / 26, HijriCalendar::ummAlQura), (HijriDate{1447, 1, 1}));
}

TEST(LibraryHijri, KnowsTheFirstDayOfTheTable) {
    EXPECT_EQ(quode::hijriDate(2008y / 11 / 29), (HijriDate{1429, 12, 1}));
    EXPECT_EQ(quode::hijriDate(2008y / 11 / 28), std::nullopt);
    EXPECT_EQ(quode::hijriDate(2048y / 10 / 8)->year, 1470);
    EXPECT_EQ(quode::hijriDate(2048y / 10 / 9), std::nullopt);
}

TEST(LibraryHijri, LeadsBackToEveryDay) {
    const auto check = [](sys_days first, sys_days last, HijriCalendar calendar) {
        for (sys_days day = first; day <= last; day += days(1)) {
            const auto hijri = quode::hijriDate(day, calendar);
            ASSERT_TRUE(hijri);
            ASSERT_EQ(quode::gregorianDate(*hijri, calendar), year_month_day(day));
        }
    };
    check(2008y / 11 / 29, 2048y / 10 / 8, HijriCalendar::table);
    check(1900y / 1 / 1, 2170y / 1 / 1, HijriCalendar::ummAlQura);
}

TEST(LibraryHijri, HasNoImpossibleDates) {
    for (const HijriDate date :
         {HijriDate{1447, 13, 1}, {1447, 0, 1}, {1447, 1, 0}, {1447, 1, 32}, {-5, 1, 1}, {1500, 1, 1}}) {
        EXPECT_EQ(quode::gregorianDate(date), std::nullopt);
    }
    EXPECT_EQ(quode::hijriDate(2026y / 2 / 30), std::nullopt);
    quode_date hijri{};
    EXPECT_EQ(quode_hijri_of({2026, 11, 21}, 7, &hijri), 0);
}

TEST(LibraryQibla, IsThePublishedDirection) {
    EXPECT_NEAR(quode::qibla(51.5085, -0.1257).bearing, 119.0, 0.1);   // London
    EXPECT_NEAR(quode::qibla(40.7143, -74.006).bearing, 58.48, 0.05);  // New York
    EXPECT_NEAR(quode::qibla(-6.2146, 106.8451).bearing, 295.1, 0.1);  // Jakarta
    EXPECT_NEAR(quode::qibla(quode::findPlace("London")).distanceKm, 4794.0, 5.0);
    EXPECT_THROW(quode::qibla(91.0, 0.0), quode::Error);
}

}  // namespace
