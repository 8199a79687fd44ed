// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/TrayWatch.h"

#include <xcb/xcb.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QSocketNotifier>
#include <cstdlib>
#include <string>

#include "desktop/display.h"

namespace quode::host {
namespace {

constexpr const char* watcherName = "org.kde.StatusNotifierWatcher";
constexpr const char* watcherPath = "/StatusNotifierWatcher";
constexpr const char* olderTray = "_NET_SYSTEM_TRAY_S";  // the selection that a tray of X owns
constexpr int patience = 500;                            // ms

struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};
struct Release {
    void operator()(void* reply) const { std::free(reply); }
};

bool hasNotifierHost() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return false;
    QDBusMessage get =
        QDBusMessage::createMethodCall(watcherName, watcherPath, "org.freedesktop.DBus.Properties", "Get");
    get.setArguments({watcherName, "IsStatusNotifierHostRegistered"});
    get.setAutoStartService(false);
    const QDBusMessage reply = bus.call(get, QDBus::Block, patience);
    return reply.type() == QDBusMessage::ReplyMessage &&
           reply.arguments().value(0).value<QDBusVariant>().variant().toBool();
}

}  // namespace

/// The selection that a tray of X owns. A new owner announces itself to the root window.
class TrayWatch::XSelection {
  public:
    XSelection() : connection_(xcb_connect(nullptr, &screen_)) {
        if (xcb_connection_has_error(connection_.get()) != 0) return;
        selection_ = atom(olderTray + std::to_string(screen_));
        manager_ = atom("MANAGER");
        xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection_.get()));
        for (int skipped = 0; skipped < screen_ && screens.rem > 0; ++skipped) xcb_screen_next(&screens);
        if (screens.rem == 0) return;
        const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        // Answered before the tray is looked for by another connection, so that none comes unnoticed in between.
        const xcb_void_cookie_t request =
            xcb_change_window_attributes_checked(connection_.get(), screens.data->root, XCB_CW_EVENT_MASK, &events);
        const Answer<xcb_generic_error_t> error(xcb_request_check(connection_.get(), request));
    }

    bool isUsable() const { return selection_ != XCB_ATOM_NONE; }

    int descriptor() const { return xcb_get_file_descriptor(connection_.get()); }

    /// Reads what has come.
    /// @return whether a tray was announced
    bool readEvents() {
        bool isAnnounced = false;
        while (const Answer<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
            if ((event->response_type & 0x7f) != XCB_CLIENT_MESSAGE) continue;
            const auto* const message = reinterpret_cast<const xcb_client_message_event_t*>(event.get());
            isAnnounced |= message->type == manager_ && message->data.data32[1] == selection_;
        }
        return isAnnounced;
    }

    bool isBroken() const { return xcb_connection_has_error(connection_.get()) != 0; }

  private:
    template <typename Reply>
    using Answer = std::unique_ptr<Reply, Release>;

    xcb_atom_t atom(const std::string& name) const {
        const auto length = static_cast<std::uint16_t>(name.size());
        const Answer<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
            connection_.get(), xcb_intern_atom(connection_.get(), 0, length, name.c_str()), nullptr));
        return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    }

    int screen_ = 0;
    std::unique_ptr<xcb_connection_t, Disconnect> connection_;
    xcb_atom_t selection_ = XCB_ATOM_NONE, manager_ = XCB_ATOM_NONE;
};

TrayWatch::TrayWatch() : wasThere_(isTrayThere()) {}

void TrayWatch::watch() {
    if (wasThere_) return;
    auto* const watcher = new QDBusServiceWatcher(watcherName, QDBusConnection::sessionBus(),
                                                  QDBusServiceWatcher::WatchForRegistration, this);
    connect(watcher, &QDBusServiceWatcher::serviceRegistered, this, &TrayWatch::look);
    QDBusConnection::sessionBus().connect(watcherName, watcherPath, watcherName, "StatusNotifierHostRegistered", this,
                                          SLOT(look()));
    if (QGuiApplication::platformName() == "xcb") selection_ = std::make_unique<XSelection>();
    if (selection_ && selection_->isUsable()) {
        auto* const notifier = new QSocketNotifier(selection_->descriptor(), QSocketNotifier::Read, this);
        connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
            if (selection_->readEvents()) look();
            if (selection_->isBroken()) notifier->setEnabled(false);
        });
    }
    look();  // at what came since the first look
}

TrayWatch::~TrayWatch() = default;

bool TrayWatch::isTrayThere() {
    return hasNotifierHost() || isOwnedOnScreen(olderTray);
}

void TrayWatch::look() {
    if (wasThere_ || !isTrayThere()) return;
    wasThere_ = true;
    Q_EMIT appeared();
}

}  // namespace quode::host
