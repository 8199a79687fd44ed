#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
"""What other programs read out of the printed timetables and calendars is what the command line computes.

printed_times_test.py QUODE: pdftotext reads the PDFs, html.parser the HTML, python3-icalendar and khal the calendars."""
import csv
import datetime
import html.parser
import io
import os
import re
import subprocess
import sys
import tempfile
import unittest
import zoneinfo

import icalendar

QUODE = sys.argv.pop(1)
KEYS = ["fajr", "sunrise", "dhuhr", "asr", "maghrib", "isha"]
ALL_KEYS = KEYS + ["ishraq", "asr_hanafi", "isfirar"]
TIME = re.compile(r"(?<![\d-])(\d\d:\d\d|--:--)(?!\d)")


class Cells(html.parser.HTMLParser):
    """The rows of all tables."""

    def __init__(self):
        super().__init__()
        self.rows, self.isCell, self.links = [], False, []

    def handle_starttag(self, tag, attributes):
        if tag == "tr":
            self.rows.append([])
        self.isCell = tag in ("td", "time") if tag in ("td", "th", "time", "tr") else self.isCell
        self.links += [value for name, value in attributes if name in ("href", "src")]
        if tag == "td":
            self.rows[-1].append("")

    def handle_endtag(self, tag):
        if tag == "td":
            self.isCell = False

    def handle_data(self, data):
        if self.isCell and self.rows and self.rows[-1]:
            self.rows[-1][-1] += data


class PrintedTimes(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.home = tempfile.TemporaryDirectory()
        cls.environment = {**os.environ, "HOME": cls.home.name, "TZ": "Europe/Istanbul", "LC_ALL": "C.UTF-8",
                           "QUODE_NOW": "2026-11-21T04:00:00Z", "QUODE_DATA_DIR": cls.home.name + "/data",
                           "XDG_CACHE_HOME": os.environ.get("XDG_CACHE_HOME", os.path.expanduser("~/.cache"))}

    @classmethod
    def tearDownClass(cls):
        cls.home.cleanup()

    def run_quode(self, *arguments, code=0):
        done = subprocess.run([QUODE, *arguments], capture_output=True, env=self.environment, check=False)
        self.assertEqual(done.returncode, code, done.stderr.decode())
        return done.stdout

    def computed(self, city, *more):
        """Of a year: day -> row of the CSV."""
        text = self.run_quode("year", "2026", "--city", city, "--format", "csv", *more).decode()
        return {row["date"]: row for row in csv.DictReader(io.StringIO(text))}

    def text_of(self, pdf):
        done = subprocess.run(["pdftotext", "-layout", "-", "-"], input=pdf, capture_output=True, check=True)
        return done.stdout.decode()

    def times_of_pages(self, pdf):
        """The times of each line that holds a day, in the order of the pages."""
        lines = [re.sub("[¹²³⁴⁵⁶]", "", line) for line in self.text_of(pdf).splitlines()]
        found = [TIME.findall(line) for line in lines]
        return [times for line, times in zip(lines, found) if len(times) >= 6]

    def test_pdf_has_the_times_of_a_year(self):
        for city in ("Istanbul", "London", "Tromsø", "Sydney"):
            rows = self.computed(city)
            pages = self.times_of_pages(self.run_quode("year", "2026", "--city", city, "--format", "pdf"))
            self.assertEqual(len(pages), 365, city)
            for (date, row), times in zip(rows.items(), pages):
                self.assertEqual(times, [row[key] or "--:--" for key in KEYS], (city, date))

    def test_arabic_pdf_has_them_from_right_to_left(self):
        rows = self.computed("Cairo", "--night")
        pages = self.times_of_pages(self.run_quode("year", "2026", "--city", "Cairo", "--format", "pdf", "--lang", "ar",
                                                   "--all", "--night", "--paper", "letter"))
        self.assertEqual(len(pages), 365)
        for (date, row), times in zip(rows.items(), pages):
            expected = [row[key] for key in ALL_KEYS + ["first_third", "midnight", "last_third"]]
            self.assertEqual(times[::-1], expected, date)

    def test_sheet_is_one_page_with_every_time(self):
        pdf = self.run_quode("year", "2026", "--city", "Istanbul", "--format", "pdf", "--sheet")
        info = subprocess.run(["pdfinfo", "-"], input=pdf, capture_output=True, check=True).stdout.decode()
        self.assertRegex(info, r"Pages: +1\n")
        printed = sorted(TIME.findall(self.text_of(pdf)))
        rows = self.computed("Istanbul")
        self.assertEqual(printed, sorted(row[key] for row in rows.values() for key in KEYS))

    def test_fonts_are_embedded_and_paper_is_as_asked(self):
        for paper, size in (("a4", "595.276 x 841.89"), ("letter", "612 x 792")):
            pdf = self.run_quode("month", "2026-03", "--format", "pdf", "--paper", paper, "--lang", "ar")
            with tempfile.NamedTemporaryFile() as file:
                file.write(pdf)
                file.flush()
                fonts = subprocess.run(["pdffonts", file.name], capture_output=True, check=True).stdout.decode()
                info = subprocess.run(["pdfinfo", file.name], capture_output=True, check=True).stdout.decode()
            self.assertIn(size, info)
            rows = fonts.splitlines()[2:]
            self.assertTrue(rows)
            for row in rows:
                self.assertRegex(row, r"yes yes yes +\d+ +0$")  # embedded, subset, with the letters' meaning

    def test_html_has_the_times_of_a_year_and_refers_to_nothing(self):
        rows = self.computed("London")
        text = self.run_quode("year", "2026", "--city", "London", "--format", "html").decode()
        page = Cells()
        page.feed(text)
        self.assertEqual(page.links, [])
        self.assertNotIn("url(", text)
        days = [row for row in page.rows if row]
        self.assertEqual(len(days), 365)
        for (date, row), cells in zip(rows.items(), days):
            self.assertEqual([cell[:5] for cell in cells[3:9]], [row[key] for key in KEYS], date)

    def test_html_is_mirrored_in_arabic(self):
        text = self.run_quode("month", "2026-03", "--format", "html", "--lang", "ar").decode()
        self.assertIn('<html lang="ar" dir="rtl">', text)

    def test_iqama_has_a_column_where_it_is_known(self):
        self.run_quode("iqama", "set", "--at", "+25", "fajr", "--city", "Ankara")
        self.run_quode("iqama", "set", "--at", "13:30", "dhuhr", "--city", "Ankara")
        pages = self.times_of_pages(self.run_quode("year", "2026", "--city", "Ankara", "--format", "pdf"))
        rows = self.computed("Ankara")
        for (date, row), times in zip(rows.items(), pages):
            fajr = datetime.datetime.strptime(row["fajr"], "%H:%M") + datetime.timedelta(minutes=25)
            expected = [row[key] for key in KEYS]
            expected[1:1] = [fajr.strftime("%H:%M")]
            expected[4:4] = ["13:30"]
            self.assertEqual(times, expected, date)

    def test_iqama_that_is_no_time_is_refused(self):
        for when in ("20", "+", "+1000", "25:00", "12:60", "noon"):
            self.run_quode("iqama", "set", "--at", when, "--city", "Bursa", code=2)
        self.run_quode("iqama", "set", "--at", "+10", "--city", "40.1,29.1", code=2)

    def test_night_is_divided_between_sunset_and_dawn(self):
        for row in self.computed("Istanbul", "--night").values():
            hours = {key: int(text[:2]) + int(text[3:]) / 60 for key, text in row.items() if TIME.fullmatch(text)}
            night = 24 - hours["maghrib"] + hours["fajr"]
            for key, share in (("first_third", 1 / 3), ("midnight", 1 / 2), ("last_third", 2 / 3)):
                expected = (hours["maghrib"] + night * share) % 24
                away = abs(hours[key] - expected)
                self.assertLess(min(away, 24 - away), 2.5 / 60, (row["date"], key))  # each is rounded to the minute

    def instants(self, city, zone):
        """Of a year: (day, prayer) -> instant, by the zone data of Python."""
        result = {}
        for date, row in self.computed(city).items():
            for key in KEYS:
                day = datetime.date.fromisoformat(date)
                if f"{key}_after_midnight" in row["notes"].split():
                    day += datetime.timedelta(days=1)
                clock = datetime.time.fromisoformat(row[key])
                local = datetime.datetime.combine(day, clock, zoneinfo.ZoneInfo(zone))
                result[(date, key)] = local.astimezone(datetime.timezone.utc)
        return result

    def test_calendar_has_the_instants_of_a_year(self):
        for city, zone in (("Istanbul", "Europe/Istanbul"), ("London", "Europe/London"), ("Oslo", "Europe/Oslo")):
            expected = self.instants(city, zone)
            text = self.run_quode("year", "2026", "--city", city, "--format", "ics")
            read = icalendar.Calendar.from_ical(text)
            self.assertEqual(str(read["X-WR-TIMEZONE"]), zone)
            events = {}
            for event in read.walk("VEVENT"):
                date, key = re.fullmatch(r"(\d{4}-\d\d-\d\d)-(\w+)-\d+@quode", str(event["UID"])).groups()
                events[(date, key)] = event["DTSTART"].dt.astimezone(datetime.timezone.utc)
                self.assertEqual(event.walk("VALARM"), [])
            # A day on which the clocks change counts as the time at its noon, a clock before the change does not.
            changed = {"2026-03-29", "2026-10-25"} if city != "Istanbul" else set()
            for moment, instant in events.items():
                if moment[0] not in changed:
                    self.assertEqual(instant, expected[moment], (city, moment))
            self.assertEqual(events.keys(), expected.keys())

    def test_calendar_has_the_same_identifiers_when_the_times_change(self):
        def uids(*more):
            text = self.run_quode("month", "2026-05", "--city", "London", "--format", "ics", *more)
            return {str(event["UID"]) for event in icalendar.Calendar.from_ical(text).walk("VEVENT")}

        self.assertEqual(uids(), uids("--method", "mwl"))
        self.assertEqual(len(uids()), 31 * 6)

    def test_calendar_has_reminders_on_request(self):
        text = self.run_quode("month", "2026-05", "--city", "London", "--format", "ics", "--alarm", "10")
        alarms = icalendar.Calendar.from_ical(text).walk("VALARM")
        self.assertEqual(len(alarms), 31 * 6)
        self.assertEqual({alarm["TRIGGER"].dt for alarm in alarms}, {datetime.timedelta(minutes=-10)})

    def test_khal_shows_the_same_times(self):
        with tempfile.TemporaryDirectory() as folder:
            os.makedirs(folder + "/calendar")
            file, settings = folder + "/times.ics", folder + "/khal.conf"
            self.run_quode("month", "2026-06", "--city", "Istanbul", "--format", "ics", "--output", file)
            with open(settings, "w", encoding="utf-8") as text:
                text.write(f"[calendars]\n[[prayers]]\npath = {folder}/calendar\ntype = calendar\n[locale]\n"
                           "local_timezone = Europe/Istanbul\ndefault_timezone = Europe/Istanbul\ntimeformat = %H:%M\n"
                           "dateformat = %Y-%m-%d\nlongdateformat = %Y-%m-%d\ndatetimeformat = %Y-%m-%d %H:%M\n"
                           "longdatetimeformat = %Y-%m-%d %H:%M\n[sqlite]\n"
                           f"path = {folder}/khal.db\n")
            environment = {**self.environment, "HOME": folder, "XDG_DATA_HOME": folder}
            khal = ["khal", "-c", settings]
            subprocess.run(khal + ["import", "--batch", "-a", "prayers", file], env=environment, check=True,
                           capture_output=True)
            done = subprocess.run(khal + ["list", "--notstarted", "-df", "", "--format", "{start-date} {start-time}",
                                          "2026-06-01", "30d"], env=environment, check=True, capture_output=True)
        rows = self.computed("Istanbul")
        expected = [f"{date} {row[key]}" for date, row in rows.items() if date.startswith("2026-06") for key in KEYS]
        self.assertEqual([line for line in done.stdout.decode().splitlines() if line.strip()], expected)

    def test_published_calendar_stays_the_same_until_something_changes(self):
        file = self.home.name + "/prayers.ics"
        self.run_quode("calendar", "publish", file)
        with open(file, "rb") as text:
            first = text.read()
        written = os.stat(file).st_ino
        self.run_quode("calendar", "publish", file)
        self.assertEqual(os.stat(file).st_ino, written)
        events = icalendar.Calendar.from_ical(first).walk("VEVENT")
        self.assertEqual(len(events), 94 * 6)
        self.run_quode("calendar", "publish", file, "--alarm", "5")
        with open(file, "rb") as text:
            self.assertNotEqual(text.read(), first)
        self.assertIn(b"no longer", self.run_quode("calendar", "unpublish"))
        self.assertTrue(os.path.exists(file))

    def test_published_calendar_replaces_no_other_file(self):
        file = self.home.name + "/letter.txt"
        with open(file, "w", encoding="utf-8") as text:
            text.write("Dear aunt")
        self.run_quode("calendar", "publish", file, code=2)
        with open(file, encoding="utf-8") as text:
            self.assertEqual(text.read(), "Dear aunt")

    def test_options_of_another_format_are_refused(self):
        for arguments in (["--format", "html", "--paper", "letter"], ["--format", "pdf", "--alarm", "5"],
                          ["--format", "ics", "--alarm", "soon"], ["--format", "pdf", "--output", "/"]):
            self.run_quode("month", *arguments, code=2)


if __name__ == "__main__":
    unittest.main()
