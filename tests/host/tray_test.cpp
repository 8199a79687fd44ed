// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/PanelTray.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

#include "host/PanelMenu.h"
#include "host/fake_widget.h"
#include "support/zoned_clock.h"

namespace quode::test {
namespace {

using host::ComingPrayer;
using host::MenuState;
using host::PanelMenu;
using host::PanelTray;

class TrayTest : public testing::Test {
  protected:
    QAction* entry(const QString& text) {
        for (QAction* const action : menu.actions()) {
            if (action->text() == text) return action;
        }
        ADD_FAILURE() << "no entry " << text.toStdString();
        return menu.actions().first();
    }

    int asked = 0;
    MenuState state{"Dhuhr 13:01, in 2 h", {{200, "Fajr", false}, {203, "Asr", true}}, 1, true};
    ComingPrayer coming{"Dhuhr 13:01, in 2 h", "Istanbul: Dhuhr 13:01, within 2 h", utc("2026-11-21 09:01")};
    FakeWatch watch;
    PanelMenu menu{[this] {
        ++asked;
        return state;
    }};
    PanelTray tray{[this] { return coming; }, watch, menu};
};

TEST_F(TrayTest, TellsTheComingPrayerInToolTipAndMenu) {
    EXPECT_EQ(tray.toolTip(), "Istanbul: Dhuhr 13:01, within 2 h");
    EXPECT_EQ(menu.next(), "Dhuhr 13:01, in 2 h");
    EXPECT_EQ(watch.moment, Clock::TimePoint(utc("2026-11-21 09:01")));
    EXPECT_EQ(menu.accessibleName(), "Quode");
}

TEST_F(TrayTest, FindsTheTimeLeftWhenTheMenuOpens) {
    state.next = "Dhuhr 13:01, in 1 h 59 min";
    Q_EMIT menu.aboutToShow();
    EXPECT_EQ(menu.next(), "Dhuhr 13:01, in 1 h 59 min");
    EXPECT_EQ(asked, 2);
}

TEST_F(TrayTest, RenewsTheToolTipWhenItsTruthEnds) {
    coming = {"Dhuhr 13:01, in 1 h", "Istanbul: Dhuhr 13:01, within 1 h", utc("2026-11-21 09:31")};
    state.next = coming.exact;
    Q_EMIT watch.happened();
    EXPECT_EQ(tray.toolTip(), "Istanbul: Dhuhr 13:01, within 1 h");
    EXPECT_EQ(menu.next(), "Dhuhr 13:01, in 1 h");
    EXPECT_EQ(watch.moment, Clock::TimePoint(utc("2026-11-21 09:31")));
}

TEST_F(TrayTest, DoesWhatItsEntriesSay) {
    const std::vector<std::pair<const char*, void (PanelMenu::*)()>> entries{
        {"Dhuhr 13:01, in 2 h", &PanelMenu::openAsked},
        {"Show prayer times", &PanelMenu::openAsked},
        {"Copy today’s times", &PanelMenu::copyAsked},
        {"Choose city…", &PanelMenu::cityAsked},
        {"Help", &PanelMenu::helpAsked},
        {"About Quode", &PanelMenu::aboutAsked},
        {"Quit", &PanelMenu::quitAsked}};
    for (const auto& [text, signal] : entries) {
        QSignalSpy asks(&menu, signal);
        entry(text)->trigger();
        EXPECT_EQ(asks.count(), 1) << text;
    }
}

TEST_F(TrayTest, OpensThePagesOfTheSettings) {
    const std::vector<std::pair<const char*, QString>> entries{
        {"Set up alarms…", "alarms"}, {"Timetable and print…", "timetable"}, {"Settings…", ""}};
    for (const auto& [text, page] : entries) {
        QSignalSpy asks(&menu, &PanelMenu::settingsAsked);
        entry(text)->trigger();
        ASSERT_EQ(asks.count(), 1) << text;
        EXPECT_EQ(asks.first().first().toString(), page) << text;
    }
}

TEST_F(TrayTest, SwitchesAlarmsAndChoosesColors) {
    QSignalSpy switched(&menu, &PanelMenu::alarmSwitched), chosen(&menu, &PanelMenu::colorSchemeChosen);
    const auto alarms = entry("Alarms")->menu()->actions();
    ASSERT_EQ(alarms.size(), 2);
    EXPECT_EQ(alarms[0]->text(), "Fajr");
    EXPECT_FALSE(alarms[0]->isChecked());
    EXPECT_TRUE(alarms[1]->isChecked());
    alarms[0]->trigger();
    alarms[1]->trigger();
    ASSERT_EQ(switched.count(), 2);
    EXPECT_EQ(switched[0], (QVariantList{200, true}));
    EXPECT_EQ(switched[1], (QVariantList{203, false}));

    const auto colors = entry("Colours")->menu()->actions();
    ASSERT_EQ(colors.size(), 6);
    EXPECT_TRUE(colors[1]->isChecked());
    colors[4]->trigger();
    ASSERT_EQ(chosen.count(), 1);
    EXPECT_EQ(chosen[0], QVariantList{4});
}

TEST_F(TrayTest, ShowsOnlyEntriesThatWork) {
    state.alarms.clear();
    state.hasCity = false;
    Q_EMIT menu.aboutToShow();
    EXPECT_FALSE(entry("Alarms")->isVisible());
    EXPECT_FALSE(entry("Copy today’s times")->isVisible());
    EXPECT_TRUE(entry("Choose city…")->isVisible());
}

TEST_F(TrayTest, HasAKeyForEachDeed) {
    EXPECT_EQ(entry("Copy today’s times")->shortcut(), QKeySequence("Ctrl+C"));
    EXPECT_EQ(entry("Choose city…")->shortcut(), QKeySequence("Ctrl+F"));
    EXPECT_EQ(entry("Help")->shortcut(), QKeySequence("F1"));
    EXPECT_EQ(entry("Quit")->shortcut(), QKeySequence("Ctrl+Q"));
}

}  // namespace
}  // namespace quode::test
