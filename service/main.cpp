// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What other programs of the desktop ask for the times: org.quode.Quode1 on the session bus. The alarm service starts it
// as a process of its own, so that no caller, however many or wrong their calls, delays a ring.
#include <fmt/format.h>
#include <signal.h>
#include <unistd.h>

#include <cstdio>
#include <string_view>

#include "common/numbers.h"
#include "platform/event_loop.h"
#include "service/bus.h"
#include "terminal/reporting.h"
#include "texts/translation.h"

namespace quode::service {
namespace {

struct FlushBus {
    void operator()(sd_bus* bus) const { sd_bus_flush_close_unref(bus); }
};
using ServedBus = std::unique_ptr<sd_bus, FlushBus>;

constexpr const char* ringerOption = "--ringer=";

// The alarm service has ended; the next one starts its own.
int ringerGone(sd_event_source* source, int, std::uint32_t, void*) {
    return sd_event_exit(sd_event_source_get_event(source), 0);
}

void useRinger(sd_event* loop, int descriptor, Context& context) {
    check(sd_event_add_io(loop, nullptr, descriptor, EPOLLHUP, &ringerGone, nullptr));
    context.tellRinger = [descriptor](const std::string& command) {
        const auto written = ::write(descriptor, command.data(), command.size());
        if (written != static_cast<ssize_t>(command.size()))
            throw BusError(busyError, _("The alarm service is busy. Try again."));
    };
}

app::ExitCode serve(std::optional<int> ringer) {
    signal(SIGCHLD, SIG_IGN);  // this process does not wait for the programs that it starts
    signal(SIGPIPE, SIG_IGN);
    const EventLoop loop = newEventLoop();
    sd_bus* opened = nullptr;
    if (sd_bus_open_user(&opened) < 0) {
        throw app::Failure(app::ExitCode::notFound, _("There is no session bus. Run quode in your desktop session."));
    }
    const ServedBus bus(opened);
    // The alarm service has made the folder; a missing one was deleted by the user and is not recreated.
    HomeWatch home(loop.get(), ringer ? HomeWatch::Folder::isThere : HomeWatch::Folder::made);
    Context context{bus.get(), &home, {}, 0};
    if (ringer) useRinger(loop.get(), *ringer, context);
    home.renew();
    addHome(context);
    addTimes(context);
    addPlaces(context);
    addAlarms(context);
    addSearch(context);
    check(sd_bus_attach_event(bus.get(), loop.get(), SD_EVENT_PRIORITY_NORMAL));
    sd_bus_set_exit_on_disconnect(bus.get(), 1);
    // The service of an earlier alarm service may still have the name.
    if (sd_bus_request_name(bus.get(), busName, ringer ? SD_BUS_NAME_QUEUE : 0) < 0) {
        throw app::Failure(app::ExitCode::notFound, _("Another program has the name {} on the bus.", busName));
    }
    check(sd_event_loop(loop.get()));
    return app::ExitCode::ok;
}

std::string help() {
    std::string text = "quode-service [--help | --version]\n";
    text +=
        _("Serves {} on the session bus: the times, places and alarms, for searches, panels and other programs of the "
          "desktop.",
          busName);
    text += '\n';
    text +=
        _("The alarm service, quode-alarmd, starts it. Started alone it answers too, but stops and snoozes no ring.");
    return text + '\n';
}

app::ExitCode run(const std::vector<std::string_view>& arguments) {
    speakChosenLanguage(processEnvironment(), {});
    std::optional<int> ringer;
    for (const std::string_view argument : arguments) {
        if (argument == "--version") {
            fmt::print("quode-service {}\n", QUODE_VERSION);
            return app::ExitCode::ok;
        }
        if (argument == "--help") {
            fmt::print("{}", help());
            return app::ExitCode::ok;
        }
        if (argument.starts_with(ringerOption))
            ringer = numberOf<int>(argument.substr(std::string_view(ringerOption).size()));
        if (argument.starts_with(ringerOption) && ringer) continue;
        fmt::print(stderr, "quode-service: {}\n{}", _("Unknown argument \"{}\".", argument), help());
        return app::ExitCode::usage;
    }
    return serve(ringer);
}

}  // namespace
}  // namespace quode::service

int main(int count, char** values) {
    const std::vector<std::string_view> arguments(values + 1, values + count);
    return static_cast<int>(quode::terminal::runReportingFailures([&] { return quode::service::run(arguments); }));
}
