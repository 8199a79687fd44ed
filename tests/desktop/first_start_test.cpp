// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include "app/first_start.h"
#include "desktop/CityFinder.h"
#include "desktop/FirstStartDialog.h"
#include "window/fixture.h"

namespace quode::test {
namespace {

class FirstStart : public WindowTest {
  protected:
    FirstStart() { dialog.show(); }

    QCheckBox& box(int code) { return *dialog.findChildren<QCheckBox*>().at(code - 200); }

    FirstStartDialog dialog{session, app::cityToAskAbout(session).value(), nullptr};
};

TEST_F(FirstStart, AsksAboutTheGuessOnce) {
    EXPECT_EQ(app::cityToAskAbout(session)->name, "Kathmandu");
    app::skipQuestion(session);
    EXPECT_FALSE(app::cityToAskAbout(session));
    EXPECT_TRUE(database().home()->isGuess) << "who skips has chosen nothing";
}

TEST_F(FirstStart, ReturnKeepsTheCity) {
    QTest::keyClick(&dialog, Qt::Key_Return);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    app::takeAnswer(session, dialog.answer());
    EXPECT_FALSE(database().home()->isGuess);
    EXPECT_EQ(database().home()->city->name, "Kathmandu");
    for (const UserAlarm& alarm : database().alarms()) EXPECT_FALSE(alarm.isOn);
}

TEST_F(FirstStart, ClaimsNothingOfAZoneWithoutACity) {
    FirstStartDialog other(session, session.cities().city(fallbackCity).value(), nullptr);
    other.show();
    bool saysSo = false;
    for (const QLabel* const label : other.findChildren<QLabel*>()) {
        if (!label->isVisible()) continue;
        saysSo = saysSo || label->text().contains("has no city");
        EXPECT_FALSE(label->text().contains("according to the time zone")) << label->text().toStdString();
        EXPECT_FALSE(label->text().contains("Usual in your country")) << label->text().toStdString();
    }
    EXPECT_TRUE(saysSo);
}

TEST_F(FirstStart, TakesAnotherCityItsAlarmsAndItsMethod) {
    QTest::keyClicks(&dialog.findChild<CityFinder*>()->field(), "ankara");
    box(200).setChecked(true);
    box(204).setChecked(true);
    auto* const method = dialog.findChildren<QCheckBox*>().at(6);
    EXPECT_TRUE(method->isVisible());
    EXPECT_FALSE(method->isChecked()) << "nothing is switched for the user";
    method->setChecked(true);
    app::takeAnswer(session, dialog.answer());
    const UserCity home = *database().home();
    EXPECT_EQ(home.city->name, "Ankara");
    EXPECT_EQ(home.city->choice.method.key, "diyanet");
    EXPECT_EQ(database().cities().size(), 1U) << "the guess goes";
    EXPECT_TRUE(database().alarm(200).isOn);
    EXPECT_TRUE(database().alarm(204).isOn);
    EXPECT_FALSE(database().alarm(202).isOn);
    EXPECT_FALSE(app::cityToAskAbout(session));
}

}  // namespace
}  // namespace quode::test
