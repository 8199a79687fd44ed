# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
"""What every command prints keeps within the columns of the terminal, in every language.

width_test.py PROGRAM BUNDLE
"""
import concurrent.futures
import fcntl
import os
import pathlib
import pty
import re
import struct
import subprocess
import sys
import tempfile
import termios
import unicodedata
import unittest

PROGRAM, BUNDLE = sys.argv[1:3]

COMMANDS = [line.split() for line in """
today
today --date 2026-12-21 --city 70,25
today --method jakim --city 3.1,101.6
next
month
month 2026-06 --all --city Longyearbyen
month 2026-12 --method diyanet --city 60.17,24.94
qibla
moon
moon --crescent
moon --phases 2027
sky
hijri
calendar
city list
city search san
city show Reykjavik
alarm list
alarm upcoming
method list
method show diyanet
method show jakim
method suggest
method compare
settings
settings sound
doctor
--help
today --help
city --help
alarm set --help
method set --help
bulk --help
""".strip().splitlines()]

ESCAPE = re.compile(r"\x1b\[[0-9;]*m")


def columns_of(line):
    def width(letter):
        if unicodedata.category(letter) in ("Mn", "Me", "Cf"):
            return 0
        return 2 if unicodedata.east_asian_width(letter) in "WF" else 1

    return sum(width(letter) for letter in ESCAPE.sub("", line))


def too_wide(text, columns):
    """The lines that are wider, other than by one word with a slash: a path stays whole."""
    lines = text.replace("\r", "").split("\n")
    return [line for line in lines
            if columns_of(line) > columns and not ("/" in line and len(line.strip(" ›–!ok").split()) == 1)]


class Width(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        languages = sorted(path.stem for path in pathlib.Path(BUNDLE, "locale").glob("*.mo"))
        cls.languages = ["en", *languages]
        for arguments in (("city", "home", "Istanbul"), ("city", "add", "Thiruvananthapuram"), ("alarm", "on", "all")):
            subprocess.run([PROGRAM, *arguments], env=cls.environment(), capture_output=True, check=True)

    @classmethod
    def environment(cls, **others):
        environment = {**os.environ, "QUODE_DATA_DIR": cls.folder.name, "QUODE_NOW": "2026-11-21T09:00:00Z",
                       "QUODE_BUNDLE_DIR": BUNDLE, "XDG_RUNTIME_DIR": cls.folder.name, "LC_ALL": "C.UTF-8", **others}
        for name in ("DBUS_SESSION_BUS_ADDRESS", "COLUMNS"):
            if name not in others:
                environment.pop(name, None)
        return environment

    def printed(self, case):
        language, columns, command = case
        environment = self.environment(COLUMNS=str(columns), QUODE_LANG=language)
        done = subprocess.run([PROGRAM, *command], env=environment, capture_output=True, text=True, check=False)
        self.assertIn(done.returncode, (0, 1), f"{case}: {done.stderr}")
        self.assertTrue(done.stdout, case)
        return case, done.stdout

    def test_every_command_keeps_within_the_columns(self):
        cases = [(language, 40, command) for language in self.languages for command in COMMANDS]
        cases += [("en", columns, command) for columns in (47, 60, 100, 200) for command in COMMANDS]
        with concurrent.futures.ThreadPoolExecutor(4) as pool:
            for (language, columns, command), text in pool.map(self.printed, cases):
                self.assertEqual(too_wide(text, columns), [], f"{language} {columns} {' '.join(command)}")

    def on_terminal(self, columns, *command):
        """The output on a terminal of its own, messages included."""
        master, slave = pty.openpty()
        fcntl.ioctl(slave, termios.TIOCSWINSZ, struct.pack("HHHH", 24, columns, 0, 0))
        process = subprocess.Popen([PROGRAM, *command], stdin=slave, stdout=slave, stderr=slave,
                                   env=self.environment(TERM="xterm"))
        os.close(slave)
        output = b""
        while True:
            try:
                part = os.read(master, 65536)
            except OSError:  # the program has ended
                break
            if not part:
                break
            output += part
        process.wait()
        os.close(master)
        return output.decode()

    def test_the_width_is_that_of_the_terminal(self):
        for columns in (40, 55, 120):
            for command in (["today"], ["month"], ["moon"], ["doctor"], ["nxt"], ["city", "show", "Istambul"]):
                text = self.on_terminal(columns, *command)
                self.assertEqual(too_wide(text, columns), [], f"{columns} {command}")
        self.assertIn("\x1b[", self.on_terminal(40, "today"))
        wide, narrow = self.on_terminal(120, "month"), self.on_terminal(40, "month")
        self.assertGreater(narrow.count("\n"), wide.count("\n") + 25)

    def test_a_terminal_below_forty_columns_counts_as_forty(self):
        self.assertEqual(self.printed(("en", 12, ["today"]))[1], self.printed(("en", 40, ["today"]))[1])

    def test_lines_for_programs_are_never_broken(self):
        for command in (["month", "2026-12", "--format", "csv"], ["bulk", "--cities", "745044", "--date", "2026-12-01"],
                        ["next", "--format", "{name} {time} and a text that is much longer than forty columns"]):
            narrow = self.printed(("en", 40, command))[1]
            whole = subprocess.run([PROGRAM, *command], env=self.environment(), capture_output=True, text=True).stdout
            self.assertEqual(narrow, whole)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
