#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
"""All that the programs show is right under every locale: the same times, whole numbers, the same city for a name.

locale_test.py QUODE SHOWN_TEXTS BUNDLE LOCALES
"""
import concurrent.futures
import json
import os
import re
import subprocess
import sys
import tempfile
import unicodedata
import unittest

QUODE, SHOWN_TEXTS, BUNDLE, LOCALES = sys.argv[1:5]

NAMES = ["C.UTF-8"] + [name + ".UTF-8" for name in ("tr_TR", "de_DE", "fr_FR", "ar_EG", "fa_IR", "hi_IN", "id_ID", "en_US")]
CITIES = {"Delhi": "28.65195,77.23149", "Istanbul": "745044", "Kathmandu": "1283240"}

# Digits of two groups around a colon, and a sign of the half of the day.
CLOCK = re.compile(r"(\d{1,2})[:.](\d{2})(?!\d)(?:\s?([^\W\d_]+(?:[. \u202f][^\W\d_]+)*\.?))?")


def run(program, locale, *arguments, folder):
    environment = {"PATH": os.environ["PATH"], "HOME": folder, "LC_ALL": locale, "LOCPATH": LOCALES, "TZ": "Asia/Kathmandu",
                   "QUODE_DATA_DIR": folder, "QUODE_BUNDLE_DIR": BUNDLE, "QUODE_NOW": "2026-11-21T04:00:00Z"}
    done = subprocess.run([program, *arguments], env=environment, capture_output=True, text=True, check=False)
    return done.returncode, done.stdout, done.stderr


def scrambled(line, from_left=False):
    """Whether a number would be drawn on the wrong side of a word of the other direction: in a line that begins from left
    to right, or is always drawn so, a number after a word from right to left joins that word unless it is kept apart."""
    directions = [unicodedata.bidirectional(c) for c in line]
    strong = [d for d in directions if d in ("L", "R", "AL")]
    if not strong or (strong[0] != "L" and not from_left):
        return False
    open_isolates = 0
    last = "L"
    for direction in directions:
        if direction in ("LRI", "RLI", "FSI"):
            open_isolates += 1
        elif direction == "PDI":
            open_isolates -= 1
        elif open_isolates == 0:
            if direction in ("L", "R", "AL"):
                last = direction
            elif direction in ("EN", "AN") and last in ("R", "AL"):
                return True
    return False


def outside_isolates(line):
    text, depth = "", 0
    for c in line:
        depth += unicodedata.bidirectional(c) in ("LRI", "RLI", "FSI")
        text += c if depth == 0 else "\ufffc" if not text.endswith("\ufffc") else ""
        depth -= unicodedata.bidirectional(c) == "PDI"
    return text


def torn(line):
    """Whether a part from left to right of a line from right to left is not kept together: a command, a name, or a number
    with a sign."""
    if not any(unicodedata.bidirectional(c) in ("R", "AL") for c in line):
        return False
    text = outside_isolates(line)
    return bool(re.search(r"[A-Za-z]|[+-]\d|\d[-°']\d|\d'", text))


class UnderEveryLocale(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folders = {name: tempfile.TemporaryDirectory() for name in NAMES}
        with concurrent.futures.ThreadPoolExecutor(2) as pool:
            cls.seen = dict(zip(NAMES, pool.map(cls.look, NAMES)))
        for folder in cls.folders.values():
            folder.cleanup()

    @classmethod
    def look(cls, locale):
        folder = cls.folders[locale].name
        seen = {}
        for city in CITIES.values():
            run(QUODE, locale, "city", "home", city, "--name", "Home", folder=folder) if "," in city else \
                run(QUODE, locale, "city", "home", city, folder=folder)
            run(QUODE, locale, "alarm", "on", "all", folder=folder)
            seen[city, "texts"] = json.loads(run(SHOWN_TEXTS, locale, folder=folder)[1])
            for name, arguments in {
                "today": ("today", "--json"), "month": ("month", "2026-12", "--json"), "alarms": ("alarm", "list", "--json"),
                "rings": ("alarm", "upcoming", "--json"), "csv": ("month", "2026-12", "--format", "csv"),
                "printed": ("today",), "page": ("month", "2026-12"), "qibla": ("qibla",), "doctor": ("doctor",),
            }.items():
                seen[city, name] = run(QUODE, locale, *arguments, folder=folder)
        for word in ("istanbul", "ISTANBUL", "İSTANBUL", "ığdır", "IĞDIR", "izmir"):
            seen["found", word] = run(QUODE, locale, "city", "search", word, "--json", folder=folder)
        with open(os.path.join(folder, "Quode.ics"), encoding="utf-8") as calendar:
            seen["calendar"] = re.findall(r"^(?:DTSTART|DTEND|TRIGGER)\S*", calendar.read(), re.M)
        return seen

    def everywhere(self):
        return [(self.seen[locale], self.seen["C.UTF-8"]) for locale in NAMES[1:]]

    def times(self, document):
        """The numbers of a JSON document, and its texts that are no words of a language."""
        if isinstance(document, dict):
            words = {"name", "month_name", "text", "notes", "description", "sound", "problem", "remedy"}
            return {key: self.times(value) for key, value in document.items() if key not in words}
        if isinstance(document, list):
            return [self.times(value) for value in document]
        return document

    def test_the_clocks_of_the_panel_are_those_of_the_command_line(self):
        for seen, _ in self.everywhere():
            for city in CITIES.values():
                expected = [p["time"] for p in json.loads(seen[city, "today"][1])["prayers"]][:6]
                shown = [minutes(text) for text in seen[city, "texts"]["labels"] if CLOCK.fullmatch(text)]
                self.assertEqual(shown, [minutes(time) for time in expected])

    def test_alarms_and_tray_tell_the_same_clocks(self):
        for seen, plain in self.everywhere():
            for city in CITIES.values():
                for part in ("tray", "ring"):
                    texts, same = seen[city, "texts"][part], plain[city, "texts"][part]
                    self.assertEqual([clocks(text) for text in texts], [clocks(text) for text in same], part)

    def test_numbers_for_machines_are_the_same(self):
        for seen, plain in self.everywhere():
            for city in CITIES.values():
                for name in ("today", "month", "alarms", "rings"):
                    self.assertEqual(self.times(json.loads(seen[city, name][1])), self.times(json.loads(plain[city, name][1])))
                self.assertEqual(seen[city, "csv"], plain[city, "csv"])
            self.assertEqual(seen["calendar"], plain["calendar"])

    def test_printed_clocks_are_the_same(self):
        for seen, plain in self.everywhere():
            for city in CITIES.values():
                for name in ("printed", "page"):
                    self.assertEqual(seen[city, name][0], 0)
                    self.assertEqual(clocks(seen[city, name][1]), clocks(plain[city, name][1]), name)

    def test_decimal_numbers_are_whole(self):
        for seen, plain in self.everywhere():
            for city in CITIES.values():
                numbers = lambda text: [n.replace(",", ".") for n in re.findall(r"\d+[.,]\d+°", text)]
                self.assertEqual(numbers(seen[city, "qibla"][1]), numbers(plain[city, "qibla"][1]))

    def test_a_name_finds_its_city_whatever_its_letters(self):
        for seen, plain in self.everywhere():
            for key in [key for key in plain if key[0] == "found"]:
                ids = lambda run: [hit["city"]["id"] for hit in json.loads(run[1])["cities"]]
                self.assertEqual(ids(seen[key]), ids(plain[key]), key)
                self.assertTrue(ids(seen[key]), key)

    def test_no_line_is_scrambled(self):
        for seen, _ in self.everywhere():
            for city in CITIES.values():
                lines = seen[city, "printed"][1].splitlines() + seen[city, "page"][1].splitlines()
                texts = seen[city, "texts"]
                lines += texts["tray"] + texts["notes"] + texts["ring"]
                self.assertEqual([line for line in lines if scrambled(line)], [])
                self.assertEqual([line for line in texts["drawn"] if scrambled(line, from_left=True)], [])

    def test_commands_names_and_angles_stay_together(self):
        for locale in ("ar_EG.UTF-8", "fa_IR.UTF-8"):
            seen = self.seen[locale]
            for city in CITIES.values():
                lines = list(seen[city, "texts"]["notes"])
                for name in ("printed", "page", "qibla", "doctor"):
                    lines += seen[city, name][1].splitlines()
                self.assertEqual([line for line in lines if torn(line)], [])

    def test_what_is_torn_is_found(self):
        self.assertTrue(scrambled("21 نوفمبر 2026", from_left=True))
        self.assertTrue(scrambled("Sun : 05:41 ص / 07:58 م"))
        self.assertFalse(scrambled("Sun : \u206805:41 ص\u2069 / \u206807:58 م\u2069"))
        self.assertTrue(torn("اختر: quode city home NAME"))
        self.assertTrue(torn("القبلة 151°34'"))
        self.assertFalse(torn("القبلة \u2068151°34'\u2069 06:06"))


MORNING = {"am", "öö", "पूर्वाह्न", "ص", "ق.ظ."}
EVENING = {"pm", "ös", "अपराह्न", "م", "ب.ظ."}


def minutes(clock):
    """A clock text in minutes of the day; 00:15 and 12:15 of the morning are the same."""
    hour, minute, half = CLOCK.search(clock).groups()
    half = (half or "").strip().lower().replace(".", "")
    words = {word.replace(".", "") for word in EVENING}
    evening = any(half.startswith(word) for word in words)
    morning = any(half.startswith(word.replace(".", "")) for word in MORNING)
    hour = int(hour)
    if evening and hour < 12:
        hour += 12
    if morning and hour == 12:
        hour = 0
    return hour * 60 + int(minute)


def clocks(text):
    """The clocks of a text, without the durations and angles in it."""
    return [minutes(match.group(0)) for match in CLOCK.finditer(text) if match.group(2)]


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
