# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
"""khal lists the events of our vdir, and imports our single file."""
import subprocess

import reader_test
from reader_test import ReaderTest, utc

(KHAL,) = reader_test.need("khal")


class KhalTest(ReaderTest):
    def setUp(self):
        super().setUp()
        self.vdir = self.folder / "alarms"
        self.vdir.mkdir()
        self.config = self.folder / "khal.conf"
        self.config.write_text(
            f"[calendars]\n[[alarms]]\npath = {self.vdir}\n[locale]\nlocal_timezone = Asia/Kathmandu\n"
            "default_timezone = Asia/Kathmandu\ntimeformat = %H:%M\ndateformat = %Y-%m-%d\nlongdateformat = %Y-%m-%d\n"
            "datetimeformat = %Y-%m-%d %H:%M\nlongdatetimeformat = %Y-%m-%d %H:%M\n"
            f"[sqlite]\npath = {self.folder}/khal.db\n")

    def khal(self, *arguments):
        done = subprocess.run([KHAL, "-c", str(self.config), *map(str, arguments)], capture_output=True, text=True,
                              env=self.private_environment(), timeout=60, check=False)
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        self.assertNotIn("warning", done.stderr.lower() + done.stdout.lower())
        return done.stdout

    def listed(self):
        out = self.khal("list", "--format", "{start} | {end} | {title} | {location} | {alarm-symbol}", "--day-format", "",
                        "2025-03-14", "4d")
        return [line.strip() for line in out.splitlines() if line.strip()]

    def test_it_lists_our_events_with_their_alarms(self):
        self.save("vdir", self.vdir, "Prayer Alarm, ☀", utc(2025, 3, 14, 5), utc(2025, 3, 14, 5, 1))
        lines = self.listed()
        self.assertEqual(len(lines), 1, lines)
        start, end, title, location, alarm = lines[0].split(" | ")
        self.assertEqual((start, end), ("2025-03-14 10:45", "2025-03-14 10:46"))
        self.assertEqual((title, location), ("Prayer Alarm, ☀", "Quode"))
        self.assertTrue(alarm.strip())

    def test_it_accepts_an_end_that_keeps_the_start_day(self):
        self.save("vdir", self.vdir, "Prayer Alarm", utc(2025, 3, 14, 23, 59), utc(2025, 3, 14))
        lines = self.listed()
        self.assertEqual(len(lines), 1, lines)
        self.assertTrue(lines[0].startswith("2025-03-15 05:44 | 2025-03-15 05:45 | Prayer Alarm"), lines)

    def test_it_follows_a_change_and_a_removal(self):
        uid = self.save("vdir", self.vdir, "before", utc(2025, 3, 14, 5), utc(2025, 3, 14, 5, 1))
        self.assertIn("before", self.listed()[0])
        self.save("vdir", self.vdir, "afterwards", utc(2025, 3, 15, 5), utc(2025, 3, 15, 5, 1), uid)
        lines = self.listed()
        self.assertEqual(len(lines), 1, lines)
        self.assertTrue(lines[0].startswith("2025-03-15 10:45"))
        self.assertIn("afterwards", lines[0])
        reader_test.tool("remove", "vdir", self.vdir, uid)
        self.assertEqual(self.listed(), [])

    def test_it_imports_our_single_file(self):
        for day in (14, 15):
            self.save("file", self.folder, f"on {day}", utc(2025, 3, day, 5), utc(2025, 3, day, 5, 1))
        self.khal("import", "--batch", "-a", "alarms", self.folder / "Quode.ics")
        self.assertEqual(len(self.listed()), 2)

    def test_what_it_writes_is_replaced_in_its_own_file(self):
        self.khal("new", "-a", "alarms", "2025-03-14", "12:00", "12:30", "theirs", "::", "note")
        (file,) = self.vdir.glob("*.ics")
        uid = next(line[4:] for line in file.read_text().splitlines() if line.startswith("UID:"))
        self.assertEqual(self.save("vdir", self.vdir, "ours now", utc(2025, 3, 14, 5), utc(2025, 3, 14, 5, 1), uid), uid)
        self.assertEqual(list(self.vdir.glob("*.ics")), [file])
        self.assertIn("ours now", self.listed()[0])
        self.assertIn("note", file.read_text())


reader_test.main()
