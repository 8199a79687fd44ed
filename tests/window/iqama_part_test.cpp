// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <QComboBox>
#include <QSpinBox>
#include <QTimeEdit>

#include "app/city_changes.h"
#include "fixture.h"

namespace quode::test {
namespace {

constexpr std::size_t fajr = 0, dhuhr = 2, maghrib = 4;
constexpr int none = 0, after = 1, fixed = 2;

class IqamaPart : public WindowTest {
  protected:
    IqamaPart() { open("timetable"); }

    IqamaRules stored() { return database().home()->city->choice.iqama; }

    // As a person does who has no mouse.
    void choose(const QString& prayer, int kind) {
        auto* const box = control<QComboBox>(prayer + ": the congregation");
        ASSERT_NE(box, nullptr);
        box->setFocus();
        QTest::keyClick(box, Qt::Key_Home);
        for (int step = 0; step < kind; ++step) QTest::keyClick(box, Qt::Key_Down);
        settle();
    }
};

TEST_F(IqamaPart, KnowsNoneAtFirst) {
    EXPECT_EQ(stored(), IqamaRules{});
    EXPECT_EQ(control<QComboBox>("Fajr: the congregation")->currentText(), "not known");
    EXPECT_FALSE(shows("today at"));
}

TEST_F(IqamaPart, TakesMinutesAfterTheTime) {
    choose("Fajr", after);
    auto* const minutes = control<QSpinBox>("Fajr: minutes from the time to the congregation");
    ASSERT_NE(minutes, nullptr);
    minutes->setFocus();
    minutes->selectAll();
    QTest::keyClicks(minutes, "25");
    settle();
    EXPECT_EQ(stored().at(fajr), (Iqama{false, 25}));
    EXPECT_TRUE(shows("today at 05:19")) << "the time is 04:54";
    EXPECT_EQ(stored().at(dhuhr), std::nullopt);
}

TEST_F(IqamaPart, TakesAFixedClockTime) {
    choose("Dhuhr", fixed);
    ASSERT_EQ(stored().at(dhuhr), (Iqama{true, 12 * 60 + 10})) << "begins a little after today's time";
    auto* const clock = control<QTimeEdit>("Dhuhr: clock time of the congregation");
    ASSERT_NE(clock, nullptr);
    clock->setFocus();
    clock->setCurrentSection(QDateTimeEdit::HourSection);
    QTest::keyClick(clock, Qt::Key_Up);
    settle();
    EXPECT_EQ(stored().at(dhuhr), (Iqama{true, 13 * 60 + 10}));
    EXPECT_TRUE(shows("today at 13:10"));
    clock->setTime(QTime(11, 0));
    settle();
    EXPECT_TRUE(shows("not today: it would be before the time"));
}

TEST_F(IqamaPart, KeepsTheOrderOfAClockInLanguagesFromRightToLeft) {
    shown.reset();
    QApplication::setLayoutDirection(Qt::RightToLeft);
    open("timetable");
    choose("Dhuhr", fixed);
    const auto* const clock = control<QTimeEdit>("Dhuhr: clock time of the congregation");
    QApplication::setLayoutDirection(Qt::LeftToRight);
    ASSERT_NE(clock, nullptr);
    EXPECT_EQ(clock->text(), "12:10");
}

TEST_F(IqamaPart, ForgetsWhatWasChosen) {
    choose("Maghrib", after);
    EXPECT_TRUE(stored().at(maghrib).has_value());
    choose("Maghrib", none);
    EXPECT_EQ(stored(), IqamaRules{});
}

TEST_F(IqamaPart, FollowsOtherPrograms) {
    app::chooseIqama(session, *database().home()->city, {int(Prayer::asr), int(Prayer::sunrise)}, Iqama{false, 7});
    shown->refreshSoon();
    settle();
    EXPECT_EQ(control<QSpinBox>("Asr: minutes from the time to the congregation")->value(), 7);
    EXPECT_EQ(stored().at(std::size_t(int(Prayer::sunrise) - firstPrayer)), std::nullopt);
}

TEST_F(IqamaPart, ComesBackWithARemovedCity) {
    choose("Fajr", after);
    const IqamaRules before = stored();
    const int id = database().home()->id;
    const int other = session.cities().named("Ankara").at(0).city.id;
    app::changeCities(session, [&](UserDatabase& database) { database.addCity(other); });
    const app::RemovedCity removed = app::removeCity(session, id);
    app::bringBack(session, removed);
    EXPECT_EQ(database().home()->id, id);
    EXPECT_EQ(stored(), before);
}

}  // namespace
}  // namespace quode::test
