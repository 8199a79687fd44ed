# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
"""Eight writers at once, beside the alarm service: six switch an alarm each, one moves the home city, and one is a foreign
program that rewrites the calendar file without knowing of any lock. What a writer has switched stays so until it switches
again; no edit of the foreign program is lost; at the end every alarm has its one event.

  eight_writers.py PROGRAMS BUNDLE INJECTOR [--rounds N] [--figures FILE]
"""
import argparse
import os
import random
import signal
import sqlite3
import subprocess
import sys
import threading
import time

import faults
from kill_points import write_figures

OVERWRITTEN = "another program changed the calendar at the same time"
PRAYERS = ["fajr", "sunrise", "dhuhr", "asr", "maghrib", "isha"]


class Writers:
    def __init__(self, world, rounds):
        self.world, self.rounds = world, rounds
        self.problems, self.commands, self.edits, self.overwritten = [], 0, 0, 0
        self.lock = threading.Lock()

    def note(self, text):
        with self.lock:
            self.problems.append(text)

    def command(self, words):
        result = self.world.run(words)
        with self.lock:
            self.commands += 1
        if result is not None and result.returncode == 6 and OVERWRITTEN in result.stderr:
            with self.lock:
                self.overwritten += 1  # the foreign program renamed an older version over it: true, and said
            return True
        if result is None or result.returncode != 0:
            self.note("%s: %s" % (" ".join(words), result.stderr.strip() if result else "hangs"))
            return False
        return True

    def active(self, time_id):
        database = sqlite3.connect(os.path.join(self.world.data, "user.sqlite"), timeout=10)
        try:
            return database.execute("SELECT ACTIVE FROM USER_ALARMS WHERE TIMEID = ?", (time_id,)).fetchone()[0]
        finally:
            database.close()

    def switcher(self, number):
        dice = random.Random(number)
        for _ in range(self.rounds):
            state = dice.choice(["on", "off"])
            done = self.command(["alarm", state, PRAYERS[number]])
            for pause in (0, 0.3 * dice.random()):
                time.sleep(pause)
                if done and self.active(number + 1) != (1 if state == "on" else 0):
                    self.note("%s was switched %s, and is not" % (PRAYERS[number], state))

    def mover(self):
        for i in range(self.rounds):
            self.command(["city", "home", ("Berlin", "Istanbul")[i % 2]])

    def foreigner(self):
        """Reads the calendar, thinks a little, and renames its own over it, unless somebody has saved meanwhile."""
        path = os.path.join(self.world.data, "Quode.ics")
        for i in range(self.rounds * 4):
            for _ in range(50):
                before = os.stat(path)
                with open(path, newline="") as file:
                    text = file.read()
                event = faults.FOREIGN.replace(faults.FOREIGN_UID, "foreign-%d" % i)
                mine = path + ".foreign"
                with open(mine, "w", newline="") as file:
                    file.write(text.replace("END:VCALENDAR", event + "END:VCALENDAR", 1))
                now = os.stat(path)
                if (before.st_ino, before.st_mtime_ns) == (now.st_ino, now.st_mtime_ns):
                    os.rename(mine, path)
                    with self.lock:
                        self.edits += 1
                    break
            time.sleep(0.02)

    def run(self):
        threads = [threading.Thread(target=self.switcher, args=(number,)) for number in range(6)]
        threads += [threading.Thread(target=self.mover), threading.Thread(target=self.foreigner)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()

    def look(self):
        """What is to be found when all have finished; another change renews what the foreign program overwrote."""
        self.command(["alarm", "set", "all", "--offset", "3"])
        listing = self.world.run(["alarm", "list", "--json"])
        state = faults.State(self.world.data)
        for kind, text in faults.problems(state, faults.rings_of(listing.stdout)):
            self.note("%s: %s" % (kind, text))
        for i in range(self.edits):
            if "UID:foreign-%d\r" % i not in state.calendar:
                self.note("the edit %d of the foreign program is lost" % i)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("programs")
    parser.add_argument("bundle")
    parser.add_argument("injector")
    parser.add_argument("--rounds", type=int, default=200)
    parser.add_argument("--figures")
    arguments = parser.parse_args()
    world = faults.World(arguments.programs, arguments.bundle, arguments.injector)
    del world.environment["QUODE_NOW"]  # the service goes by the clock of the machine
    begun = time.time()
    try:
        for words in (["city", "home", "Istanbul"], ["city", "add", "Berlin"], ["alarm", "on", "all"]):
            assert world.run(words).returncode == 0
        service = subprocess.Popen([os.path.join(arguments.programs, "quode-alarmd")], env=world.environment,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
        writers = Writers(world, arguments.rounds)
        writers.run()
        time.sleep(0.5)
        writers.look()
        service.send_signal(signal.SIGTERM)
        try:
            service.communicate(timeout=faults.PATIENCE)
        except subprocess.TimeoutExpired:
            writers.note("the service does not end")
            service.kill()
    finally:
        world.close()
    for problem in writers.problems[:40]:
        print(problem)
    print("%d commands and %d foreign edits in %.0f s: %d problems" %
          (writers.commands, writers.edits, time.time() - begun, len(writers.problems)))
    if arguments.figures:
        write_figures(arguments.figures, "writers", [("commands of eight writers", writers.commands),
                                                     ("edits of a foreign program", writers.edits),
                                                     ("events overwritten by it, and reported", writers.overwritten),
                                                     ("lost, undone or left over", len(writers.problems))])
    return 1 if writers.problems else 0


if __name__ == "__main__":
    sys.exit(main())
