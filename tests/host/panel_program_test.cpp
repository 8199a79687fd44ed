// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The panel with all its parts, on the files of a user that other programs use too.
#include "host/PanelProgram.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QTest>

#include "alarms/DatabaseFunctions.h"
#include "companion/UserDatabase.h"
#include "companion/UserEventStore.h"
#include "data/user_places.h"
#include "host/places.h"
#include "host/user_choices.h"
#include "support/environment_of.h"
#include "support/temporary_folder.h"
#include "views/UICityNameView.h"
#include "views/UITimesView.h"

namespace quode::test {
namespace {

constexpr int asr = 203;
constexpr int patience = 10000;  // ms

class WholePanel : public testing::Test {
  protected:
    WholePanel() {
        session.setCalendar(calendar);
        session.setDevice(device);
        session.services();
        host::makeUserDatabase(session, *session.cities().city(istanbul));
    }

    void start() {
        program = std::make_unique<host::PanelProgram>(session, calendar, device);
        program->present();
    }

    QWidget& window() const {
        for (QWidget* const each : QApplication::topLevelWidgets()) {
            if (each->isVisible() && each->findChild<QLabel*>("notice") != nullptr) return *each;
        }
        throw std::logic_error("The panel is not shown.");
    }
    QString notice() const { return window().findChild<QLabel*>("notice")->text(); }
    std::string cityShown() const { return window().findChild<UICityNameView*>()->labelCityName()->text(); }
    UITimesView& row(int code) const {
        for (UITimesView* const each : window().findChildren<UITimesView*>()) {
            if (each->tag() == code) return *each;
        }
        throw std::logic_error("The panel has no such row.");
    }

    UIButtonX& button(int tag) const {
        for (UIButtonX* const each : window().findChildren<UIButtonX*>()) {
            if (each->tag() == tag) return *each;
        }
        throw std::logic_error("The panel has no such button.");
    }

    TemporaryFolder folder;
    std::shared_ptr<host::PanelDevice> device = std::make_shared<host::PanelDevice>(Idiom::phone, QSize(360, 640), 1.0);
    app::Session session{environmentOf({{"HOME", folder.path().string()},
                                        {"XDG_CONFIG_DIRS", "/nonexistent"},
                                        {"QUODE_BUNDLE_DIR", QUODE_TEST_BUNDLE},
                                        {"QUODE_NOW", "2026-11-21T04:00:00Z"}}),
                         {}};
    std::shared_ptr<UserEventStore> calendar =
        std::make_shared<UserEventStore>(session.dataFolder(), CalendarLayout::ics);
    std::unique_ptr<host::PanelProgram> program;
};

/// Another program that keeps the user database to itself.
class Lock {
  public:
    explicit Lock(const std::filesystem::path& file, const char* begin = "BEGIN EXCLUSIVE") {
        sqlite3_open(file.c_str(), &database_);
        isHeld_ = run(begin);
    }
    ~Lock() { sqlite3_close(database_); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

    bool isHeld() const { return isHeld_; }
    bool release() { return run("ROLLBACK"); }

  private:
    bool run(const char* sql) { return sqlite3_exec(database_, sql, nullptr, nullptr, nullptr) == SQLITE_OK; }

    sqlite3* database_ = nullptr;
    bool isHeld_ = false;
};

/// Notes when a widget is drawn.
class FirstPaint : public QObject {
  public:
    FirstPaint(QWidget& watched, bool& isDrawn) : isDrawn_(isDrawn) { watched.installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) isDrawn_ = true;
        return false;
    }

  private:
    bool& isDrawn_;
};

TEST_F(WholePanel, ShowsTheCityOnceItsDatabaseIsNoLongerLocked) {
    Lock lock(userDatabaseFile(session.dataFolder()));
    ASSERT_TRUE(lock.isHeld());
    start();
    EXPECT_TRUE(notice().contains("locked")) << notice().toStdString();
    EXPECT_NE(cityShown(), "Istanbul");
    ASSERT_TRUE(lock.release());
    EXPECT_TRUE(QTest::qWaitFor([&] { return cityShown() == "Istanbul"; }, patience)) << cityShown();
    EXPECT_TRUE(QTest::qWaitFor([&] { return notice().isEmpty(); }, patience)) << notice().toStdString();
    EXPECT_EQ(row(asr).labelPrayTime()->text(), "15:32");
}

// Everything that is shown can be read meanwhile, so that nothing of it differs when the lock goes.
TEST_F(WholePanel, TakesBackTheNoticeOfALockThatKeptOnlyItsOwnChangesOut) {
    ASSERT_TRUE(DatabaseFunctions().executeSQL("UPDATE USER_ALARMS SET PRAYTIME = 1.0"));  // to be brought up to date
    Lock lock(userDatabaseFile(session.dataFolder()), "BEGIN IMMEDIATE");
    ASSERT_TRUE(lock.isHeld());
    start();
    EXPECT_TRUE(notice().contains("locked")) << notice().toStdString();
    EXPECT_EQ(cityShown(), "Istanbul");
    ASSERT_TRUE(lock.release());
    EXPECT_TRUE(QTest::qWaitFor([&] { return notice().isEmpty(); }, patience)) << notice().toStdString();
    EXPECT_EQ(cityShown(), "Istanbul");
}

TEST_F(WholePanel, DrawsItsFirstFrameBeforeItCallsItselfStarted) {
    program = std::make_unique<host::PanelProgram>(session, calendar, device);
    bool isDrawn = false, wasDrawn = false;
    int count = 0;
    QObject::connect(program.get(), &host::PanelProgram::started, [&] {
        wasDrawn = isDrawn;
        ++count;
    });
    program->present();
    const FirstPaint paint(window(), isDrawn);
    EXPECT_TRUE(QTest::qWaitFor([&] { return count > 0; }, patience));
    EXPECT_TRUE(wasDrawn);
    QTest::qWait(1200);  // longer than it waits for a frame
    EXPECT_EQ(count, 1);
}

TEST_F(WholePanel, CallsItselfStartedThoughNothingIsDrawn) {
    program = std::make_unique<host::PanelProgram>(session, calendar, device);
    int count = 0;
    QObject::connect(program.get(), &host::PanelProgram::started, [&] { ++count; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return count > 0; }, patience));
}

// As it ends by "Quit" in the menu, and with the session.
TEST_F(WholePanel, RemembersOpenRowsWhenTheProgramEndsWithThePanelOpen) {
    start();
    button(tagShowAll).tap();
    program.reset();
    start();
    EXPECT_TRUE(button(tagShowAll).selected());
    button(tagShowAll).tap();
    EXPECT_EQ(host::rememberedRows(session), host::OpenRows{});
}

TEST_F(WholePanel, SaysThatTheServiceStartsWithEachLoginWhenAnAlarmIsSwitchedOn) {
    start();
    EXPECT_EQ(notice(), "");
    row(asr).buttonAlarmOnOff()->tap();
    EXPECT_TRUE(QTest::qWaitFor([&] { return notice().contains("login"); }, patience)) << notice().toStdString();
}

}  // namespace
}  // namespace quode::test
