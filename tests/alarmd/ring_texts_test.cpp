// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "alarmd/ring_texts.h"

#include <gtest/gtest.h>

#include "common/GlobalFuncs.h"
#include "platform/system_platform.h"
#include "support/fake_platform.h"
#include "support/zoned_clock.h"
#include "texts/translation.h"

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
    Notification textOf(int languageId, int offset, int late, std::string_view language = "") {
        services->setLanguageId(languageId);
        useLanguage(language.empty() ? languageName(languageId) : language, QUODE_BUNDLE);
        services->loadLanguageFile();
        const auto prayer = utc("2026-10-17 15:26");
        const AlarmOccurrence alarm{204, prayer + std::chrono::minutes(offset), prayer, 18.0 + 26.0 / 60.0,
                                    VAKDateMake(17, 10, 2026, 0, 0, 0)};
        return notificationOf({alarm, "Istanbul", "bell", std::chrono::minutes(late)}, *services);
    }
    ~RingTexts() override { useLanguage("en", QUODE_BUNDLE); }
    GlobalFuncs* services = nullptr;
};

TEST_F(RingTexts, TellPrayerCityAndTime) {
    const Notification text = textOf(languageEnglish, 0, 0);
    EXPECT_EQ(text.title, services->GetTextPrayLabels(204));
    EXPECT_EQ(text.body, "Istanbul, 18:26");
    const std::vector<NotificationAction> actions{{"stop", "Stop"}, {"snooze", "Snooze 5 min"}, {"mute", "Mute today"}};
    EXPECT_EQ(text.actions, actions);
}

TEST_F(RingTexts, TellTheOffsetAndTheDelay) {
    EXPECT_EQ(textOf(languageEnglish, -15, 0).body, "Istanbul, 18:26\n15 min before the time");
    EXPECT_EQ(textOf(languageEnglish, 5, 3).body, "Istanbul, 18:26\n5 min after the time\nRings 3 min late");
    EXPECT_EQ(textOf(languageEnglish, -210, 0).body, "Istanbul, 18:26\n3 h 30 min before the time");
    EXPECT_EQ(textOf(languageEnglish, 120, 0).body, "Istanbul, 18:26\n2 h after the time");
}

TEST_F(RingTexts, MarkATimeWithTheUsersOwnMinutes) {
    textOf(languageEnglish, 0, 0);
    Ring ring{{204, {}, {}, 18.0 + 26.0 / 60.0, {}}, "Istanbul", "bell"};
    ring.isAdjusted = true;
    EXPECT_EQ(notificationOf(ring, *services).body, "Istanbul, 18:26 (adjusted by you)");
}

TEST_F(RingTexts, SpeakALanguageWithoutAPack) {
    const Notification text = textOf(languageEnglish, 0, 0, "ar");
    EXPECT_EQ(text.title, "المغرب");
    EXPECT_EQ(text.body, "\u2068Istanbul\u2069, \u206818:26\u2069");
}

TEST_F(RingTexts, SpeakTheLanguageOfTheServices) {
    EXPECT_EQ(textOf(languageTurkish, -15, 0).body, "Istanbul, 18:26\nVaktinden 15 dk önce");
    EXPECT_EQ(textOf(languageTurkish, 0, 0).actions[1].label, "5 dk ertele");
    EXPECT_EQ(textOf(languageGerman, 0, 0).actions[0].label, "Stopp");
    EXPECT_EQ(textOf(languageFrench, 0, 0).actions[0].label, "Arrêter");
}

TEST_F(RingTexts, NameThePrayerWithoutALanguagePack) {
    services->setApplicationBundlePath("/nowhere");
    EXPECT_EQ(textOf(languageEnglish, 0, 0).title, "Maghrib");
}

}  // namespace
}  // namespace quode::test
