// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "desktop/display.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <QDir>
#include <QGuiApplication>
#include <QLibraryInfo>
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include "app/failure.h"
#include "texts/translation.h"

namespace quode {
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

/// An X display, by a connection of our own: Qt's is not there yet.
struct Display {
    Connection connection{xcb_connect(nullptr, nullptr)};

    bool answers() const { return xcb_connection_has_error(connection.get()) == 0; }
};

bool isOwned(xcb_connection_t* server, const std::string& selection) {
    const auto length = static_cast<std::uint16_t>(selection.size());
    const Answer<xcb_intern_atom_reply_t> atom(
        xcb_intern_atom_reply(server, xcb_intern_atom(server, 0, length, selection.c_str()), nullptr));
    if (!atom) return false;
    const Answer<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(server, xcb_get_selection_owner(server, atom->atom), nullptr));
    return owner && owner->owner != XCB_NONE;
}

bool qtKnowsWayland() {
    const QDir plugins(QLibraryInfo::path(QLibraryInfo::PluginsPath) + "/platforms");
    const QStringList files = plugins.entryList(QDir::Files);
    return std::ranges::any_of(files, [](const QString& file) { return file.startsWith("libqwayland"); });
}

bool waylandAnswers(const Environment& environment) {
    const auto name = nonEmpty(environment, "WAYLAND_DISPLAY");
    if (!name) return false;
    const auto folder = std::filesystem::path(nonEmpty(environment, "XDG_RUNTIME_DIR").value_or(""));
    const std::string path = folder / *name;  // the name alone when it is a whole path
    sockaddr_un address{};
    if (path.size() >= sizeof address.sun_path) return false;
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, path.size());
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (socket < 0) return false;
    const bool answers = ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    ::close(socket);
    return answers;
}

}  // namespace

Displays answeringDisplays(const Environment& environment) {
    Displays displays;
    displays.x = nonEmpty(environment, "DISPLAY") && Display().answers();
    displays.wayland = waylandAnswers(environment) && qtKnowsWayland();
    return displays;
}

void chooseDisplay(const Environment& environment, const std::string& remedy) {
    const std::string wanted = nonEmpty(environment, "QT_QPA_PLATFORM").value_or("xcb;wayland");
    const bool needsDisplay = wanted.find("xcb") != std::string::npos || wanted.find("wayland") != std::string::npos;
    if (!needsDisplay) return;
    const Displays displays = answeringDisplays(environment);
    if (!displays.x && !displays.wayland) {
        std::string problem = _("There is no display to open a window on.");
        if (nonEmpty(environment, "WAYLAND_DISPLAY"))
            problem.append(" ").append(_("Under Wayland the package qt6-wayland is needed."));
        throw app::Failure(app::ExitCode::notFound, problem + ' ' + remedy);
    }
    if (!displays.x) qputenv("QT_QPA_PLATFORM", "wayland");
    if (!displays.wayland) qputenv("QT_QPA_PLATFORM", "xcb");
}

void enlarge(int percent) {
    if (percent <= 100) return;
    bool isSet = false;
    const double present = qgetenv("QT_SCALE_FACTOR").toDouble(&isSet);
    qputenv("QT_SCALE_FACTOR", QByteArray::number((isSet ? present : 1.0) * percent / 100.0));
}

bool isOwnedOnScreen(const std::string& selection) {
    if (QGuiApplication::platformName() != "xcb") return false;
#if QT_CONFIG(xcb)
    char* host = nullptr;
    int number = 0, screen = 0;
    if (xcb_parse_display(nullptr, &host, &number, &screen) != 0) std::free(host);
    auto* const qt = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return qt != nullptr && isOwned(qt->connection(), selection + std::to_string(screen));
#else
    return false;
#endif
}

// By convention the program that composes owns this selection.
bool isComposited() {
    return QGuiApplication::platformName() != "xcb" || isOwnedOnScreen("_NET_WM_CM_S");
}

}  // namespace quode
