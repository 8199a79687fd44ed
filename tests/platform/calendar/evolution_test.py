# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
"""GNOME's calendar server, in a private session: it lists our event, follows a change, and its reminder service rings."""
import os
import subprocess
import sys
import tempfile
import time
import unittest
from concurrent.futures import ThreadPoolExecutor
from datetime import datetime, timedelta, timezone
from pathlib import Path

import reader_test
from reader_test import ReaderTest, utc

REMINDER_SERVICE = Path("/usr/libexec/evolution-data-server/evolution-alarm-notify")
SOURCES = ("org.gnome.evolution.dataserver.Sources5", "/org/gnome/evolution/dataserver/SourceManager")
CALENDARS = ("org.gnome.evolution.dataserver.Calendar8", "/org/gnome/evolution/dataserver/CalendarFactory")

if not REMINDER_SERVICE.exists():
    reader_test.skip("evolution-data-server is not installed")
reader_test.need("dbus-run-session", "Xvfb")
try:
    import gi
    from gi.repository import Gio, GLib
except ImportError:
    reader_test.skip("python3-gi is not installed")

NOTIFICATIONS = """<node><interface name="org.freedesktop.Notifications">
<method name="Notify"><arg type="s" direction="in"/><arg type="u" direction="in"/><arg type="s" direction="in"/>
<arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="as" direction="in"/>
<arg type="a{sv}" direction="in"/><arg type="i" direction="in"/><arg type="u" direction="out"/></method>
<method name="CloseNotification"><arg type="u" direction="in"/></method>
<method name="GetCapabilities"><arg type="as" direction="out"/></method>
<method name="GetServerInformation"><arg type="s" direction="out"/><arg type="s" direction="out"/>
<arg type="s" direction="out"/><arg type="s" direction="out"/></method>
<signal name="NotificationClosed"><arg type="u"/><arg type="u"/></signal>
<signal name="ActionInvoked"><arg type="u"/><arg type="s"/></signal></interface></node>"""


class NotificationService:
    """Records what is shown and when."""

    def __init__(self, bus):
        self.shown = []
        interface = Gio.DBusNodeInfo.new_for_xml(NOTIFICATIONS).interfaces[0]
        bus.register_object("/org/freedesktop/Notifications", interface, self.called, None, None)
        Gio.bus_own_name_on_connection(bus, "org.freedesktop.Notifications", Gio.BusNameOwnerFlags.NONE, None, None)

    def called(self, _bus, _sender, _path, _interface, method, arguments, invocation):
        answer = None
        if method == "Notify":
            self.shown.append((datetime.now(timezone.utc), *arguments.unpack()[3:5]))
            answer = GLib.Variant("(u)", (len(self.shown),))
        elif method == "GetCapabilities":
            answer = GLib.Variant("(as)", (["body", "actions"],))
        elif method == "GetServerInformation":
            answer = GLib.Variant("(ssss)", ("recorder", "Quode", "1", "1.2"))
        invocation.return_value(answer)


class EvolutionTest(ReaderTest):
    @classmethod
    def setUpClass(cls):
        cls.config = Path(os.environ["XDG_CONFIG_HOME"])
        cls.bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        cls.notifications = NotificationService(cls.bus)

    def tearDown(self):
        reader_test.tool("disconnect", self.config)
        self.wait_for(lambda: not self.is_known())

    def connect(self, how):
        reader_test.tool("connect", self.config, self.folder / "Quode.ics", how)
        self.wait_for(self.is_known)

    def run_loop(self, seconds):
        deadline = time.monotonic() + seconds
        while time.monotonic() < deadline:
            while GLib.MainContext.default().iteration(False):
                pass
            time.sleep(0.01)

    def wait_for(self, condition, seconds=30):
        deadline = time.monotonic() + seconds
        while time.monotonic() < deadline:
            if condition():
                return
            self.run_loop(0.2)
        self.fail(f"not within {seconds} s")

    def call(self, service, interface, method, arguments=None, answer=None):
        name, path = service
        kind = GLib.VariantType(answer) if answer else None
        return self.bus.call_sync(name, path, interface, method, arguments, kind, Gio.DBusCallFlags.NONE, 30000, None)

    def is_known(self):
        objects = self.call(SOURCES, "org.freedesktop.DBus.ObjectManager", "GetManagedObjects").unpack()[0]
        uids = [source["org.gnome.evolution.dataserver.Source"]["UID"] for source in objects.values()
                if "org.gnome.evolution.dataserver.Source" in source]
        return "quode" in uids

    def open_calendar(self):
        path, name = self.call(CALENDARS, "org.gnome.evolution.dataserver.CalendarFactory", "OpenCalendar",
                               GLib.Variant("(s)", ("quode",))).unpack()
        calendar = (name, path)
        self.call(calendar, "org.gnome.evolution.dataserver.Calendar", "Open")
        return calendar

    def texts(self, calendar):
        return self.call(calendar, "org.gnome.evolution.dataserver.Calendar", "GetObjectList",
                         GLib.Variant("(s)", ("#t",))).unpack()[0]

    def test_the_server_lists_our_events_and_follows_changes(self):
        uid = self.save("file", self.folder, "Prayer Alarm, ☀", utc(2025, 3, 14, 23, 59), utc(2025, 3, 14))
        self.connect("silent")
        calendar = self.open_calendar()
        self.wait_for(lambda: len(self.texts(calendar)) == 1)
        (text,) = self.texts(calendar)
        for line in (f"UID:{uid}", "DTSTART:20250314T235900Z", "DTEND:20250315T000000Z", "TRIGGER:PT0S",
                     "SUMMARY:Prayer Alarm\\, ☀"):
            self.assertIn(line, text)

        self.save("file", self.folder, "moved", utc(2025, 3, 15, 5), utc(2025, 3, 15, 5, 1), uid)
        begin = time.monotonic()
        self.wait_for(lambda: any("DTSTART:20250315T050000Z" in text for text in self.texts(calendar)))
        print(f"change followed after {time.monotonic() - begin:.1f} s")
        self.assertEqual(len(self.texts(calendar)), 1)

        for day in range(16, 22):  # six alarms renewed at once
            self.save("file", self.folder, "renewed", utc(2025, 3, day, 5), utc(2025, 3, day, 5, 1))
        self.wait_for(lambda: len(self.texts(calendar)) == 7)
        reader_test.tool("remove", "file", self.folder, uid)
        self.wait_for(lambda: len(self.texts(calendar)) == 6)

    def remind(self, title, how):
        """Runs the reminder service over an alarm a few seconds ahead; gives that moment."""
        self.save("file", self.folder, "long ago", utc(2025, 3, 14, 5), utc(2025, 3, 14, 5, 1))
        self.connect(how)
        service = subprocess.Popen([str(REMINDER_SERVICE)], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(service.wait, 10)
        self.addCleanup(service.terminate)
        self.run_loop(5)
        due = datetime.now(timezone.utc).replace(microsecond=0) + timedelta(seconds=15)
        self.save("file", self.folder, title, due, due + timedelta(minutes=1))
        return due

    def shown(self, title):
        return [notice for notice in self.notifications.shown if title in notice[1] or title in notice[2]]

    def test_the_reminder_service_rings_once_at_the_alarms_second(self):
        due = self.remind("Prayer Alarm rings", "rings")
        self.wait_for(lambda: self.shown("Prayer Alarm rings"), 40)
        self.run_loop(5)
        notices = self.shown("Prayer Alarm rings")
        late = (notices[0][0] - due).total_seconds()
        print(f"rang {late:+.1f} s after the due second: {notices[0][1:]}")
        self.assertEqual(len(notices), 1)
        self.assertGreaterEqual(late, -0.5)
        self.assertLess(late, 10)

    def test_connected_silently_it_does_not_ring(self):
        due = self.remind("Prayer Alarm silent", "silent")
        self.run_loop((due - datetime.now(timezone.utc)).total_seconds() + 10)
        self.assertEqual(self.shown("Prayer Alarm silent"), [])


def in_private_session(test):
    """Starts one test on a bus and a display of its own, with none of the user's settings; gives whether it passed."""
    with tempfile.TemporaryDirectory(prefix="quode-session-") as folder:
        session = ReaderTest()
        session.folder = Path(folder)
        reading, writing = os.pipe()
        display = subprocess.Popen(["Xvfb", "-displayfd", str(writing), "-screen", "0", "800x600x24", "-nolisten", "tcp"],
                                   pass_fds=[writing], stderr=subprocess.DEVNULL)
        os.close(writing)
        try:
            number = os.fdopen(reading).readline().strip()
            environment = session.private_environment(DISPLAY=f":{number}", GSETTINGS_BACKEND="memory",
                                                      QUODE_PRIVATE_SESSION="1")
            done = subprocess.run(["dbus-run-session", "--", sys.executable, "-B", *sys.argv, test], env=environment,
                                  timeout=150, check=False)
        finally:
            display.terminate()
            display.wait(10)
        return done.returncode == 0


if os.environ.get("QUODE_PRIVATE_SESSION"):
    unittest.main(argv=[sys.argv[0], sys.argv[-1]], verbosity=2)
else:
    tests = [f"EvolutionTest.{name}" for name in dir(EvolutionTest) if name.startswith("test_")]
    with ThreadPoolExecutor() as sessions:
        passed = list(sessions.map(in_private_session, tests))
    sys.exit(0 if all(passed) else 1)
