// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/user_choices.h"

#include <QStringList>
#include <algorithm>
#include <stdexcept>
#include <type_traits>

#include "app/alarm_habits.h"
#include "app/user_data.h"
#include "companion/AlarmBook.h"
#include "companion/AlarmHabits.h"
#include "companion/UserDatabase.h"
#include "companion/autostart.h"
#include "companion/user_connection.h"
#include "data/user_places.h"
#include "platform/folders.h"
#include "texts/translation.h"

namespace quode::host {
namespace {

// For another program that keeps the user database locked; the panel stands still so long.
constexpr std::chrono::milliseconds lockPatience{200};

}  // namespace

namespace {

// An alarm that was switched on here is to ring after the next login, too.
// Returns what the user should know.
std::string serviceStartMessage(const app::Session& session, const UserDatabase& database) {
    if (std::ranges::none_of(database.alarms(), &UserAlarm::isOn)) return {};
    return assureServiceStart(session.environment(), executablePath().parent_path() / "quode-alarmd").message;
}

}  // namespace

Preparation prepareUserChoices(app::Session& session, UserEventStore& calendar) {
    GlobalFuncs& services = session.services();
    QStringList notices;
    bool isLocked = false;
    if (services.dataFolderProblem()) notices << QString::fromStdString(*services.dataFolderProblem());
    try {
        UserDatabase database(session.dataFolder(), session.cities(), session.deviceClock(), lockPatience);
        for (const std::string& notice : database.notices()) notices << QString::fromStdString(notice);
        const std::optional<UserCity> home = database.home();
        session.followCity(home && home->city ? &*home->city : nullptr);
        if (home && !home->city) notices << QString::fromStdString(app::lostHome(home->id));
        if (database.cities().empty()) notices << _("Choose your city from the menu.");
        calendar.setLayout(loadSettings(database).calendarLayout);
        const AlarmChange renewed =
            AlarmBook(session.dataFolder(), database, calendar, DatabaseFunctions::drawingPatience).renew();
        // A program that is changing the alarms renews their events itself.
        if (!renewed.message.empty() && !renewed.isBusy) notices << QString::fromStdString(renewed.message);
        const std::string start = serviceStartMessage(session, database);
        if (!start.empty()) notices << QString::fromStdString(start);
    } catch (const UserDatabaseError& error) {
        isLocked = error.reason() == UserDatabaseError::Reason::locked;
        notices << error.what();
    } catch (const std::runtime_error& error) {  // of the city database; the panel is shown all the same
        notices << error.what();
    }
    return {notices.join('\n'), isLocked};
}

// Within a transaction, what is read first takes a lock for reading, which lasts until the transaction ends.
HeldChoices::HeldChoices(app::Session& session) {
    try {
        std::optional<UserDatabase> opened = app::userDatabaseToRead(session);
        if (!opened) return;
        database_ = std::make_unique<UserDatabase>(std::move(*opened));
        database_->connection().run("BEGIN");
        database_->home();
    } catch (const UserDatabaseError& error) {
        isLocked_ = error.reason() == UserDatabaseError::Reason::locked;
    } catch (const std::runtime_error&) {  // of the city database
    }
}

// Others may go on reading by the same connection.
HeldChoices::~HeldChoices() {
    try {
        if (database_) database_->connection().run("ROLLBACK");
    } catch (const UserDatabaseError&) {  // what was refused has begun nothing
    }
}

namespace {

constexpr const char* openRowsName = "panel.open";

// What a function finds in the user database; nothing when there is none or when it cannot be read. What is wrong with
// the panel reports it.
template <typename Function>
auto readFrom(app::Session& session, Function function)
    -> std::optional<std::invoke_result_t<Function, const UserDatabase&>> {
    try {
        const std::optional<UserDatabase> database = app::userDatabaseToRead(session);
        if (database) return function(*database);
    } catch (const std::runtime_error&) {
    }
    return std::nullopt;
}

template <typename Function>
QString change(app::Session& session, Function function) {
    try {
        UserDatabase database(session.dataFolder(), session.cities(), session.deviceClock(), lockPatience);
        function(database);
        return {};
    } catch (const std::runtime_error& error) {
        return error.what();
    }
}

/// What is shown of the user's choice for a city.
std::string choiceText(const SiteChoice& choice) {
    std::string text = (choice.isChosen ? " chosen " : " ") + textOf(choice.iqama) + " ";
    text.append(conventions::textOf(choice.method));
    if (!choice.table) return text;
    for (const auto& [day, row] : choice.table->rows) {
        text.append("\n").append(std::to_string(day)).append(" ").append(textOf(row));
    }
    return text;
}

}  // namespace

void followLanguage(app::Session& session, const std::optional<std::string>& option) {
    const auto settings = readFrom(session, loadSettings);
    if (!settings) return;
    const auto available = availableLanguages(session.bundle());
    session.speak(chosenLanguage(option, session.environment(), settings->language, available));
}

PanelLayout chosenLayout(app::Session& session) {
    const auto settings = readFrom(session, loadSettings);
    return settings ? settings->panelLayout : PanelLayout::automatic;
}

int chosenColorScheme(app::Session& session) {
    return readFrom(session, loadSettings).value_or(UserSettings{}).colorScheme;
}

int textSize(app::Session& session) {
    return readFrom(session, loadSettings).value_or(UserSettings{}).textSize;
}

bool wantsTrayIcon(app::Session& session) {
    return readFrom(session, loadSettings).value_or(UserSettings{}).hasTrayIcon;
}

bool alarmsAreMuted(app::Session& session) {
    const auto until = readFrom(session, [](const UserDatabase& database) {
        return mutedUntil(database).value_or(std::chrono::sys_seconds{});
    });
    return until && *until > session.now();
}

std::string shownChoices(app::Session& session) {
    const auto shown = readFrom(session, [](const UserDatabase& database) {
        const std::optional<UserCity> home = database.home();
        std::string text = home ? std::to_string(home->id) : "none";
        const UserSettings settings = loadSettings(database);
        text.append(" ").append(std::to_string(settings.colorScheme)).append(" ").append(settings.language);
        if (home && home->city) text.append(choiceText(home->city->choice));
        return text;
    });
    return shown.value_or("");
}

std::string homeName(app::Session& session) {
    const auto name = readFrom(session, [](const UserDatabase& database) {
        const std::optional<UserCity> home = database.home();
        return home && home->city ? home->city->name : std::string();
    });
    return name.value_or("");
}

std::optional<std::map<int, bool>> alarmStates(app::Session& session) {
    return readFrom(session, [](const UserDatabase& database) {
        std::map<int, bool> states;
        for (const UserAlarm& alarm : database.alarms()) states[alarm.code] = alarm.isOn;
        return states;
    });
}

OpenRows rememberedRows(app::Session& session) {
    const auto stored =
        readFrom(session, [](const UserDatabase& database) { return database.setting(openRowsName).value_or(""); });
    const std::string rows = stored.value_or("");
    return {rows.find("details") != std::string::npos, rows.find("times") != std::string::npos};
}

QString rememberRows(app::Session& session, OpenRows rows) {
    return change(session, [rows](UserDatabase& database) {
        database.setSetting(openRowsName,
                            std::string(rows.details ? "details" : "") + (rows.otherTimes ? " times" : ""));
    });
}

QString chooseColorScheme(app::Session& session, int scheme) {
    return change(session, [scheme](UserDatabase& database) {
        UserSettings settings = loadSettings(database);
        settings.colorScheme = scheme;
        saveSettings(database, settings);
    });
}

QString makeHome(app::Session& session, int city) {
    return change(session, [city](UserDatabase& database) {
        database.addCity(city);
        database.chooseHome(city);
    });
}

QString assureAlarmsAfterLogin(app::Session& session) {
    const auto told =
        readFrom(session, [&](const UserDatabase& database) { return serviceStartMessage(session, database); });
    return QString::fromStdString(told.value_or(""));
}

QString muteAlarms(app::Session& session, bool isMuted) {
    try {
        app::mute(session, isMuted ? std::optional(app::startOfTomorrow(session)) : std::nullopt);
        return {};
    } catch (const std::runtime_error& error) {
        return error.what();
    }
}

bool homeIsMissing(app::Session& session) {
    try {
        const std::optional<UserDatabase> database = app::userDatabaseToRead(session);
        const std::optional<UserCity> home = database ? database->home() : std::nullopt;
        return home && !home->city;
    } catch (const std::runtime_error&) {
        return true;
    }
}

void makeUserDatabase(app::Session& session, const CityRecord& city, bool isGuess) {
    UserDatabase database = UserDatabase::makeTemporary(session.dataFolder(), session.cities(), session.deviceClock());
    const std::optional<UserCity> first = isGuess ? database.home() : std::nullopt;
    if (first && first->isGuess && first->id == city.id) return;
    const bool isKnown = city.id > 0;
    if (isKnown) database.addCity(city.id);
    const int wanted = isKnown ? city.id : database.addPlace({city.name, city.latitude, city.longitude, city.zone});
    for (const UserCity& each : database.cities()) {
        if (each.id != wanted) database.removeCity(each.id);
    }
}

}  // namespace quode::host
