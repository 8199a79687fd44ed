// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Calendars of thousands of events.
#include <gtest/gtest.h>

#include <chrono>
#include <iostream>

#include "calendar_test_support.h"
#include "platform/event_identifier.h"
#include "platform/ical_component.h"
#include "platform/ical_event_store.h"
#include "platform/vdir_event_store.h"

namespace quode::test {
namespace {

using namespace std::chrono_literals;

constexpr int kEvents = 5000;

/// Runs the work and prints its duration.
template <typename Work>
void timed(std::string_view what, const Work& work) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - begin;
    std::cout << what << ": " << took.count() << " ms\n";
}

TEST(LargeCalendarTest, FiveThousandEventsAreSavedListedAndFound) {
    const TemporaryFolder folder;
    const auto file = folder.path() / "Quode.ics";
    std::vector<CalendarEvent> events;
    for (int i = 0; i < kEvents; ++i) {
        CalendarEvent event = alarmOnDay(1);
        event.start += i * 1h;
        event.end += i * 1h;
        event.identifier = newEventIdentifier();
        events.push_back(event);
    }

    std::string text = emptyCalendar();
    timed("build 5000 events", [&] {
        std::string all;
        for (const CalendarEvent& event : events) all += eventText(event, {}, kNow);
        text.insert(text.rfind("END:VCALENDAR"), all);
    });
    write(file, text);
    std::cout << "file: " << text.size() / 1024 << " kB\n";

    IcalEventStore store(folder.path(), surroundingsWith(systemFileCalls()));
    EventList list;
    timed("list all", [&] { list = store.ownEvents(); });
    EXPECT_EQ(list.events, events);

    FoundEvent found;
    timed("find the last", [&] { found = store.findEvent(events.back().identifier); });
    EXPECT_EQ(found.event, events.back());

    CalendarEvent changed = events[kEvents / 2];
    changed.title = "changed";
    timed("save one", [&] { EXPECT_TRUE(store.saveEvent(changed).status.ok); });
    EXPECT_EQ(store.findEvent(changed.identifier).event, changed);
    timed("remove one", [&] { EXPECT_TRUE(store.removeEvent(changed.identifier).ok); });
    EXPECT_EQ(store.ownEvents().events.size(), kEvents - 1U);
}

TEST(LargeCalendarTest, AVdirOfFiveThousandEventsIsListedAndSearched) {
    const TemporaryFolder folder;
    VdirEventStore store(folder.path(), quickSurroundings());
    CalendarEvent event = alarmOnDay(1);
    timed("save 5000 files", [&] {
        for (int i = 0; i < kEvents; ++i) {
            event.identifier = newEventIdentifier();
            write(folder.path() / (event.identifier + ".ics"), [&] {
                std::string text = emptyCalendar();
                return text.insert(text.rfind("END:VCALENDAR"), eventText(event, {}, kNow));
            }());
        }
    });
    timed("list all", [&] { EXPECT_EQ(store.ownEvents().events.size(), static_cast<std::size_t>(kEvents)); });
    timed("find by file name", [&] { EXPECT_EQ(store.findEvent(event.identifier).event, event); });
    timed("find one that is not there", [&] { EXPECT_FALSE(store.findEvent("unknown").event); });
    timed("save one", [&] { EXPECT_TRUE(store.saveEvent(event).status.ok); });
}

}  // namespace
}  // namespace quode::test
