# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
"""The panel on a desktop: the icon in the tray opens it, a click elsewhere closes it, a second start opens the first.

desktop_test.py PROGRAM OTHER_PROGRAM, on a display with a window manager and a session bus.
"""
import contextlib
import os
import signal
import sqlite3
import subprocess
import sys
import tempfile
import time
import unittest

from gi.repository import Gio, GLib

PROGRAM, OTHER = sys.argv[1], sys.argv[2]
PATIENCE = 5.0  # seconds

WATCHER = """<node><interface name="org.kde.StatusNotifierWatcher">
<method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
<method name="RegisterStatusNotifierHost"><arg type="s" direction="in"/></method>
<property name="RegisteredStatusNotifierItems" type="as" access="read"/>
<property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
<property name="ProtocolVersion" type="i" access="read"/>
<signal name="StatusNotifierItemRegistered"><arg type="s"/></signal>
<signal name="StatusNotifierHostRegistered"/></interface></node>"""


def wait_for(condition, what):
    """Serves this program's own bus objects until a condition holds."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        while GLib.MainContext.default().iteration(False):
            pass
        result = condition()
        if result:
            return result
        time.sleep(0.02)
    raise AssertionError("not within %g s: %s" % (PATIENCE, what))


def rest(seconds):
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        GLib.MainContext.default().iteration(False)
        time.sleep(0.02)


class Tray:
    """What a desktop's panel does for icons: takes them in, and works them when the user does."""

    def __init__(self, bus):
        self.bus = bus
        self.items = []
        node = Gio.DBusNodeInfo.new_for_xml(WATCHER)
        self.object = bus.register_object("/StatusNotifierWatcher", node.interfaces[0], self.call, self.get, None)
        self.name = Gio.bus_own_name_on_connection(bus, "org.kde.StatusNotifierWatcher", 0, None, None)

    def close(self):
        Gio.bus_unown_name(self.name)
        self.bus.unregister_object(self.object)

    def call(self, bus, sender, path, interface, method, arguments, invocation):
        if method == "RegisterStatusNotifierItem":
            self.items.append(arguments[0])
        invocation.return_value(None)

    def get(self, bus, sender, path, interface, name):
        return {
            "RegisteredStatusNotifierItems": GLib.Variant("as", self.items),
            "IsStatusNotifierHostRegistered": GLib.Variant("b", True),
            "ProtocolVersion": GLib.Variant("i", 0),
        }[name]

    def item(self):
        return wait_for(lambda: self.items and self.items[-1], "an icon in the tray")

    def ask(self, path, interface, method, arguments=None):
        return ask(self.bus, self.item(), path, interface, method, arguments)

    def click(self):
        rest(0.4)  # a user needs longer between two clicks
        self.ask("/StatusNotifierItem", "org.kde.StatusNotifierItem", "Activate", GLib.Variant("(ii)", (1200, 990)))

    def fact(self, name):
        arguments = GLib.Variant("(ss)", ("org.kde.StatusNotifierItem", name))
        return self.ask("/StatusNotifierItem", "org.freedesktop.DBus.Properties", "Get", arguments)[0]

    def menu(self):
        """Number and label of each entry, as the menu opens."""
        self.ask("/MenuBar", "com.canonical.dbusmenu", "AboutToShow", GLib.Variant("(i)", (0,)))
        layout = self.ask("/MenuBar", "com.canonical.dbusmenu", "GetLayout", GLib.Variant("(iias)", (0, 5, [])))
        return [(entry[0], entry[1].get("label", "")) for entry in layout[1][2]]

    def choose(self, number):
        event = GLib.Variant("(isvu)", (number, "clicked", GLib.Variant("s", ""), 0))
        self.ask("/MenuBar", "com.canonical.dbusmenu", "Event", event)


def ask(bus, name, path, interface, method, arguments=None):
    """Calls a method while this program goes on serving its own objects."""
    answers = []
    bus.call(name, path, interface, method, arguments, None, Gio.DBusCallFlags.NONE, 3000, None,
             lambda source, result: answers.append(finish(source, result)))
    answer = wait_for(lambda: answers, method)[0]
    if isinstance(answer, GLib.Error):
        raise AssertionError("%s: %s" % (method, answer.message))
    return answer


def finish(source, result):
    try:
        return source.call_finish(result).unpack()
    except GLib.Error as error:
        return error


def xdotool(*words):
    done = subprocess.run(["xdotool", *map(str, words)], capture_output=True, text=True, check=False)
    return done.stdout.split()


def windows(title):
    return xdotool("search", "--onlyvisible", "--name", title)


def middle_of(window):
    """Where the middle of a window is on the screen, (x, y)."""
    facts = dict(line.split("=") for line in xdotool("getwindowgeometry", "--shell", window))
    return tuple(int(facts[place]) + int(facts[size]) / 2 for place, size in (("X", "WIDTH"), ("Y", "HEIGHT")))


def sleeps(pid):
    """How often each thread of a process has gone to sleep; each time something had woken it."""
    counts = {}
    for task in os.listdir("/proc/%d/task" % pid):
        with open("/proc/%d/task/%s/status" % (pid, task)) as status:
            counts[task] = sum(int(line.split()[1]) for line in status if line.startswith("voluntary_ctxt"))
    return counts


def setting(folder, name):
    with contextlib.closing(sqlite3.connect("file:%s/user.sqlite?mode=ro" % folder, uri=True)) as database:
        return database.execute("SELECT VALUE FROM USER_SETTING WHERE NAME = ?", (name,)).fetchall()


def alarm_services(folder):
    """The numbers of the alarm services that run for a data folder."""
    found = {}
    for number in filter(str.isdigit, os.listdir("/proc")):
        try:
            with open("/proc/%s/environ" % number, "rb") as variables:
                is_of_folder = ("QUODE_DATA_DIR=" + folder).encode() in variables.read().split(b"\0")
            with open("/proc/%s/stat" % number) as facts:
                name, rest_of_line = facts.read().split("(", 1)[1].rsplit(")", 1)
            if is_of_folder and name == "quode-alarmd":
                found[int(number)] = int(rest_of_line.split()[1])
        except OSError:  # it has ended, or is somebody else's
            pass
    # A child of one is about to become another program.
    return sorted(number for number, parent in found.items() if parent not in found)


class Desktop(unittest.TestCase):
    def setUp(self):
        self.bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        self.folder = tempfile.TemporaryDirectory()
        self.data = self.folder.name + "/data"
        self.environment = dict(os.environ, HOME=self.folder.name, QUODE_DATA_DIR=self.data,
                                QUODE_NOW="2026-11-21T04:00:00Z", LC_ALL="en_GB.UTF-8", TZ="Europe/Istanbul",
                                XDG_RUNTIME_DIR=self.folder.name)
        self.programs = []
        if self._testMethodName != "test_a_first_start_asks_once":
            command = os.path.join(os.path.dirname(PROGRAM), "quode")
            subprocess.run([command, "city", "home", "Istanbul"], env=self.environment, check=True, capture_output=True)

    def tearDown(self):
        for program in self.programs:
            if program.poll() is None:
                program.kill()
            program.wait()
        for number in alarm_services(self.data):
            os.kill(number, signal.SIGKILL)
        self.folder.cleanup()

    def start(self, program):
        self.programs.append(subprocess.Popen([program], env=self.environment))
        return self.programs[-1]

    def click_on_other_window(self):
        rest(0.2)
        xdotool("mousemove", 100, 100, "click", 1)

    def assert_shown(self):
        return wait_for(lambda: windows("^Quode$"), "the panel is shown")

    def assert_hidden(self):
        wait_for(lambda: not windows("^Quode$"), "the panel is hidden")

    def test_a_first_start_asks_once(self):
        first = self.start(PROGRAM)
        question = wait_for(lambda: windows("^Welcome to Quode$"), "the question")[0]
        panel = next(each for each in windows("^Quode$") if middle_of(each) != middle_of(question))
        for of_question, of_panel in zip(middle_of(question), middle_of(panel)):
            self.assertAlmostEqual(of_question, of_panel, delta=60, msg="the question stands on the panel")
        xdotool("key", "Escape")
        wait_for(lambda: not windows("^Welcome to Quode$"), "the question goes")
        wait_for(lambda: setting(self.data, "start.asked"), "the answer is stored")
        first.kill()
        first.wait()
        self.start(PROGRAM)
        self.assert_shown()
        rest(0.5)
        self.assertEqual(windows("^Welcome to Quode$"), [])

    def test_with_a_tray(self):
        tray = Tray(self.bus)
        panel = self.start(PROGRAM)
        self.assert_shown()

        with self.subTest("alarms ring: the service is there"):
            service = wait_for(lambda: alarm_services(self.data), "the alarm service runs")
            self.assertEqual(len(service), 1)

        with self.subTest("Escape dismisses the panel"):
            xdotool("key", "Escape")
            self.assert_hidden()

        with self.subTest("the icon opens and closes it"):
            tray.click()
            self.assert_shown()
            tray.click()
            self.assert_hidden()

        with self.subTest("it opens at the pointer, inside the screen"):
            xdotool("mousemove", 1270, 990)
            tray.click()
            window = self.assert_shown()[0]
            place = xdotool("getwindowgeometry", "--shell", window)
            facts = dict(word.split("=") for word in place)
            self.assertEqual(int(facts["X"]) + int(facts["WIDTH"]), 1280 - 8)
            self.assertLessEqual(int(facts["Y"]) + int(facts["HEIGHT"]), 1000 - 8)

        with self.subTest("a click elsewhere closes it"):
            self.start(OTHER)
            wait_for(lambda: windows("Another program"), "another window")
            self.click_on_other_window()
            self.assert_hidden()
            tray.click()
            self.assert_shown()
            self.click_on_other_window()
            self.assert_hidden()

        with self.subTest("a second start opens the first"):
            second = self.start(PROGRAM)
            wait_for(lambda: second.poll() is not None, "the second ends")
            self.assertEqual(second.returncode, 0)
            self.assert_shown()
            self.assertIsNone(panel.poll())
            self.assertEqual(alarm_services(self.data), service)

        with self.subTest("everything in it has a name and a role"):
            self.check_accessibility()

        with self.subTest("dismissed it sleeps"):
            xdotool("key", "Escape")
            self.assert_hidden()
            rest(0.8)
            before = sleeps(panel.pid)
            time.sleep(1.0)
            woken = {task: count for task, count in sleeps(panel.pid).items() if count != before.get(task)}
            self.assertEqual(woken, {})

        with self.subTest("tool tip and menu tell the coming prayer"):
            self.assertEqual(tray.fact("ToolTip")[2], "Istanbul: Sunrise 07:52, within 1 h")
            self.assertEqual(tray.fact("Title"), "Quode")
            labels = [label for _, label in tray.menu()]
            self.assertEqual(labels, ["Sunrise 07:52, in 52 min", "", "Show prayer times", "Copy today’s times", "",
                                      "Choose city…", "Alarms", "Mute until tomorrow", "Set up alarms…", "Colours",
                                      "Timetable and print…", "Settings…", "", "Help", "About Quode", "", "Quit"])

        with self.subTest("the menu opens it and ends the program, also when the compass covers it"):
            entries = {label: number for number, label in tray.menu()}
            tray.choose(entries["Show prayer times"])
            window = self.assert_shown()[0]
            rest(0.3)
            xdotool("mousemove", "--window", window, 260, 105, "click", 1)
            wait_for(lambda: windows("compass"), "the compass is shown")
            tray.choose(entries["Quit"])
            wait_for(lambda: panel.poll() is not None, "the program ends")
            self.assertEqual(panel.returncode, 0)
            self.assertEqual(alarm_services(self.data), service)  # alarms ring without the panel
        tray.close()

    def test_with_a_tray_that_comes_later(self):
        panel = self.start(PROGRAM)
        window = self.assert_shown()[0]
        rest(0.5)
        tray = Tray(self.bus)
        tray.item()
        self.assert_shown()  # the window stays until it is closed
        xdotool("windowactivate", "--sync", window, "key", "alt+F4")
        self.assert_hidden()
        rest(0.3)
        self.assertIsNone(panel.poll())  # it goes on in the tray
        tray.click()
        self.assert_shown()
        tray.click()
        self.assert_hidden()
        tray.close()

    def test_without_a_tray(self):
        panel = self.start(PROGRAM)
        window = self.assert_shown()[0]
        self.start(OTHER)
        wait_for(lambda: windows("Another program"), "another window")
        self.click_on_other_window()
        rest(0.3)
        self.assert_shown()  # an ordinary window stays
        xdotool("windowactivate", "--sync", window, "key", "alt+F4")
        wait_for(lambda: panel.poll() is not None, "the program ends")
        self.assertEqual(panel.returncode, 0)

    def check_accessibility(self):
        address = ask(self.bus, "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress")[0]
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        bus = Gio.DBusConnection.new_for_address_sync(address, flags, None, None)
        nodes = []

        def walk(name, path, depth):
            accessible = "org.a11y.atspi.Accessible"
            node = (name, path)
            title = ask(bus, *node, "org.freedesktop.DBus.Properties", "Get",
                        GLib.Variant("(ss)", (accessible, "Name")))[0]
            role = ask(bus, *node, accessible, "GetRoleName")[0]
            nodes.append((role, title))
            for child in ask(bus, *node, accessible, "GetChildren")[0]:
                if depth < 12:
                    walk(*child, depth + 1)

        registry = ("org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root")
        wait_for(lambda: ask(bus, *registry, "org.a11y.atspi.Accessible", "GetChildren")[0], "an application")
        walk(*registry, 0)
        names = [name for _, name in nodes]
        for name in ["Quode", "Istanbul", "Fajr", "Sunrise", "Dhuhr", "Asr", "Maghrib", "Isha", "Show all", "Sunrise in 52 min", "Menu"]:
            self.assertTrue(any(name in each for each in names), "%s is missing in %s" % (name, nodes))
        buttons = [node for node in nodes if node[0] in ("check box", "push button")]
        self.assertGreaterEqual(len(buttons), 9, nodes)
        self.assertFalse([node for node in buttons if not node[1]], nodes)
        order = [next(at for at, each in enumerate(names) if name in each) for name in ["Istanbul", "Fajr", "Isha"]]
        self.assertEqual(order, sorted(order), nodes)


if __name__ == "__main__":
    signal.alarm(50)
    unittest.main(argv=sys.argv[:1], verbosity=2)
