// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The real widget in its panel, on the files of a user.
#include <gtest/gtest.h>

#include <QApplication>
#include <QPointer>
#include <QSet>
#include <QTest>
#include <fstream>

#include "companion/UserDatabase.h"
#include "data/user_places.h"
#include "host/HomeWatch.h"
#include "host/Panel.h"
#include "host/WidgetBundle.h"
#include "host/fake_widget.h"
#include "host/user_choices.h"
#include "support/environment_of.h"
#include "support/fake_platform.h"
#include "support/temporary_folder.h"
#include "views/UIButtonX.h"
#include "views/UITimesView.h"

namespace quode::test {
namespace {

constexpr int ankara = 323786;
constexpr int istanbul = 745044;
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
    panel->present({700, 780});
    const QRect before = window.geometry();
    for (UIButtonX* const button : window.findChildren<UIButtonX*>()) {
        if (button->tag() == tagCityInfo) button->tap();
    }
    EXPECT_EQ(window.height(), before.height() + 280);
    EXPECT_EQ(window.geometry().bottom(), before.bottom());
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
    Q_EMIT watch.stirred();
    EXPECT_EQ(timeShown(*widget->view(), 200), "06:07");
}

TEST_F(RealWidget, ShowsTheCityThatIsMadeHomeElsewhereAndStaysAsItIsOtherwise) {
    host::HomeWatch homeWatch(std::make_unique<FakeWatch>(),
                              host::systemMomentWatch(session.deviceClock(), {userDatabaseFile(session.dataFolder())}),
                              [this] { return host::homeNumber(session); });
    panel = std::make_unique<host::Panel>(*widget, window, session.deviceClock(), homeWatch, [] {});
    panel->present({0, 0});
    const QPointer<QWidget> before = widget->view();
    alarmButton(*widget->view(), ikindi)->tap();
    QTest::qWait(100);
    EXPECT_EQ(widget->view(), before);

    open().addCity(ankara);
    open().chooseHome(ankara);
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
