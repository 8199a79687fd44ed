// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The real widget in its panel, on the files of a user.
#include <gtest/gtest.h>

#include <QApplication>
#include <QPointer>
#include <QScrollArea>
#include <QScrollBar>
#include <QSet>
#include <QTest>
#include <fstream>

#include "alarms/DatabaseFunctions.h"
#include "common/color_schemes.h"
#include "companion/UserDatabase.h"
#include "data/user_places.h"
#include "desktop/theme.h"
#include "host/HomeWatch.h"
#include "host/Panel.h"
#include "host/RowMarks.h"
#include "host/WidgetBundle.h"
#include "host/fake_widget.h"
#include "host/places.h"
#include "host/user_choices.h"
#include "support/environment_of.h"
#include "support/fake_platform.h"
#include "support/temporary_folder.h"
#include "views/MessageView.h"
#include "views/UIButtonX.h"
#include "views/UITimesView.h"
#include "views/contrast.h"

namespace quode::test {
namespace {

constexpr int ankaraId = 323786;
constexpr int ikindi = 203;

class RealWidget : public testing::Test {
  protected:
    RealWidget() {
        session.setCalendar(calendar);
        session.services();
        host::makeUserDatabase(session, *session.cities().city(istanbul));
        open().setUpAlarm(ikindi, -10, "chime");
        widget = host::WidgetBundle(QUODE_TEST_BUNDLE).makeWidget();
        panel = std::make_unique<host::Panel>(*widget, window, session.deviceClock(), watch, [] {});
    }

    UserDatabase open() { return UserDatabase(folder.path(), session.cities(), session.deviceClock()); }

    std::string calendarFile() const {
        std::ifstream file(folder.path() / "Quode.ics");
        return std::string(std::istreambuf_iterator<char>(file), {});
    }

    static UIButtonX* alarmButton(const QWidget& view, int code) {
        for (const auto* row : view.findChildren<UITimesView*>()) {
            if (row->tag() == code) return row->buttonAlarmOnOff();
        }
        return nullptr;
    }

    static std::string timeShown(const QWidget& view, int code) {
        for (const auto* row : view.findChildren<UITimesView*>()) {
            if (row->tag() == code) return row->labelPrayTime()->text();
        }
        return "";
    }

    UIButtonX* buttonTagged(int tag) const {
        for (UIButtonX* const button : widget->view()->findChildren<UIButtonX*>()) {
            if (button->tag() == tag) return button;
        }
        return nullptr;
    }

    TemporaryFolder folder;
    std::shared_ptr<UserEventStore> calendar = std::make_shared<UserEventStore>(folder.path(), CalendarLayout::ics);
    app::Session session{environmentOf({{"QUODE_DATA_DIR", folder.path().string()},
                                        {"QUODE_BUNDLE_DIR", QUODE_TEST_BUNDLE},
                                        {"QUODE_NOW", "2026-11-21T04:00:00Z"}}),
                         {}};
    std::unique_ptr<WidgetViewController> widget;
    host::PanelWindow window{host::PanelStyle::popover, true};
    FakeWatch watch;
    std::unique_ptr<host::Panel> panel;
};

TEST_F(RealWidget, WritesAnAlarmToTheDatabaseAndTheCalendar) {
    panel->present({0, 0});

    UIButtonX* button = alarmButton(*widget->view(), ikindi);
    ASSERT_NE(button, nullptr);
    button->tap();
    const UserAlarm on = open().alarm(ikindi);
    EXPECT_TRUE(on.isOn);
    EXPECT_NE(on.eventIdentifier, "");
    // Ten minutes before 15:32 in Istanbul.
    EXPECT_NE(calendarFile().find("DTSTART:20261121T122200Z"), std::string::npos) << calendarFile();

    panel->dismiss();
    panel->present({0, 0});
    button = alarmButton(*widget->view(), ikindi);
    EXPECT_TRUE(button->selected());  // as it was left
    button->tap();
    EXPECT_FALSE(open().alarm(ikindi).isOn);
    EXPECT_EQ(calendarFile().find("BEGIN:VEVENT"), std::string::npos);
}

TEST_F(RealWidget, IsWorkedByTheTabKeyInTheOrderOfReading) {
    panel->present({0, 0});
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QStringList names;
    for (int press = 0; press < 9; ++press) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        const auto* const button = qobject_cast<UIButtonX*>(QApplication::focusWidget());
        ASSERT_NE(button, nullptr) << press;
        names << QString::fromStdString(button->spokenName());
    }
    EXPECT_TRUE(names[2].contains("Fajr") && names[5].contains("Asr") && names[7].contains("Isha"))
        << names.join("; ").toStdString();
    EXPECT_EQ(names[8], "Show all");
    EXPECT_EQ(QSet<QString>(names.begin(), names.end()).size(), 9);
}

TEST_F(RealWidget, MakesThePanelGrowWithItsRows) {
    panel->present({400, 10});
    const QRect before = window.geometry();
    buttonTagged(tagCityInfo)->tap();
    EXPECT_EQ(window.height(), before.height() + 280);
    EXPECT_EQ(window.geometry().topLeft(), before.topLeft());
}

TEST_F(RealWidget, IsPresentedWithTheRowsThatWereOpen) {
    panel->present({400, 10});
    const int closed = window.height();
    buttonTagged(tagCityInfo)->tap();
    panel->dismiss();
    EXPECT_EQ(panel->openRows(), (host::OpenRows{true, false}));
    panel->present({400, 10});
    EXPECT_EQ(window.height(), closed + 280);
    EXPECT_TRUE(buttonTagged(tagCityInfo)->selected());
    buttonTagged(tagCityInfo)->tap();
    panel->dismiss();

    panel->setOpenRows({true, true});  // as stored by an earlier run of the program
    panel->present({400, 10});
    EXPECT_TRUE(buttonTagged(tagCityInfo)->selected());
    EXPECT_TRUE(buttonTagged(tagShowAll)->selected());
    Q_EMIT watch.happened();  // the day changes
    EXPECT_TRUE(buttonTagged(tagCityInfo)->selected());
    EXPECT_TRUE(buttonTagged(tagShowAll)->selected());
}

TEST_F(RealWidget, StoresWhichRowsAreOpen) {
    EXPECT_EQ(host::rememberedRows(session), host::OpenRows{});
    EXPECT_EQ(host::rememberRows(session, {true, true}), "");
    EXPECT_EQ(host::rememberedRows(session), (host::OpenRows{true, true}));
    EXPECT_EQ(host::rememberRows(session, {false, true}), "");
    EXPECT_EQ(host::rememberedRows(session), (host::OpenRows{false, true}));
}

TEST_F(RealWidget, HasTheRowsOfThePresentAndTheNextPrayerMarked) {
    panel->setFacts([this] { return host::panelFacts(session); });
    panel->present({400, 10});
    const auto* marks = window.findChild<host::RowMarks*>();
    ASSERT_NE(marks, nullptr);
    // 07:00 in Istanbul, between dawn and sunrise: the rows at 40 and 80 points.
    ASSERT_TRUE(marks->currentMark() && marks->nextMark());
    EXPECT_EQ(marks->currentMark()->center().y(), 60.0);
    EXPECT_EQ(marks->nextMark()->center().y(), 100.0);
    buttonTagged(tagCityInfo)->tap();
    EXPECT_EQ(marks->currentMark()->center().y(), 340.0);
    const QImage picture = window.grab().toImage();
    const QPoint onBar = marks->mapTo(&window, marks->currentMark()->center().toPoint());
    EXPECT_EQ(picture.pixelColor(onBar), QColor(230, 226, 175));
}

TEST_F(RealWidget, ShowsTheAlarmsThatAreSwitchedElsewhereWithinASecond) {
    host::HomeWatch homeWatch(
        std::make_unique<FakeWatch>(),
        systemMomentWatch(session.deviceClock(), {userDatabaseFile(session.dataFolder())}),
        [this] { return host::shownChoices(session); }, std::chrono::milliseconds(150));
    panel = std::make_unique<host::Panel>(*widget, window, session.deviceClock(), homeWatch, [] {});
    QObject::connect(&homeWatch, &host::HomeWatch::otherChoicesWritten, panel.get(), [this] {
        if (const auto states = host::alarmStates(session)) panel->showAlarms(*states);
    });
    panel->present({0, 0});
    const QPointer<QWidget> before = widget->view();
    const UIButtonX* const bell = alarmButton(*widget->view(), ikindi);
    EXPECT_FALSE(bell->selected());
    DatabaseFunctions().reCalculateAlarm(ikindi);
    EXPECT_TRUE(QTest::qWaitFor([&] { return bell->selected() && bell->buttonShape() == 9; }, 1000));
    DatabaseFunctions().deleteAlarm(ikindi);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !bell->selected() && bell->buttonShape() == 10; }, 1000));
    EXPECT_EQ(widget->view(), before);
    panel.reset();
}

TEST_F(RealWidget, TakesAnotherColorSchemeAtOnce) {
    EXPECT_EQ(host::chosenColorScheme(session), 1);
    host::HomeWatch homeWatch(std::make_unique<FakeWatch>(),
                              systemMomentWatch(session.deviceClock(), {userDatabaseFile(session.dataFolder())}),
                              [this] { return host::shownChoices(session); });
    panel = std::make_unique<host::Panel>(*widget, window, session.deviceClock(), homeWatch, [this] {
        session.services().getSettings().uiControlColorId = host::chosenColorScheme(session);
        session.services().updateUIColors();
    });
    panel->present({0, 0});
    const auto nameColor = [&] { return widget->view()->findChild<UITimesView*>()->labelPrayName()->textColor(); };
    EXPECT_EQ(nameColor(), colorScheme(1)[0]);
    EXPECT_EQ(host::chooseColorScheme(session, 5), "");
    EXPECT_TRUE(QTest::qWaitFor([&] { return nameColor() == colorScheme(5)[0]; }, 1000));
    panel.reset();
}

TEST_F(RealWidget, ScrollsToAToastAndMakesItReadable) {
    session.services().getSettings().uiControlColorId = 5;  // its letters are too dark for the box
    session.services().updateUIColors();
    panel->setOpenRows({true, true});
    panel->present({400, 790});  // above the pointer, 392 points high at the most
    auto* const scroll = window.findChild<QScrollArea*>();
    window.resize(window.width(), 200);
    scroll->verticalScrollBar()->setValue(scroll->verticalScrollBar()->maximum());
    MessageView::toastInView(*widget->view(), "A message");
    const auto* const toast = widget->view()->findChild<MessageView*>();
    ASSERT_NE(toast, nullptr);
    const int middle = toast->mapTo(scroll->viewport(), QPoint(0, toast->height() / 2)).y();
    EXPECT_GT(middle, 20);
    EXPECT_LT(middle, scroll->viewport()->height() - 20);
    const Color card{cardColor.redF(), cardColor.greenF(), cardColor.blueF(), 1.0};
    EXPECT_GE(contrastRatio(toast->textLabel()->textColor(), over(MessageView::boxColor, card)), 4.5);
    MessageView::clearQueue();
}

TEST_F(RealWidget, ShowsTheTimesOfTheNewDayAfterMidnight) {
    const auto clock = std::make_shared<FixedClock>();
    clock->offset = std::chrono::hours(3);
    clock->show(2026, 11, 21, 23, 59, 59);
    Platform platform = session.services().platform();
    platform.clock = clock;
    panel.reset();
    GlobalFuncs::startUp(platform);
    widget = host::WidgetBundle(QUODE_TEST_BUNDLE).makeWidget();
    panel = std::make_unique<host::Panel>(*widget, window, *clock, watch, [] {});
    panel->present({0, 0});
    EXPECT_EQ(timeShown(*widget->view(), 200), "06:06");
    ASSERT_EQ(watch.moment, clock->now() + std::chrono::seconds(1));
    clock->show(2026, 11, 22, 0, 0, 0);
    Q_EMIT watch.happened();
    EXPECT_EQ(timeShown(*widget->view(), 200), "06:07");
}

TEST_F(RealWidget, ShowsTheCityThatIsMadeHomeElsewhereAndStaysAsItIsOtherwise) {
    host::HomeWatch homeWatch(std::make_unique<FakeWatch>(),
                              systemMomentWatch(session.deviceClock(), {userDatabaseFile(session.dataFolder())}),
                              [this] { return host::shownChoices(session); });
    panel = std::make_unique<host::Panel>(*widget, window, session.deviceClock(), homeWatch, [] {});
    panel->present({0, 0});
    const QPointer<QWidget> before = widget->view();
    alarmButton(*widget->view(), ikindi)->tap();
    QTest::qWait(100);
    EXPECT_EQ(widget->view(), before);

    open().addCity(ankaraId);
    open().chooseHome(ankaraId);
    EXPECT_TRUE(QTest::qWaitFor([&] { return timeShown(*widget->view(), 200) == "05:50"; }, 3000))
        << timeShown(*widget->view(), 200);
    panel.reset();
}

TEST_F(RealWidget, IsPresentedAHundredTimesWithoutGrowth) {
    const auto countAfter = [&](int times) {
        for (int time = 0; time < times; ++time) {
            panel->present({0, 0});
            panel->dismiss();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return QApplication::allWidgets().size();
    };
    const auto once = countAfter(1);
    EXPECT_EQ(countAfter(100), once);
}

}  // namespace
}  // namespace quode::test
