// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/desktop.h"

#include <QApplication>

#include "app/session.h"
#include "companion/UserEventStore.h"
#include "host/Instance.h"
#include "host/PanelDevice.h"
#include "host/PanelProgram.h"
#include "host/alarm_service.h"
#include "host/display.h"
#include "host/user_choices.h"
#include "texts/translation.h"
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
        std::string problem = _("There is no display to open the panel on.");
        if (nonEmpty(environment, "WAYLAND_DISPLAY"))
            problem.append(" ").append(_("Under Wayland the package qt6-wayland is needed."));
        throw Failure(
            ExitCode::notFound,
            problem + ' ' + _("To draw it into a picture: quode-panel --screenshot FILE. To print the times: quode"));
    }
    if (!displays.x) qputenv("QT_QPA_PLATFORM", "wayland");
    if (!displays.wayland) qputenv("QT_QPA_PLATFORM", "xcb");
}

ExitCode presentOther(const Instance& instance) {
    if (instance.presentOther()) return ExitCode::ok;
    throw Failure(ExitCode::notFound,
                  _("The panel is already running but does not answer. End that program and try again."));
}

ExitCode serve(Session& session, const Instance& instance) {
    auto calendar = std::make_shared<UserEventStore>(session.dataFolder(), CalendarLayout::ics);
    auto device = panelDevice(chosenLayout(session));
    session.setDevice(device);
    session.setCalendar(calendar);
    session.services();
    PanelProgram program(session, std::move(calendar), std::move(device));
    QObject::connect(&instance, &Instance::presentAsked, &program, &PanelProgram::present);
    program.present();
    startAlarmService(session.dataFolder());
    QApplication::exec();
    return ExitCode::ok;
}

}  // namespace

ExitCode runOnDesktop(const Environment& environment, const LanguageChoice& language) {
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
    return serve(session, instance);
}

}  // namespace quode::host
