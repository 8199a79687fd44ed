// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The coming prayer in the panel. Everything comes from org.quode.Quode1; docs/dbus.md describes it.
import QtQuick
import QtQuick.Layouts
import org.kde.kirigami as Kirigami
import org.kde.plasma.components as PlasmaComponents
import org.kde.plasma.plasmoid
import org.kde.plasma.workspace.dbus as DBus

PlasmoidItem {
    id: applet

    readonly property string service: "org.quode.Quode1"
    readonly property string path: "/org/quode/Quode1"
    readonly property int mainPrayers: 6
    property var home: ({})
    property var next: home.Next ?? null
    property string remaining: ""
    property bool isRinging: false

    function read() {
        const reply = DBus.SessionBus.asyncCall({
            "service": service,
            "path": path,
            "iface": "org.freedesktop.DBus.Properties",
            "member": "GetAll",
            "arguments": [service + ".Home"],
            "signature": "(s)"
        });
        reply.finished.connect(() => {
            if (!reply.isError)
                home = reply.value;
            count();
        });
    }

    function count() {
        if (!next || !next[0]) {
            remaining = "";
            return;
        }
        const minutes = Math.max(0, Math.ceil((Number(next[2]) - Date.now() / 1000) / 60));
        remaining = Math.floor(minutes / 60) + ":" + String(minutes % 60).padStart(2, "0");
    }

    function longDate(date) {
        const [year, month, day] = String(date).split("-").map(Number);
        return new Date(year, month - 1, day).toLocaleDateString(Qt.locale(), Locale.LongFormat);
    }

    function answer(action) {
        DBus.SessionBus.asyncCall({"service": service, "path": path, "iface": service + ".Alarms", "member": action});
    }

    function askWhatRings() {
        const reply = DBus.SessionBus.asyncCall({"service": service, "path": path, "iface": service + ".Alarms", "member": "Ringing"});
        reply.finished.connect(() => isRinging = !reply.isError && reply.value.length > 0);
    }

    Component.onCompleted: {
        read();
        askWhatRings();
    }

    DBus.DBusServiceWatcher {
        busType: DBus.BusType.Session
        watchedService: applet.service
        onRegisteredChanged: applet.read()
    }

    // The countdown changes with the minute, alarms ring at full minutes, and Plasma 6.3 hears no signals of other programs.
    Timer {
        interval: 60500 - Date.now() % 60000
        running: true
        onTriggered: {
            applet.read();
            applet.askWhatRings();
            interval = 60500 - Date.now() % 60000;
            restart();
        }
    }

    toolTipMainText: next ? next[1] + " " + next[3] : "Quode"
    toolTipSubText: home.Place ? home.Place[1] : ""

    compactRepresentation: PlasmaComponents.Label {
        text: applet.next && applet.next[0] ? applet.next[1] + " −" + applet.remaining : "Quode"
        Layout.minimumWidth: implicitWidth + 2 * Kirigami.Units.smallSpacing
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter

        MouseArea {
            anchors.fill: parent
            onClicked: applet.expanded = !applet.expanded
        }
    }

    fullRepresentation: ColumnLayout {
        Layout.minimumWidth: Kirigami.Units.gridUnit * 14
        spacing: Kirigami.Units.smallSpacing

        Kirigami.Heading {
            level: 3
            text: applet.home.Place ? applet.home.Place[1] : "Quode"
        }
        PlasmaComponents.Label {
            text: applet.home.Date ? applet.longDate(applet.home.Date) : ""
        }
        PlasmaComponents.Label {
            text: applet.home.HijriDate ? applet.home.HijriDate[1] : ""
        }
        Repeater {
            model: (applet.home.Prayers ?? []).slice(0, applet.mainPrayers)

            RowLayout {
                required property var modelData
                readonly property bool isNext: applet.next !== null && String(modelData[0]) === String(applet.next[0])

                PlasmaComponents.Label {
                    Layout.fillWidth: true
                    font.bold: parent.isNext
                    text: parent.modelData[1]
                }
                PlasmaComponents.Label {
                    font.bold: parent.isNext
                    text: parent.modelData[3]
                }
            }
        }
        RowLayout {
            visible: applet.isRinging

            PlasmaComponents.Button {
                text: applet.home.RingAnswers ? applet.home.RingAnswers[0] : "Stop"
                onClicked: applet.answer("Stop")
            }
            PlasmaComponents.Button {
                text: applet.home.RingAnswers ? applet.home.RingAnswers[1] : "Snooze"
                onClicked: applet.answer("Snooze")
            }
        }
    }
}
