# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
"""The service on a private session bus, as another program of the desktop meets it.

bus_test.py PROGRAMS BUNDLE XML MANUAL NOTIFICATION_MOCK [TEST]
"""
import calendar
import csv
import io
import json
import os
import pathlib
import re
import shutil
import signal
import sqlite3
import subprocess
import sys
import tempfile
import threading
import time
import unittest
import xml.etree.ElementTree

from gi.repository import Gio, GLib

BIN, BUNDLE, XML, MANUAL, MOCK = sys.argv[1:6]
del sys.argv[1:6]
NAME, PATH = "org.quode.Quode1", "/org/quode/Quode1"
KEYS = ["fajr", "sunrise", "dhuhr", "asr", "maghrib", "isha", "ishraq", "asr_hanafi", "isfirar"]


def instant_of(text):
    return calendar.timegm(time.strptime(text, "%Y-%m-%dT%H:%M:%SZ"))


class Bus:
    """A session bus of its own."""

    def __init__(self, environment):
        self.process = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--print-address"],
                                        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
                                        env=environment)
        self.address = self.process.stdout.readline().strip()
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        self.connection = Gio.DBusConnection.new_for_address_sync(self.address, flags, None, None)
        self.connection.set_exit_on_close(False)

    def call(self, member, signature="()", values=(), timeout=20000):
        interface, method = member.rsplit(".", 1)
        return self.connection.call_sync(NAME, PATH, interface, method, GLib.Variant(signature, values), None,
                                         Gio.DBusCallFlags.NONE, timeout, None).unpack()

    def error(self, *call):
        try:
            self.call(*call)
        except GLib.Error as error:
            return Gio.DBusError.get_remote_error(error)
        return None

    def home(self, name):
        return self.call("org.freedesktop.DBus.Properties.Get", "(ss)", (NAME + ".Home", name))[0]

    def has_name(self, name=NAME):
        return self.connection.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                                         "NameHasOwner", GLib.Variant("(s)", (name,)), None, 0, 5000, None).unpack()[0]

    def wait_for_name(self, name=NAME):
        for _ in range(400):
            if self.has_name(name):
                return
            time.sleep(0.05)
        raise AssertionError(name + " did not appear")

    def close(self):
        self.connection.close_sync(None)
        self.process.terminate()
        self.process.wait()
        self.process.stdout.close()


class Signals:
    """The signals of the object, as they come."""

    def __init__(self, bus):
        self.all, self.bus = [], bus
        self.context = GLib.MainContext.default()
        self.number = bus.connection.signal_subscribe(NAME, None, None, PATH, None, 0, self.take)

    def take(self, _connection, _sender, _path, interface, name, values):
        self.all.append((interface + "." + name, values.unpack()))

    def wait(self, name, timeout=20.0):
        end = time.monotonic() + timeout
        while time.monotonic() < end:
            self.context.iteration(False)
            found = [values for each, values in self.all if each == name]
            if found:
                return found
            time.sleep(0.01)
        raise AssertionError(f"{name} did not come, only {[each for each, _ in self.all]}")


class ServiceTest(unittest.TestCase):
    moment = "2026-11-21T04:00:00Z"

    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="quode-bus-")
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        self.environment = dict(os.environ, HOME=self.folder, QUODE_DATA_DIR=self.folder + "/data",
                                QUODE_BUNDLE_DIR=BUNDLE, TZ="Europe/Istanbul", LC_ALL="C.UTF-8",
                                XDG_RUNTIME_DIR=self.folder)
        if self.moment:
            self.environment["QUODE_NOW"] = self.moment
        self.bus = Bus(self.environment)
        self.addCleanup(self.bus.close)
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = self.bus.address

    def start(self, program="quode-service", **more):
        process = subprocess.Popen([os.path.join(BIN, program)], env=dict(self.environment, **more),
                                   stderr=subprocess.DEVNULL)
        self.addCleanup(process.wait)
        self.addCleanup(process.terminate)
        self.bus.wait_for_name()
        return process

    def wait_until(self, condition):
        for _ in range(400):
            if condition():
                return
            time.sleep(0.05)
        self.fail("It did not come about.")

    def quode(self, *arguments):
        environment = {key: value for key, value in self.environment.items() if key != "LD_PRELOAD"}
        done = subprocess.run([os.path.join(BIN, "quode"), *arguments], env=environment, capture_output=True, check=True)
        return done.stdout.decode()


class Interface(ServiceTest):
    def test_names_and_types_are_those_of_the_installed_description(self):
        def members(text):
            found = set()
            for interface in xml.etree.ElementTree.fromstring(text).iter("interface"):
                name = interface.get("name")
                for member in interface:
                    if member.tag == "annotation":
                        continue
                    types = [(each.get("name"), each.get("type"), each.get("direction", "out" if member.tag == "signal" else "in"))
                             for each in member.iter("arg")]
                    found.add((name, member.tag, member.get("name"), member.get("type"), tuple(types)))
            return {each for each in found if each[0].startswith(NAME)}

        self.start()
        with open(XML, encoding="utf-8") as file:
            described = members(file.read())
        self.assertEqual(members(self.bus.call("org.freedesktop.DBus.Introspectable.Introspect")[0]), described)
        self.assertGreater(len(described), 25)

    def test_the_manual_names_every_member(self):
        sections = pathlib.Path(MANUAL).read_text(encoding="utf-8").split("\n## ")
        for interface in xml.etree.ElementTree.parse(XML).iter("interface"):
            section = next(each for each in sections if each.startswith(interface.get("name") + "\n"))
            for member in interface:
                self.assertRegex(section, "`" + member.get("name") + "[`(]", interface.get("name"))
                for argument in member.iter("arg"):
                    if argument.get("direction") == "in":
                        self.assertIn(argument.get("type") + " " + argument.get("name"), section, member.get("name"))

    def test_the_fronts_use_what_is_described(self):
        described = {each.get("name") for kind in ("property", "method", "signal")
                     for each in xml.etree.ElementTree.parse(XML).iter(kind)}
        fronts = pathlib.Path(MANUAL).parents[1] / "fronts"
        for front in (fronts / "gnome-shell/extension.js", fronts / "plasma/contents/ui/main.qml"):
            used = re.findall(r"""(?:_value\(|call\(|signal === |answer\(|"member": |applet\.home\.|\[)['"]?([A-Z][a-z]\w+)\b""",
                              front.read_text(encoding="utf-8"))
            self.assertGreater(len(set(used)), 5, front)
            self.assertLessEqual(set(used), described | {"GetAll"}, front)

    # Of each interface what gdbus and busctl are given, and what both answer.
    spoken = [("Times.Day", "ss", ["Cairo", "2026-03-20"], "Africa/Cairo"),
              ("Times.Range", "ssu", ["Cairo", "2026-03-20", "2"], "2026-03-21"),
              ("Times.Describe", "sss", ["Cairo", "2026-03-20", "fajr"], "Cairo"),
              ("Places.Search", "su", ["cairo", "1"], "Africa/Cairo"), ("Places.Add", "s", ["Konya"], ""),
              ("Places.SetHome", "s", ["Konya"], ""), ("Places.List", "", [], "Konya"),
              ("Alarms.Set", "sis", ["asr", "5", ""], ""), ("Alarms.Enable", "sb", ["asr", "true"], ""),
              ("Alarms.List", "", [], "asr"), ("Alarms.Upcoming", "", [], "asr"), ("Alarms.SkipNext", "s", ["asr"], ""),
              ("Alarms.MuteUntil", "x", ["0"], ""), ("Alarms.Ringing", "", [], "")]

    def spoken_by(self, *command):
        done = subprocess.run(command, env=self.environment, capture_output=True, text=True, timeout=60, check=False)
        return done.stdout + done.stderr

    def test_gdbus_speaks_with_every_interface(self):
        self.start()
        gdbus = ["gdbus", "call", "--session", "-d", NAME, "-o", PATH, "-m"]
        for member, _, values, answer in self.spoken:
            said = self.spoken_by(*gdbus, NAME + "." + member, *values)
            self.assertRegex(said, r"^\(.*" + answer, member)
        self.assertIn("org.quode.Error.NotRinging", self.spoken_by(*gdbus, NAME + ".Alarms.Stop"))
        self.assertIn("'Konya'", self.spoken_by(*gdbus, "org.freedesktop.DBus.Properties.GetAll", NAME + ".Home"))
        self.assertRegex(self.spoken_by(*gdbus, "org.gnome.Shell.SearchProvider2.GetInitialResultSet", "['asr']"), r"^\(\['\d+:0'")
        self.assertIn("'quode'", self.spoken_by(*gdbus, "org.kde.krunner1.Match", "asr"))

    def test_busctl_speaks_with_every_interface(self):
        self.start()
        busctl = ["busctl", "--user"]
        for member, signature, values, answer in self.spoken:
            interface, method = (NAME + "." + member).rsplit(".", 1)
            said = self.spoken_by(*busctl, "call", NAME, PATH, interface, method, *([signature, *values] if signature else []))
            self.assertNotIn("failed", said, member)
            self.assertIn(answer, said, member)
        for name in xml.etree.ElementTree.parse(XML).iterfind(".//property"):
            said = self.spoken_by(*busctl, "get-property", NAME, PATH, NAME + ".Home", name.get("name"))
            self.assertTrue(said.startswith(name.get("type") + " "), name.get("name") + ": " + said)
        self.assertIn(NAME + ".Alarms", self.spoken_by(*busctl, "introspect", NAME, PATH))

    def test_wrong_arguments_get_errors_of_our_own(self):
        self.start()
        invalid, missing = "org.quode.Error.InvalidArgument", "org.quode.Error.NotFound"
        for member, signature, values, name in [
                ("Times.Day", "(ss)", ("Cairo", "yesterday"), invalid), ("Times.Day", "(ss)", ("Nowhereville", ""), missing),
                ("Times.Day", "(ss)", ("95,0", ""), invalid), ("Times.Day", "(ss)", ("", "1453-05-29"), invalid),
                ("Times.Range", "(ssu)", ("", "2026-01-01", 401), invalid),
                ("Times.Range", "(ssu)", ("", "2026-01-01", 0), invalid),
                ("Times.Describe", "(sss)", ("", "", "noon"), invalid), ("Places.Search", "(su)", ("a", 0), invalid),
                ("Places.Add", "(s)", ("Nowhereville",), missing), ("Places.Add", "(s)", ("1.5,2.5",), invalid),
                ("Places.Remove", "(i)", (1,), missing), ("Alarms.Enable", "(sb)", ("lunch", True), invalid),
                ("Alarms.Set", "(sis)", ("fajr", 100000, ""), invalid), ("Alarms.Set", "(sis)", ("", 0, ""), invalid),
                ("Alarms.Stop", "()", (), "org.quode.Error.NotRinging"), ("Alarms.Test", "(s)", ("x",), invalid)]:
            self.assertEqual(self.bus.error(NAME + "." + member, signature, values), name, (member, values))
        self.assertEqual(self.bus.error(NAME + ".Times.Day", "(i)", (1,)), "org.freedesktop.DBus.Error.InvalidArgs")
        self.assertEqual(self.bus.error("org.freedesktop.DBus.Properties.Set", "(ssv)",
                                        (NAME + ".Home", "Date", GLib.Variant("s", "2000-01-01"))),
                         "org.freedesktop.DBus.Error.PropertyReadOnly")
        long = "a" * 100000
        self.assertEqual(self.bus.error(NAME + ".Times.Day", "(ss)", (long, "")), missing)
        self.assertEqual(self.bus.error(NAME + ".Alarms.Enable", "(sb)", (long, True)), invalid)
        self.assertEqual(self.bus.call(NAME + ".Places.Search", "(su)", (long, 5))[0], [])
        self.assertEqual(self.bus.call("org.gnome.Shell.SearchProvider2.GetInitialResultSet", "(as)", ([long, "asr"],))[0], [])
        self.assertEqual(self.bus.home("Date"), "2026-11-21")

    def test_a_front_that_dies_does_no_harm(self):
        service = self.start()
        program = ("import os, sys; from gi.repository import Gio, GLib; bus = Gio.bus_get_sync(Gio.BusType.SESSION)\n"
                   "for _ in range(20): bus.call(sys.argv[1], sys.argv[2], sys.argv[1] + '.Times', 'Range',\n"
                   "    GLib.Variant('(ssu)', ('Oslo', '2026-01-01', 400)), None, 0, 5000, None, None)\n"
                   "bus.flush_sync(); os.kill(os.getpid(), 9)")
        for _ in range(5):
            died = subprocess.run(["/usr/bin/python3", "-c", program, NAME, PATH], env=self.environment, check=False)
            self.assertEqual(died.returncode, -signal.SIGKILL)
        self.assertTrue(self.bus.home("Date"))
        self.assertIsNone(service.poll())


class Answers(ServiceTest):
    def test_home_is_what_the_command_line_shows(self):
        self.start()
        day = json.loads(self.quode("today", "--json"))
        prayers = self.bus.home("Prayers")
        self.assertEqual([each[0] for each in prayers], KEYS)
        for fact, prayer in zip(prayers, day["prayers"]):
            self.assertEqual(fact, (prayer["key"], prayer["name"], instant_of(prayer["instant"]), prayer["time"], 0))
        self.assertEqual(self.bus.home("Next")[:3],
                         (day["next"]["key"], day["next"]["name"], instant_of(day["next"]["instant"])))
        self.assertEqual(self.bus.home("Current")[0], "fajr")
        self.assertEqual(self.bus.home("ValidUntil"), instant_of(day["next"]["instant"]))
        self.assertEqual(self.bus.home("HijriDate")[0], day["hijri"]["date"])
        self.assertEqual(self.bus.home("Place")[:2], (day["place"]["city"]["id"], day["place"]["city"]["name"]))
        self.assertEqual(self.bus.home("Notes"), day["notes"])
        self.assertEqual(self.bus.home("RingAnswers"), ("Stop", "Snooze 5 min"))

    def test_range_is_the_table_of_the_year(self):
        self.start()
        keys, days = self.bus.call(NAME + ".Times.Range", "(ssu)", ("Tokyo", "2026-01-01", 365))
        rows = list(csv.DictReader(io.StringIO(self.quode("year", "2026", "--city", "Tokyo", "--format", "csv"))))
        self.assertEqual(keys, KEYS)
        self.assertEqual([date for date, _ in days], [row["date"] for row in rows])
        for (date, instants), row in zip(days, rows):
            clocks = [time.strftime("%H:%M", time.gmtime(instant + 9 * 3600)) for instant in instants]
            self.assertEqual(clocks, [row[key] for key in KEYS], date)

    def test_missing_and_adjusted_times_are_marked(self):
        self.quode("method", "set", "quode", "--adjust", "isha=+5", "--city", "Ankara")
        self.start()
        prayers, facts = self.bus.call(NAME + ".Times.Day", "(ss)", ("Ankara", "2026-03-20"))
        self.assertEqual([flags for *_, flags in prayers], [0, 0, 0, 0, 0, 2, 0, 0, 0])
        self.assertEqual(facts["zone"], "Europe/Istanbul")
        prayers, _ = self.bus.call(NAME + ".Times.Day", "(ss)", ("Oslo", "2026-06-21"))
        self.assertEqual(prayers[0][4], 1)
        prayers, _ = self.bus.call(NAME + ".Times.Day", "(ss)", ("Tromsø", "2026-12-21"))
        self.assertIn((0, 4), [(instant, flags) for _, _, instant, _, flags in prayers])

    def test_a_time_is_explained(self):
        self.start()
        text = " ".join(self.bus.call(NAME + ".Times.Describe", "(sss)", ("Tromsø", "2026-06-21", "fajr"))[0])
        self.assertRegex(text, "19°.*latitude 65.6°")

    def test_places_change_and_tell_it(self):
        self.start()
        signals = Signals(self.bus)
        found = self.bus.call(NAME + ".Places.Search", "(su)", ("ankra", 3))[0]
        self.assertEqual(found[0][1], "Ankara")
        self.bus.call(NAME + ".Places.SetHome", "(s)", (str(found[0][0]),))
        self.assertEqual([each[1] for each in self.bus.call(NAME + ".Places.List")[0] if each[3]], ["Ankara"])
        signals.wait(NAME + ".Places.Changed")
        interface, changed, _ = signals.wait("org.freedesktop.DBus.Properties.PropertiesChanged")[-1]
        self.assertEqual(interface, NAME + ".Home")
        self.assertEqual(changed["Place"][1], "Ankara")
        number = self.bus.call(NAME + ".Places.Add", "(s)", ("Konya",))[0]
        self.bus.call(NAME + ".Places.Remove", "(i)", (number,))
        self.assertNotIn("Konya", [each[1] for each in self.bus.call(NAME + ".Places.List")[0]])

    def test_a_locked_database_changes_nothing(self):
        self.quode("city", "home", "Cairo")
        self.start()
        database = sqlite3.connect(self.folder + "/data/user.sqlite", isolation_level=None)
        database.execute("BEGIN EXCLUSIVE")
        pathlib.Path(self.folder, "data/user.sqlite-y").touch()  # the service looks again
        time.sleep(0.5)
        self.assertEqual(self.bus.home("Place")[1], "Cairo")
        self.assertEqual(self.bus.call(NAME + ".Times.Day", "(ss)", ("", ""))[1]["place"], "Cairo")
        database.execute("ROLLBACK")
        database.close()

    def test_a_method_that_cannot_be_read_is_an_error(self):
        self.quode("city", "home", "Cairo")
        self.quode("method", "set", "mwl")
        with sqlite3.connect(self.folder + "/data/user.sqlite") as database:
            database.execute("UPDATE USER_METHOD SET METHOD = 'nonsense'")
        self.start()
        for call in (("org.freedesktop.DBus.Properties.Get", "(ss)", (NAME + ".Home", "Next")),
                     (NAME + ".Times.Day", "(ss)", ("", "")), (NAME + ".Alarms.Upcoming",)):
            self.assertEqual(self.bus.error(*call), "org.quode.Error.UserData", call)
        self.quode("method", "set", "mwl")
        self.wait_until(lambda: self.bus.error("org.freedesktop.DBus.Properties.Get", "(ss)",
                                               (NAME + ".Home", "Next")) is None)

    def test_an_event_that_cannot_be_written_is_an_error(self):
        self.start()
        self.quode("city", "home", "Cairo")
        os.mkfifo(self.folder + "/data/Quode.ics")
        self.assertEqual(self.bus.error(NAME + ".Alarms.Enable", "(sb)", ("fajr", True)), "org.quode.Error.UserData")

    def test_one_trial_runs_at_a_time(self):
        service = self.start()
        self.assertIsNone(self.bus.error(NAME + ".Alarms.Test", "(s)", ("fajr",)))
        self.assertEqual(self.bus.error(NAME + ".Alarms.Test", "(s)", ("fajr",)), "org.quode.Error.Busy")
        subprocess.run(["pkill", "-f", "-P", str(service.pid), "alarm test"], check=False)

    def test_a_change_of_the_command_line_is_told(self):
        self.start()
        signals = Signals(self.bus)
        self.quode("city", "home", "Berlin")
        signals.wait(NAME + ".Places.Changed")
        self.wait_until(lambda: self.bus.home("Place")[1] == "Berlin")
        self.quode("settings", "language", "tr")
        self.wait_until(lambda: self.bus.home("Next")[1] == "İmsak")

    def test_alarms_are_those_of_the_command_line(self):
        self.start()
        self.bus.call(NAME + ".Alarms.Set", "(sis)", ("maghrib", -10, "gong"))
        self.bus.call(NAME + ".Alarms.Enable", "(sb)", ("maghrib", True))
        alarms = json.loads(self.quode("alarm", "list", "--json"))["alarms"]
        listed = self.bus.call(NAME + ".Alarms.List")[0]
        self.assertEqual([each[0] for each in listed if each[2]], ["maghrib"])
        self.assertEqual([(each["key"], each["on"], each["offset_minutes"]) for each in alarms],
                         [(key, on, offset) for key, _, on, offset, _ in listed])
        self.assertIn("DTSTART:20261121T144000Z", pathlib.Path(self.folder + "/data/Quode.ics").read_text(encoding="utf-8"))
        rings = self.bus.call(NAME + ".Alarms.Upcoming")[0]
        self.assertEqual([(rings[0][0], rings[0][3] - rings[0][2])], [("maghrib", 600)])
        later = self.bus.call(NAME + ".Alarms.SkipNext", "(s)", ("maghrib",))[0]
        self.assertAlmostEqual(later, rings[0][2] + 86400, delta=300)
        self.assertEqual(self.bus.error(NAME + ".Alarms.MuteUntil", "(x)", (1,)), "org.quode.Error.InvalidArgument")
        self.bus.call(NAME + ".Alarms.MuteUntil", "(x)", (rings[0][2] + 7200,))
        self.bus.call(NAME + ".Alarms.MuteUntil", "(x)", (0,))
        self.bus.call(NAME + ".Alarms.Enable", "(sb)", ("maghrib", False))
        self.assertEqual(self.bus.call(NAME + ".Alarms.Upcoming")[0], [])

    def test_a_published_calendar_follows_the_home_city(self):
        file = self.folder + "/prayers.ics"
        self.quode("calendar", "publish", file)
        self.start()
        self.bus.call(NAME + ".Places.SetHome", "(s)", ("Berlin",))
        self.wait_until(lambda: "Europe/Berlin" in pathlib.Path(file).read_text(encoding="utf-8"))


class Searches(ServiceTest):
    def gnome(self, *terms):
        ids = self.bus.call("org.gnome.Shell.SearchProvider2.GetInitialResultSet", "(as)", (terms,))[0]
        return self.bus.call("org.gnome.Shell.SearchProvider2.GetResultMetas", "(as)", (ids,))[0]

    def test_gnome_finds_prayers_days_and_the_qibla(self):
        self.start()
        self.assertEqual(self.gnome("asr")[0]["name"], "Asr 15:32")
        times = self.gnome("prayer", "times", "cairo")[0]
        self.assertRegex(times["description"], r"^Fajr \d\d:\d\d · Sunrise")
        self.assertIn("Cairo", times["name"])
        qibla = self.gnome("qibla", "london")[0]
        self.assertRegex(qibla["name"], r"^Qibla 11[89]\.\d°$")
        for words in (["firefox"], ["cairo"], ["asr", "xqzzt"], [""]):
            self.assertEqual(self.gnome(*words), [], words)
        metas = self.bus.call("org.gnome.Shell.SearchProvider2.GetResultMetas", "(as)",
                              (["nonsense", "9:9", "203:999999999", "day:0"],))[0]
        self.assertEqual([each["id"] for each in metas], ["day:0"])

    def test_plasma_finds_the_same(self):
        self.start()
        match = self.bus.call("org.kde.krunner1.Match", "(s)", ("qibla london",))[0][0]
        self.assertRegex(match[1], r"^Qibla 11[89]")
        self.assertEqual(match[2], "quode")
        self.assertIn("London", match[5]["subtext"])
        self.assertEqual(self.bus.call("org.kde.krunner1.Match", "(s)", ("libreoffice",))[0], [])
        self.assertEqual(self.bus.call("org.kde.krunner1.Actions")[0], [])

    def test_prayers_are_found_in_the_language_of_the_user(self):
        self.environment["QUODE_LANG"] = "tr"
        self.start()
        self.assertTrue(self.gnome("ikindi")[0]["name"].startswith("İkindi 15:32"))


class Rings(ServiceTest):
    """With the alarm service, and a clock that stands a few seconds before a full minute."""
    moment = None
    ahead = 4

    def setUp(self):
        super().setUp()
        self.mock = subprocess.Popen(["/usr/bin/python3", MOCK], env=self.environment, stdin=subprocess.PIPE,
                                     stdout=subprocess.PIPE, text=True)
        for stop in (self.mock.stdout.close, self.mock.stdin.close, self.mock.wait, self.mock.terminate):
            self.addCleanup(stop)
        self.assertEqual(json.loads(self.mock.stdout.readline())["call"], "ready")
        self.shift = 60 - self.ahead - int(time.time()) % 60
        self.environment.update(SHIFT_SECONDS=str(self.shift), LD_PRELOAD=os.path.join(BIN, "libshifted_clock.so"))
        done = subprocess.run([os.path.join(BIN, "set_alarm"), BUNDLE], check=True, env=self.environment,
                              capture_output=True)
        self.due = int(done.stdout) - self.shift  # by the clock of this test

    def test_a_ring_is_told_and_can_be_stopped(self):
        self.start("quode-alarmd")
        signals = Signals(self.bus)
        key, _, _ = signals.wait(NAME + ".Alarms.Rang")[0]
        for _ in range(100):  # until the desktop has answered
            rings = self.bus.call(NAME + ".Alarms.Ringing")[0]
            if rings and self.bus.error(NAME + ".Alarms.Stop") is None:
                break
            time.sleep(0.05)
        self.assertEqual(rings[0][0], key)
        self.assertEqual(signals.wait(NAME + ".Alarms.Stopped")[0][0], key)
        self.assertEqual(self.bus.call(NAME + ".Alarms.Ringing")[0], [])
        time.sleep(0.5)
        self.mock.terminate()
        calls = [json.loads(line)["call"] for line in self.mock.stdout]
        self.assertEqual(calls, ["Notify", "CloseNotification"])

    def test_a_ring_can_be_snoozed(self):
        self.start("quode-alarmd")
        Signals(self.bus).wait(NAME + ".Alarms.Rang")
        for _ in range(100):
            if self.bus.error(NAME + ".Alarms.Snooze") is None:
                break
            time.sleep(0.05)
        for _ in range(100):
            snoozed = [each for each in self.bus.call(NAME + ".Alarms.Upcoming")[0] if each[4]]
            if snoozed:
                break
            time.sleep(0.05)
        self.assertEqual(len(snoozed), 1)

    def test_a_flood_of_calls_delays_no_ring(self):
        self.start("quode-alarmd")
        done = threading.Event()

        def flood():
            other = Bus.__new__(Bus)
            flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
            other.connection = Gio.DBusConnection.new_for_address_sync(self.bus.address, flags, None, None)
            while not done.is_set():
                for _ in range(50):
                    other.connection.call(NAME, PATH, NAME + ".Times", "Range",
                                          GLib.Variant("(ssu)", ("Tromsø", "2026-01-01", 400)), None, 0, 100, None, None)
                time.sleep(0.2)

        thread = threading.Thread(target=flood, daemon=True)
        thread.start()
        try:
            shown = json.loads(self.mock.stdout.readline())
            late = time.time() - self.due
        finally:
            done.set()
            thread.join()
        self.assertEqual(shown["call"], "Notify")
        self.assertLess(late, 1.5)

    def test_the_service_comes_back_when_it_dies(self):
        self.expect_a_new_service_after(signal.SIGKILL)

    def test_the_service_comes_back_when_somebody_ends_it(self):
        self.expect_a_new_service_after(signal.SIGTERM)

    def expect_a_new_service_after(self, reason):
        alarms = self.start("quode-alarmd")
        children = subprocess.run(["pgrep", "-P", str(alarms.pid), "quode-service"], capture_output=True, check=True)
        os.kill(int(children.stdout), reason)
        self.wait_until(lambda: not self.bus.has_name())
        self.assertIsNone(alarms.poll())
        self.bus.wait_for_name()
        self.assertTrue(self.bus.home("Date"))


if __name__ == "__main__":
    unittest.main()
