// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <QComboBox>
#include <fstream>
#include <iterator>

#include "app/published_calendar.h"
#include "fixture.h"

namespace quode::test {
namespace {

class CalendarPage : public WindowTest {
  protected:
    CalendarPage() { open("calendar"); }

    std::string published() const {
        std::ifstream file(folder.path() / "prayers.ics");
        return {std::istreambuf_iterator<char>(file), {}};
    }
};

TEST_F(CalendarPage, PublishesACalendarOfThePrayersAndTellsWhereItIs) {
    EXPECT_FALSE(app::publishedCalendar(database()));
    press("A calendar of the prayers");
    EXPECT_TRUE(app::publishedCalendar(database()));
    EXPECT_NE(published().find("BEGIN:VEVENT"), std::string::npos);
    EXPECT_EQ(published().find("BEGIN:VALARM"), std::string::npos);
    EXPECT_TRUE(shows("file://" + QString::fromStdString((folder.path() / "prayers.ics").string())));
}

TEST_F(CalendarPage, GivesThatCalendarAReminder) {
    press("A calendar of the prayers");
    auto* const reminder = control<QComboBox>("Reminder in that calendar");
    reminder->setCurrentIndex(reminder->findData(15));
    Q_EMIT reminder->activated(reminder->currentIndex());
    settle();
    EXPECT_EQ(app::publishedCalendar(database())->alarm, std::chrono::minutes(15));
    EXPECT_NE(published().find("TRIGGER:-PT15M"), std::string::npos);
}

TEST_F(CalendarPage, EndsThePublishingAndKeepsTheFile) {
    press("A calendar of the prayers");
    press("A calendar of the prayers");
    EXPECT_FALSE(app::publishedCalendar(database()));
    EXPECT_NE(published(), "");
    EXPECT_EQ(told, QStringList());
}

TEST_F(CalendarPage, LeavesAForeignFileAlone) {
    std::ofstream(folder.path() / "prayers.ics") << "My own notes";
    press("A calendar of the prayers");
    EXPECT_EQ(published(), "My own notes");
    EXPECT_EQ(told.size(), 1) << "it says why";
    EXPECT_FALSE(button("A calendar of the prayers")->isChecked());
}

}  // namespace
}  // namespace quode::test
