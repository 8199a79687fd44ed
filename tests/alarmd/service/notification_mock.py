# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
"""A notification service that writes down what it receives, one JSON object per line on its standard output.

With the argument "described" it tells its name and what it can do; else it refuses to. With "slow" it answers after six
seconds.

Commands on its standard input: "action NUMBER KEY" and "closed NUMBER" send the signals of a user's answer.
"""
import json
import sys
import time

from gi.repository import Gio, GLib

NAME = "org.freedesktop.Notifications"
PATH = "/org/freedesktop/Notifications"
INTERFACE = f"""<node><interface name="{NAME}">
<method name="Notify">
 <arg type="s" direction="in"/><arg type="u" direction="in"/><arg type="s" direction="in"/><arg type="s" direction="in"/>
 <arg type="s" direction="in"/><arg type="as" direction="in"/><arg type="a{{sv}}" direction="in"/><arg type="i" direction="in"/>
 <arg type="u" direction="out"/></method>
<method name="GetCapabilities"><arg type="as" direction="out"/></method>
<method name="GetServerInformation"><arg type="s" direction="out"/><arg type="s" direction="out"/>
 <arg type="s" direction="out"/><arg type="s" direction="out"/></method>
<method name="CloseNotification"><arg type="u" direction="in"/></method>
<signal name="ActionInvoked"><arg type="u"/><arg type="s"/></signal>
<signal name="NotificationClosed"><arg type="u"/><arg type="u"/></signal>
</interface></node>"""

last_number = 0


def tell(**facts):
    print(json.dumps(facts), flush=True)


def answer_if_described(invocation, answer):
    if "described" in sys.argv:
        invocation.return_value(answer)
    else:
        invocation.return_dbus_error("org.freedesktop.DBus.Error.UnknownMethod", "This service does not describe itself.")


def call(connection, sender, path, interface, method, arguments, invocation):
    global last_number
    if method == "Notify":
        last_number += 1
        raw = arguments.get_child_value(6)
        hints = {}
        for i in range(raw.n_children()):
            entry = raw.get_child_value(i)
            value = entry.get_child_value(1).get_variant()
            hints[entry.get_child_value(0).get_string()] = [value.get_type_string(), value.unpack()]
        unpacked = arguments.unpack()
        answer = GLib.Variant("(u)", (last_number,))
        if "slow" in sys.argv:
            GLib.timeout_add_seconds(6, lambda: invocation.return_value(answer) and False)
        else:
            invocation.return_value(answer)
        tell(call="Notify", number=last_number, at=time.time(), title=unpacked[3], body=unpacked[4], actions=unpacked[5],
             hints=hints, expire=unpacked[7])
    elif method == "GetCapabilities":
        answer_if_described(invocation, GLib.Variant("(as)", (["actions", "body"],)))
    elif method == "GetServerInformation":
        answer_if_described(invocation, GLib.Variant("(ssss)", ("Paper", "Quode", "1.0", "1.2")))
    else:
        tell(call="CloseNotification", number=arguments.unpack()[0])
        invocation.return_value(None)


def command(channel, condition):
    line = sys.stdin.readline().split()
    if not line:
        loop.quit()
        return False
    if line[0] == "action":
        connection.emit_signal(None, PATH, NAME, "ActionInvoked", GLib.Variant("(us)", (int(line[1]), line[2])))
    if line[0] == "closed":
        connection.emit_signal(None, PATH, NAME, "NotificationClosed", GLib.Variant("(uu)", (int(line[1]), 2)))
    return True


loop = GLib.MainLoop()
connection = Gio.bus_get_sync(Gio.BusType.SESSION)
connection.register_object(PATH, Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0], call, None, None)
Gio.bus_own_name_on_connection(connection, NAME, 0, lambda *_: tell(call="ready"), None)
GLib.io_add_watch(0, GLib.IOCondition.IN | GLib.IOCondition.HUP, command)
loop.run()
