#!/usr/bin/python3
# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
"""A screen-saver service on the session bus. Prints every request; obeys "leave" and "come", which give the service's name
up and take it again."""
import sys

from gi.repository import Gio, GLib

NAME = "org.freedesktop.ScreenSaver"
XML = """<node><interface name="org.freedesktop.ScreenSaver">
<method name="Inhibit"><arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="u" direction="out"/></method>
<method name="UnInhibit"><arg type="u" direction="in"/></method></interface></node>"""

bus = Gio.bus_get_sync(Gio.BusType.SESSION)
next_cookie = 77
owner = None


def say(*words):
    print(*words, flush=True)


def call(_bus, sender, _path, _interface, method, arguments, invocation):
    global next_cookie
    if method == "Inhibit":
        say("Inhibit", next_cookie, *arguments.unpack())
        Gio.bus_watch_name_on_connection(bus, sender, 0, None, lambda *_: say("client gone"))
        invocation.return_value(GLib.Variant("(u)", (next_cookie,)))
        next_cookie += 1
    else:
        say("UnInhibit", *arguments.unpack())
        invocation.return_value(None)


def come():
    global owner
    owner = Gio.bus_own_name_on_connection(bus, NAME, 0, lambda *_: say("owned"), None)


def obey():
    order = sys.stdin.readline().strip()
    if not order:
        loop.quit()
        return False
    if order == "leave":
        Gio.bus_unown_name(owner)
    elif order == "come":
        come()
    say("done", order)
    return True


bus.register_object("/org/freedesktop/ScreenSaver", Gio.DBusNodeInfo.new_for_xml(XML).interfaces[0], call, None, None)
come()
loop = GLib.MainLoop()
GLib.io_add_watch(sys.stdin.fileno(), GLib.PRIORITY_DEFAULT, GLib.IO_IN | GLib.IO_HUP, lambda *_: obey())
loop.run()
