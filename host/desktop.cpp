// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/desktop.h"

#include <QApplication>
#include <QCursor>
#include <utility>

#include "app/session.h"
#include "companion/UserEventStore.h"
#include "data/user_places.h"
#include "host/HomeWatch.h"
#include "host/Instance.h"
#include "host/Panel.h"
#include "host/PanelDevice.h"
#include "host/PanelTray.h"
#include "host/WidgetBundle.h"
#include "host/alarm_service.h"
#include "host/display.h"
#include "host/texts.h"
#include "host/user_choices.h"
#include "views/accessibility.h"

namespace quode::host {
namespace {

using app::ExitCode;
using app::Failure;
using app::Session;

// Leaves the choice to Qt where there is one.
void chooseDisplay(const Environment& environment) {
    const std::string wanted = nonEmpty(environment, "QT_QPA_PLATFORM").value_or("xcb;wayland");
    const bool needsDisplay = wanted.find("xcb") != std::string::npos || wanted.find("wayland") != std::string::npos;
    if (!needsDisplay) return;
    const Displays displays = answeringDisplays(environment);
    if (!displays.x && !displays.wayland) {
        std::string problem = "There is no display to open the panel on.";
        if (nonEmpty(environment, "WAYLAND_DISPLAY")) problem += " Under Wayland the package qt6-wayland is needed.";
        throw Failure(ExitCode::notFound, problem +
                                              " To draw it into a picture: quode-panel --screenshot FILE. To print the "
                                              "times: quode");
    }
    if (!displays.x) qputenv("QT_QPA_PLATFORM", "wayland");
    if (!displays.wayland) qputenv("QT_QPA_PLATFORM", "xcb");
}

ExitCode presentOther(const Instance& instance) {
    if (instance.presentOther()) return ExitCode::ok;
    throw Failure(ExitCode::notFound, "The panel runs already, but does not answer. End that program and try again.");
}

ExitCode serve(QApplication& application, Session& session, const Instance& instance) {
    const auto calendar = std::make_shared<UserEventStore>(session.dataFolder(), CalendarLayout::ics);
    session.setDevice(panelDevice(chosenLayout(session)));
    session.setCalendar(calendar);
    session.services();

    const bool hasTray = QSystemTrayIcon::isSystemTrayAvailable();
    PanelWindow window(hasTray ? PanelStyle::popover : PanelStyle::window, isComposited());
    // The widget reads the user's cities as soon as it is made. What is to be told then is told with the first panel.
    QString told = prepareUserChoices(session, *calendar);
    const auto prepare = [&] {
        const QString present = prepareUserChoices(session, *calendar);
        window.setNotice(told.isEmpty() ? present : std::exchange(told, {}));
    };
    WidgetBundle bundle(session.bundle().string());
    const std::unique_ptr<WidgetViewController> widget = bundle.makeWidget();
    HomeWatch watch(systemMomentWatch(session.deviceClock(), {zoneFile}),
                    systemMomentWatch(session.deviceClock(), {userDatabaseFile(session.dataFolder())}),
                    [&session] { return homeNumber(session); });
    Panel panel(*widget, window, session.deviceClock(), watch, prepare);
    const auto present = [&panel] { panel.present(QCursor::pos()); };
    QObject::connect(&instance, &Instance::presentAsked, &panel, present);

    // Not by quit, which gives up when a window will not close: panel and compass are dismissed instead.
    const auto end = [] { QCoreApplication::exit(); };
    std::unique_ptr<MomentWatch> trayWatch;
    std::unique_ptr<PanelTray> tray;
    if (hasTray) {
        trayWatch = systemMomentWatch(session.deviceClock(), {zoneFile, userDatabaseFile(session.dataFolder())});
        tray = std::make_unique<PanelTray>([&session] { return comingPrayer(session); }, *trayWatch,
                                           textsOf(session.services().languageId()));
        QObject::connect(tray.get(), &PanelTray::clicked, &panel, [&panel] { panel.toggle(QCursor::pos()); });
        QObject::connect(tray.get(), &PanelTray::openAsked, &panel, present);
        QObject::connect(tray.get(), &PanelTray::quitAsked, &application, end);
    } else {
        QObject::connect(&panel, &Panel::dismissed, &application, end);
    }
    present();
    startAlarmService(session.dataFolder());
    QApplication::exec();
    return ExitCode::ok;
}

}  // namespace

ExitCode runOnDesktop(const Environment& environment, const std::optional<std::string>& language) {
    chooseDisplay(environment);
    int count = 1;
    char name[] = "quode-panel";
    char* arguments[] = {name, nullptr};
    QApplication application(count, arguments);
    QCoreApplication::setApplicationName("Quode");  // the title of the icon in the tray
    QGuiApplication::setDesktopFileName("quode-panel");
    QApplication::setQuitOnLastWindowClosed(false);
    installAccessibility();
    const Instance instance;
    if (!instance.isFirst()) return presentOther(instance);
    Session session(environment, {language});
    return serve(application, session, instance);
}

}  // namespace quode::host
