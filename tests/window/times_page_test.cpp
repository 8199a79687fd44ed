// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <QComboBox>
#include <QSpinBox>
#include <QWheelEvent>

#include "fixture.h"
#include "window/TimetablePage.h"

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
    press("Restore");
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

TEST_F(TimesPage, DrawsNothingBeyondTheRoundCornersOfAField) {
    auto* const minutes = control<QSpinBox>(QString::fromStdString(session.prayerName(200)) + ": your minutes");
    QImage picture(minutes->size(), QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    minutes->render(&picture, {}, {}, QWidget::DrawChildren);
    EXPECT_EQ(qAlpha(picture.pixel(0, 0)), 0);
    EXPECT_EQ(qAlpha(picture.pixel(picture.width() - 1, picture.height() - 1)), 0);
    EXPECT_GT(qAlpha(picture.pixel(picture.rect().center())), 0);
}

// Somebody scrolls, and the pointer happens to be over a control.
TEST_F(TimesPage, LeavesTheWheelToThePageWhereAControlHasNoKeyboard) {
    const auto takesWheel = [](QWidget* over) {
        const QPointF middle = over->rect().center();
        QWheelEvent turn(middle, over->mapToGlobal(middle), {}, QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                         Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(over, &turn);
        settle();
        return turn.isAccepted();
    };
    auto* const minutes = control<QSpinBox>(QString::fromStdString(session.prayerName(200)) + ": your minutes");
    control<QComboBox>("Asr")->setFocus();
    EXPECT_FALSE(takesWheel(control<QComboBox>("Method")));
    EXPECT_FALSE(takesWheel(minutes));
    EXPECT_NE(minutes->focusPolicy(), Qt::WheelFocus);
    EXPECT_TRUE(stored().isDefault());
    minutes->setFocus();
    EXPECT_TRUE(takesWheel(minutes));
    EXPECT_EQ(stored().adjust.at(0), -1);
}

TEST_F(WindowTest, TheTimetablePageMakesAllFormats) {
    open("timetable");
    auto* const page = shown->findChild<window::TimetablePage*>();
    ASSERT_NE(page, nullptr);
    EXPECT_EQ(page->bytes(app::TimetableFormat::html).find("<!DOCTYPE html>"), 0U);
    const std::string calendar = page->bytes(app::TimetableFormat::ics);
    EXPECT_EQ(calendar.find("BEGIN:VCALENDAR"), 0U);
    std::size_t events = 0;
    for (std::size_t at = calendar.find("BEGIN:VEVENT"); at != std::string::npos;
         at = calendar.find("BEGIN:VEVENT", at + 1)) {
        ++events;
    }
    EXPECT_EQ(events, 30U * 6U) << "November has 30 days with six times";
    EXPECT_FALSE(button("The whole year on one page")->isEnabled()) << "of a month there is no year sheet";
}

}  // namespace
}  // namespace quode::test
