# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
"""Every command is killed before each call that changes a file, in the middle of each write, and meets every call that
fails; then the next command runs undisturbed. Nothing of the user's is lost, no event is left without its alarm, no file
stays behind, and what a command reported as done is done.

  kill_points.py PROGRAMS BUNDLE INJECTOR [--every N] [--jobs N] [--figures FILE] [--only NAME]
"""
import argparse
import concurrent.futures
import errno
import os
import subprocess
import sys
import time

import faults

ALL_ON = [["city", "home", "Istanbul"], ["city", "add", "Berlin"], ["alarm", "set", "all", "--offset", "-5"],
          ["alarm", "on", "all"]]
ALL_OFF = ALL_ON + [["alarm", "off", "all"]]
VDIR = ALL_ON + [["settings", "calendar", "vdir"]]
TABLE, PUBLISHED = "FOLDER/times.csv", "FOLDER/home/prayers.ics"  # FOLDER: that of the world

# The name of a base, the command that meets the fault.
SCENARIOS = [
    ("none", ["city", "add", "Berlin"]),
    ("none", ["alarm", "on", "fajr"]),
    ("none", ["settings", "sound", "bell"]),
    ("on", ["alarm", "off", "fajr"]),
    ("on", ["alarm", "off", "all"]),
    ("off", ["alarm", "on", "maghrib"]),
    ("off", ["alarm", "on", "all"]),
    ("on", ["alarm", "set", "all", "--offset", "7", "--sound", "bell"]),
    ("on", ["city", "home", "Berlin"]),
    ("on", ["city", "home", "Ankara"]),
    ("on", ["city", "add", "41.5,29.5", "--name", "Hut"]),
    ("on", ["city", "remove", "Istanbul"]),
    ("on", ["city", "move", "Berlin", "1"]),
    ("on", ["settings", "calendar", "vdir"]),
    ("vdir", ["settings", "calendar", "ics"]),
    ("vdir", ["alarm", "off", "all"]),
    ("vdir", ["city", "home", "Berlin"]),
    ("on", ["settings", "panel", "phone"]),
    ("on", ["calendar", "connect", "evolution"]),
    ("damaged", ["alarm", "on", "fajr"]),
    ("on", ["method", "set", "mwl"]),
    ("on", ["method", "import", TABLE]),
    ("table", ["method", "remove-table"]),
    ("on", ["iqama", "set", "--at", "+10", "dhuhr", "asr"]),
    ("iqama", ["iqama", "remove", "dhuhr"]),
    ("on", ["alarm", "days", "fajr", "mon", "fri"]),
    ("days", ["alarm", "days", "fajr", "all"]),
    ("on", ["alarm", "skip", "dhuhr"]),
    ("skip", ["alarm", "skip", "dhuhr", "--undo"]),
    ("on", ["alarm", "mute"]),
    ("on", ["alarm", "remind", "fajr", "-15"]),
    ("on", ["calendar", "publish", PUBLISHED, "--alarm", "10"]),
    ("published", ["calendar", "unpublish"]),
    ("connected", ["calendar", "disconnect"]),
    ("stray", ["doctor", "--tidy"]),
    ("on", ["doctor"]),
    ("on", ["alarm", "list"]),
    ("on", ["alarm", "upcoming"]),
    ("on", ["city", "list"]),
]
BASES = {"none": [], "on": ALL_ON, "off": ALL_OFF, "vdir": VDIR, "damaged": ALL_ON, "stray": ALL_ON,
         "table": ALL_ON + [["method", "import", TABLE]],
         "iqama": ALL_ON + [["iqama", "set", "--at", "+10", "dhuhr", "asr"]],
         "days": ALL_ON + [["alarm", "days", "fajr", "mon", "fri"]], "skip": ALL_ON + [["alarm", "skip", "dhuhr"]],
         "published": ALL_ON + [["calendar", "publish", PUBLISHED]],
         "connected": ALL_ON + [["calendar", "connect", "evolution"]]}
# Kind of fault, which calls count, the error.
FAULTS = [("kill", "changes", 0), ("torn", "changes", 0), ("fail", "all", errno.EIO), ("fail", "changes", errno.ENOSPC),
          ("full", "changes", errno.ENOSPC), ("fail", "all", errno.EACCES)]


def in_world(world, words):
    return [word.replace("FOLDER", world.folder) for word in words]


def put_timetable(world):
    """A month of times to import."""
    with open(os.path.join(world.folder, "times.csv"), "w") as file:
        file.write(world.run(["month", "2026-11", "--city", "Istanbul", "--format", "csv"]).stdout)


def build_base(world, name):
    put_timetable(world)
    for words in BASES[name]:
        result = world.run(in_world(world, words))
        assert result.returncode == 0, (words, result.stderr)
    if name in ("on", "off"):
        faults.put_foreign_event(world.data)
    if name == "stray":
        faults.put_stray_event(world.data)
    if name == "damaged":
        with open(os.path.join(world.data, "user.sqlite"), "r+b") as file:
            file.write(b"x" * 4000)
    world.save(name)


def check(world, base, words, fault, at, result, before, after):
    """The problems of one point, as (kind, text)."""
    kind, _, error = fault
    found = []
    if result is None:
        return [("hang", "it does not end")]
    killed = result.returncode == -9
    if result.returncode < 0 and not (killed and kind in ("kill", "torn")):
        found.append(("crash", faults.signal_of(result.returncode)))
    following = world.run(["alarm", "list", "--json"])
    if following is None:
        return found + [("hang", "the next command does not end")]
    state = faults.State(world.data)
    rings = None
    if following.returncode == 0:
        rings = faults.rings_of(following.stdout)
    elif not (base == "damaged" and following.returncode == 6):
        found.append(("lost", "the next command fails: " + following.stderr.strip()))
    if base == "damaged" and state.damage and following.returncode == 6:
        return found  # nothing was replaced yet, and that is reported
    found += faults.problems(state, rings)
    if base == "stray" and (killed or result.returncode != 0):
        found = [each for each in found if each[0] != "orphan"]  # it was there before
    if base in ("on", "off", "damaged") and faults.FOREIGN_UID not in state.calendar and base != "damaged":
        found.append(("lost", "an event of another program"))
    if result.returncode == 0 and not killed and after is not None and state.choices() != after.choices():
        found.append(("false success", "it reported success, and the change is not there"))
    if result.returncode > 0 and not (result.stderr + result.stdout).strip():
        found.append(("silent", "it fails without a message"))
    kept = {city[0] for city in before.cities} & {city[0] for city in after.cities} if after else set()
    if not kept <= {city[0] for city in state.cities}:
        found.append(("lost", "a city"))
    return found


def files_beside(world):
    """What is left in the folder of the published calendar."""
    return [("left over", name) for name in os.listdir(world.home) if name not in (".config", ".local", "prayers.ics")]


def repeat_is_harmless(world, words, after):
    """The user tries again after a command that was cut off."""
    was_done = faults.State(world.data).choices() == after.choices()
    result = world.run(words)
    state = faults.State(world.data)
    if result is None or (result.returncode != 0 and not was_done):
        return [("lost", "the repeated command fails: %s" % (result.stderr if result else "hang"))]
    found = faults.problems(state, None) + files_beside(world)
    if len(state.places) > len(after.places) or len(state.cities) > len(after.cities):
        found.append(("doubled", "the repeated command made a second one"))
    return found


def run_scenario(arguments, number, base, words):
    world = faults.World(arguments.programs, arguments.bundle, arguments.injector)
    points, bad = 0, []
    try:
        build_base(world, base)
        before = faults.State(world.data) if base != "damaged" else None
        world.restore(base)
        words = in_world(world, words)
        clean = world.run(words)
        after = faults.State(world.data)
        for index, fault in enumerate(FAULTS):
            kind, counts, error = fault
            world.restore(base)
            counted = world.run(words, world.faults(counts, 0, kind))
            assert counted.returncode == clean.returncode, counted.stderr
            for at in range(1 + (number + index) % arguments.every, world.calls() + 1, arguments.every):
                world.restore(base)
                result = world.run(words, world.faults(counts, at, kind, error))
                found = check(world, base, words, fault, at, result, before or after, after)
                if kind == "kill" and clean.returncode == 0:
                    found += repeat_is_harmless(world, words, after)
                points += 1
                bad += [(" ".join(words), base, kind, error, at, *each) for each in found]
    finally:
        world.close()
    return points, bad


# --- the alarm service

SERVICE = "the alarm service"
STALE = "2026-01-05T04:00:00Z"  # when the events of its base were written: long ago, so that it renews all of them


def build_service_base(world):
    now = world.environment["QUODE_NOW"]
    world.environment["QUODE_NOW"] = STALE
    build_base(world, "on")
    world.environment["QUODE_NOW"] = now


def has_begun(service, world):
    """Whether the service holds a file of the user: a busy machine may start it late."""
    folder = "/proc/%d/fd" % service.pid
    try:
        return any(os.readlink(os.path.join(folder, name)).startswith(world.data) for name in os.listdir(folder))
    except OSError:
        return False


def run_service(world, fault=None):
    """Starts the service and ends it when it has changed nothing for a while. Returned: how it ended; None: not at all."""
    environment = dict(world.environment, **(fault or {}))
    del environment["QUODE_NOW"]
    service = subprocess.Popen([os.path.join(world.programs, "quode-alarmd")], env=environment, stdin=subprocess.DEVNULL,
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    last, since = None, time.time()
    begun = since
    while service.poll() is None and time.time() - since < 0.3 and time.time() - begun < faults.PATIENCE:
        present = [(entry.name, entry.stat().st_mtime_ns, entry.stat().st_size) for entry in os.scandir(world.data)]
        if present != last or not has_begun(service, world):
            last, since = present, time.time()
        time.sleep(0.02)
    service.terminate()
    try:
        return service.wait(faults.PATIENCE)
    except subprocess.TimeoutExpired:
        service.kill()
        service.wait()
        return None


def check_service(world, fault, ended):
    kind = fault[0]
    found = []
    if ended is None:
        return [("hang", "the service does not end")]
    if ended < 0 and not (ended == -9 and kind in ("kill", "torn")) and ended != -15:
        found.append(("crash", faults.signal_of(ended)))
    following = world.run(["alarm", "list", "--json"])
    if following is None or following.returncode != 0:
        return found + [("lost", "the next command fails: " + (following.stderr.strip() if following else "hang"))]
    state = faults.State(world.data)
    found += faults.problems(state, None)
    if not all(row[2] for row in state.alarms.values()):
        found.append(("lost", "an alarm is no longer on"))
    if run_service(world) not in (0, -15):
        found.append(("lost", "the next service fails"))
    now = world.environment.pop("QUODE_NOW")
    listing = world.run(["alarm", "list", "--json"])
    world.environment["QUODE_NOW"] = now
    state = faults.State(world.data)
    found += faults.problems(state, faults.rings_of(listing.stdout))
    if faults.FOREIGN_UID not in state.calendar:
        found.append(("lost", "an event of another program"))
    return found


def run_service_scenario(arguments):
    world = faults.World(arguments.programs, arguments.bundle, arguments.injector)
    points, bad = 0, []
    try:
        build_service_base(world)
        for index, fault in enumerate(FAULTS):
            kind, counts, error = fault
            world.restore("on")
            run_service(world, world.faults(counts, 0, kind))
            for at in range(1 + index % arguments.service_every, world.calls() + 1, arguments.service_every):
                world.restore("on")
                found = check_service(world, fault, run_service(world, world.faults(counts, at, kind, error)))
                points += 1
                bad += [(SERVICE, "on", kind, error, at, *each) for each in found]
    finally:
        world.close()
    return points, bad


def write_figures(file, section, figures):
    begin, end = "<!-- %s: begin -->" % section, "<!-- %s: end -->" % section
    with open(file) as stream:
        text = stream.read()
    head, rest = text.split(begin)
    tail = rest.split(end)[1]
    lines = "".join("| %s | %s |\n" % row for row in figures)
    with open(file, "w") as stream:
        stream.write(head + begin + "\n| | |\n|---|---|\n" + lines + end + tail)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("programs")
    parser.add_argument("bundle")
    parser.add_argument("injector")
    parser.add_argument("--every", type=int, default=1, help="only every N-th point, another one in each command")
    parser.add_argument("--service-every", type=int, default=5, help="the same for the alarm service; 0: not at all")
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("--figures", help="a page whose figures are replaced")
    parser.add_argument("--only", help="only commands that contain this text")
    arguments = parser.parse_args()
    begun = time.time()
    chosen = [(i, base, words) for i, (base, words) in enumerate(SCENARIOS)
              if not arguments.only or arguments.only in " ".join(words)]
    points, bad = 0, []
    tasks = [lambda each=each: run_scenario(arguments, *each) for each in chosen]
    if arguments.service_every and (not arguments.only or arguments.only in SERVICE):
        tasks.insert(0, lambda: run_service_scenario(arguments))
    with concurrent.futures.ThreadPoolExecutor(arguments.jobs) as pool:
        for some, wrong in pool.map(lambda task: task(), tasks):
            points += some
            bad += wrong
    kinds = ["lost", "orphan", "wrong", "doubled", "left over", "damaged", "false success", "silent", "crash", "hang"]
    counts = {kind: sum(1 for each in bad if each[5] == kind) for kind in kinds}
    for each in bad[:60]:
        print("%s (%s): %s %d at %d: %s: %s" % each)
    print("%d points of %d programs in %.0f s: %s" %
          (points, len(tasks), time.time() - begun, ", ".join("%s %d" % pair for pair in counts.items())))
    if arguments.figures:
        write_figures(arguments.figures, "kill points", [("points", points), ("commands, and the alarm service", len(tasks))] + list(counts.items()))
    return 1 if bad else 0


if __name__ == "__main__":
    sys.exit(main())
