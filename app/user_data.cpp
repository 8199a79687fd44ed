// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/user_data.h"

#include <fmt/format.h>

#include <algorithm>

#include "alarms/AlarmJournal.h"
#include "app/session.h"
#include "common/numbers.h"
#include "companion/AlarmBook.h"
#include "companion/UserEventStore.h"
#include "data/name_folding.h"
#include "data/user_places.h"
#include "texts/translation.h"

namespace quode::app {
namespace {

// The times of today must not wait long; another program needs some milliseconds for a change.
constexpr std::chrono::milliseconds readingPatience{200};

std::string nameOf(const UserCity& city) {
    return city.city ? city.city->name : "";
}

bool isCalled(const UserCity& city, std::string_view request) {
    return city.city && foldedName(city.city->name) == foldedName(request);
}

std::vector<UserCity> citiesMeant(const std::vector<UserCity>& cities, std::string_view request) {
    const std::optional<int> number = numberOf<int>(request);
    if (number && *number >= 1 && *number <= static_cast<int>(cities.size())) {
        return {cities[static_cast<std::size_t>(*number - 1)]};
    }
    std::vector<UserCity> meant;
    std::ranges::copy_if(cities, std::back_inserter(meant),
                         [&](const UserCity& city) { return number ? city.id == *number : isCalled(city, request); });
    return meant;
}

// A change that an earlier program was cut off in is finished before anything is shown or changed. What keeps that from
// being done is reported by those who need it.
void finishPending(Session& session) {
    if (!AlarmJournal::isPending(session.dataFolder())) return;
    try {
        const auto isWhole = [&] {
            return UserDatabase::openToRead(session.dataFolder(), session.cities(), session.deviceClock(),
                                            readingPatience);
        };
        if (!isWhole()) return;
        UserDatabase database(session.dataFolder(), session.cities(), session.deviceClock(), readingPatience);
        const auto calendar = std::make_shared<UserEventStore>(session.dataFolder(),
                                                               loadSettings(database).calendarLayout, readingPatience);
        session.setCalendar(calendar);
        session.services();
        // A program that is still at it is not waited for.
        AlarmBook(session.dataFolder(), database, *calendar, std::chrono::milliseconds(0)).finishPending();
    } catch (const UserDatabaseError&) {
    }
}

// What the database holds while another program keeps it locked; nothing while that is unknown.
std::optional<UserCity> homeBehindLock(Session& session) {
    try {
        std::optional<UserCity> home;
        const bool isKnown =
            UserDatabase::readBehindLock(session.dataFolder(), session.cities(), session.deviceClock(),
                                         [&](const UserDatabase& database) { home = database.home(); });
        return isKnown ? home : std::nullopt;
    } catch (const UserDatabaseError&) {
        return std::nullopt;
    }
}

std::optional<UserCity> homeIn(Session& session) {
    try {
        const std::optional<UserDatabase> database = userDatabaseToRead(session);
        return database ? database->home() : std::nullopt;
    } catch (const UserDatabaseError& error) {
        if (error.reason() != UserDatabaseError::Reason::locked) throw;
        if (const std::optional<UserCity> home = homeBehindLock(session)) return home;
        throw;
    }
}

}  // namespace

OpenUserData::OpenUserData(Session& session) : session_(session), outer_(session.openUserData()) {
    if (outer_ == nullptr) session_.setOpenUserData(this);
}

OpenUserData::~OpenUserData() {
    if (outer_ == nullptr) session_.setOpenUserData(nullptr);
}

std::optional<UserDatabase> OpenUserData::database(const std::function<std::optional<UserDatabase>()>& open) {
    if (database_) {
        if (auto same = database_->again()) return same;
    }
    database_.reset();
    std::optional<UserDatabase> opened = open();
    if (!opened) return std::nullopt;
    return database_.emplace(std::move(*opened)).again();
}

std::optional<UserDatabase> userDatabaseToRead(Session& session) {
    finishPending(session);
    const auto open = [&session] {
        return UserDatabase::openToRead(session.dataFolder(), session.cities(), session.deviceClock(), readingPatience);
    };
    return session.openUserData() == nullptr ? open() : session.openUserData()->database(open);
}

UserDatabase userDatabaseToChange(Session& session) {
    finishPending(session);
    UserDatabase database(session.dataFolder(), session.cities(), session.deviceClock());
    for (const std::string& notice : database.notices()) session.report(notice);
    return database;
}

std::string lostHome(int id) {
    return _("Your home city, number {}, is no longer in the city database. Choose another one: quode city home NAME",
             id);
}

std::optional<CityRecord> homeCity(Session& session) {
    const std::optional<UserCity> home = storedHome(session);
    return home ? home->city : std::nullopt;
}

std::optional<UserCity> storedHome(Session& session) {
    try {
        const std::optional<UserCity> home = homeIn(session);
        if (!home) return std::nullopt;
        if (!home->city) session.report(lostHome(home->id), ExitCode::userData);
        return home;
    } catch (const UserDatabaseError& error) {
        session.report(_("Your home city cannot be read. {}", error.what()), ExitCode::userData);
        return std::nullopt;
    }
}

std::optional<CityRecord> ownPlace(Session& session, std::string_view request) {
    try {
        const std::optional<UserDatabase> database = userDatabaseToRead(session);
        if (!database) return std::nullopt;
        const std::optional<int> number = numberOf<int>(request);
        for (const UserCity& city : database->cities()) {
            if (isUserPlace(city.id) && (number ? city.id == *number : isCalled(city, request))) return city.city;
        }
    } catch (const UserDatabaseError&) {
        // The name may be that of a city all the same; if not, that is reported.
    }
    return std::nullopt;
}

UserCity cityOfList(const std::vector<UserCity>& cities, std::string_view request) {
    const std::vector<UserCity> meant = citiesMeant(cities, request);
    if (meant.size() == 1) return meant.front();
    if (meant.empty()) {
        throw Failure(ExitCode::notFound, _("\"{}\" is not in your list. Show your cities: quode city list", request));
    }
    std::string text = _("Several of your cities are called \"{}\". Use the id:", request);
    for (const UserCity& city : meant) text += fmt::format("\n  {:>9}  {}", city.id, nameOf(city));
    throw Failure(ExitCode::usage, text);
}

}  // namespace quode::app
