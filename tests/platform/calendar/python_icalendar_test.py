# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
"""python3-icalendar reads our file: times, texts, alarm."""
from datetime import timedelta

import reader_test
from reader_test import ReaderTest, utc

try:
    import icalendar
except ImportError:
    reader_test.skip("python3-icalendar is not installed")


class PythonIcalendarTest(ReaderTest):
    def events(self):
        calendar = icalendar.Calendar.from_ical((self.folder / "Quode.ics").read_bytes())
        self.assertEqual(str(calendar["VERSION"]), "2.0")
        self.assertTrue(str(calendar["PRODID"]))
        return {str(event["UID"]): event for event in calendar.walk("VEVENT")}

    def test_times_texts_and_alarm_are_read_as_saved(self):
        title = "Prayer Alarm, İmsak; ☀\nsecond line \\ " + "ş" * 200
        uid = self.save("file", self.folder, title, utc(2025, 3, 14, 5), utc(2025, 3, 14, 5, 1))
        event = self.events()[uid]
        self.assertEqual(event["DTSTART"].dt, utc(2025, 3, 14, 5))
        self.assertEqual(event["DTEND"].dt, utc(2025, 3, 14, 5, 1))
        self.assertEqual(str(event["SUMMARY"]), title)
        self.assertEqual(str(event["LOCATION"]), "Quode")
        self.assertEqual(event["SEQUENCE"], 0)
        self.assertIn("DTSTAMP", event)
        self.assertIn("LAST-MODIFIED", event)
        (alarm,) = event.walk("VALARM")
        self.assertEqual(alarm["TRIGGER"].dt, timedelta(0))
        self.assertEqual(str(alarm["ACTION"]), "DISPLAY")
        self.assertEqual(str(alarm["DESCRIPTION"]), title)
        self.assertTrue(str(alarm["UID"]))
        self.assertEqual(event.errors, [])

    def test_an_end_on_the_start_day_is_written_as_one_minute(self):
        uid = self.save("file", self.folder, "Prayer Alarm", utc(2025, 3, 14, 23, 59), utc(2025, 3, 14))
        event = self.events()[uid]
        self.assertEqual(event["DTSTART"].dt, utc(2025, 3, 14, 23, 59))
        self.assertEqual(event["DTEND"].dt, utc(2025, 3, 15))
        self.assertEqual(event.errors, [])

    def test_no_line_is_longer_than_the_format_allows(self):
        self.save("file", self.folder, "ğ☀🕌" * 100, utc(2025, 3, 14, 5), utc(2025, 3, 14, 5, 1))
        for line in (self.folder / "Quode.ics").read_bytes().split(b"\r\n"):
            self.assertLessEqual(len(line), 75)
            line.decode("utf-8")

    def test_a_replaced_event_keeps_its_alarms_identifier(self):
        uid = self.save("file", self.folder, "a", utc(2025, 3, 14, 5), utc(2025, 3, 14, 5, 1))
        before = self.events()[uid].walk("VALARM")[0]["UID"]
        self.save("file", self.folder, "b", utc(2025, 3, 15, 5), utc(2025, 3, 15, 5, 1), uid)
        after = self.events()
        self.assertEqual(list(after), [uid])
        self.assertEqual(after[uid].walk("VALARM")[0]["UID"], before)
        self.assertEqual(after[uid]["SEQUENCE"], 1)


reader_test.main()
