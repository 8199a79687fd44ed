// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The common behaviour of all calendar stores, tested with each.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <thread>

#include "calendar_test_support.h"
#include "platform/ical_event_store.h"
#include "platform/vdir_event_store.h"

namespace quode::test {
namespace {

using testing::HasSubstr;
using namespace std::chrono_literals;

struct Layout {
    std::string name;
    std::function<std::unique_ptr<EventStore>(const std::filesystem::path&, StoreSurroundings)> open;
};

void PrintTo(const Layout& layout, std::ostream* out) {
    *out << layout.name;
}

class EventStoreTest : public testing::TestWithParam<Layout> {
  protected:
    std::unique_ptr<EventStore> open() const { return GetParam().open(folder.path(), quickSurroundings()); }

    TemporaryFolder folder;
    std::unique_ptr<EventStore> store = open();
};

TEST_P(EventStoreTest, AnEmptyCalendarHasNoEvents) {
    const FoundEvent found = store->findEvent("quode-none");
    EXPECT_TRUE(found.status.ok);
    EXPECT_FALSE(found.event);
    EXPECT_TRUE(store->ownEvents().status.ok);
    EXPECT_TRUE(store->ownEvents().events.empty());
    EXPECT_TRUE(store->removeEvent("quode-none").ok);
}

TEST_P(EventStoreTest, ASavedEventIsFoundUnchangedByAnotherStore) {
    const CalendarEvent event = alarmOnDay(14);
    const SavedEvent saved = store->saveEvent(event);
    ASSERT_TRUE(saved.status.ok) << saved.status.message;
    EXPECT_EQ(saved.status.message, "");

    CalendarEvent expected = event;
    expected.identifier = saved.identifier;
    const FoundEvent found = open()->findEvent(saved.identifier);
    ASSERT_TRUE(found.event) << found.status.message;
    EXPECT_EQ(*found.event, expected);
}

TEST_P(EventStoreTest, EveryTextComesBack) {
    const std::vector<std::string> texts{"İmsak ☀ الفجر ज़ुहर 🕌",
                                         "commas, semicolons; colons: and \"quotes\" 'too'",
                                         "two\nlines\n",
                                         "back\\slash and \\n that is none",
                                         "",
                                         std::string(1000, 'x') + std::string("ş") + std::string(300, 'y'),
                                         "BEGIN:VEVENT\nEND:VEVENT\nEND:VCALENDAR",
                                         "a\ttab"};
    for (const std::string& text : texts) {
        CalendarEvent event = alarmOnDay(2);
        event.title = text;
        event.location = text;
        event.identifier = store->saveEvent(event).identifier;
        const FoundEvent found = store->findEvent(event.identifier);
        ASSERT_TRUE(found.event) << text << ": " << found.status.message;
        EXPECT_EQ(*found.event, event);
    }
}

TEST_P(EventStoreTest, WhatNoCalendarTextCanHoldIsLeftOutOrMarked) {
    CalendarEvent event = alarmOnDay(2);
    event.title = std::string("a\0b\x01\r\nc\x7f", 8);
    event.location = " \xff ok \xed\xa0\x80 \xc3";
    const SavedEvent saved = store->saveEvent(event);
    const FoundEvent found = store->findEvent(saved.identifier);
    ASSERT_TRUE(found.event);
    EXPECT_EQ(found.event->title, "ab\nc");
    EXPECT_EQ(found.event->location, "\uFFFD ok \uFFFD\uFFFD\uFFFD \uFFFD");
}

TEST_P(EventStoreTest, SavingAgainReplacesTheEventUnderItsIdentifier) {
    CalendarEvent event = alarmOnDay(14);
    event.identifier = store->saveEvent(event).identifier;
    event.start += 24h;
    event.end += 24h;
    event.alarmOffset = -10min;
    const SavedEvent again = store->saveEvent(event);
    EXPECT_EQ(again.identifier, event.identifier);
    ASSERT_EQ(store->ownEvents().events.size(), 1U);
    EXPECT_EQ(store->ownEvents().events.front(), event);
}

TEST_P(EventStoreTest, ARemovedEventIsGoneAndTheOthersStay) {
    const std::string first = store->saveEvent(alarmOnDay(1)).identifier;
    const std::string second = store->saveEvent(alarmOnDay(2)).identifier;
    EXPECT_TRUE(store->removeEvent(first).ok);
    EXPECT_FALSE(store->findEvent(first).event);
    EXPECT_TRUE(store->findEvent(second).event);
    EXPECT_TRUE(store->removeEvent(first).ok) << "removing twice does no harm";
}

TEST_P(EventStoreTest, EventsAreListedByTheirStart) {
    for (const unsigned day : {9U, 3U, 27U}) store->saveEvent(alarmOnDay(day));
    std::vector<unsigned> days;
    for (const CalendarEvent& event : store->ownEvents().events) {
        const std::chrono::year_month_day date(std::chrono::floor<std::chrono::days>(event.start));
        days.push_back(static_cast<unsigned>(date.day()));
    }
    EXPECT_THAT(days, testing::ElementsAre(3U, 9U, 27U));
}

TEST_P(EventStoreTest, AnEndBeforeTheStartComesBackAsItWasSaved) {
    CalendarEvent event = alarmOnDay(14);
    event.start = std::chrono::sys_days(std::chrono::year(2025) / 3 / 14) + 23h + 59min;
    event.end = std::chrono::sys_days(std::chrono::year(2025) / 3 / 14);
    event.identifier = store->saveEvent(event).identifier;
    EXPECT_EQ(store->findEvent(event.identifier).event, event);
    event.end = event.start;
    store->saveEvent(event);
    EXPECT_EQ(store->findEvent(event.identifier).event, event);
}

TEST_P(EventStoreTest, AnEventWithoutAnAlarmComesBackWithoutOne) {
    CalendarEvent event = alarmOnDay(14);
    event.alarmOffset = std::nullopt;
    event.identifier = store->saveEvent(event).identifier;
    EXPECT_EQ(store->findEvent(event.identifier).event, event);
}

TEST_P(EventStoreTest, TimesAreKeptFromTheFirstYearToTheLast) {
    using std::chrono::sys_days, std::chrono::year;
    const std::vector<std::chrono::sys_seconds> starts{
        sys_days(year(1) / 1 / 1), sys_days(year(1969) / 12 / 31) + 23h + 59min + 59s,
        sys_days(year(2038) / 1 / 19) + 3h + 14min + 8s, sys_days(year(2500) / 12 / 31) + 23h};
    for (const std::chrono::sys_seconds start : starts) {
        CalendarEvent event = alarmOnDay(1);
        event.start = start;
        event.end = start + 1min;
        event.identifier = store->saveEvent(event).identifier;
        EXPECT_EQ(store->findEvent(event.identifier).event, event);
    }
}

TEST_P(EventStoreTest, WhatCannotBeWrittenIsRefusedWithAMessage) {
    CalendarEvent allDay = alarmOnDay(1);
    allDay.allDay = true;
    CalendarEvent tooLate = alarmOnDay(1);
    tooLate.start = std::chrono::sys_days(std::chrono::year(2501) / 1 / 1);
    CalendarEvent tooEarly = alarmOnDay(1);
    tooEarly.end = std::chrono::sys_days(std::chrono::year(0) / 12 / 31);
    CalendarEvent farAlarm = alarmOnDay(1);
    farAlarm.alarmOffset = std::chrono::years(100);
    for (const CalendarEvent& event : {allDay, tooLate, tooEarly, farAlarm}) {
        const SavedEvent saved = store->saveEvent(event);
        EXPECT_FALSE(saved.status.ok);
        EXPECT_NE(saved.status.message, "");
        EXPECT_EQ(saved.identifier, "");
    }
    EXPECT_TRUE(store->ownEvents().events.empty());
}

TEST_P(EventStoreTest, AnIdentifierWithAQuoteIsRefused) {
    for (const std::string identifier : {"o'clock", "\"", "line\nbreak"}) {
        CalendarEvent event = alarmOnDay(1);
        event.identifier = identifier;
        EXPECT_THAT(store->saveEvent(event).status.message, HasSubstr("contains a quote or a control character"));
        EXPECT_FALSE(store->findEvent(identifier).status.ok);
        EXPECT_FALSE(store->removeEvent(identifier).ok);
    }
}

TEST_P(EventStoreTest, OwnIdentifiersAreAllDifferentAndSafeInFilesAndStatements) {
    std::set<std::string> seen;
    for (int i = 0; i < 50; ++i) {
        const std::string identifier = store->saveEvent(alarmOnDay(1)).identifier;
        EXPECT_EQ(identifier.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789-"), std::string::npos);
        EXPECT_TRUE(seen.insert(identifier).second);
    }
}

TEST_P(EventStoreTest, AKnownOwnIdentifierIsUsedAgainAnUnknownForeignOneIsNot) {
    CalendarEvent event = alarmOnDay(1);
    const std::string own = store->saveEvent(event).identifier;
    store->removeEvent(own);
    event.identifier = own;
    EXPECT_EQ(store->saveEvent(event).identifier, own);
    event.identifier = "../../somewhere/else";
    const SavedEvent saved = store->saveEvent(event);
    ASSERT_TRUE(saved.status.ok);
    EXPECT_NE(saved.identifier, "../../somewhere/else");
    EXPECT_TRUE(store->findEvent(saved.identifier).event);
}

TEST_P(EventStoreTest, TheDefaultCalendarNamesItsPlace) {
    store->saveEvent(alarmOnDay(1));
    EXPECT_EQ(store->defaultCalendar().name, "Quode");
    EXPECT_TRUE(std::filesystem::exists(store->defaultCalendar().location));
}

TEST_P(EventStoreTest, AMissingFolderIsMade) {
    const auto deep = GetParam().open(folder.path() / "not" / "yet", quickSurroundings());
    EXPECT_TRUE(deep->ownEvents().status.ok);
    const SavedEvent saved = deep->saveEvent(alarmOnDay(1));
    EXPECT_TRUE(saved.status.ok) << saved.status.message;
    EXPECT_TRUE(deep->findEvent(saved.identifier).event);
}

TEST_P(EventStoreTest, TwoWritersAtOnceLoseNothing) {
    constexpr int each = 40;
    const auto writeMany = [this] {
        StoreSurroundings patient = quickSurroundings();
        patient.lockPatience = 60s;
        const auto mine = GetParam().open(folder.path(), std::move(patient));
        for (int i = 0; i < each; ++i) mine->saveEvent(alarmOnDay(1));
    };
    std::thread other(writeMany);
    writeMany();
    other.join();
    EXPECT_EQ(store->ownEvents().events.size(), 2U * each);
}

TEST_P(EventStoreTest, SavingLeavesNoTemporaryFiles) {
    store->removeEvent(store->saveEvent(alarmOnDay(1)).identifier);
    store->saveEvent(alarmOnDay(2));
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
        EXPECT_THAT(entry.path().filename().string(), testing::Not(HasSubstr(".tmp")));
    }
}

INSTANTIATE_TEST_SUITE_P(Layouts, EventStoreTest,
                         testing::Values(Layout{"OneFile",
                                                [](const auto& folder, StoreSurroundings around) {
                                                    return std::make_unique<IcalEventStore>(folder, std::move(around));
                                                }},
                                         Layout{"Vdir",
                                                [](const auto& folder, StoreSurroundings around) {
                                                    return std::make_unique<VdirEventStore>(folder, std::move(around));
                                                }}),
                         [](const auto& instance) { return instance.param.name; });

}  // namespace
}  // namespace quode::test
