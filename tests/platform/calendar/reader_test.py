# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
"""What the tests with real calendar programs share."""
import os
import shutil
import subprocess
import sys
import tempfile
import unittest
from datetime import datetime, timezone
from pathlib import Path

TOOL = sys.argv[1] if len(sys.argv) > 1 else None


def skip(reason):
    print("skipped:", reason)
    sys.exit(77)


def need(*programs):
    """Paths of the programs; the whole test is skipped when one is missing."""
    paths = [shutil.which(program) for program in programs]
    for program, path in zip(programs, paths):
        if path is None:
            skip(f"{program} is not installed")
    return paths


def utc(*fields):
    return datetime(*fields, tzinfo=timezone.utc)


def epoch(moment):
    return str(int(moment.timestamp()))


def tool(*arguments):
    done = subprocess.run([TOOL, *map(str, arguments)], capture_output=True, text=True, check=True, timeout=60)
    return done.stdout.strip()


class ReaderTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="quode-reader-")
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def save(self, layout, folder, title, start, end, identifier=None):
        more = [identifier] if identifier else []
        return tool("save", layout, folder, title, epoch(start), epoch(end), *more)

    def private_environment(self, **more):
        """No program of the test sees the user's own settings."""
        environment = {key: value for key, value in os.environ.items() if not key.startswith(("XDG_", "DBUS_", "DISPLAY"))}
        for key, name in (("XDG_CONFIG_HOME", "config"), ("XDG_DATA_HOME", "data"), ("XDG_CACHE_HOME", "cache"),
                          ("XDG_RUNTIME_DIR", "run"), ("HOME", "home")):
            path = self.folder / name
            path.mkdir(mode=0o700, exist_ok=True)
            environment[key] = str(path)
        return {**environment, "LC_ALL": "C.UTF-8", **more}


def main():
    unittest.main(argv=sys.argv[:1], verbosity=2)
