# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
"""vdirsyncer carries our events to a CalDAV server on this machine (radicale) and back."""
import socket
import subprocess
import time

import reader_test
from reader_test import ReaderTest, utc

RADICALE, VDIRSYNCER = reader_test.need("radicale", "vdirsyncer")


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


class VdirsyncerTest(ReaderTest):
    def setUp(self):
        super().setUp()
        self.port = free_port()
        self.start_server()
        self.ours = self.folder / "ours" / "alarms"
        self.theirs = self.folder / "theirs" / "alarms"
        for path in (self.ours, self.theirs):
            path.mkdir(parents=True)
        self.config = self.folder / "vdirsyncer.conf"
        self.config.write_text(
            f'[general]\nstatus_path = "{self.folder}/status/"\n' + self.storages("server")
            + self.pair("ours", self.ours.parent) + self.pair("theirs", self.theirs.parent))
        self.vdirsyncer("discover", input="y\n" * 20)

    def start_server(self):
        log = open(self.folder / "radicale.log", "wb")
        self.addCleanup(log.close)
        server = subprocess.Popen(
            [RADICALE, "--config", "", "--server-hosts", f"127.0.0.1:{self.port}", "--auth-type", "none",
             "--storage-filesystem-folder", str(self.folder / "collections")],
            stdout=log, stderr=log, env=self.private_environment())
        self.addCleanup(server.wait, 10)
        self.addCleanup(server.terminate)
        deadline = time.monotonic() + 30
        while time.monotonic() < deadline:
            with socket.socket() as probe:
                if probe.connect_ex(("127.0.0.1", self.port)) == 0:
                    return
            time.sleep(0.05)
        self.fail("the CalDAV server does not answer")

    def storages(self, name):
        return (f'[storage {name}]\ntype = "caldav"\nurl = "http://127.0.0.1:{self.port}/user/"\n'
                'username = "user"\npassword = "user"\n')

    @staticmethod
    def pair(name, folder):
        return (f'[storage {name}]\ntype = "filesystem"\npath = "{folder}/"\nfileext = ".ics"\n'
                f'[pair {name}_pair]\na = "{name}"\nb = "server"\ncollections = ["alarms"]\n')

    def vdirsyncer(self, *arguments, **more):
        done = subprocess.run([VDIRSYNCER, "-c", str(self.config), *arguments], capture_output=True, text=True,
                              env=self.private_environment(), timeout=60, check=False, **more)
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)

    def listed(self, folder):
        return [line.split("\t") for line in reader_test.tool("list", "vdir", folder).splitlines()]

    def sync(self):
        self.vdirsyncer("sync", "ours_pair")
        self.vdirsyncer("sync", "theirs_pair")
        self.vdirsyncer("sync", "ours_pair")

    def test_an_event_goes_to_the_server_and_to_another_device_and_its_change_comes_back(self):
        uid = self.save("vdir", self.ours, "Prayer Alarm, ☀", utc(2025, 3, 14, 23, 59), utc(2025, 3, 14))
        # A synchroniser asks before it empties a calendar, so another event stays to the end.
        other = self.save("vdir", self.ours, "stays", utc(2025, 3, 1, 5), utc(2025, 3, 1, 5, 1))
        self.sync()
        self.assertEqual(self.listed(self.theirs), self.listed(self.ours))
        self.assertEqual([line[0] for line in self.listed(self.theirs)], [other, uid])
        for file in self.theirs.glob("*.ics"):
            self.assertIn("TRIGGER:PT0S", file.read_text())

        time.sleep(1.1)  # the synchroniser tells files apart by their whole second
        self.save("vdir", self.theirs, "moved", utc(2025, 3, 15, 5), utc(2025, 3, 15, 5, 1), uid)
        self.vdirsyncer("sync", "theirs_pair")
        self.vdirsyncer("sync", "ours_pair")
        self.assertEqual(self.listed(self.ours)[1], [uid, reader_test.epoch(utc(2025, 3, 15, 5)),
                                                    reader_test.epoch(utc(2025, 3, 15, 5, 1)), "moved"])

        reader_test.tool("remove", "vdir", self.ours, uid)
        self.vdirsyncer("sync", "ours_pair")
        self.vdirsyncer("sync", "theirs_pair")
        self.assertEqual([line[0] for line in self.listed(self.theirs)], [other])

    def test_lock_and_damaged_files_stay_on_this_machine(self):
        uid = self.save("vdir", self.ours, "first", utc(2025, 3, 14, 5), utc(2025, 3, 14, 5, 1))
        (self.ours / f"{uid}.ics").write_text("damage")
        self.save("vdir", self.ours, "again", utc(2025, 3, 14, 5), utc(2025, 3, 14, 5, 1), uid)
        self.sync()
        self.assertEqual([path.name for path in self.theirs.iterdir()], [f"{uid}.ics"])


reader_test.main()
