# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
"""From an empty home to an alarm that rings, by the means of assistive technology alone; and what was set survives.

desktop_test.py WINDOW COMMAND [TEST...], on a display with a window manager and a session bus. The tests of Rings start the
program $NOTIFICATION_DAEMON; those of Kills end the window in the middle of editing, QUODE_KILLS times (5).
"""
import datetime
import json
import os
import pathlib
import random
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, Gio, GLib  # noqa: E402

WINDOW, COMMAND = sys.argv[1], sys.argv[2]
PATIENCE = 8.0  # seconds
NOTIFICATION_DAEMON = os.environ.get("NOTIFICATION_DAEMON")
AHEAD = 25  # seconds from the start of the window to the ring
CHECKS = ("check box", "toggle button", "push button", "radio button")


def wait_for(condition, what, patience=PATIENCE):
    end = time.monotonic() + patience
    while time.monotonic() < end:
        result = condition()
        if result:
            return result
        time.sleep(0.05)
    raise AssertionError("not within %g s: %s" % (patience, what))


def nodes(node):
    """A node of the tree and all below it; nothing below none."""
    if not node:
        return
    try:
        yield node
        for index in range(node.get_child_count()):
            child = node.get_child_at_index(index)
            if child:
                yield from nodes(child)
    except GLib.Error:
        return  # it went while it was looked at


def application_of(process):
    """The root of a program's tree; nothing before it has one."""
    desktop = Atspi.get_desktop(0)
    for index in range(desktop.get_child_count()):
        child = desktop.get_child_at_index(index)
        if child and child.get_process_id() == process.pid:
            return child
    return None


class OnDesktop(unittest.TestCase):
    """A home of its own, and what a person does in the window."""

    def setUp(self):
        self.home = tempfile.TemporaryDirectory()
        self.environment = dict(os.environ, HOME=self.home.name, XDG_CONFIG_HOME=self.home.name + "/config",
                                QUODE_DATA_DIR=self.home.name + "/quode", LC_ALL="C.UTF-8", QUODE_LANG="en",
                                QUODE_NOW="2026-11-21T04:00:00Z")
        self.program = None

    def tearDown(self):
        self.kill()
        self.end_services()
        self.home.cleanup()

    def start(self, *arguments):
        self.program = subprocess.Popen([WINDOW, *arguments], env=self.environment)

    def kill(self):
        if self.program:
            self.program.send_signal(signal.SIGKILL)
            self.program.wait()
            self.program = None

    def end_services(self):
        """Ends the alarm service that the window has started, which would outlive the test."""
        folder = self.environment["HOME"].encode()
        ended = []
        for process in filter(str.isdigit, os.listdir("/proc")):
            try:
                with open("/proc/%s/environ" % process, "rb") as environment, open("/proc/%s/comm" % process) as name:
                    isOurs = b"HOME=" + folder in environment.read().split(b"\0") and name.read().startswith("quode")
                if isOurs:
                    os.kill(int(process), signal.SIGTERM)
                    ended.append(process)
            except OSError:
                continue
        wait_for(lambda: not any(os.path.exists("/proc/" + process) for process in ended), "the end of the services")

    def quode(self, *arguments):
        return json.loads(subprocess.run([COMMAND, *arguments, "--json"], env=self.environment, check=True,
                                         capture_output=True).stdout)

    def application(self):
        return self.program and application_of(self.program)

    def find(self, name, roles=CHECKS):
        def found():
            application = self.application()
            for node in nodes(application):
                isShown = node.get_state_set().contains(Atspi.StateType.SHOWING)
                if node.get_name() == name and node.get_role_name() in roles and isShown:
                    return node
            return None
        return wait_for(found, name)

    def press(self, name):
        node = self.find(name)
        node.get_action_iface().do_action(0)
        return node


class Window(OnDesktop):
    def test_a_first_alarm_is_set_without_a_terminal(self):
        self.start("--page", "alarms")
        self.press("Accept")
        home = wait_for(lambda: [city for city in self.quode("city", "list")["cities"] if city["is_home"]], "a home")
        self.assertEqual(home[0]["city"]["name"], "Kathmandu")
        wait_for(lambda: self.application() and self.find("Maghrib"), "the page")
        self.press("Maghrib")
        wait_for(lambda: self.quode("alarm", "list")["alarms"][4]["on"], "the alarm")

    def test_what_was_set_survives_the_end_of_the_program(self):
        subprocess.run([COMMAND, "city", "home", "Istanbul"], env=self.environment, check=True, capture_output=True)
        for turn in range(6):
            self.start("--page", "alarms")
            self.press("Maghrib")
            time.sleep(0.05 * turn)
            before = turn % 2 == 0
            wait_for(lambda: self.quode("alarm", "list")["alarms"][4]["on"] == before, "turn %d" % turn)
            self.kill()
            self.assertEqual(self.quode("alarm", "list")["alarms"][4]["on"], before)

    def test_the_window_follows_the_command_line(self):
        subprocess.run([COMMAND, "city", "home", "Istanbul"], env=self.environment, check=True, capture_output=True)
        self.start("--page", "alarms")
        alarm = self.find("Asr")
        self.assertFalse(alarm.get_state_set().contains(Atspi.StateType.CHECKED))
        begin = time.monotonic()
        subprocess.run([COMMAND, "alarm", "on", "asr"], env=self.environment, check=True, capture_output=True)
        wait_for(lambda: alarm.get_state_set().contains(Atspi.StateType.CHECKED), "the switch follows")
        self.assertLess(time.monotonic() - begin, 3.0)

    def test_iqama_is_followed_and_survives(self):
        subprocess.run([COMMAND, "city", "home", "Istanbul"], env=self.environment, check=True, capture_output=True)
        self.start("--page", "timetable")
        self.find("When the congregation begins (iqama)", ("label",))
        begin = time.monotonic()
        self.quode("iqama", "set", "--at", "+20", "fajr")
        minutes = self.find("Fajr: minutes from the time to the congregation", ("spin button",)).get_value_iface()
        self.assertEqual(minutes.get_current_value(), 20)
        self.assertLess(time.monotonic() - begin, 3.0)
        minutes.set_current_value(25)
        rule = {"minutes_after": 25, "clock": None}
        wait_for(lambda: self.quode("iqama")["iqama"][0]["rule"] == rule, "the command line follows")
        self.kill()
        self.assertEqual(self.quode("iqama")["iqama"][0]["rule"], rule)

    def test_the_timetable_page_says_what_its_preview_lacks(self):
        copy = pathlib.Path(self.home.name, "copy")
        for folder in ("bin", "lib/quode"):
            (copy / folder).mkdir(parents=True)
        shutil.copy2(WINDOW, copy / "bin")
        for library in pathlib.Path(WINDOW).parent.parent.glob("lib/quode/libquode-*.so.*"):
            shutil.copy2(library, copy / "lib/quode")
        self.environment["QUODE_BUNDLE_DIR"] = str(pathlib.Path(WINDOW).parent.parent / "lib/quode/Quode.bundle")
        self.program = subprocess.Popen([copy / "bin" / pathlib.Path(WINDOW).name, "--page", "timetable"],
                                        env=self.environment)
        message = re.compile("The printing part of Quode cannot be loaded: .*quode-print.so.* Install Quode again.")
        wait_for(lambda: any(message.match(node.get_name() or "") for node in nodes(self.application())), "the message")
        self.find("Save…")

    def test_every_control_has_a_name(self):
        subprocess.run([COMMAND, "city", "home", "Istanbul"], env=self.environment, check=True, capture_output=True)
        for page in ("cities", "alarms", "times", "timetable", "look", "calendar", "about"):
            self.start("--page", page)
            self.find("Pages", ("list", "list box", "panel", "filler"))
            nameless = [node.get_role_name() for node in nodes(self.application())
                        if node.get_state_set().contains(Atspi.StateType.FOCUSABLE)
                        and node.get_state_set().contains(Atspi.StateType.SHOWING) and not node.get_name()]
            self.assertEqual(nameless, [], page)
            self.kill()


class Rings(OnDesktop):
    """Beside a notification daemon, whose bubbles a person reads and answers with the mouse."""

    def setUp(self):
        super().setUp()
        self.daemon = subprocess.Popen([NOTIFICATION_DAEMON])
        self.bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        wait_for(lambda: self.ask("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "NameHasOwner",
                                  GLib.Variant("(s)", ("org.freedesktop.Notifications",)))[0], "the notification daemon")

    def tearDown(self):
        super().tearDown()
        self.daemon.kill()
        self.daemon.wait()

    def ask(self, service, path, interface, method, arguments=None):
        return self.bus.call_sync(service, path, interface, method, arguments, None, Gio.DBusCallFlags.NO_AUTO_START, -1,
                                  None).unpack()

    def rings(self):
        """The prayers that ring and were not answered."""
        return [key for key, _, _ in self.ask("org.quode.Quode1", "/org/quode/Quode1", "org.quode.Quode1.Alarms", "Ringing")[0]]

    def bubble(self):
        """The nodes of what the daemon shows, by name; None while it does not answer."""
        try:
            return {node.get_name(): node for node in nodes(application_of(self.daemon))
                    if node.get_role_name() in ("label", "push button")
                    and node.get_state_set().contains(Atspi.StateType.SHOWING)}
        except GLib.Error:
            return None

    def begin_shortly_before_maghrib(self):
        """Moves the real clock there; times differ by minutes from day to day."""
        del self.environment["QUODE_NOW"]
        day = datetime.datetime.now(datetime.timezone.utc).date()
        times = self.quode("today", "--city", "Kathmandu", "--date", day.isoformat())
        maghrib = next(each["instant"] for each in times["prayers"] if each["key"] == "maghrib")
        due = datetime.datetime.fromisoformat(maghrib.replace("Z", "+00:00")).timestamp()
        self.environment.update(SHIFT_SECONDS=str(int(due - AHEAD - time.time())),
                                LD_PRELOAD=str(pathlib.Path(WINDOW).parent / "libshifted_clock.so"))

    def test_a_first_alarm_rings_and_is_stopped_without_a_terminal(self):
        self.begin_shortly_before_maghrib()
        self.start("--page", "alarms")
        self.press("Accept")
        self.press("Maghrib")
        shown = wait_for(lambda: (bubble := self.bubble()) and {"Maghrib", "Mute today"} <= bubble.keys() and bubble,
                         "the notification with its buttons", AHEAD + PATIENCE)
        body = [name for name in shown if name.startswith("Kathmandu, ")]
        self.assertEqual(len(body), 1, list(shown))
        self.assertEqual(self.rings(), ["maghrib"])
        area = shown["Stop"].get_extents(Atspi.CoordType.SCREEN)
        subprocess.run(["xdotool", "mousemove", str(area.x + area.width // 2), str(area.y + area.height // 2), "click", "1"],
                       check=True)
        wait_for(lambda: not self.rings(), "the end of the ring")
        wait_for(lambda: (bubble := self.bubble()) is not None and "Maghrib" not in bubble, "the end of the notification")


class Kills(OnDesktop):
    def test_what_was_switched_is_there_after_a_kill_at_any_moment(self):
        subprocess.run([COMMAND, "city", "home", "Istanbul"], env=self.environment, check=True, capture_output=True)
        names = ["Fajr", "Sunrise", "Dhuhr", "Asr", "Maghrib", "Isha"]
        seed = random.randrange(1 << 30)
        moments = random.Random(seed)
        for turn in range(int(os.environ.get("QUODE_KILLS", "5"))):
            switched = [each["on"] for each in self.quode("alarm", "list")["alarms"]]
            self.start("--page", "alarms")
            controls = [self.find(name) for name in names]
            for _ in range(moments.randint(1, 6)):
                last = moments.randrange(len(names))
                controls[last].get_action_iface().do_action(0)
                switched[last] = not switched[last]
            time.sleep(moments.uniform(0.0, 0.08))
            self.kill()
            stored = [each["on"] for each in self.quode("alarm", "list")["alarms"]]
            lost = [name for name, wanted, found in zip(names, switched, stored) if wanted != found]
            self.assertIn(lost, ([], [names[last]]), "turn %d, seed %d" % (turn, seed))
            self.end_services()

    def test_minutes_that_were_entered_are_there_after_a_kill_at_any_moment(self):
        subprocess.run([COMMAND, "city", "home", "Istanbul"], env=self.environment, check=True, capture_output=True)
        stored = 20
        self.quode("iqama", "set", "--at", "+%d" % stored, "fajr")
        seed = random.randrange(1 << 30)
        moments = random.Random(seed)
        for turn in range(int(os.environ.get("QUODE_KILLS", "5"))):
            self.start("--page", "timetable")
            minutes = self.find("Fajr: minutes from the time to the congregation", ("spin button",)).get_value_iface()
            entered = [stored]
            for _ in range(moments.randint(1, 6)):
                entered.append(moments.randint(0, 180))
                minutes.set_current_value(entered[-1])
            time.sleep(moments.uniform(0.0, 0.08))
            self.kill()
            stored = self.quode("iqama")["iqama"][0]["rule"]["minutes_after"]
            self.assertIn(stored, entered[-2:], "turn %d, seed %d" % (turn, seed))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])
