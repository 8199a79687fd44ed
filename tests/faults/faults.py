# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
"""What the fault tests share: a user's folder, the programs run in it with a call that goes wrong, and what must hold
afterwards."""
import json
import os
import re
import shutil
import signal
import sqlite3
import subprocess
import tempfile

NOW = "2026-11-21T04:00:00Z"
FOREIGN_UID = "dentist-1"
FOREIGN = ("BEGIN:VEVENT\r\nUID:%s\r\nDTSTAMP:20260101T000000Z\r\nDTSTART:20261201T090000Z\r\nSUMMARY:Dentist\r\n"
           "END:VEVENT\r\n" % FOREIGN_UID)
PERMANENT = {"user.sqlite", "Quode.ics", "calendar", ".alarms.lock", ".Quode.ics.lock", "QuodeLog.txt", "alarmd.lock",
             "alarmd.shown", "alarmd.rings", "calendar/.quode.lock"}
LATER_TABLES = ["USER_METHOD", "USER_TIMETABLE", "USER_TIMETABLE_ROW", "USER_IQAMA", "USER_ALARM_HABIT"]  # made when needed
EVERY_DAY = 127
PATIENCE = 40  # seconds until a program counts as one that hangs


class World:
    """The programs, and a folder in memory in which they run."""

    def __init__(self, programs, bundle, injector):
        self.programs, self.bundle, self.injector = programs, bundle, injector
        memory = "/dev/shm"
        self.folder = tempfile.mkdtemp(prefix="quode-faults-", dir=memory if os.access(memory, os.W_OK) else None)
        self.home = os.path.join(self.folder, "home")
        self.environment = {"HOME": self.home, "PATH": "/usr/bin:/bin", "LC_ALL": "C.UTF-8", "TZ": "Europe/Istanbul",
                            "QUODE_BUNDLE_DIR": bundle, "QUODE_NOW": NOW}
        os.mkdir(self.home)
        self.pretend_evolution()

    def pretend_evolution(self):
        """Makes its calendar service look installed."""
        services = os.path.join(self.folder, "share/dbus-1/services")
        os.makedirs(services)
        open(os.path.join(services, "org.gnome.evolution.dataserver.Sources5.service"), "w").close()
        self.environment["XDG_DATA_DIRS"] = os.path.join(self.folder, "share") + ":/usr/local/share:/usr/share"

    @property
    def data(self):
        return os.path.join(self.home, ".local/share/Quode")

    def close(self):
        shutil.rmtree(self.folder, ignore_errors=True)

    def save(self, name):
        shutil.copytree(self.home, os.path.join(self.folder, name), symlinks=True)

    def restore(self, name):
        shutil.rmtree(self.home, ignore_errors=True)
        shutil.copytree(os.path.join(self.folder, name), self.home, symlinks=True)

    def faults(self, counts, at, kind, error=0):
        return {"LD_PRELOAD": self.injector, "FAULT_ROOT": self.home, "FAULT_COUNTS": counts, "FAULT_AT": str(at),
                "FAULT_KIND": kind, "FAULT_ERRNO": str(error), "FAULT_REPORT": os.path.join(self.folder, "calls")}

    def run(self, words, fault=None):
        environment = dict(self.environment, **(fault or {}))
        try:
            return subprocess.run([os.path.join(self.programs, "quode")] + words, env=environment, capture_output=True,
                                  text=True, timeout=PATIENCE)
        except subprocess.TimeoutExpired:
            return None

    def calls(self):
        with open(os.path.join(self.folder, "calls")) as file:
            return int(file.read())


def events_in(text):
    """The identifier and start of each event of a calendar text."""
    events = {}
    for block in re.findall(r"BEGIN:VEVENT\r?\n(.*?)END:VEVENT", text, re.S):
        uid = re.search(r"^UID:(.*?)\r?$", block, re.M)
        start = re.search(r"^DTSTART:(.*?)\r?$", block, re.M)
        events[uid.group(1)] = start.group(1)
    return events


class State:
    """What the files of a user hold."""

    def __init__(self, data):
        self.damage = []
        self.cities, self.alarms, self.settings, self.places = [], {}, {}, []
        self.quiet = set()  # alarms that leave days out; those have no event while their next ring is far
        self.more = {}  # table to rows: methods, timetables, iqama, habits
        self.files = sorted(os.path.relpath(os.path.join(folder, name), data)
                            for folder, folders, names in os.walk(data) for name in folders + names)
        self.calendar, self.vdir = "", {}
        home = os.path.join(data, "../../..")
        sources = os.path.join(home, ".config/evolution/sources")
        self.shared = [os.path.exists(os.path.join(home, "prayers.ics")),
                       os.listdir(sources) if os.path.isdir(sources) else []]  # with calendar programs
        if os.path.exists(os.path.join(data, "user.sqlite")):
            self.read_database(os.path.join(data, "user.sqlite"))
        self.read_calendars(data)

    def read_database(self, file):
        try:
            database = sqlite3.connect(file, timeout=5)
            if database.execute("PRAGMA integrity_check").fetchone()[0] != "ok":
                self.damage.append("the database is damaged")
            if not database.execute("SELECT COUNT(*) FROM sqlite_schema").fetchone()[0]:
                return
            self.cities = database.execute("SELECT ID, SETASHOME FROM USER_CITY ORDER BY rowid").fetchall()
            self.places = database.execute("SELECT ID, NAME FROM USER_PLACE ORDER BY ID").fetchall()
            self.settings = dict(row for row in database.execute("SELECT NAME, VALUE FROM USER_SETTING")
                                 if not row[0].startswith("alarm.decided"))
            self.read_later_tables(database)
            for row in database.execute("SELECT TIMEID, MINUTE, MELODYNAME, ACTIVE, EVENTID FROM USER_ALARMS"):
                self.alarms[row[0]] = row[1:]
            database.close()
        except sqlite3.Error as error:
            self.damage.append("the database: %s" % error)

    def read_later_tables(self, database):
        present = {row[0] for row in database.execute("SELECT name FROM sqlite_schema")}
        for table in LATER_TABLES:
            self.more[table] = sorted(database.execute("SELECT * FROM %s" % table)) if table in present else []
        muted = int(self.settings.get("alarm.muted_until") or 0)
        self.quiet = {row[0] for row in self.more["USER_ALARM_HABIT"] if row[1] != EVERY_DAY or row[3]}
        if muted:
            self.quiet |= set(range(1, 7))

    def read_calendars(self, data):
        try:
            with open(os.path.join(data, "Quode.ics"), newline="") as file:
                self.calendar = file.read()
        except FileNotFoundError:
            pass
        folder = os.path.join(data, "calendar")
        for name in os.listdir(folder) if os.path.isdir(folder) else []:
            if name.endswith(".ics"):
                with open(os.path.join(folder, name), newline="") as file:
                    self.vdir[name] = file.read()

    def is_vdir(self):
        return self.settings.get("calendar.layout") == "vdir"

    def choices(self):
        """What the user has chosen, without identifiers that differ from run to run."""
        return (self.cities, self.places, sorted(self.settings.items()),
                sorted((key, row[0], row[1], row[2]) for key, row in self.alarms.items()), self.more, self.shared)


def problems(state, next_rings):
    """What must never be found: a list of (kind, text)."""
    found = [("damaged", text) for text in state.damage]
    ics = events_in(state.calendar)
    vdir = {uid: start for text in state.vdir.values() for uid, start in events_in(text).items()}
    kept, other = (vdir, ics) if state.is_vdir() else (ics, vdir)
    if state.calendar and not state.calendar.rstrip().endswith("END:VCALENDAR"):
        found.append(("damaged", "the calendar is cut off"))
    named = set()
    for time_id, (_, _, active, event) in state.alarms.items():
        if event:
            named.add(event)
        if active and event not in kept and time_id not in state.quiet:
            found.append(("lost", "alarm %d is on without an event" % time_id))
        if not active and event:
            found.append(("orphan", "alarm %d is off and names an event" % time_id))
        if active and event in kept and next_rings is not None and kept[event] != next_rings.get(time_id):
            found.append(("wrong", "alarm %d: event at %s, ring at %s" % (time_id, kept[event], next_rings.get(time_id))))
    for uid in list(kept) + list(other):
        if uid.startswith("quode-") and (uid not in named or uid in other):
            found.append(("orphan", "the event %s has no alarm" % uid))
    for name in state.files:
        is_event = name.startswith("calendar/quode-") and name.endswith(".ics")
        if name not in PERMANENT and not is_event and ".damaged-" not in name:
            found.append(("left over", name))
    return found


def rings_of(listing):
    """TIMEID to the start of the next event, from `quode alarm list --json`."""
    rings = {}
    for alarm in json.loads(listing)["alarms"]:
        if alarm["next"]:
            rings[alarm["code"] - 199] = re.sub("[-:]", "", alarm["next"]["instant"])
    return rings


def put_foreign_event(data):
    path = os.path.join(data, "Quode.ics")
    with open(path, newline="") as file:
        text = file.read()
    with open(path, "w", newline="") as file:
        file.write(text.replace("END:VCALENDAR", FOREIGN + "END:VCALENDAR", 1))


def put_stray_event(data):
    """An event like that of an alarm, which no alarm has."""
    path = os.path.join(data, "Quode.ics")
    with open(path, newline="") as file:
        text = file.read()
    event = re.search(r"BEGIN:VEVENT\r?\n(?:(?!END:VEVENT).)*UID:quode-.*?END:VEVENT\r?\n", text, re.S).group(0)
    uid = re.search(r"UID:(quode-.*?)\r?\n", event).group(1)
    stray = event.replace(uid, uid[:-4] + ("0000" if uid[-4:] != "0000" else "1111"))
    with open(path, "w", newline="") as file:
        file.write(text.replace("END:VCALENDAR", stray + "END:VCALENDAR", 1))


def signal_of(code):
    return signal.Signals(-code).name if code < 0 else str(code)
