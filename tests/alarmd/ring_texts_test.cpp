// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "alarmd/ring_texts.h"

#include <gtest/gtest.h>

#include "common/GlobalFuncs.h"
#include "platform/system_platform.h"
#include "support/fake_platform.h"
#include "support/zoned_clock.h"

namespace quode::test {
namespace {

class RingTexts : public testing::Test {
  protected:
    RingTexts() {
        Platform platform = FakePlatform().platform();
        platform.files = posixFiles();
        services = &GlobalFuncs::startUp(platform);
        services->setApplicationBundlePath(QUODE_BUNDLE);
    }
    Notification textOf(int languageId, int offset, int late) {
        services->setLanguageId(languageId);
        services->loadLanguageFile();
        const auto prayer = utc("2026-10-17 15:26");
        const AlarmOccurrence alarm{204, prayer + std::chrono::minutes(offset), prayer, 18.0 + 26.0 / 60.0,
                                    VAKDateMake(17, 10, 2026, 0, 0, 0)};
        return notificationOf({alarm, "Istanbul", "bell", std::chrono::minutes(late)}, *services);
    }
    GlobalFuncs* services = nullptr;
};

TEST_F(RingTexts, TellPrayerCityAndTime) {
    const Notification text = textOf(languageEnglish, 0, 0);
    EXPECT_EQ(text.title, services->GetTextPrayLabels(204));
    EXPECT_EQ(text.body, "Istanbul, 18:26");
    const std::vector<NotificationAction> actions{{"stop", "Stop"}, {"snooze", "Snooze 5 min"}};
    EXPECT_EQ(text.actions, actions);
}

TEST_F(RingTexts, TellTheOffsetAndTheDelay) {
    EXPECT_EQ(textOf(languageEnglish, -15, 0).body, "Istanbul, 18:26\n15 min before the time");
    EXPECT_EQ(textOf(languageEnglish, 5, 3).body, "Istanbul, 18:26\n5 min after the time\nRings 3 min late");
}

TEST_F(RingTexts, SpeakTheLanguageOfTheServices) {
    EXPECT_EQ(textOf(languageTurkish, -15, 0).body, "Istanbul, 18:26\nVaktinden 15 dk önce");
    EXPECT_EQ(textOf(languageTurkish, 0, 0).actions[1].label, "5 dk ertele");
    EXPECT_EQ(textOf(languageGerman, 0, 0).actions[0].label, "Stopp");
    EXPECT_EQ(textOf(languageFrench, 0, 0).actions[0].label, "Arrêter");
}

TEST_F(RingTexts, NameThePrayerWithoutALanguagePack) {
    services->setApplicationBundlePath("/nowhere");
    EXPECT_EQ(textOf(languageEnglish, 0, 0).title, "Prayer time");
}

}  // namespace
}  // namespace quode::test
