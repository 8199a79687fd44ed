// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Data of other programs in the same calendar survive, and their changes of Quode's events are read.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "calendar_test_support.h"
#include "platform/ical_event_store.h"
#include "platform/vdir_event_store.h"

namespace quode::test {
namespace {

using testing::HasSubstr;
using testing::Not;
using namespace std::chrono_literals;
using std::chrono::sys_days, std::chrono::year;

constexpr std::string_view kOwnIdentifier = "quode-0123abcd-4567-4890-abcd-ef0123456789";

// In the styles of several programs: other line ends, an unknown property and component, empty values, odd folding.
const std::string kForeign =
    "BEGIN:VCALENDAR\r\nPRODID:-//Someone//Else//EN\r\nVERSION:2.0\r\nX-WR-CALNAME:Family\r\nCALSCALE:GREGORIAN\r\n"
    "BEGIN:VTIMEZONE\r\nTZID:Ankara Time\r\nBEGIN:STANDARD\r\nDTSTART:20160907T000000\r\nTZOFFSETFROM:+0300\r\n"
    "TZOFFSETTO:+0300\r\nTZNAME:+03\r\nEND:STANDARD\r\nEND:VTIMEZONE\r\n"
    "BEGIN:VEVENT\nUID:dentist@example.org\nDTSTAMP:20250101T000000Z\nDTSTART;TZID=Ankara Time:20250314T120000\n"
    "SUMMARY;LANGUAGE=tr:Diş \n hekimi\nLOCATION:\nX-UNKNOWN;X-P=\"a:b;c\":v\nBEGIN:VALARM\nUID:alarm-of-theirs\n"
    "ACTION:AUDIO\nTRIGGER;RELATED=END:-PT15M\nEND:VALARM\nEND:VEVENT\n"
    "begin:vtodo\r\nuid:shopping\r\nsummary:Bread\r\nend:vtodo\r\n"
    "BEGIN:X-SOMETHING\r\nthis line means nothing\r\nEND:X-SOMETHING\r\n"
    "END:VCALENDAR\r\n";

class ForeignContentTest : public testing::Test {
  protected:
    std::filesystem::path file() const { return folder.path() / "Quode.ics"; }

    /// A calendar with one event of Quode, with additional lines.
    void writeOwnEvent(const std::string& lines) {
        write(file(), "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nBEGIN:VEVENT\r\nUID:" + std::string(kOwnIdentifier) + "\r\n" +
                          lines + "END:VEVENT\r\nEND:VCALENDAR\r\n");
    }
    CalendarEvent ownEvent() {
        const FoundEvent found = store.findEvent(kOwnIdentifier);
        EXPECT_TRUE(found.event) << found.status.message;
        return found.event.value_or(CalendarEvent{});
    }
    void saveOwnEvent() {
        CalendarEvent event = alarmOnDay(20);
        event.identifier = kOwnIdentifier;
        ASSERT_TRUE(store.saveEvent(event).status.ok);
        EXPECT_EQ(ownEvent(), event);
    }

    TemporaryFolder folder;
    IcalEventStore store{folder.path(), quickSurroundings()};
};

TEST_F(ForeignContentTest, EveryForeignByteSurvivesSavingReplacingAndRemoving) {
    write(file(), kForeign);
    CalendarEvent event = alarmOnDay(14);
    event.identifier = store.saveEvent(event).identifier;
    const std::string saved = contentOf(file());
    const std::string beforeTheEnd = kForeign.substr(0, kForeign.rfind("END:VCALENDAR"));
    EXPECT_TRUE(saved.starts_with(beforeTheEnd));
    EXPECT_TRUE(saved.ends_with("END:VEVENT\r\nEND:VCALENDAR\r\n"));
    store.saveEvent(event);
    EXPECT_TRUE(contentOf(file()).starts_with(beforeTheEnd));
    store.removeEvent(event.identifier);
    EXPECT_EQ(contentOf(file()), kForeign);
}

TEST_F(ForeignContentTest, ForeignEventsAreFoundButNotListedAsOurs) {
    write(file(), kForeign);
    const FoundEvent found = store.findEvent("dentist@example.org");
    ASSERT_TRUE(found.event) << found.status.message;
    EXPECT_EQ(found.event->title, "Diş hekimi");
    EXPECT_EQ(found.event->start, sys_days(year(2025) / 3 / 14) + 9h) << "12:00 in a zone three hours east";
    EXPECT_EQ(found.event->end, found.event->start);
    EXPECT_EQ(found.event->alarmOffset, -15min);
    EXPECT_TRUE(store.ownEvents().events.empty());
}

TEST_F(ForeignContentTest, ForeignEventsWithoutAnIdentifierAreNoneOfOurs) {
    const std::string nameless =
        "BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\nDTSTART:20250301T050000Z\r\nEND:VEVENT\r\n"
        "BEGIN:VEVENT\r\nUID:\r\nDTSTART:20250301T050000Z\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n";
    write(file(), nameless);
    EXPECT_FALSE(store.findEvent("").event);
    EXPECT_TRUE(store.removeEvent("").ok);
    EXPECT_EQ(contentOf(file()), nameless);
    store.removeEvent(store.saveEvent(alarmOnDay(1)).identifier);
    EXPECT_EQ(contentOf(file()), nameless);
}

TEST_F(ForeignContentTest, TwoCalendarsInOneFileBothServe) {
    const std::string second =
        "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nBEGIN:VEVENT\r\nUID:" + std::string(kOwnIdentifier) +
        "\r\nDTSTART:20250301T050000Z\r\nSUMMARY:Prayer Alarm\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n";
    write(file(), kForeign + second);
    EXPECT_EQ(ownEvent().start, sys_days(year(2025) / 3 / 1) + 5h);
    saveOwnEvent();
    EXPECT_TRUE(contentOf(file()).starts_with(kForeign)) << "replaced in the calendar that held it";
    const std::string added = store.saveEvent(alarmOnDay(2)).identifier;
    EXPECT_EQ(store.ownEvents().events.size(), 2U);
    store.removeEvent(added);
    store.removeEvent(kOwnIdentifier);
    EXPECT_EQ(contentOf(file()), kForeign + "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nEND:VCALENDAR\r\n");
}

TEST_F(ForeignContentTest, WhatTheUserAddedToOurEventIsKept) {
    writeOwnEvent(
        "DTSTART:20250301T050000Z\r\nSEQUENCE:7\r\nDESCRIPTION:take \r\n the bus\r\nCATEGORIES:Faith\r\n"
        "X-COLOUR:green\r\nBEGIN:X-PART\r\nUID:inner\r\nEND:X-PART\r\n");
    saveOwnEvent();
    const std::string text = contentOf(file());
    EXPECT_THAT(text, HasSubstr("DESCRIPTION:take \r\n the bus\r\nCATEGORIES:Faith\r\nX-COLOUR:green\r\n"));
    EXPECT_THAT(text, HasSubstr("BEGIN:X-PART\r\nUID:inner\r\nEND:X-PART\r\n"));
    EXPECT_THAT(text, HasSubstr("SEQUENCE:8\r\n"));
    EXPECT_THAT(text, HasSubstr("LAST-MODIFIED:20250301T000000Z\r\n"));
}

TEST_F(ForeignContentTest, AnEventRingsOnceWhateverWasMadeOfIt) {
    const std::string own(kOwnIdentifier);
    writeOwnEvent(
        "DTSTART:20250301T050000Z\r\nDURATION:PT5M\r\nRRULE:FREQ=DAILY\r\nEXDATE:20250302T050000Z\r\nSTATUS:"
        "CANCELLED\r\n"
        "BEGIN:VALARM\r\nUID:first-alarm\r\nACKNOWLEDGED:20250301T050000Z\r\nACTION:DISPLAY\r\nTRIGGER:-PT1H\r\nEND:"
        "VALARM\r\n"
        "BEGIN:VALARM\r\nUID:second-alarm\r\nACTION:DISPLAY\r\nTRIGGER:-PT2H\r\nEND:VALARM\r\n"
        "END:VEVENT\r\nBEGIN:VEVENT\r\nUID:" +
        own + "\r\nRECURRENCE-ID:20250303T050000Z\r\nDTSTART:20250303T060000Z\r\n");
    EXPECT_EQ(ownEvent().start, sys_days(year(2025) / 3 / 1) + 5h);
    EXPECT_EQ(ownEvent().end, ownEvent().start + 5min);
    EXPECT_EQ(ownEvent().alarmOffset, -1h);
    saveOwnEvent();
    const std::string text = contentOf(file());
    for (const std::string gone :
         {"RRULE", "EXDATE", "RECURRENCE-ID", "CANCELLED", "DURATION", "second-alarm", "ACKNOWLEDGED", "-PT1H"}) {
        EXPECT_THAT(text, Not(HasSubstr(gone)));
    }
    EXPECT_THAT(text, HasSubstr("UID:first-alarm\r\n")) << "the alarm keeps its identifier";
    EXPECT_THAT(text, HasSubstr("TRIGGER:PT0S\r\n"));
}

TEST_F(ForeignContentTest, AnAlarmInSmallLettersIsReplacedToo) {
    writeOwnEvent("DTSTART:20250301T050000Z\r\nbegin:valarm\r\naction:display\r\ntrigger:-PT1H\r\nend:valarm\r\n");
    saveOwnEvent();
    EXPECT_THAT(contentOf(file()), Not(HasSubstr("-PT1H")));
}

TEST_F(ForeignContentTest, NumbersOutOfRangeDoNoHarm) {
    writeOwnEvent(
        "DTSTART:20250301T050000Z\r\nDTEND:20250301T050100Z\r\nSEQUENCE:2147483647\r\n"
        "X-QUODE-DURATION:-9223372036854775808\r\n");
    EXPECT_EQ(ownEvent().end, ownEvent().start + 1min);
    saveOwnEvent();
    EXPECT_THAT(contentOf(file()), HasSubstr("SEQUENCE:2147483647\r\n"));
    writeOwnEvent("DTSTART:20250301T050000Z\r\nSEQUENCE:-5\r\n");
    saveOwnEvent();
    EXPECT_THAT(contentOf(file()), HasSubstr("SEQUENCE:1\r\n"));
}

TEST_F(ForeignContentTest, AnEventMovedByAnotherProgramIsReadAsItStands) {
    CalendarEvent event = alarmOnDay(14);
    event.start = sys_days(year(2025) / 3 / 14) + 23h + 59min;
    event.end = sys_days(year(2025) / 3 / 14);
    event.identifier = store.saveEvent(event).identifier;
    std::string text = contentOf(file());
    ASSERT_THAT(text, HasSubstr("DTSTART:20250314T235900Z\r\nDTEND:20250315T000000Z\r\n"));

    text.replace(text.find("DTEND:20250315T000000Z"), 22, "DTEND:20250315T010000Z");
    write(file(), text);
    EXPECT_EQ(store.findEvent(event.identifier).event->end, sys_days(year(2025) / 3 / 15) + 1h)
        << "an end that somebody set counts more than ours";
}

TEST_F(ForeignContentTest, TimesWithoutAZoneAreLocalOnes) {
    writeOwnEvent("DTSTART:20250301T050000\r\nDTEND:20250301T051000\r\n");
    EXPECT_EQ(ownEvent().start, sys_days(year(2025) / 2 / 28) + 23h + 15min) << "Kathmandu is 5:45 h east";
    EXPECT_EQ(ownEvent().end, ownEvent().start + 10min);
}

TEST_F(ForeignContentTest, AnAllDayEventIsRecognised) {
    writeOwnEvent("DTSTART;VALUE=DATE:20250301\r\n");
    EXPECT_TRUE(ownEvent().allDay);
    EXPECT_EQ(ownEvent().start, sys_days(year(2025) / 2 / 28) + 18h + 15min);
    EXPECT_EQ(ownEvent().end, ownEvent().start + 24h);
}

TEST_F(ForeignContentTest, AnAlarmAtAFixedTimeIsReadRelativeToTheStart) {
    writeOwnEvent(
        "DTSTART:20250301T050000Z\r\nBEGIN:VALARM\r\nACTION:DISPLAY\r\nTRIGGER;VALUE=DATE-TIME:20250301T043000Z\r\nEND:"
        "VALARM\r\n");
    EXPECT_EQ(ownEvent().alarmOffset, -30min);
}

TEST_F(ForeignContentTest, AnUnreadableEventOfOursIsReportedAndRepairedByTheNextSave) {
    for (const std::string lines :
         {"SUMMARY:no start\r\n", "DTSTART:nonsense\r\n", "DTSTART:20251399T996199Z\r\n", "DTSTART:\r\n"}) {
        writeOwnEvent(lines);
        const FoundEvent found = store.findEvent(kOwnIdentifier);
        EXPECT_FALSE(found.status.ok) << lines;
        EXPECT_THAT(found.status.message, HasSubstr("cannot be read"));
        const EventList list = store.ownEvents();
        EXPECT_TRUE(list.events.empty());
        EXPECT_THAT(list.status.message, HasSubstr(kOwnIdentifier));
        saveOwnEvent();
    }
}

TEST_F(ForeignContentTest, AFoldedIdentifierAndAByteOrderMarkAreUnderstood) {
    const std::string own(kOwnIdentifier);
    const std::string text =
        "\xEF\xBB\xBF"
        "BEGIN:VCALENDAR\nVERSION:2.0\nBEGIN:VEVENT\nUI\n D:" +
        own.substr(0, 9) + "\n\t" + own.substr(9) + "\nDTSTART:20250301T050000Z\nEND:VEVENT\nEND:VCALENDAR";
    write(file(), text);
    EXPECT_EQ(ownEvent().identifier, kOwnIdentifier);
    saveOwnEvent();
    EXPECT_TRUE(
        contentOf(file()).starts_with("\xEF\xBB\xBF"
                                      "BEGIN:VCALENDAR\nVERSION:2.0\nBEGIN:VEVENT\r\n"));
    EXPECT_TRUE(contentOf(file()).ends_with("\nEND:VCALENDAR"));
}

TEST(VdirForeignContentTest, AnEventUnderAnotherFileNameIsReplacedThere) {
    const TemporaryFolder folder;
    VdirEventStore store(folder.path(), quickSurroundings());
    write(folder.path() / "from-server-17.ics", kForeign);
    CalendarEvent event = alarmOnDay(3);
    event.identifier = "dentist@example.org";
    const SavedEvent saved = store.saveEvent(event);
    EXPECT_EQ(saved.identifier, "dentist@example.org");
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "dentist@example.org.ics"));
    EXPECT_EQ(store.findEvent("dentist@example.org").event, event);
    EXPECT_THAT(contentOf(folder.path() / "from-server-17.ics"), HasSubstr("summary:Bread"));
    EXPECT_TRUE(store.removeEvent("dentist@example.org").ok);
    EXPECT_THAT(contentOf(folder.path() / "from-server-17.ics"), HasSubstr("summary:Bread"));
}

TEST(VdirForeignContentTest, EachEventHasAFileOfItsNameThatGoesWithIt) {
    const TemporaryFolder folder;
    VdirEventStore store(folder.path(), quickSurroundings());
    const std::string identifier = store.saveEvent(alarmOnDay(3)).identifier;
    const auto file = folder.path() / (identifier + ".ics");
    EXPECT_THAT(contentOf(file), HasSubstr("UID:" + identifier));
    EXPECT_TRUE(store.removeEvent(identifier).ok);
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST(VdirForeignContentTest, AFileThatCannotBeReadHidesNoOther) {
    const TemporaryFolder folder;
    VdirEventStore store(folder.path(), quickSurroundings());
    const std::string identifier = store.saveEvent(alarmOnDay(3)).identifier;
    write(folder.path() / "aaa.ics", "no calendar");
    write(folder.path() / ".hidden.ics", "no calendar either");
    const EventList list = store.ownEvents();
    EXPECT_EQ(list.events.size(), 1U);
    EXPECT_THAT(list.status.message, HasSubstr("aaa.ics"));
    EXPECT_THAT(list.status.message, Not(HasSubstr("hidden")));
    EXPECT_EQ(contentOf(folder.path() / "aaa.ics"), "no calendar");
}

}  // namespace
}  // namespace quode::test
