// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "desktop/Instance.h"

#include <QDBusConnection>
#include <QDBusMessage>

namespace quode {
namespace {

constexpr int answerPatience = 5000;  // ms

}  // namespace

Instance::Instance(const QString& program) : name_("org.quode." + program), path_("/org/quode/" + program) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
    // The object comes before the name, so that a program that sees the name can call.
    bus.registerObject(path_, name_, this, QDBusConnection::ExportScriptableSlots);
    isFirst_ = bus.registerService(name_);
}

Instance::~Instance() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
    if (isFirst_) bus.unregisterService(name_);
    bus.unregisterObject(path_);
}

bool Instance::presentOther(const QString& page) const {
    QDBusMessage call = QDBusMessage::createMethodCall(name_, path_, name_, page.isEmpty() ? "Present" : "PresentPage");
    if (!page.isEmpty()) call.setArguments({page});
    return QDBusConnection::sessionBus().call(call, QDBus::Block, answerPatience).type() == QDBusMessage::ReplyMessage;
}

}  // namespace quode
