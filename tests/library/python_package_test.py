# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
"""The Python package: values, failures, and arrays where NumPy is there."""

import datetime
import gc
import math
import subprocess
import sys
import typing
import unittest

import quode
from quode import Absence, HijriCalendar, HijriDate, Prayer

UTC = datetime.timezone.utc
NOVEMBER = datetime.date(2026, 11, 21)
JUNE = datetime.date(2026, 6, 21)


class Places(unittest.TestCase):
    def test_are_found_by_name_number_and_coordinates(self):
        database = quode.Database()
        london = database.find("London")
        self.assertEqual((london.name, london.country, london.zone), ("London", "GB", "Europe/London"))
        self.assertEqual(database.by_id(london.id).name, "London")
        self.assertEqual(database.nearest(21.42, 39.83).country, "SA")
        self.assertEqual(quode.place_at(51.5, -0.1, "Asia/Tokyo").zone, "Asia/Tokyo")
        self.assertEqual([p.name for p in database.search("Tromsø", 1)], ["Tromsø"])
        self.assertIn("zones 20", database.edition)

    def test_that_are_unknown_raise_with_proposals(self):
        with self.assertRaisesRegex(quode.Error, r"London \(GB") as caught:
            quode.find_place("Lodnon")
        self.assertEqual(caught.exception.status, 2)
        with self.assertRaisesRegex(quode.Error, "No method is called"):
            quode.find_place("London").with_method("nobody")
        with self.assertRaisesRegex(quode.Error, "not on the Earth"):
            quode.qibla(91.0, 0.0)

    def test_have_no_nul_in_their_names(self):
        place = quode.find_place("London")
        for call in (quode.find_place, quode.search_places, place.with_method, quode.Database,
                     lambda text: quode.place_at(0.0, 0.0, text)):
            with self.assertRaisesRegex(ValueError, "NUL"):
                call("London\0x")

    def test_outlive_their_database(self):
        place = quode.Database().find("Cairo")
        gc.collect()
        self.assertEqual(place.name, "Cairo")


class Days(unittest.TestCase):
    def test_have_the_times_by_name_number_and_order(self):
        day = quode.day_for(quode.find_place("London"), NOVEMBER)
        self.assertEqual(day.date, NOVEMBER)
        self.assertIs(day.asr, day[Prayer.ASR])
        self.assertIs(day.isfirar, day.times[8])
        self.assertEqual(day.dhuhr.instant.tzinfo, UTC)
        self.assertEqual(str(day.dhuhr), day.dhuhr.instant.strftime("%H:%M"))  # London has UTC in November
        with self.assertRaises(AttributeError):
            day.noon

    def test_say_why_a_time_is_missing(self):
        fajr = quode.day_at(78.22, 15.65, None, JUNE, "mwl high-latitude=none").fajr
        self.assertFalse(fajr)
        self.assertEqual((str(fajr), fajr.instant, fajr.absence), ("--:--", None, Absence.SUN_NOT_LOW_ENOUGH))
        self.assertIn("does not sink low enough", fajr.absence.text)

    def test_outside_the_calendar_raise(self):
        with self.assertRaisesRegex(quode.Error, "no such day"):
            quode.days_for(quode.find_place("London"), datetime.date(9999, 12, 31), 2)

    def test_lead_to_the_next_prayer(self):
        place = quode.find_place("London")
        isha = quode.day_for(place, JUNE).isha
        following = quode.next_prayer(place, isha.instant - datetime.timedelta(seconds=1))
        self.assertEqual((following.prayer, following.instant, following.date), (Prayer.ISHA, isha.instant, JUNE))
        self.assertGreater(quode.next_prayer(place).instant, datetime.datetime.now(UTC))
        with self.assertRaisesRegex(ValueError, "no time zone"):
            quode.next_prayer(place, datetime.datetime(2026, 6, 21))


class Arrays(unittest.TestCase):
    def test_hold_what_the_days_hold(self):
        numpy = __import__("numpy")
        place = quode.place_at(78.22, 15.65).with_method("mwl high-latitude=none")
        days = quode.days_array(place, JUNE, 300)
        self.assertEqual(days.shape, (300,))
        for row, day in zip(days[::30], quode.days_for(place, JUNE, 300)[::30]):
            self.assertEqual(datetime.date(*row["date"].tolist()), day.date)
            for time, single in zip(row["times"], day.times):
                if single:
                    self.assertEqual(time["instant"], single.instant.timestamp())
                    self.assertEqual(time["hours"], single.hours)
                else:
                    self.assertTrue(math.isnan(time["hours"]))
                    self.assertEqual(time["minute"], numpy.iinfo(numpy.int32).min)

    def test_are_all_that_needs_numpy(self):
        program = "import sys; sys.modules['numpy'] = None; import quode; print(quode.find_place('Cairo').name)"
        printed = subprocess.run([sys.executable, "-B", "-c", program], capture_output=True, text=True, check=True)
        self.assertEqual(printed.stdout, "Cairo\n")


class Calendars(unittest.TestCase):
    def test_lead_to_hijri_dates_and_back(self):
        hijri = HijriDate(1446, 9, 1)  # Ramadan began on 1 March 2025 in the Umm al-Qura calendar
        self.assertEqual(quode.hijri_date(datetime.date(2025, 3, 1), HijriCalendar.UMM_AL_QURA), hijri)
        self.assertEqual(quode.gregorian_date(hijri, HijriCalendar.UMM_AL_QURA), datetime.date(2025, 3, 1))
        self.assertIsNone(quode.hijri_date(datetime.date(2000, 1, 1)))
        self.assertIsNone(quode.gregorian_date(HijriDate(1446, 13, 1)))


class Declarations(unittest.TestCase):
    def test_have_types(self):
        self.assertEqual(typing.get_type_hints(quode.find_place), {"name": str, "return": quode.Place})
        self.assertIn("quode", quode.methods())


if __name__ == "__main__":
    unittest.main()
