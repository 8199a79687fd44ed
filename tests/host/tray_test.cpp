// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/PanelTray.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

#include "host/fake_widget.h"
#include "host/texts.h"
#include "support/zoned_clock.h"

namespace quode::test {
namespace {

using host::ComingPrayer;
using host::PanelTray;

class TrayTest : public testing::Test {
  protected:
    QAction* entry(int index) { return tray.menu().actions().at(index); }

    int asked = 0;
    ComingPrayer coming{"Dhuhr 13:01, in 2 h", "Istanbul: Dhuhr 13:01, within 2 h", utc("2026-11-21 09:01")};
    FakeWatch watch;
    PanelTray tray{[this] {
                       ++asked;
                       return coming;
                   },
                   watch, host::textsOf(1)};
};

TEST_F(TrayTest, TellsTheComingPrayerInToolTipAndMenu) {
    EXPECT_EQ(tray.toolTip(), "Istanbul: Dhuhr 13:01, within 2 h");
    EXPECT_EQ(entry(0)->text(), "Dhuhr 13:01, in 2 h");
    EXPECT_EQ(watch.moment, Clock::TimePoint(utc("2026-11-21 09:01")));
    EXPECT_EQ(tray.menu().accessibleName(), "Quode");
}

TEST_F(TrayTest, FindsTheTimeLeftWhenTheMenuOpens) {
    coming.exact = "Dhuhr 13:01, in 1 h 59 min";
    Q_EMIT tray.menu().aboutToShow();
    EXPECT_EQ(entry(0)->text(), "Dhuhr 13:01, in 1 h 59 min");
    EXPECT_EQ(asked, 2);
}

TEST_F(TrayTest, RenewsTheToolTipWhenItsTruthEnds) {
    coming = {"Dhuhr 13:01, in 1 h", "Istanbul: Dhuhr 13:01, within 1 h", utc("2026-11-21 09:31")};
    Q_EMIT watch.stirred();
    EXPECT_EQ(tray.toolTip(), "Istanbul: Dhuhr 13:01, within 1 h");
    EXPECT_EQ(entry(0)->text(), "Dhuhr 13:01, in 1 h");
    EXPECT_EQ(watch.moment, Clock::TimePoint(utc("2026-11-21 09:31")));
}

TEST_F(TrayTest, OpensThePanelAndEndsTheProgramByItsMenu) {
    QSignalSpy open(&tray, &PanelTray::openAsked), quit(&tray, &PanelTray::quitAsked);
    entry(0)->trigger();
    entry(2)->trigger();
    EXPECT_EQ(open.count(), 2);
    EXPECT_EQ(entry(2)->text(), "Show prayer times");
    entry(3)->trigger();
    EXPECT_EQ(quit.count(), 1);
    EXPECT_EQ(entry(3)->text(), "Quit");
}

}  // namespace
}  // namespace quode::test
