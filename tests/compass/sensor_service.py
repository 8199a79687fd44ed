#!/usr/bin/python3
# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
"""A sensor service on the system bus, as the compass sees the real one. Obeys the lines that it reads:

  compass yes|no     whether there is a compass
  heading DEGREES    a new heading; signalled only while a client has claimed the compass
  deny yes|no        whether claims are refused
  mute yes|no        whether calls stay without an answer
  leave, come        gives the service's name up, and takes it again
"""
import sys

from gi.repository import Gio, GLib

PATH = "/net/hadess/SensorProxy/Compass"
NAME = "net.hadess.SensorProxy"
INTERFACE = "net.hadess.SensorProxy.Compass"
XML = """<node><interface name="net.hadess.SensorProxy.Compass">
<method name="ClaimCompass"/><method name="ReleaseCompass"/>
<property name="HasCompass" type="b" access="read"/><property name="CompassHeading" type="d" access="read"/>
</interface></node>"""

state = {"compass": True, "heading": -1.0, "deny": False, "mute": False, "claims": set()}
bus = Gio.bus_get_sync(Gio.BusType.SYSTEM)
owner = None


def say(*words):
    print(*words, flush=True)


def changed(name, value):
    bus.emit_signal(None, PATH, "org.freedesktop.DBus.Properties", "PropertiesChanged",
                    GLib.Variant("(sa{sv}as)", (INTERFACE, {name: value}, [])))


def call(_bus, sender, _path, _interface, method, _arguments, invocation):
    say(method)
    if state["mute"]:
        return
    if state["deny"]:
        invocation.return_dbus_error("org.freedesktop.DBus.Error.AccessDenied", "Not authorized")
        return
    if method == "ClaimCompass":
        state["claims"].add(sender)
    else:
        state["claims"].discard(sender)
    invocation.return_value(None)


def read(_bus, _sender, _path, _interface, name):
    if name == "HasCompass":
        return GLib.Variant("b", state["compass"])
    return GLib.Variant("d", state["heading"] if state["claims"] else -1.0)


def come():
    global owner
    owner = Gio.bus_own_name_on_connection(bus, NAME, 0, lambda *_: say("owned"), None)


def obey(channel, _condition):
    line = channel.readline()
    if not line:
        loop.quit()
        return False
    order, *words = line.split()
    if order == "heading":
        state["heading"] = float(words[0])
        if state["claims"]:
            changed("CompassHeading", GLib.Variant("d", state["heading"]))
    elif order == "compass":
        state["compass"] = words[0] == "yes"
        changed("HasCompass", GLib.Variant("b", state["compass"]))
    elif order in ("deny", "mute"):
        state[order] = words[0] == "yes"
    elif order == "leave":
        state["claims"].clear()
        Gio.bus_unown_name(owner)
    elif order == "come":
        come()
    say("done", order)
    return True


bus.register_object(PATH, Gio.DBusNodeInfo.new_for_xml(XML).interfaces[0], call, read, None)
come()
loop = GLib.MainLoop()
GLib.io_add_watch(sys.stdin.fileno(), GLib.PRIORITY_DEFAULT, GLib.IO_IN | GLib.IO_HUP,
                  lambda *a: obey(sys.stdin, a[1]))
loop.run()
