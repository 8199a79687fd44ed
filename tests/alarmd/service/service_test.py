# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
"""The alarm service as a user has it: the real program on a private session bus, with a notification service that writes down
what it receives. The wall clock of the programs is moved so that a full minute is a few seconds away.

  service_test.py PROGRAMS BUNDLE [TEST]

Without a test all of them run, several at a time, each on a bus of its own.
"""
import concurrent.futures
import json
import os
import queue
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
import time
import unittest

BIN, BUNDLE = sys.argv[1], sys.argv[2]
MOCK = os.path.join(os.path.dirname(os.path.abspath(__file__)), "notification_mock.py")
LINE = 512  # bytes of a line of the file of the rings
AHEAD = 3  # seconds from the beginning of a test to the full minute


class Lines:
    """The lines that a process writes, as they come."""

    def __init__(self, stream):
        self.queue = queue.Queue()
        threading.Thread(target=self._read, args=(stream,), daemon=True).start()

    def _read(self, stream):
        for line in stream:
            self.queue.put(json.loads(line))

    def next(self, timeout):
        try:
            return self.queue.get(timeout=timeout)
        except queue.Empty:
            return None


class ServiceTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="quode-service-")
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        self.shift = 60 - AHEAD - int(time.time()) % 60
        self.environment = dict(os.environ, QUODE_DATA_DIR=self.folder, QUODE_BUNDLE_DIR=BUNDLE, TZ="Europe/Istanbul",
                                LC_ALL="C.UTF-8", ASAN_OPTIONS="verify_asan_link_order=0", SHIFT_SECONDS=str(self.shift),
                                LD_PRELOAD=os.path.join(BIN, "libshifted_clock.so"))
        self.services = []
        self.mock = None

    # --- the programs

    def start_mock(self, *arguments):
        self.mock = subprocess.Popen(["/usr/bin/python3", MOCK, *arguments], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.addCleanup(self.end, self.mock)
        self.shown = Lines(self.mock.stdout)
        self.assertEqual(self.shown.next(10)["call"], "ready")

    def answer(self, text):
        self.mock.stdin.write(text + "\n")
        self.mock.stdin.flush()

    def set_alarm(self):
        result = subprocess.run([os.path.join(BIN, "set_alarm"), BUNDLE], env=self.environment, capture_output=True, text=True)
        self.assertEqual(result.returncode, 0, result.stderr)
        return int(result.stdout) - self.shift  # by the clock of this test

    def start(self, **environment):
        """The service, under a guard that kills it when it asks for a socket of the internet."""
        errors = open(os.path.join(self.folder, "stderr"), "a+")
        service = subprocess.Popen([os.path.join(BIN, "no_internet"), os.path.join(BIN, "quode-alarmd")],
                                   env=dict(self.environment, **environment), stderr=errors)
        self.addCleanup(self.end, service)
        self.addCleanup(errors.close)
        return service

    def end(self, process):
        if process.poll() is None:
            process.kill()
        process.wait()
        for stream in (process.stdin, process.stdout):
            if stream:
                stream.close()

    def kill(self, service):
        service.send_signal(signal.SIGKILL)
        service.wait()

    def content(self, name):
        """The text of a file of the data folder; empty without one."""
        path = os.path.join(self.folder, name)
        if not os.path.exists(path):
            return ""
        with open(path) as stream:
            return stream.read()

    def messages(self):
        return self.content("stderr")

    def wait_until_serving(self):
        self.assertTrue(self.wait_for(lambda: self.content("alarmd.rings").startswith("decided")))

    def rings(self):
        """The rings that the service has noted: (prayer, state, moment)."""
        rings = []
        for start in range(0, len(self.content("alarmd.rings")), LINE):
            fields = self.content("alarmd.rings")[start:start + LINE].split("\t")
            if fields[0] == "ring":
                rings.append((int(fields[2]), int(fields[9]), int(fields[10])))
        return rings

    def states(self):
        return [state for _, state, _ in self.rings()]

    def bring_forward(self, moment):
        """Rewrites the only ring so that it rings at another moment."""
        with open(os.path.join(self.folder, "alarmd.rings"), "r+b") as file:
            file.seek(LINE)
            fields = file.read(LINE)[:-9].rstrip().split(b"\t")
            fields[10] = str(moment).encode()
            content = b"\t".join(fields).ljust(LINE - 9)
            checksum = 2166136261
            for byte in content:
                checksum = ((checksum ^ byte) * 16777619) & 0xFFFFFFFF
            file.seek(LINE)
            file.write(content + b"%08x\n" % checksum)

    def wait_for(self, condition, seconds=5):
        end = time.time() + seconds
        while time.time() < end:
            if condition():
                return True
            time.sleep(0.001)
        return False

    def expect_ring(self, due):
        ring = self.shown.next(due - time.time() + 2)
        self.assertIsNotNone(ring, "it did not ring")
        self.assertEqual(ring["call"], "Notify")
        self.assertGreaterEqual(ring["at"], due)
        self.assertLess(ring["at"], due + 2)
        return ring

    def expect_silence(self, seconds=1.0):
        self.assertIsNone(self.shown.next(seconds), "it rang once too often")

    # --- ringing

    def test_rings_once_at_the_minute(self):
        self.start_mock()
        due = self.set_alarm()
        service = self.start()
        ring = self.expect_ring(due)
        self.assertTrue(ring["body"].startswith("Istanbul, "), ring["body"])
        self.assertEqual(ring["actions"], ["stop", "Stop", "snooze", "Snooze 5 min", "mute", "Mute today"])
        self.assertEqual(ring["hints"]["urgency"], ["y", 2])
        self.assertEqual(ring["expire"], 0)
        self.expect_silence()
        self.answer("action 1 stop")
        self.assertEqual(self.shown.next(2), {"call": "CloseNotification", "number": 1})
        self.assertTrue(self.wait_for(lambda: self.states() == [3]))
        service.terminate()
        self.assertEqual(service.wait(5), 0)

    def test_renews_the_event_after_the_ring(self):
        self.start_mock()
        due = self.set_alarm()
        before = self.content("Quode.ics")
        self.start()
        self.expect_ring(due)
        self.assertTrue(self.wait_for(lambda: self.content("Quode.ics") != before))

    def test_rings_for_an_alarm_that_is_set_while_it_runs(self):
        self.start_mock()
        self.start()
        self.assertTrue(self.wait_for(lambda: os.path.exists(os.path.join(self.folder, "user.sqlite"))))
        time.sleep(0.5)
        due = self.set_alarm()
        self.expect_ring(due)
        self.expect_silence()

    def test_snoozes_and_keeps_the_snooze_over_a_kill(self):
        self.start_mock()
        due = self.set_alarm()
        service = self.start()
        self.expect_ring(due)
        self.answer("action 1 snooze")
        self.assertEqual(self.shown.next(2), {"call": "CloseNotification", "number": 1})
        self.assertTrue(self.wait_for(lambda: self.states() == [2]))
        again = self.rings()[0][2] - self.shift
        self.assertLess(abs(again - time.time() - 300), 3)
        self.kill(service)
        # Five minutes are too long for a test: the note is brought forward.
        soon = int(time.time()) + 2
        self.bring_forward(soon + self.shift)
        self.start()
        self.expect_ring(soon)
        self.expect_silence()

    def test_a_notification_that_the_user_closes_is_over(self):
        self.start_mock()
        due = self.set_alarm()
        self.start()
        self.expect_ring(due)
        self.answer("closed 1")
        self.assertTrue(self.wait_for(lambda: self.states() == [3]))
        self.expect_silence(0.5)

    def test_answers_to_a_slow_notification_service_count(self):
        self.start_mock("slow")
        due = self.set_alarm()
        self.start()
        self.expect_ring(due)
        self.assertTrue(self.wait_for(lambda: self.states() == [5]))
        self.assertTrue(self.wait_for(lambda: self.states() == [1], 10))
        self.answer("action 1 snooze")
        self.assertEqual(self.shown.next(2), {"call": "CloseNotification", "number": 1})
        self.assertTrue(self.wait_for(lambda: self.states() == [2]))
        self.expect_silence()

    def expect_an_early_answer_to_count(self, key, state):
        self.start_mock("slow")
        due = self.set_alarm()
        self.start()
        self.expect_ring(due)
        self.assertTrue(self.wait_for(lambda: self.states() == [5]))
        self.answer(f"action 1 {key}")
        self.assertEqual(self.shown.next(8), {"call": "CloseNotification", "number": 1})
        self.assertTrue(self.wait_for(lambda: self.states() == [state]))
        self.expect_silence()

    def test_a_stop_before_the_answer_of_a_slow_notification_service_counts(self):
        self.expect_an_early_answer_to_count("stop", 3)

    def test_a_snooze_before_the_answer_of_a_slow_notification_service_counts(self):
        self.expect_an_early_answer_to_count("snooze", 2)

    def test_a_ring_that_nobody_saw_is_shown_when_a_service_appears(self):
        due = self.set_alarm()
        self.start()
        self.assertTrue(self.wait_for(lambda: self.states() == [6], due - time.time() + 3))
        self.start_mock()
        ring = self.shown.next(2)
        self.assertIsNotNone(ring)
        self.assertEqual(ring["call"], "Notify")
        self.assertTrue(self.wait_for(lambda: self.states() == [1]))
        self.expect_silence()

    def test_the_end_of_a_notification_service_closes_its_rings(self):
        self.start_mock()
        due = self.set_alarm()
        self.start()
        self.expect_ring(due)
        self.assertTrue(self.wait_for(lambda: self.states() == [1]))
        self.end(self.mock)
        self.start_mock()
        self.assertTrue(self.wait_for(lambda: self.states() == [3]))
        self.answer("action 1 snooze")  # the number of a ring of the former run
        self.expect_silence()
        self.assertEqual(self.states(), [3])

    # --- killed and started again

    def test_a_kill_before_the_ring_loses_nothing(self):
        self.start_mock()
        due = self.set_alarm()
        service = self.start()
        self.wait_until_serving()
        self.kill(service)
        time.sleep(max(0.0, due - time.time()) + 1.5)
        started = time.time()
        self.start()
        self.expect_ring(started)
        self.expect_silence()

    def test_a_kill_after_the_ring_doubles_nothing(self):
        self.start_mock()
        due = self.set_alarm()
        service = self.start()
        # As soon as the notification service was asked, or has answered.
        self.assertTrue(self.wait_for(lambda: self.states() in ([5], [1]), due - time.time() + 3))
        self.kill(service)
        self.expect_ring(due)
        for _ in range(3):
            service = self.start()
            self.expect_silence(0.5)
            self.kill(service)

    def test_answers_a_ring_of_before_a_kill(self):
        self.start_mock()
        due = self.set_alarm()
        service = self.start()
        self.expect_ring(due)
        self.assertTrue(self.wait_for(lambda: self.states() == [1]))
        self.kill(service)
        self.start()
        time.sleep(0.7)
        self.answer("action 1 stop")
        self.assertEqual(self.shown.next(2), {"call": "CloseNotification", "number": 1})

    # --- what may be missing

    def test_a_second_one_ends_at_once(self):
        self.start_mock()
        due = self.set_alarm()
        self.start()
        time.sleep(0.5)
        second = self.start()
        self.assertEqual(second.wait(5), 0)
        self.assertIn("already running", self.messages())
        self.expect_ring(due)
        self.expect_silence()

    def test_one_of_two_is_left_after_the_data_folder_was_made_again(self):
        self.start_mock()
        self.environment["QUODE_DATA_DIR"] = os.path.join(self.folder, "data")
        self.set_alarm()
        first = self.start()
        self.assertTrue(self.wait_for(lambda: os.path.exists(self.environment["QUODE_DATA_DIR"] + "/alarmd.lock")))
        time.sleep(0.5)  # it has started
        # The service writes meanwhile, so that a folder may not be empty when its turn comes.
        while os.path.exists(self.environment["QUODE_DATA_DIR"]):
            shutil.rmtree(self.environment["QUODE_DATA_DIR"], ignore_errors=True)
        time.sleep(0.5)
        self.assertFalse(os.path.exists(self.environment["QUODE_DATA_DIR"]), "what the user deleted stays deleted")
        second = self.start()
        due = self.set_alarm()
        self.expect_ring(due)
        self.expect_silence()
        self.assertTrue(self.wait_for(lambda: first.poll() == 0 or second.poll() == 0, 12), "two of them run")
        self.assertIn(None, (first.poll(), second.poll()))

    def test_without_a_notification_service_only_the_sound_rings(self):
        due = self.set_alarm()
        service = self.start()
        self.assertTrue(self.wait_for(lambda: self.states() == [6], due - time.time() + 3))
        self.assertIsNone(service.poll())
        self.assertIn("No notification service", self.content("QuodeLog.txt"))

    def test_without_a_bus_only_the_sound_rings(self):
        due = self.set_alarm()
        service = self.start(DBUS_SESSION_BUS_ADDRESS="unix:path=/nowhere/at/all")
        self.assertTrue(self.wait_for(lambda: self.states() == [6], due - time.time() + 3))
        self.assertIsNone(service.poll())

    def use_small_disk(self):
        """Puts the data folder on a disk of its own."""
        disk = os.path.join(self.folder, "disk")
        os.mkdir(disk)
        if subprocess.run(["mount", "-t", "tmpfs", "-o", "size=256k", "tmpfs", disk], capture_output=True).returncode != 0:
            self.skipTest("this user may not mount a small disk")
        self.addCleanup(subprocess.run, ["umount", "-l", disk])
        self.environment["QUODE_DATA_DIR"] = disk
        return disk

    def test_a_full_disk_does_not_silence_it(self):
        disk = self.use_small_disk()
        self.start_mock()
        due = self.set_alarm()
        filler = os.open(os.path.join(disk, "filler"), os.O_WRONLY | os.O_CREAT)
        with self.assertRaises(OSError):
            while True:
                os.write(filler, b"x" * 4096)
        os.close(filler)
        self.start()
        self.expect_ring(due)
        self.expect_silence()
        # It depends on the hour what it could not write: the user database, or first the journal of an event that it renews.
        self.assertRegex(self.messages(), "the disk is full|Make room on the disk")

    def test_a_disk_that_may_not_be_written_does_not_silence_it(self):
        disk = self.use_small_disk()
        self.start_mock()
        due = self.set_alarm()
        self.assertEqual(subprocess.run(["mount", "-o", "remount,ro", disk]).returncode, 0)
        self.start()
        time.sleep(0.5)
        self.assertEqual(self.start().wait(5), 0, "two of them run")
        self.expect_ring(due)
        self.expect_silence()
        self.assertIn("cannot be written", self.messages())

    def test_a_missing_city_database_is_told(self):
        service = self.start(QUODE_BUNDLE_DIR="/nowhere")
        self.assertEqual(service.wait(5), 1)
        self.assertIn("The city database is missing", self.messages())

    def test_it_sleeps_when_nothing_is_due(self):
        self.environment["SHIFT_SECONDS"] = str(10 - int(time.time()) % 60)
        self.set_alarm()
        service = self.start()
        time.sleep(1)
        before = self.switches(service)
        time.sleep(3)
        self.assertLessEqual(self.switches(service) - before, 1)

    def switches(self, service):
        with open(f"/proc/{service.pid}/status") as status:
            return sum(int(line.split()[1]) for line in status if "ctxt_switches" in line)


class GuardTest(unittest.TestCase):
    def test_kills_a_program_that_asks_for_the_internet(self):
        program = ["/usr/bin/python3", "-c", "import socket; socket.socket(socket.AF_INET)"]
        result = subprocess.run([os.path.join(BIN, "no_internet")] + program)
        self.assertEqual(result.returncode, -signal.SIGSYS)


def run_on_own_bus(test):
    """Runs one test; returns whether it succeeded, and what it wrote."""
    command = ["dbus-run-session", "--", "/usr/bin/python3", __file__, BIN, BUNDLE, test]
    result = subprocess.run(command, capture_output=True, text=True)
    return result.returncode == 0, f"--- {test}\n{result.stdout}{result.stderr}"


def run_all():
    tests = [f"{case.__name__}.{name}" for case in (GuardTest, ServiceTest)
             for name in unittest.defaultTestLoader.getTestCaseNames(case)]
    with concurrent.futures.ThreadPoolExecutor(max_workers=6) as pool:
        results = list(pool.map(run_on_own_bus, tests))
    for succeeded, output in results:
        if not succeeded:
            print(output)
    print(f"{sum(succeeded for succeeded, _ in results)} of {len(results)} tests passed")
    return 0 if all(succeeded for succeeded, _ in results) else 1


if __name__ == "__main__":
    if len(sys.argv) < 4:
        sys.exit(run_all())
    unittest.main(argv=[sys.argv[0]] + sys.argv[3:], verbosity=2)
