// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The coming prayer in the top bar. Everything comes from org.quode.Quode1; docs/dbus.md describes it.
import Clutter from 'gi://Clutter';
import Gio from 'gi://Gio';
import GLib from 'gi://GLib';
import GObject from 'gi://GObject';
import St from 'gi://St';

import {Extension} from 'resource:///org/gnome/shell/extensions/extension.js';
import * as Main from 'resource:///org/gnome/shell/ui/main.js';
import * as PanelMenu from 'resource:///org/gnome/shell/ui/panelMenu.js';
import * as PopupMenu from 'resource:///org/gnome/shell/ui/popupMenu.js';

const NAME = 'org.quode.Quode1';
const PATH = '/org/quode/Quode1';
const MAIN_PRAYERS = 6;
const MISSING = 4;

function clockLeft(instant) {
    const minutes = Math.max(0, Math.ceil((instant - Date.now() / 1000) / 60));
    const hours = Math.floor(minutes / 60);
    return `${hours}:${String(minutes % 60).padStart(2, '0')}`;
}

function longDate(date) {
    const [year, month, day] = date.split('-').map(Number);
    return new Date(year, month - 1, day).toLocaleDateString(undefined, {dateStyle: 'full'});
}

const Indicator = GObject.registerClass(
class Indicator extends PanelMenu.Button {
    _init() {
        super._init(0.5, 'Quode');
        this._label = new St.Label({text: '…', y_align: Clutter.ActorAlign.CENTER});
        this.add_child(this._label);
        this._cancellable = new Gio.Cancellable();
        this._home = this._connectTo('Home');
        this._alarms = this._connectTo('Alarms');
        this._isRinging = false;
    }

    _connectTo(part) {
        const proxy = new Gio.DBusProxy({
            g_bus_type: Gio.BusType.SESSION,
            g_name: NAME,
            g_object_path: PATH,
            g_interface_name: `${NAME}.${part}`,
        });
        proxy.connectObject(
            'g-properties-changed', () => this._show(),
            'notify::g-name-owner', () => this._show(),
            'g-signal', (_proxy, _sender, signal) => this._hear(signal), this);
        proxy.init_async(GLib.PRIORITY_DEFAULT, this._cancellable, (source, result) => {
            try {
                source.init_finish(result);
                this._show();
                this._askWhatRings();
            } catch (error) {
                if (!error.matches(Gio.IOErrorEnum, Gio.IOErrorEnum.CANCELLED))
                    this._label.text = 'Quode?';
            }
        });
        return proxy;
    }

    _value(name) {
        return this._home.get_cached_property(name)?.recursiveUnpack() ?? null;
    }

    _hear(signal) {
        if (signal === 'Rang' || signal === 'Stopped')
            this._askWhatRings();
    }

    _askWhatRings() {
        this._alarms?.call('Ringing', null, Gio.DBusCallFlags.NO_AUTO_START, -1, this._cancellable, (proxy, result) => {
            try {
                this._isRinging = proxy.call_finish(result).deepUnpack()[0].length > 0;
                this._show();
            } catch {
                // Nothing rings that could be stopped: the service is gone, or this front.
            }
        });
    }

    _show() {
        this._count();
        if (this._home && this._value('Next')?.[0])
            this._fillMenu(this._value('Next'));
    }

    _count() {
        const next = this._home ? this._value('Next') : null;
        if (next?.[0]) {
            this._label.text = `${next[1]} −${clockLeft(next[2])}`;
            this._armMinute();
        } else {
            this._label.text = this._home?.g_name_owner ? '--:--' : 'Quode';
        }
    }

    // At the full minute of the countdown; nothing runs while there is none.
    _armMinute() {
        if (this._timer)
            GLib.source_remove(this._timer);
        const seconds = 60 - Math.floor(Date.now() / 1000) % 60;
        this._timer = GLib.timeout_add_seconds(GLib.PRIORITY_DEFAULT, seconds, () => {
            this._timer = null;
            this._count();
            return GLib.SOURCE_REMOVE;
        });
    }

    _fillMenu(next) {
        this.menu.removeAll();
        const [, place] = this._value('Place');
        this._addLine(place);
        this._addLine(longDate(this._value('Date')));
        this._addLine(this._value('HijriDate')[1]);
        this.menu.addMenuItem(new PopupMenu.PopupSeparatorMenuItem());
        for (const [key, name, , text, flags] of this._value('Prayers').slice(0, MAIN_PRAYERS)) {
            const item = this._addLine(name, (flags & MISSING) ? '--:--' : text);
            if (key === next[0])
                item.style = 'font-weight: bold;';
        }
        if (!this._isRinging)
            return;
        this.menu.addMenuItem(new PopupMenu.PopupSeparatorMenuItem());
        const [stop, snooze] = this._value('RingAnswers') ?? ['Stop', 'Snooze'];
        for (const [label, action] of [[stop, 'Stop'], [snooze, 'Snooze']])
            this.menu.addAction(label, () => this._alarms.call(action, null, Gio.DBusCallFlags.NONE, -1, null, null));
    }

    // Nothing to choose, but full contrast, and a screen reader comes by.
    _addLine(text, value = '') {
        const item = new PopupMenu.PopupMenuItem(text, {activate: false, hover: false});
        item.label.x_expand = true;
        item.add_child(new St.Label({text: value, y_align: Clutter.ActorAlign.CENTER}));
        this.menu.addMenuItem(item);
        return item;
    }

    _onDestroy() {
        if (this._timer)
            GLib.source_remove(this._timer);
        this._timer = null;
        this._cancellable.cancel();
        for (const proxy of [this._home, this._alarms])
            proxy.disconnectObject(this);
        super._onDestroy();
    }
});

export default class QuodeExtension extends Extension {
    enable() {
        this._indicator = new Indicator();
        Main.panel.addToStatusArea(this.uuid, this._indicator);
    }

    disable() {
        this._indicator.destroy();
        this._indicator = null;
    }
}
