#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
"""The fronts show and say the same: in a zone without cities, with newer zone data of the machine, with a method and
minutes of the user's own.

fronts_test.py QUODE SHOWN_TEXTS BUNDLE
"""
import json
import os
import struct
import subprocess
import sys
import tempfile
import unittest

QUODE, SHOWN_TEXTS, BUNDLE = sys.argv[1:4]


def zone_file(offset):
    """A zone with one constant offset, as a TZif file of version 2."""
    header = b"TZif2" + bytes(15) + struct.pack(">6l", 0, 0, 0, 0, 1, 1)
    body = struct.pack(">lBB", offset, 0, 0) + b"\0"
    sign, hours = ("-", offset // 3600) if offset >= 0 else ("", -offset // 3600)
    return header + body + header + body + f"\n<+{offset // 3600:02}>{sign}{hours}\n".encode()


class Fronts(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.zones = os.path.join(self.folder, "zones")

    def run_in(self, program, *arguments, zone="Europe/Istanbul", **others):
        environment = {"PATH": os.environ["PATH"], "HOME": self.folder, "LC_ALL": "C.UTF-8", "TZ": zone,
                       "QUODE_DATA_DIR": os.path.join(self.folder, "data"), "QUODE_BUNDLE_DIR": BUNDLE,
                       "XDG_RUNTIME_DIR": self.folder, "QUODE_NOW": "2026-11-21T04:00:00Z", **others}
        done = subprocess.run([program, *arguments], env=environment, capture_output=True, text=True, check=False)
        self.assertEqual(done.returncode, 0, done.stderr)
        return done.stdout

    def fronts(self, **where):
        """The times of today by the command line, what the panel, its icon and an alarm show, and the first ring."""
        texts = json.loads(self.run_in(SHOWN_TEXTS, **where))  # the panel is the first to make the database
        today = json.loads(self.run_in(QUODE, "today", "--json", **where))
        shown = [text for text in texts["labels"] if len(text) == 5 and text[2] == ":"]
        self.assertEqual(shown, [prayer["time"] for prayer in today["prayers"]][:6])
        self.assertEqual(texts["notes"], today["notes"])
        coming = today["next"]["name"] + " " + today["next"]["time"]
        for text in texts["tray"]:
            self.assertIn(coming, text)
        self.assertIn(today["prayers"][3]["time"], texts["ring"][1])
        return today, texts

    def test_a_zone_without_cities_is_shown_as_mecca_and_said_so(self):
        for zone in ("UTC", "Etc/GMT+5"):
            self.folder = tempfile.mkdtemp(dir=self.folder)
            today, texts = self.fronts(zone=zone)
            self.assertEqual(today["place"]["city"]["name"], "Makkah")
            self.assertEqual(today["place"]["chosen_by"], "fallback")
            self.assertTrue(any("Makkah is shown because the time zone of this system" in note
                                for note in texts["notes"]), texts["notes"])
            self.assertIn("Makkah is shown because", self.run_in(QUODE, "today", zone=zone))
            self.assertIn("Makkah", texts["tray"][1])
            rings = json.loads(self.run_in(QUODE, "alarm", "list", "--json", zone=zone))
            self.assertEqual(rings["city"]["name"], "Makkah")

    def test_newer_zone_data_of_the_machine_move_every_front(self):
        self.run_in(QUODE, "city", "home", "Berlin")
        self.run_in(QUODE, "alarm", "on", "all")
        before, _ = self.fronts()
        old_rings = json.loads(self.run_in(QUODE, "alarm", "upcoming", "--json"))["rings"]
        os.makedirs(os.path.join(self.zones, "Europe"))
        for name in ("Europe/Berlin", "Europe/Istanbul"):
            with open(os.path.join(self.zones, name), "wb") as file:
                file.write(zone_file(2 * 3600))
        with open(os.path.join(self.zones, "tzdata.zi"), "w", encoding="utf-8") as file:
            file.write("# version 2031a\n")
        after, texts = self.fronts(TZDIR=self.zones)
        self.assertEqual(after["zone"]["data"], {"edition": "2031a", "of_system": True})
        self.assertEqual(before["zone"]["offset_hours"], 1.0)
        self.assertEqual(after["zone"]["offset_hours"], 2.0)
        hour = lambda day: int(day["prayers"][2]["time"][:2])
        self.assertEqual(hour(after), hour(before) + 1)
        self.assertIn(after["prayers"][3]["time"], texts["ring"][1])
        # The alarm service rings at the same moments and tells the new clock.
        rings = json.loads(self.run_in(QUODE, "alarm", "upcoming", "--json", TZDIR=self.zones))["rings"]
        self.assertEqual([ring["instant"] for ring in rings], [ring["instant"] for ring in old_rings])
        self.assertNotEqual([ring["prayer_time"] for ring in rings], [ring["prayer_time"] for ring in old_rings])

    def test_what_the_user_changed_is_said_in_every_front(self):
        self.run_in(QUODE, "city", "home", "Istanbul")
        _, texts = self.fronts()
        usual = [note for note in texts["notes"] if note.startswith("Usual in Turkey: ")]
        self.assertEqual(len(usual), 1, texts["notes"])
        self.assertIn("quode method set diyanet", usual[0])
        self.run_in(QUODE, "method", "set", "diyanet", "--adjust", "sunrise=-2")
        self.run_in(QUODE, "iqama", "set", "fajr", "--at", "+20")
        self.run_in(QUODE, "iqama", "set", "dhuhr", "--at", "13:20")
        today, texts = self.fronts()
        self.assertEqual([note for note in texts["notes"] if note.startswith("Usual")], [])
        self.assertIn("Sunrise: with your adjustment of -2 minutes", texts["notes"])
        for text in texts["tray"]:
            self.assertIn("adjusted by you", text)
        self.assertEqual(today["prayers"][2]["iqama"], "13:20")
        hours, minutes = map(int, today["prayers"][0]["time"].split(":"))
        wanted = hours * 60 + minutes + 20
        self.assertEqual(today["prayers"][0]["iqama"], f"{wanted // 60:02}:{wanted % 60:02}")
        self.assertTrue(texts["notes"][0].startswith("Iqama: Fajr "), texts["notes"])
        page = self.run_in(QUODE, "today")
        self.assertIn("iqama 13:20", page)
        self.assertIn("/13:20", self.run_in(QUODE, "month"))
        month = json.loads(self.run_in(QUODE, "month", "--json"))["days"][20]
        self.assertEqual(month["iqama"]["dhuhr"], "13:20")
        self.run_in(QUODE, "method", "set", "quode")
        self.run_in(QUODE, "iqama", "remove")
        _, texts = self.fronts()
        self.assertEqual([note for note in texts["notes"] if "Iqama" in note or "Usual" in note], [])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
