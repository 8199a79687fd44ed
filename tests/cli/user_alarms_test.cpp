// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode alarm: set up, switched, shown, and written to the calendar.
#include <gtest/gtest.h>
#include <libical/ical.h>
#include <sys/stat.h>

#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>

#include "program.h"
#include "support/temporary_folder.h"

namespace quode::test {
namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;

/// What another program reads of an event.
struct ReadEvent {
    std::string uid, start, end, title, location;
    std::string alarmAction, alarmTrigger;
};

struct FreeComponent {
    void operator()(icalcomponent* component) const { icalcomponent_free(component); }
};
using Calendar = std::unique_ptr<icalcomponent, FreeComponent>;

std::string utcText(icaltimetype time) {
    std::unique_ptr<char, decltype(&free)> text(icaltime_as_ical_string_r(time), &free);
    return text.get();
}

std::string valueOf(icalcomponent* component, icalproperty_kind kind) {
    icalproperty* property = icalcomponent_get_first_property(component, kind);
    if (property == nullptr) return "";
    const std::unique_ptr<char, decltype(&free)> text(icalproperty_get_value_as_string_r(property), &free);
    return text.get();
}

ReadEvent readEvent(icalcomponent* event) {
    icalcomponent* alarm = icalcomponent_get_first_component(event, ICAL_VALARM_COMPONENT);
    return {icalcomponent_get_uid(event),
            utcText(icalcomponent_get_dtstart(event)),
            utcText(icalcomponent_get_dtend(event)),
            icalcomponent_get_summary(event),
            icalcomponent_get_location(event),
            alarm ? valueOf(alarm, ICAL_ACTION_PROPERTY) : "",
            alarm ? valueOf(alarm, ICAL_TRIGGER_PROPERTY) : ""};
}

/// The events of a calendar file, in the order of their start.
std::multimap<std::string, ReadEvent> eventsIn(const fs::path& file) {
    std::ifstream stream(file);
    const std::string text{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    const Calendar calendar(icalparser_parse_string(text.c_str()));
    std::multimap<std::string, ReadEvent> events;
    if (!calendar) return events;
    EXPECT_EQ(icalcomponent_count_errors(calendar.get()), 0);
    for (icalcomponent* event = icalcomponent_get_first_component(calendar.get(), ICAL_VEVENT_COMPONENT);
         event != nullptr; event = icalcomponent_get_next_component(calendar.get(), ICAL_VEVENT_COMPONENT)) {
        const ReadEvent read = readEvent(event);
        events.emplace(read.start, read);
    }
    return events;
}

/// "20261122T025200Z" for "2026-11-22T02:52:00Z".
std::string compact(std::string moment) {
    std::erase_if(moment, [](char character) { return character == '-' || character == ':'; });
    return moment;
}

void expectRefusedAlarm(const Words& words, int code, const std::string& message) {
    const Program program;
    const Outcome run = program.run(words);
    EXPECT_EQ(run.code, code) << run.err;
    EXPECT_EQ(run.out, "");
    EXPECT_TRUE(run.err.starts_with("quode: ")) << run.err;
    EXPECT_NE(run.err.find(message), std::string::npos) << run.err;
    const nlohmann::json list = program.run({"alarm", "list", "--json"}).json();
    for (const auto& alarm : list["alarms"]) {
        EXPECT_EQ(alarm["on"], false);
        EXPECT_EQ(alarm["offset_minutes"], 0);
        EXPECT_EQ(alarm["sound"], "chime");
    }
}

TEST(UserAlarms, AreSixThatAreOffAtFirst) {
    const Program program;
    const Outcome list = program.run({"alarm", "list"});
    EXPECT_EQ(list.code, 0);
    EXPECT_EQ(list.out,
              "Istanbul  Istanbul, Turkey\n\n"
              "   Fajr     06:07  tomorrow  off\n"
              "   Sunrise  07:52  today     off\n"
              "   Dhuhr    13:01  today     off\n"
              "   Asr      15:32  today     off\n"
              "   Maghrib  17:50  today     off\n"
              "   Isha     19:23  today     off\n\n"
              "Istanbul is the largest city in the time zone of this system, Europe/Istanbul.\n"
              "To choose another one: quode city home NAME.\n");
    EXPECT_EQ(program.run({"alarm", "upcoming"}).out, "No alarm is on. To switch one on: quode alarm on PRAYER.\n");
    EXPECT_TRUE(program.run({"alarm", "upcoming", "--json"}).json()["rings"].empty());
    EXPECT_FALSE(fs::exists(program.dataFolder() / "user.sqlite"));
}

TEST(UserAlarms, SetUpAndSwitchedOnComeBackFromTheCalendar) {
    const Program program;
    const Outcome set = program.run({"alarm", "set", "fajr", "--offset", "-15", "--sound", "bell"});
    EXPECT_EQ(set.code, 0) << set.err;
    EXPECT_EQ(set.lineWith("Fajr"), "   Fajr     06:07  tomorrow  off  05:52  15 min before  bell");
    EXPECT_FALSE(fs::exists(program.dataFolder() / "Quode.ics")) << "an alarm that is off has no event";

    const Outcome on = program.run({"alarm", "on", "fajr"});
    EXPECT_EQ(on.code, 0) << on.err;
    EXPECT_EQ(on.lineWith("Fajr"), "›  Fajr     06:07  tomorrow  on   05:52  15 min before  bell");
    const auto events = eventsIn(program.dataFolder() / "Quode.ics");
    ASSERT_EQ(events.size(), 1U);
    const ReadEvent& event = events.begin()->second;
    EXPECT_EQ(event.start, "20261122T025200Z");
    EXPECT_EQ(event.end, "20261122T025300Z");
    EXPECT_EQ(event.title, "Prayer Alarm");
    EXPECT_EQ(event.location, "Quode");
    EXPECT_EQ(event.alarmAction, "DISPLAY");
    EXPECT_EQ(event.alarmTrigger, "PT0S");
}

TEST(UserAlarms, UpcomingAreTheEventsOfTheCalendarInTheirOrder) {
    const Program program;
    program.run({"alarm", "set", "isha", "--offset", "20"});
    program.run({"alarm", "on", "all"});
    const auto rings = program.run({"alarm", "upcoming", "--json"}).json()["rings"];
    const auto events = eventsIn(program.dataFolder() / "Quode.ics");
    ASSERT_EQ(rings.size(), 6U);
    ASSERT_EQ(events.size(), 6U);
    auto event = events.begin();
    for (const auto& ring : rings) EXPECT_EQ(compact(ring["instant"]), (event++)->second.start);
    EXPECT_EQ(rings[0]["key"], "sunrise") << "the sunrise of today comes next at seven in the morning";
    EXPECT_EQ(rings[5]["key"], "fajr");
    EXPECT_EQ(rings[5]["date"], "2026-11-22");
    EXPECT_EQ(rings[4]["key"], "isha");
    EXPECT_EQ(rings[4]["instant"], "2026-11-21T16:43:00Z");
    EXPECT_EQ(rings[4]["prayer_instant"], "2026-11-21T16:23:00Z");
    EXPECT_EQ(rings[4]["prayer_time"], "19:23");
    EXPECT_EQ(rings[4]["seconds_left"], (16 - 4) * 3600 + 43 * 60);
    EXPECT_EQ(rings[4]["sound"], "chime");
    EXPECT_EQ(rings[4]["snoozed"], false);
}

TEST(UserAlarms, UpcomingAreReportedWithTheTimeLeftAndWhoRings) {
    const Program program;
    program.run({"alarm", "on", "dhuhr"});
    program.run({"alarm", "on", "fajr"});
    EXPECT_EQ(program.run({"alarm", "upcoming"}).out,
              "Istanbul  Istanbul, Turkey\n\n"
              "13:01  Dhuhr  at the time  in 6 h 1 min             chime\n"
              "06:07  Fajr   at the time  tomorrow, in 23 h 7 min  chime\n\n"
              "Istanbul is the largest city in the time zone of this system, Europe/Istanbul.\n"
              "To choose another one: quode city home NAME.\n\n"
              "! The alarm service is not running: nothing rings. Start it:\n"
              "  quode-alarmd\n");
    const auto ringer = program.run({"alarm", "upcoming", "--json"}).json()["ringer"];
    EXPECT_EQ(ringer["program"], "quode");
    EXPECT_EQ(ringer["alarm_service_runs"], false);
    EXPECT_EQ(ringer["remedy"], "quode-alarmd");
}

TEST(UserAlarms, UpcomingAreExplainedWhenNoneRingsWithinADay) {
    const Program program;
    program.run({"city", "home", "Istanbul"});
    program.run({"alarm", "on", "fajr"});
    program.run({"alarm", "skip", "fajr"});
    const Outcome skipped = program.run({"alarm", "upcoming"});
    EXPECT_EQ(skipped.lineWith("Fajr"), "Fajr rings next: Mon 06:08, in 47 h 8 min");
    EXPECT_EQ(skipped.out.find("muted"), std::string::npos) << skipped.out;
    program.run({"alarm", "mute"});
    EXPECT_EQ(program.run({"alarm", "upcoming"}).lineWith("muted"), "All alarms are muted until Sun 00:00.");
    const std::string fajr = program.run({"alarm", "list"}).lineWith("Fajr");
    EXPECT_NE(fajr.find("muted until Sun 00:00; skipped until Sun 06:07"), std::string::npos) << fajr;
}

TEST(UserAlarms, SwitchedOffLeaveTheCalendarAndKeepTheirSetting) {
    const Program program;
    program.run({"alarm", "set", "fajr", "--offset", "-15"});
    program.run({"alarm", "on", "fajr"});
    program.run({"alarm", "on", "isha"});
    const Outcome off = program.run({"alarm", "off", "fajr"});
    EXPECT_EQ(off.code, 0) << off.err;
    EXPECT_EQ(off.lineWith("Fajr"), "   Fajr     06:07  tomorrow  off  05:52  15 min before  chime");
    EXPECT_EQ(eventsIn(program.dataFolder() / "Quode.ics").size(), 1U);
    EXPECT_EQ(program.run({"alarm", "off", "all"}).code, 0);
    EXPECT_TRUE(eventsIn(program.dataFolder() / "Quode.ics").empty());
    EXPECT_EQ(program.run({"alarm", "off", "asr"}).code, 0) << "one that never was on";
}

TEST(UserAlarms, ThatWereNeverSetUpRingAtTheTimeWithTheUsualSound) {
    const Program program;
    program.run({"settings", "sound", "gong"});
    const Outcome on = program.run({"alarm", "on", "maghrib", "--json"});
    EXPECT_EQ(on.code, 0) << on.err;
    const auto alarm = on.json()["alarms"][4];
    EXPECT_EQ(alarm["key"], "maghrib");
    EXPECT_EQ(alarm["on"], true);
    EXPECT_EQ(alarm["offset_minutes"], 0);
    EXPECT_EQ(alarm["sound"], "gong");
    EXPECT_EQ(alarm["next"]["instant"], "2026-11-21T14:50:00Z");
}

TEST(UserAlarms, FollowTheHomeCity) {
    const Program program;
    program.run({"alarm", "on", "maghrib"});
    const auto before = eventsIn(program.dataFolder() / "Quode.ics").begin()->second;
    program.run({"city", "home", "Berlin"});
    const auto after = eventsIn(program.dataFolder() / "Quode.ics").begin()->second;
    EXPECT_EQ(before.start, "20261121T145000Z");
    EXPECT_EQ(after.start, "20261121T151700Z") << "16:17 in Berlin, on a device that is in Istanbul";
    EXPECT_EQ(after.uid, before.uid);
}

TEST(UserAlarms, AreChangedWhileTheyAreOn) {
    const Program program;
    program.run({"alarm", "on", "maghrib"});
    program.run({"alarm", "set", "maghrib", "--offset", "5"});
    EXPECT_EQ(eventsIn(program.dataFolder() / "Quode.ics").begin()->second.start, "20261121T145500Z");
    EXPECT_EQ(eventsIn(program.dataFolder() / "Quode.ics").size(), 1U);
}

TEST(UserAlarms, AreNamedByNameKeyOrNumberInAnyLanguage) {
    for (const char* name : {"isha", "Isha", "yatsi", "Yatsı", "6"}) {
        const Program program;
        EXPECT_EQ(program.run({"alarm", "on", name, "--json"}).json()["alarms"][5]["on"], true) << name;
    }
}

TEST(UserAlarms, AreRefusedForWhatIsNoPrayer) {
    for (const char* command : {"on", "off"}) {
        expectRefusedAlarm({"alarm", command, "foo"}, 2, "There is no prayer \"foo\". Use one of Fajr, Sunrise");
        expectRefusedAlarm({"alarm", command}, 2, "needs PRAYER.");
    }
    expectRefusedAlarm({"alarm", "set", "7", "--offset", "2"}, 2, "There is no prayer \"7\"");
    expectRefusedAlarm({"alarm", "set", "israk", "--offset", "2"}, 2, "There is no prayer \"israk\"");
    expectRefusedAlarm({"alarm", "test", "foo"}, 2, "There is no prayer \"foo\"");
}

TEST(UserAlarms, AreRefusedWithAnImpossibleOffsetOrSound) {
    expectRefusedAlarm({"alarm", "set", "fajr", "--offset", "x"}, 2, "--offset is a number of minutes, such as -15");
    expectRefusedAlarm({"alarm", "set", "fajr", "--offset", "1.5"}, 2, "not \"1.5\"");
    expectRefusedAlarm({"alarm", "set", "fajr", "--offset", ""}, 2, "--offset is a number");
    expectRefusedAlarm({"alarm", "set", "fajr", "--offset", "99999999999"}, 2, "--offset is a number");
    expectRefusedAlarm({"alarm", "set", "fajr", "--offset", "721"}, 2, "at most 720 minutes before or after");
    expectRefusedAlarm({"alarm", "set", "fajr", "--offset", "-721"}, 2, "at most 720 minutes");
    expectRefusedAlarm({"alarm", "set", "fajr"}, 2, "--offset MINUTES, --sound NAME, or both");
    expectRefusedAlarm({"alarm", "set", "fajr", "--sound", "nosuch"}, 1,
                       "There is no sound \"nosuch\". Use one of bell");
    expectRefusedAlarm({"alarm", "set", "fajr", "--sound", "/etc/passwd"}, 1, "neither a WAV nor an Ogg Vorbis file");
    const TemporaryFolder folder;
    const std::string pipe = folder.path() / "sound.wav";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    for (const std::string& path : {pipe, folder.path().string()}) {
        expectRefusedAlarm({"alarm", "set", "fajr", "--sound", path}, 1, "neither a WAV nor an Ogg Vorbis file");
    }
    expectRefusedAlarm({"alarm", "test", "--seconds", "61"}, 2, "from 1 to 60");
}

TEST(UserAlarms, AreThoseOfTheFallbackCityInAZoneWithoutCities) {
    Program program;
    program.with("TZ", "UTC");
    const Outcome on = program.run({"alarm", "on", "fajr"});
    EXPECT_EQ(on.code, 0);
    EXPECT_NE(on.err.find("Add your city: quode city add NAME"), std::string::npos) << on.err;
    EXPECT_EQ(program.run({"alarm", "list", "--json"}).json()["city"]["name"], "Makkah") << "shown by every front";
}

TEST(UserAlarms, TakeAFileAsTheirSound) {
    const Program program;
    const fs::path file = program.folder() / "ring.wav";
    std::ofstream(file, std::ios::binary) << std::string("RIFF\x24\0\0\0WAVEfmt ", 16);
    const Outcome set = program.run({"alarm", "set", "fajr", "--sound", file.string(), "--json"});
    EXPECT_EQ(set.code, 0) << set.err;
    EXPECT_EQ(set.json()["alarms"][0]["sound"], file.string());
}

TEST(UserAlarms, ShowTheNameOfASoundWithoutWhatATerminalObeys) {
    const Program program;
    const fs::path file = program.folder() / "a\x1B[31mb\u2069\u200Ec\u2028d.wav";
    std::ofstream(file, std::ios::binary) << std::string("RIFF\x24\0\0\0WAVEfmt ", 16);
    program.run({"city", "home", "Ankara"});
    EXPECT_EQ(program.run({"alarm", "set", "all", "--sound", file.string()}).code, 0);
    program.run({"alarm", "on", "all"});
    program.run({"settings", "sound", file.string()});
    for (const std::vector<std::string>& words : {std::vector<std::string>{"alarm", "list"},
                                                  {"alarm", "upcoming"},
                                                  {"doctor"},
                                                  {"settings"},
                                                  {"settings", "sound"}}) {
        const std::string out = program.run(words).out;
        EXPECT_NE(out.find("a[31mbcd.wav"), std::string::npos) << out;
        EXPECT_EQ(out.find('\x1B'), std::string::npos) << out;
    }
    EXPECT_EQ(program.run({"alarm", "list", "--json"}).json()["alarms"][0]["sound"], file.string());
}

TEST(UserAlarms, FitInEightyColumnsInEachLanguage) {
    const Program program;
    program.run({"alarm", "set", "all", "--offset", "-720", "--sound", "morning"});
    program.run({"alarm", "on", "all"});
    for (const char* language : {"tr", "en", "fr", "de"}) {
        for (const char* command : {"list", "upcoming"}) {
            for (const std::string& line : program.run({"alarm", command, "--lang", language}).lines()) {
                EXPECT_LE(widthOf(line), 80) << line;
            }
        }
    }
}

}  // namespace
}  // namespace quode::test
