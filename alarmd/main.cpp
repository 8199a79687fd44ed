// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The alarm service: rings the alarms, and keeps their events in the calendar.
#include <fmt/format.h>
#include <signal.h>
#include <systemd/sd-event.h>

#include <cstdio>
#include <exception>
#include <string_view>

#include "alarmd/AlarmKeeper.h"
#include "alarmd/AlarmService.h"
#include "alarmd/BusProcess.h"
#include "alarmd/DesktopRingDesk.h"
#include "alarmd/InstanceLock.h"
#include "common/GlobalFuncs.h"
#include "companion/UserEventStore.h"
#include "companion/language.h"
#include "companion/ringer.h"
#include "platform/Uptime.h"
#include "platform/canberra_sound_player.h"
#include "platform/event_loop.h"
#include "platform/folders.h"
#include "platform/sdbus_media_players.h"
#include "platform/sdbus_notifications.h"
#include "platform/system_platform.h"
#include "texts/translation.h"

namespace quode {
namespace {

std::string help() {
    std::string text = "quode-alarmd [--help | --version]\n";
    text += _(
        "Rings the prayer alarms that are switched on and keeps their events in the calendar, until a signal ends it.");
    text += ' ';
    text += _("Only one runs for each data folder: a second one ends at once.");
    text += '\n';
    text += _("Files are in $QUODE_DATA_DIR, else in $XDG_DATA_HOME/Quode, else in ~/.local/share/Quode.");
    return text + '\n';
}

// The loop hears of the end of child processes only while their signal is blocked.
void blockSignalOfChildren() {
    sigset_t children;
    sigemptyset(&children);
    sigaddset(&children, SIGCHLD);
    sigprocmask(SIG_BLOCK, &children, nullptr);
}

// A folder that the user deleted is not recreated by the service, and one that the user recreated may have another.
AlarmService::Service mayServe(InstanceLock& lock, const std::filesystem::path& dataFolder,
                               const std::function<void(std::string_view)>& tell) {
    if (lock.isCurrent()) return AlarmService::Service::go;
    std::error_code error;
    if (!std::filesystem::is_directory(dataFolder, error)) return AlarmService::Service::wait;
    lock.renew();
    if (lock.isHeld()) return AlarmService::Service::go;
    tell(_("Another alarm service serves the data folder, which was deleted and recreated. This one ends."));
    return AlarmService::Service::end;
}

// The language of the user, as every program chooses it; English when QUODE_LANG names an unknown one.
std::string chooseLanguage() {
    try {
        return speakChosenLanguage(processEnvironment(), {}).code;
    } catch (const UnknownLanguage& error) {
        fmt::print(stderr, "quode-alarmd: {}\n", error.what());
        return "en";
    }
}

void speak(GlobalFuncs& services) {
    if (!services.chooseLanguage(chooseLanguage())) services.chooseLanguage("en");
    services.loadLanguageFile();
}

// A bus that started this program waits for an answer. The alarm service that runs may belong to another bus.
void answerOnThisBus() {
    if (!nonEmpty(processEnvironment(), "DBUS_STARTER_ADDRESS")) return;
    std::string program = executablePath().parent_path() / "quode-service";
    std::array<char*, 2> arguments{program.data(), nullptr};
    ::execv(program.c_str(), arguments.data());
}

int serve() {
    Platform platform = systemPlatform();
    const std::shared_ptr<UserEventStore> calendar =
        std::make_shared<UserEventStore>(platform.dataFolder, CalendarLayout::ics);
    platform.eventStore = calendar;
    const std::shared_ptr<Clock> clock = platform.clock;
    GlobalFuncs& services = GlobalFuncs::startUp(std::move(platform));
    services.setApplicationBundlePath(bundleFolderFrom(processEnvironment(), executablePath()));
    const auto tell = [&services](std::string_view message) {
        fmt::print(stderr, "quode-alarmd: {}\n", message);
        services.NSLogToFile(message);
    };

    speak(services);
    InstanceLock lock(services.dataFolder());
    if (!lock.isHeld()) {
        fmt::print(stderr, "quode-alarmd: {}\n", _("The alarm service is already running."));
        answerOnThisBus();
        return 0;
    }
    const CityDatabase cities(CityDatabase::fileIn(services.appBundlePath()), services.platform().zoneFolder);
    blockSignalOfChildren();
    const EventLoop loop = newEventLoop();
    const auto notifications = sdBusNotifications(loop.get());
    const auto player = canberraSoundPlayer(loop.get());
    player->onFailure = [&services](std::string_view problem) { services.NSLogToFile(problem); };
    const auto media = sdBusMediaPlayers(loop.get());
    DesktopRingDesk desk(*notifications, *player, *media, services, [&services] { speak(services); });
    const auto useLayout = [&calendar](CalendarLayout layout) { calendar->setLayout(layout); };
    AlarmSurroundings surroundings{services.dataFolder(), &cities,   clock.get(), &systemUptime,
                                   calendar.get(),        useLayout, &desk,       tell};
    surroundings.ringer = [&services](const UserSettings& settings) {
        return ringerInEffect(settings, processEnvironment(), services.dataFolder());
    };
    AlarmKeeper keeper(std::move(surroundings));
    AlarmService service(loop.get(), keeper, *notifications, services.dataFolder(), systemZoneFile,
                         [&] { return mayServe(lock, services.dataFolder(), tell); });
    // An answer that comes over the bus counts as one that the notification gave.
    const auto answered = [&notifications](const NotificationId& shown, const std::string& action) {
        if (notifications->onAction) notifications->onAction(shown, action);
    };
    // Not into the log: that would make a data folder again which the user deleted.
    const auto say = [](std::string_view message) { fmt::print(stderr, "quode-alarmd: {}\n", message); };
    const BusProcess bus(loop.get(), executablePath().parent_path() / "quode-service", answered, say);
    return service.run() < 0 ? 1 : 0;
}

}  // namespace
}  // namespace quode

int main(int argc, char** argv) {
    const std::string_view argument = argc > 1 ? argv[1] : "";
    quode::chooseLanguage();
    if (argument == "--help") {
        fmt::print("{}", quode::help());
        return 0;
    }
    if (argument == "--version") {
        fmt::print("quode-alarmd {}\n", QUODE_VERSION);
        return 0;
    }
    if (argc > 1) {
        fmt::print(stderr, "quode-alarmd: {}\n{}", quode::_("Unknown argument \"{}\".", argument), quode::help());
        return 2;
    }
    try {
        return quode::serve();
    } catch (const std::exception& error) {
        fmt::print(stderr, "quode-alarmd: {}\n", error.what());
        return 1;
    }
}
