// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/Instance.h"

#include <QDBusConnection>
#include <QDBusMessage>

namespace quode::host {
namespace {

constexpr const char* name = "org.quode.Panel";
constexpr const char* path = "/org/quode/Panel";
constexpr int patience = 5000;  // ms

}  // namespace

Instance::Instance() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
    // The object comes before the name, so that whoever sees the name can call.
    bus.registerObject(path, this, QDBusConnection::ExportScriptableSlots);
    isFirst_ = bus.registerService(name);
}

Instance::~Instance() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
    if (isFirst_) bus.unregisterService(name);
    bus.unregisterObject(path);
}

bool Instance::presentOther() const {
    const QDBusMessage call = QDBusMessage::createMethodCall(name, path, name, "Present");
    return QDBusConnection::sessionBus().call(call, QDBus::Block, patience).type() == QDBusMessage::ReplyMessage;
}

}  // namespace quode::host
