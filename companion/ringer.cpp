// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "companion/ringer.h"

#include <unistd.h>

#include <optional>
#include <string_view>

#include "companion/UserEventStore.h"
#include "companion/autostart.h"
#include "platform/evolution_source.h"
#include "platform/folders.h"
#include "texts/translation.h"

namespace quode {
namespace {

constexpr const char* reminderEntry = "org.gnome.Evolution-alarm-notify.desktop";

constexpr std::string_view calendarService = "org.gnome.evolution.dataserver.Sources";  // and the number of an edition

}  // namespace

// The message bus starts it by a file in one of these folders.
bool evolutionIsInstalled(const Environment& environment) {
    const std::string own =
        nonEmpty(environment, "XDG_DATA_HOME").value_or(homeFolderFrom(environment) + "/.local/share");
    std::string folders = own + ":" + nonEmpty(environment, "XDG_DATA_DIRS").value_or("/usr/local/share:/usr/share");
    for (std::size_t end = 0; !folders.empty(); folders.erase(0, end == std::string::npos ? end : end + 1)) {
        end = folders.find(':');
        const std::filesystem::path services = std::filesystem::path(folders.substr(0, end)) / "dbus-1/services";
        std::error_code error;
        for (const auto& entry : std::filesystem::directory_iterator(services, error)) {
            if (entry.path().filename().string().starts_with(calendarService)) return true;
        }
    }
    return false;
}

std::string evolutionProgramObstacle(const Environment& environment) {
    const std::optional<AutostartEntry> entry = autostartEntry(environment, reminderEntry);
    if (!entry || ::access(entry->program.c_str(), X_OK) != 0) {
        return _("Evolution's reminder program is not installed");
    }
    if (entry->isHidden) return _("Evolution's reminder program is switched off by {}", entry->file.string());
    if (!entry->isForDesktop) return _("Evolution's reminder program does not start on this desktop");
    return {};
}

std::string evolutionObstacle(const Environment& environment, const std::filesystem::path& dataFolder) {
    std::string obstacle = evolutionProgramObstacle(environment);
    if (!obstacle.empty()) return obstacle;
    std::error_code error;
    const std::filesystem::path calendar =
        std::filesystem::absolute(UserEventStore(dataFolder, CalendarLayout::ics).defaultCalendar().location, error);
    switch (EvolutionSource(configFolderFrom(environment)).stateFor(calendar)) {
        case EvolutionSource::State::missing:
            return _("Evolution is not connected");
        case EvolutionSource::State::otherCalendar:
            return _("Evolution is connected to another calendar file");
        case EvolutionSource::State::disabled:
            return _("the calendar is disabled in Evolution");
        case EvolutionSource::State::silent:
            return _("the calendar is not included in Evolution's reminders");
        case EvolutionSource::State::rings:
            break;
    }
    return {};
}

Ringer ringerInEffect(const UserSettings& settings, const Environment& environment,
                      const std::filesystem::path& dataFolder) {
    const bool wantsEvolution = settings.ringer == Ringer::evolution;
    return wantsEvolution && evolutionObstacle(environment, dataFolder).empty() ? Ringer::evolution : Ringer::quode;
}

}  // namespace quode
