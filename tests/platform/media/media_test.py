# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
"""Pausing of media players: another process owns their names on a private session bus and writes down what it is asked for.

media_test.py CONTROL, on a session bus of its own.
"""
import subprocess
import sys
import time
import unittest

from gi.repository import Gio, GLib

CONTROL = sys.argv[1]
PATH = "/org/mpris/MediaPlayer2"
PLAYER = "org.mpris.MediaPlayer2.Player"
INTERFACE = f"""<node><interface name="{PLAYER}">
<method name="Play"/><method name="Pause"/><property name="PlaybackStatus" type="s" access="read"/>
</interface></node>"""
PATIENCE = 5.0  # seconds
QUIET = 0.3


class Player:
    """A player with a connection, and so a unique name, of its own."""

    def __init__(self, name, state):
        self.state, self.calls = state, []
        address = Gio.dbus_address_get_for_bus_sync(Gio.BusType.SESSION)
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        self.connection = Gio.DBusConnection.new_for_address_sync(address, flags)
        self.connection.register_object(PATH, Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0], self.call,
                                        lambda *_: GLib.Variant("s", self.state), None)
        owned = []
        Gio.bus_own_name_on_connection(self.connection, "org.mpris.MediaPlayer2." + name, 0, lambda *_: owned.append(name), None)
        run_until(lambda: owned)

    def call(self, connection, sender, path, interface, method, arguments, invocation):
        self.calls.append(method)
        self.state = "Playing" if method == "Play" else "Paused"
        invocation.return_value(None)

    def quit(self):
        self.connection.close_sync()


def run_until(condition, patience=PATIENCE):
    end = time.monotonic() + patience
    while time.monotonic() < end:
        while GLib.MainContext.default().iteration(False):
            pass
        if condition():
            return True
        time.sleep(0.005)
    return False


class Media(unittest.TestCase):
    def setUp(self):
        self.players = []
        self.control = subprocess.Popen([CONTROL], stdin=subprocess.PIPE, text=True)

    def tearDown(self):
        if not self.control.stdin.closed:
            self.control.stdin.close()
        run_until(lambda: self.control.poll() is not None)
        for player in self.players:
            player.quit()

    def player(self, name, state):
        self.players.append(Player(name, state))
        return self.players[-1]

    def say(self, line):
        self.control.stdin.write(line + "\n")
        self.control.stdin.flush()

    def test_pauses_what_plays_and_lets_it_go_on(self):
        music, film, idle = self.player("music", "Playing"), self.player("film", "Paused"), self.player("idle", "Stopped")
        self.say("pause")
        self.assertTrue(run_until(lambda: music.calls == ["Pause"]))
        self.say("resume")
        self.assertTrue(run_until(lambda: music.calls == ["Pause", "Play"]))
        run_until(lambda: False, QUIET)
        self.assertEqual(film.calls + idle.calls, [], "what did not play stays silent")

    def test_lets_nothing_go_on_that_was_ended_meanwhile(self):
        music = self.player("music", "Playing")
        self.say("pause")
        self.assertTrue(run_until(lambda: music.calls == ["Pause"]))
        music.state = "Stopped"
        self.say("resume")
        run_until(lambda: False, QUIET)
        self.assertEqual(music.calls, ["Pause"])

    def test_another_program_of_the_same_name_is_left_alone(self):
        music = self.player("music", "Playing")
        self.say("pause")
        self.assertTrue(run_until(lambda: music.calls == ["Pause"]))
        self.players.remove(music)
        music.quit()
        other = self.player("music", "Paused")
        self.say("resume")
        run_until(lambda: False, QUIET)
        self.assertEqual(other.calls, [])

    def test_what_is_paused_goes_on_when_the_program_ends(self):
        music = self.player("music", "Playing")
        self.say("pause")
        self.assertTrue(run_until(lambda: music.calls == ["Pause"]))
        self.control.stdin.close()
        self.assertTrue(run_until(lambda: music.calls == ["Pause", "Play"]))

    def test_a_second_alarm_keeps_in_mind_what_the_first_one_paused(self):
        music = self.player("music", "Playing")
        self.say("pause")
        self.assertTrue(run_until(lambda: music.calls == ["Pause"]))
        self.say("pause")
        run_until(lambda: False, QUIET)
        self.say("resume")
        self.assertTrue(run_until(lambda: music.calls == ["Pause", "Play"]))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
