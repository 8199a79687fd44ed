// The alarm switches of the widget, on the files of a user.
#include <gtest/gtest.h>

#include <fstream>

#include "companion/UserDatabase.h"
#include "host/Panel.h"
#include "host/WidgetBundle.h"
#include "host/fake_widget.h"
#include "host/user_choices.h"
#include "support/environment_of.h"
#include "support/temporary_folder.h"
#include "views/UIButtonX.h"
#include "views/UITimesView.h"

namespace quode::test {
namespace {

constexpr int istanbul = 745044;
constexpr int ikindi = 203;

class AlarmSwitch : public testing::Test {
  protected:
    AlarmSwitch() {
        session.setCalendar(calendar);
        session.services();
        host::makeUserDatabase(session, *session.cities().city(istanbul));
        open().setUpAlarm(ikindi, -10, "chime");
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

    TemporaryFolder folder;
    std::shared_ptr<UserEventStore> calendar = std::make_shared<UserEventStore>(folder.path(), CalendarLayout::ics);
    cli::Session session{environmentOf({{"QUODE_DATA_DIR", folder.path().string()},
                                        {"QUODE_BUNDLE_DIR", QUODE_TEST_BUNDLE},
                                        {"QUODE_NOW", "2026-11-21T04:00:00Z"}}),
                         {}};
};

TEST_F(AlarmSwitch, WritesTheAlarmToTheDatabaseAndTheCalendar) {
    host::WidgetBundle bundle(QUODE_TEST_BUNDLE);
    const auto widget = bundle.makeWidget();
    host::PanelWindow window(host::PanelStyle::popover, true);
    FakeWatch watch;
    host::Panel panel(*widget, window, session.deviceClock(), watch, [] {});
    panel.present({0, 0});

    UIButtonX* button = alarmButton(*widget->view(), ikindi);
    ASSERT_NE(button, nullptr);
    button->tap();
    const UserAlarm on = open().alarm(ikindi);
    EXPECT_TRUE(on.isOn);
    EXPECT_NE(on.eventIdentifier, "");
    // Ten minutes before 15:32 in Istanbul.
    EXPECT_NE(calendarFile().find("DTSTART:20261121T122200Z"), std::string::npos) << calendarFile();

    panel.dismiss();
    panel.present({0, 0});
    button = alarmButton(*widget->view(), ikindi);
    EXPECT_TRUE(button->selected());  // as it was left
    button->tap();
    EXPECT_FALSE(open().alarm(ikindi).isOn);
    EXPECT_EQ(calendarFile().find("BEGIN:VEVENT"), std::string::npos);
}

}  // namespace
}  // namespace quode::test
