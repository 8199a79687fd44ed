// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Damaged calendar files: no content is lost, and the alarm is still saved.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "calendar_test_support.h"
#include "platform/ical_event_store.h"
#include "platform/vdir_event_store.h"

namespace quode::test {
namespace {

using testing::HasSubstr;

class DamagedCalendarTest : public testing::Test {
  protected:
    DamagedCalendarTest() {
        write(file,
              "BEGIN:VCALENDAR\r\nPRODID:-//Someone//Else//"
              "EN\r\nVERSION:2.0\r\nBEGIN:VTODO\r\nUID:t\r\nSUMMARY:Çay\r\nEND:VTODO\r\n"
              "BEGIN:VEVENT\r\nUID:theirs\r\nDTSTART;TZID=Europe/"
              "Istanbul:20250314T120000\r\nRRULE:FREQ=WEEKLY;COUNT=3\r\n"
              "BEGIN:VALARM\r\nACTION:DISPLAY\r\nTRIGGER:-PT5M\r\nEND:VALARM\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n");
        store.saveEvent(alarmOnDay(10));
        store.saveEvent(alarmOnDay(11));
        intact = contentOf(file);
    }

    /// Saves and removes an alarm in a file with this content. All its bytes are then in the file again or kept beside it.
    void survive(const std::string& content) {
        std::filesystem::remove(aside);
        write(file, content);
        const EventList before = store.ownEvents();
        EXPECT_EQ(contentOf(file), content) << "reading changes nothing";

        const SavedEvent saved = store.saveEvent(alarmOnDay(20));
        ASSERT_TRUE(saved.status.ok) << saved.status.message;
        const FoundEvent found = store.findEvent(saved.identifier);
        ASSERT_TRUE(found.event) << found.status.message;
        EXPECT_EQ(found.event->start, alarmOnDay(20).start);
        if (std::filesystem::exists(aside)) {
            ++keptAside;
            EXPECT_FALSE(before.status.ok);
            EXPECT_EQ(contentOf(aside), content);
            EXPECT_THAT(saved.status.message, HasSubstr("kept as Quode.ics.damaged-1"));
        } else {
            ++keptInPlace;
            EXPECT_TRUE(store.removeEvent(saved.identifier).ok);
            EXPECT_EQ(contentOf(file), content);
        }
    }

    TemporaryFolder folder;
    std::filesystem::path file = folder.path() / "Quode.ics";
    std::filesystem::path aside = folder.path() / "Quode.ics.damaged-1";
    IcalEventStore store{folder.path(), quickSurroundings()};
    std::string intact;
    int keptAside = 0;
    int keptInPlace = 0;
};

TEST_F(DamagedCalendarTest, EveryTruncationSurvives) {
    for (std::size_t length = 0; length < intact.size(); ++length) survive(intact.substr(0, length));
    EXPECT_GE(keptAside, static_cast<int>(intact.size()) - 2) << "only the last line break may be missing";
}

TEST_F(DamagedCalendarTest, FlippedBytesSurvive) {
    std::minstd_rand random(1);
    for (int i = 0; i < 500; ++i) {
        std::string content = intact;
        for (int flips = 1 + i % 3; flips > 0; --flips) {
            char& byte = content[random() % content.size()];
            byte = static_cast<char>(byte ^ (1 << (random() % 8)));
        }
        survive(content);
    }
    EXPECT_GT(keptAside, 20);
    EXPECT_GT(keptInPlace, 20);
}

TEST_F(DamagedCalendarTest, DeletedInsertedAndRepeatedPiecesSurvive) {
    std::minstd_rand random(2);
    for (int i = 0; i < 300; ++i) {
        std::string content = intact;
        const std::size_t from = random() % content.size();
        const std::size_t length = 1 + random() % 60;
        const std::string piece = content.substr(random() % content.size(), length);
        if (i % 3 == 0) content.erase(from, length);
        if (i % 3 == 1) content.insert(from, piece);
        if (i % 3 == 2) content.replace(from, length, piece);
        survive(content);
    }
    EXPECT_GT(keptAside, 20);
    EXPECT_GT(keptInPlace, 20);
}

TEST_F(DamagedCalendarTest, WhatIsNoCalendarAtAllIsKeptAside) {
    std::string nested;
    for (int i = 0; i < 20000; ++i) nested += "BEGIN:VCALENDAR\nBEGIN:X\n";
    std::string deep = "BEGIN:VCALENDAR\n";
    for (int i = 0; i < 20000; ++i) deep += "BEGIN:X\n";
    for (int i = 0; i < 20000; ++i) deep += "END:X\n";
    deep += "END:VCALENDAR\n";
    const std::vector<std::string> contents{"",
                                            "\n\n",
                                            "garbage",
                                            std::string(5000, '\0'),
                                            intact.substr(0, 200) + '\0' + intact.substr(200),
                                            std::string(2'000'000, 'x'),
                                            "{\"json\": true}",
                                            "END:VCALENDAR\r\n",
                                            "BEGIN:VEVENT\r\nUID:a\r\nEND:VEVENT\r\n",
                                            "BEGIN:VCALENDAR\r\nBEGIN:VCALENDAR\r\nEND:VCALENDAR\r\nEND:VCALENDAR\r\n",
                                            intact + "trailing garbage\r\n",
                                            nested,
                                            deep};
    for (const std::string& content : contents) survive(content);
    EXPECT_EQ(keptAside, static_cast<int>(contents.size()));
}

TEST_F(DamagedCalendarTest, EachDamagedFileIsKeptUnderItsOwnName) {
    for (int i = 1; i <= 3; ++i) {
        write(file, "damage " + std::to_string(i));
        EXPECT_TRUE(store.saveEvent(alarmOnDay(1)).status.ok);
    }
    for (int i = 1; i <= 3; ++i) {
        EXPECT_EQ(contentOf(folder.path() / ("Quode.ics.damaged-" + std::to_string(i))), "damage " + std::to_string(i));
    }
}

TEST_F(DamagedCalendarTest, FindingAndRemovingInADamagedFileSaySoAndChangeNothing) {
    write(file, "damage");
    EXPECT_THAT(store.findEvent("x").status.message, HasSubstr("cannot be read as a calendar"));
    EXPECT_FALSE(store.removeEvent("x").ok);
    EXPECT_EQ(contentOf(file), "damage");
}

TEST_F(DamagedCalendarTest, AFileTooLargeForACalendarIsLeftAlone) {
    std::filesystem::resize_file(file, std::uintmax_t{65} << 20U);
    const SavedEvent saved = store.saveEvent(alarmOnDay(1));
    EXPECT_FALSE(saved.status.ok);
    EXPECT_THAT(saved.status.message, HasSubstr("Quode.ics"));
    EXPECT_EQ(std::filesystem::file_size(file), std::uintmax_t{65} << 20U);
}

TEST_F(DamagedCalendarTest, WhatIsNoFileIsLeftAlone) {
    std::filesystem::remove(file);
    std::filesystem::create_directory(file);
    EXPECT_FALSE(store.saveEvent(alarmOnDay(1)).status.ok);
    EXPECT_TRUE(std::filesystem::is_directory(file));
    std::filesystem::remove(file);
    ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
    EXPECT_FALSE(store.saveEvent(alarmOnDay(1)).status.ok);
    EXPECT_TRUE(std::filesystem::is_fifo(file));
}

TEST(DamagedVdirTest, ADamagedEventFileIsKeptAsideByTheNextSave) {
    const TemporaryFolder folder;
    VdirEventStore store(folder.path(), quickSurroundings());
    CalendarEvent event = alarmOnDay(1);
    event.identifier = store.saveEvent(event).identifier;
    const auto file = folder.path() / (event.identifier + ".ics");
    write(file, "BEGIN:VCAL");
    EXPECT_FALSE(store.findEvent(event.identifier).status.ok);
    EXPECT_FALSE(store.removeEvent(event.identifier).ok);
    const SavedEvent saved = store.saveEvent(event);
    EXPECT_EQ(saved.identifier, event.identifier);
    EXPECT_THAT(saved.status.message, HasSubstr("damaged-1"));
    EXPECT_EQ(contentOf(file.string() + ".damaged-1"), "BEGIN:VCAL");
    EXPECT_EQ(store.ownEvents().events, std::vector{event});
}

}  // namespace
}  // namespace quode::test
