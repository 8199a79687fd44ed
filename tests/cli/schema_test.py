# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
"""What the commands print as JSON fits the installed schema. Members that the schema does not describe are reported.

schema_test.py PROGRAM SCHEMA
"""
import json
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

import jsonschema

PROGRAM, SCHEMA = sys.argv[1], pathlib.Path(sys.argv[2])

# A city with times all year round, one where fallbacks help, one of which nothing is known but its coordinates, and one
# without a day and a night in June.
PLACES = ["Ankara", "Oslo", "-51.7,-57.85", "Longyearbyen"]
DAYS = ["2026-06-21", "2026-11-21", "1453-05-29"]


def closed(schema):
    """The schema, allowing no member that it does not describe."""
    if isinstance(schema, dict):
        result = {key: closed(value) for key, value in schema.items()}
        if schema.get("type") == "object" and "properties" in schema:
            result["additionalProperties"] = False
        return result
    if isinstance(schema, list):
        return [closed(value) for value in schema]
    return schema


def problems_of(output, schema):
    validator = jsonschema.Draft202012Validator(schema)
    return [f"{list(error.path)}: {error.message}" for error in validator.iter_errors(output)]


class Schema(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.schema = json.loads(SCHEMA.read_text(encoding="utf-8"))
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)

    def printed(self, *arguments):
        environment = {**os.environ, "QUODE_DATA_DIR": self.folder.name, "QUODE_NOW": "2026-11-21T09:00:00Z",
                       "LC_ALL": "C.UTF-8", "XDG_RUNTIME_DIR": self.folder.name}
        environment.pop("DBUS_SESSION_BUS_ADDRESS", None)
        run = subprocess.run([PROGRAM, *arguments, "--json"], env=environment, capture_output=True, text=True)
        self.assertTrue(run.stdout, f"{arguments}: {run.stderr}")
        return json.loads(run.stdout)

    def fit(self, definition, *arguments):
        output = self.printed(*arguments)
        schema = {"$schema": self.schema["$schema"], "$ref": "#/$defs/" + definition, "$defs": self.schema["$defs"]}
        self.assertEqual(problems_of(output, schema), [], f"{arguments} does not fit {definition}")
        for problem in problems_of(output, closed(schema)):
            print(f"{arguments}: not in the schema: {problem}", file=sys.stderr)

    def test_the_schema_is_one(self):
        jsonschema.Draft202012Validator.check_schema(self.schema)

    def test_a_wrong_output_does_not_fit(self):
        wrong = self.printed("next", "--city", "Ankara")
        wrong["next"]["key"] = "dawn"
        with self.assertRaises(jsonschema.ValidationError):
            jsonschema.Draft202012Validator(self.schema).validate(wrong)

    def test_days(self):
        for place in PLACES:
            for day in DAYS:
                where = ["--city=" + place, "--date", day]
                self.fit("today", "today", *where)
                self.fit("qibla", "qibla", *where)
                self.fit("moon", "moon", *where)
                self.fit("sky_of_day", "sky", *where)
            self.fit("next", "next", "--city=" + place)
            self.fit("timetable", "month", "2026-06", "--city=" + place)
            self.fit("city_show", "city", "show", place)
        self.fit("qibla", "qibla", "--city=21.0,39.8262")
        self.fit("moon_phases", "moon", "--phases", "2026", "--city", "Ankara")

    def test_calendars(self):
        for day in DAYS[:2]:
            self.fit("hijri_of_day", "hijri", day)
        for day in DAYS:
            self.fit("calendar", "calendar", day)

    def test_cities_and_alarms(self):
        self.fit("city_search", "city", "search", "ankra")
        self.fit("listed_cities", "city", "add", "Ankara")
        self.fit("listed_cities", "city", "home", "Ankara")
        self.fit("alarms", "alarm", "on", "fajr")
        self.fit("alarms", "alarm", "list")
        self.fit("alarm_upcoming", "alarm", "upcoming")
        self.fit("settings", "settings")
        self.fit("iqama", "iqama", "set", "--at", "+20", "fajr", "--city", "Ankara")
        self.fit("iqama", "iqama", "set", "--at", "13:30", "dhuhr", "--city", "Ankara")
        self.fit("calendar_published", "calendar", "publish")
        self.fit("calendar_published", "calendar", "publish", self.folder.name + "/prayers.ics", "--alarm", "5")

    def test_the_doctor(self):
        self.fit("doctor", "doctor")
        self.fit("doctor_zones", "doctor", "zones")


unittest.main(argv=sys.argv[:1])
