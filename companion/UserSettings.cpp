#include "companion/UserSettings.h"

#include "companion/UserDatabase.h"
#include "companion/user_connection.h"

namespace quode {
namespace {

constexpr const char* soundName = "alarm.sound";
constexpr const char* layoutName = "calendar.layout";
constexpr const char* ringerName = "alarm.ringer";

}  // namespace

UserSettings loadSettings(const UserDatabase& database) {
    UserSettings settings;
    const std::string sound = database.setting(soundName).value_or("");
    if (!sound.empty()) settings.defaultSound = sound;
    if (database.setting(layoutName) == "vdir") settings.calendarLayout = CalendarLayout::vdir;
    if (database.setting(ringerName) == "evolution") settings.ringer = Ringer::evolution;
    return settings;
}

void saveSettings(UserDatabase& database, const UserSettings& settings) {
    database.connection().change([&] {
        database.setSetting(soundName, settings.defaultSound);
        database.setSetting(layoutName, settings.calendarLayout == CalendarLayout::vdir ? "vdir" : "ics");
        database.setSetting(ringerName, settings.ringer == Ringer::evolution ? "evolution" : "quode");
    });
}

}  // namespace quode
