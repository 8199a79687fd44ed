// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <QComboBox>
#include <QSpinBox>

#include "fixture.h"

namespace quode::test {
namespace {

class TimesPage : public WindowTest {
  protected:
    TimesPage() { open("times"); }

    conventions::Method stored() { return database().home()->city->choice.method; }

    void choose(const QString& box, const QVariant& value) {
        auto* const found = control<QComboBox>(box);
        ASSERT_NE(found, nullptr);
        ASSERT_GE(found->findData(value), 0);
        found->setCurrentIndex(found->findData(value));
        Q_EMIT found->activated(found->currentIndex());
        settle();
    }
};

TEST_F(TimesPage, BeginsWithTheDefault) {
    EXPECT_EQ(control<QComboBox>("Method")->currentData(), "quode");
    EXPECT_EQ(control<QComboBox>("Method")->findData("quode"), 0);
    EXPECT_FALSE(control<QComboBox>("Where the Sun does not sink far enough")->isEnabled());
    EXPECT_TRUE(shows("Sun 19° and 17° below the horizon"));
}

TEST_F(TimesPage, TellsTheRuleOfAMethodInWords) {
    choose("Method", "mwl");
    EXPECT_EQ(stored().key, "mwl");
    EXPECT_TRUE(shows("The Sun is 18° below the horizon."));
    EXPECT_TRUE(shows("The Sun is 17° below the horizon."));
    choose("Asr", 2);
    EXPECT_EQ(stored().asrFactor, 2);
    EXPECT_TRUE(shows("2 times the length"));
}

TEST_F(TimesPage, MarksMinutesOfOnesOwn) {
    EXPECT_FALSE(shows("adjusted by you"));
    const QString isha = QString::fromStdString(session.prayerName(205));
    control<QSpinBox>(isha + ": your minutes")->setValue(3);
    settle();
    EXPECT_EQ(stored().adjust.at(5), 3);
    EXPECT_TRUE(shows("adjusted by you"));
    press("Back to before");
    EXPECT_TRUE(stored().isDefault());
    EXPECT_FALSE(shows("adjusted by you"));
    EXPECT_EQ(control<QSpinBox>(isha + ": your minutes")->value(), 0);
}

TEST_F(TimesPage, NamesTheAuthorityOfTheCountryAndSwitchesNothing) {
    database().addCity(session.cities().named("Ankara").at(0).city.id);
    database().chooseHome(session.cities().named("Ankara").at(0).city.id);
    shown->refreshSoon();
    settle();
    EXPECT_TRUE(shows("Usual in this country: Diyanet"));
    EXPECT_TRUE(stored().isDefault());
}

}  // namespace
}  // namespace quode::test
