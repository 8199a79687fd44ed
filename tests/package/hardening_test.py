# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
"""What the binaries of the build tree are protected by, read with readelf.

  hardening_test.py BUILD [--runpath]    with --runpath only where they look for libraries
"""
import os
import re
import subprocess
import sys
import unittest

BUILD = sys.argv[1]


def readelf(file, *options):
    result = subprocess.run(["readelf", "--wide", *options, file], capture_output=True, text=True,
                            env={**os.environ, "LC_ALL": "C"})
    return result.stdout if result.returncode == 0 else ""


def binaries():
    for folder in ("bin", "lib"):
        for root, _, names in os.walk(os.path.join(BUILD, folder)):
            for name in sorted(names):
                file = os.path.join(root, name)
                if os.path.islink(file) or os.path.getsize(file) < 4:
                    continue
                with open(file, "rb") as stream:
                    if stream.read(4) == b"\x7fELF":
                        yield file


def is_shipped(file):
    name = os.path.basename(file)
    return ".so" in name and "/lib/" in file or re.fullmatch(r"quode(-alarmd|-service|-panel|-settings)?", name) is not None


class Binaries(unittest.TestCase):
    def test_look_for_libraries_in_no_folder_that_is_the_current_one(self):
        found = list(binaries())
        self.assertTrue(found, "nothing is built")
        for file in found:
            for path in re.findall(r"\((?:RUNPATH|RPATH)\).*\[(.*)\]", readelf(file, "--dynamic")):
                for element in path.split(":"):
                    self.assertRegex(element, r"^(/|\$ORIGIN)", "%s: %s" % (file, path))


class Shipped(unittest.TestCase):
    def setUp(self):
        self.files = [file for file in binaries() if is_shipped(file)]
        self.assertTrue(any(file.endswith("/quode") for file in self.files), "nothing is built")

    def test_programs_lie_anywhere_in_memory(self):
        for file in self.files:
            self.assertRegex(readelf(file, "--file-header"), r"Type: +DYN", file)
            if "/bin/" in file:
                self.assertRegex(readelf(file, "--dynamic"), r"FLAGS_1.*\bPIE\b", file)

    def test_tables_of_functions_are_only_read(self):
        for file in self.files:
            self.assertRegex(readelf(file, "--program-headers"), r"GNU_RELRO", file)
            self.assertRegex(readelf(file, "--dynamic"), r"BIND_NOW|FLAGS_1.*\bNOW\b", file)

    def test_no_stack_is_executed(self):
        for file in self.files:
            self.assertRegex(readelf(file, "--program-headers"), r"GNU_STACK .* RW +0x", file)

    def test_stacks_are_watched(self):
        for file in self.files:
            if "quode-desktop" not in file:
                self.assertTrue("__stack_chk_fail" in readelf(file, "--dyn-syms"), file)

    def test_calls_of_the_library_are_checked(self):
        checked = [re.findall(r" __(?!stack)\w+_chk\b", readelf(file, "--dyn-syms")) for file in self.files]
        self.assertTrue(any(checked))


if __name__ == "__main__":
    suites = [Binaries] if "--runpath" in sys.argv else [Binaries, Shipped]
    loader = unittest.defaultTestLoader
    result = unittest.TextTestRunner(verbosity=2).run(
        unittest.TestSuite(loader.loadTestsFromTestCase(suite) for suite in suites))
    sys.exit(0 if result.wasSuccessful() else 1)
