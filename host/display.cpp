#include "host/display.h"

#include <xcb/xcb.h>

#include <QGuiApplication>
#include <cstdlib>
#include <memory>
#include <string>

namespace quode::host {
namespace {

struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};
using Connection = std::unique_ptr<xcb_connection_t, Disconnect>;

struct Release {
    void operator()(void* reply) const { std::free(reply); }
};
template <typename Reply>
using Answer = std::unique_ptr<Reply, Release>;

/// An X display, by a connection of our own: Qt's is not to be had on every platform.
struct Display {
    int screen = 0;
    Connection connection{xcb_connect(nullptr, &screen)};

    bool answers() const { return xcb_connection_has_error(connection.get()) == 0; }
};

// By convention the program that composes owns this selection.
bool hasCompositor(const Display& display) {
    xcb_connection_t* const server = display.connection.get();
    const std::string name = "_NET_WM_CM_S" + std::to_string(display.screen);
    const auto length = static_cast<std::uint16_t>(name.size());
    const Answer<xcb_intern_atom_reply_t> atom(
        xcb_intern_atom_reply(server, xcb_intern_atom(server, 0, length, name.c_str()), nullptr));
    if (!atom) return false;
    const Answer<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(server, xcb_get_selection_owner(server, atom->atom), nullptr));
    return owner && owner->owner != XCB_NONE;
}

}  // namespace

bool hasDisplay(const Environment& environment) {
    if (nonEmpty(environment, "QT_QPA_PLATFORM") || nonEmpty(environment, "WAYLAND_DISPLAY")) return true;
    return nonEmpty(environment, "DISPLAY") && Display().answers();
}

bool isComposited() {
    if (QGuiApplication::platformName() != "xcb") return true;
    const Display display;
    return display.answers() && hasCompositor(display);
}

}  // namespace quode::host
