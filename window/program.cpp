// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "window/program.h"

#include <QApplication>
#include <QLocale>
#include <QTimer>

#include "app/session.h"
#include "app/settings.h"
#include "app/user_data.h"
#include "companion/UserEventStore.h"
#include "data/user_places.h"
#include "desktop/FirstStartDialog.h"
#include "desktop/Instance.h"
#include "desktop/MomentWatch.h"
#include "desktop/alarm_service.h"
#include "desktop/display.h"
#include "platform/zone_name.h"
#include "terminal/streams.h"
#include "texts/translation.h"
#include "views/accessibility.h"
#include "window/SettingsWindow.h"

namespace quode::window {
namespace {

using app::ExitCode;
using app::Failure;
using app::Session;

using namespace std::chrono_literals;

constexpr auto settle = 150ms;   // until who writes the user's files has finished
constexpr auto usualLook = 60s;  // times left are shown to the minute

ExitCode presentOther(const Instance& instance, const std::string& page) {
    if (instance.presentOther(QString::fromStdString(page))) return ExitCode::ok;
    throw Failure(ExitCode::notFound,
                  _("The window is already open but does not answer. End that program and try again."));
}

void takeLanguage() {
    const QString language = QString::fromStdString(std::string(languageInUse()));
    QLocale::setDefault(QLocale(language).language() == QLocale().language() ? QLocale() : QLocale(language));
    QApplication::setLayoutDirection(isRightToLeft(languageInUse()) ? Qt::RightToLeft : Qt::LeftToRight);
}

UserSettings settingsOf(Session& session) {
    try {
        return app::presentSettings(session);
    } catch (const std::exception&) {
        return {};  // the window says what is wrong
    }
}

/// Shows what other programs change, and the time that passes.
class Watch {
  public:
    Watch(Session& session, SettingsWindow& window) : session_(session) {
        const std::filesystem::path file = userDatabaseFile(session.dataFolder());
        watch_ = systemMomentWatch(session.deviceClock(), {file, systemZoneFile});
        settling_.setSingleShot(true);
        settling_.setInterval(settle);
        QObject::connect(watch_.get(), &MomentWatch::happened, &window, [this] {
            if (!settling_.isActive()) settling_.start();
        });
        QObject::connect(&settling_, &QTimer::timeout, &window, [this, &window] {
            window.refreshSoon();
            watch();
        });
        watch();
    }

  private:
    void watch() {
        const auto now = session_.deviceClock().now();
        watch_->watchFor(std::chrono::floor<std::chrono::minutes>(now) + usualLook);
    }

    Session& session_;
    std::unique_ptr<MomentWatch> watch_;
    QTimer settling_;
};

// The user database is made now where there is none, so that all pages show the same city.
void prepare(Session& session, Context& context) {
    context.change([&] {
        const UserDatabase database = app::userDatabaseToChange(session);
        const std::optional<UserCity> home = database.home();
        session.followCity(home && home->city ? &*home->city : nullptr);
    });
}

ExitCode serve(Session& session, const Instance& instance, const WindowOptions& options) {
    session.setCalendar(std::make_shared<UserEventStore>(session.dataFolder(), settingsOf(session).calendarLayout));
    session.services();
    Context context(session);
    SettingsWindow window(context);
    prepare(session, context);
    const Watch watch(session, window);
    const auto present = [&window](const QString& page) {
        if (!page.isEmpty()) window.openPage(page);
        window.show();
        window.raise();
        window.activateWindow();
    };
    QObject::connect(&instance, &Instance::presentAsked, &window, present);
    present(QString::fromStdString(options.page));
    startAlarmService(session.dataFolder());
    QTimer::singleShot(0, &window, [&] {
        const QString problem = askOnFirstStart(session, &window);
        if (!problem.isEmpty()) context.tell(problem);
        Q_EMIT context.changed();
    });
    QApplication::exec();
    return ExitCode::ok;
}

}  // namespace

ExitCode runWindow(const Environment& environment, const LanguageChoice& language, const WindowOptions& options) {
    chooseDisplay(environment, _("In a terminal, use the command quode; see quode --help"));
    Session session(environment, {.language = language, .onProblem = terminal::writeProblem});
    enlarge(settingsOf(session).textSize);
    int count = 1;
    char name[] = "quode-settings";
    char* arguments[] = {name, nullptr};
    QApplication application(count, arguments);
    QCoreApplication::setApplicationName("Quode");
    QGuiApplication::setDesktopFileName("quode-settings");
    takeLanguage();
    installAccessibility();
    const Instance instance("Settings");
    if (!instance.isFirst()) return presentOther(instance, options.page);
    return serve(session, instance, options);
}

}  // namespace quode::window
