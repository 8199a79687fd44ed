// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/desktop.h"

#if __has_include(<malloc.h>)
#include <malloc.h>
#endif

#include <QApplication>
#include <memory>
#include <utility>

#include "app/session.h"
#include "app/user_data.h"
#include "companion/UserEventStore.h"
#include "desktop/Instance.h"
#include "desktop/alarm_service.h"
#include "desktop/display.h"
#include "host/PanelDevice.h"
#include "host/PanelProgram.h"
#include "host/font_reading.h"
#include "host/user_choices.h"
#include "terminal/streams.h"
#include "texts/translation.h"
#include "views/accessibility.h"

namespace quode::host {
namespace {

using app::ExitCode;
using app::Failure;
using app::Session;

ExitCode presentOther(const Instance& instance) {
    if (instance.presentOther()) return ExitCode::ok;
    throw Failure(ExitCode::notFound,
                  _("The panel is already running but does not answer. End that program and try again."));
}

// The threads of a start end soon. What they free is used again only in a heap that all threads share.
void keepOneHeap() {
#ifdef M_ARENA_MAX
    mallopt(M_ARENA_MAX, 1);
#endif
}

ExitCode serve(Session& session, const Instance& instance, const std::optional<std::string>& languageOption,
               std::unique_ptr<app::OpenUserData> reading) {
    auto calendar = std::make_shared<UserEventStore>(session.dataFolder(), CalendarLayout::ics);
    auto device = panelDevice(chosenLayout(session));
    session.setDevice(device);
    session.setCalendar(calendar);
    session.services();
    PanelProgram program(session, std::move(calendar), std::move(device), languageOption);
    QObject::connect(&instance, &Instance::presentAsked, &program, &PanelProgram::present);
    program.present();
    reading.reset();
    QObject::connect(&program, &PanelProgram::started, &program, [&] {
        startAlarmService(session.dataFolder());
        program.askOnFirstStart();
    });
    QApplication::exec();
    return ExitCode::ok;
}

}  // namespace

ExitCode runOnDesktop(const Environment& environment, const LanguageChoice& language,
                      const std::optional<std::string>& languageOption) {
    chooseDisplay(environment,
                  _("To draw it into a picture: quode-panel --screenshot FILE. To print the times: quode"));
    keepOneHeap();
    Session session(environment, {.language = language, .onProblem = terminal::writeProblem});
    auto reading = std::make_unique<app::OpenUserData>(session);  // until the panel is built
    enlarge(textSize(session));
    int count = 1;
    char name[] = "quode-panel";
    char* arguments[] = {name, nullptr};
    QApplication application(count, arguments);
    QCoreApplication::setApplicationName("Quode");  // the title of the icon in the tray
    QGuiApplication::setDesktopFileName("quode-panel");
    QApplication::setQuitOnLastWindowClosed(false);
    installAccessibility();
    const std::jthread fonts = readFonts(_("Menu"));
    const Instance instance("Panel");
    if (!instance.isFirst()) return presentOther(instance);
    return serve(session, instance, languageOption, std::move(reading));
}

}  // namespace quode::host
