// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/alarm_calendar.h"

#include "app/session.h"
#include "companion/autostart.h"
#include "companion/user_connection.h"
#include "platform/folders.h"
#include "texts/translation.h"

namespace quode::app {
namespace {

constexpr const char* noEvent = N_("The alarm has no event in the calendar.");

std::shared_ptr<UserEventStore> calendarOf(Session& session, UserDatabase& database) {
    auto store = std::make_shared<UserEventStore>(session.dataFolder(), loadSettings(database).calendarLayout);
    session.setCalendar(store);
    session.services();
    return store;
}

}  // namespace

AlarmCalendar::AlarmCalendar(Session& session, UserDatabase& database)
    : session_(&session),
      database_(&database),
      store_(calendarOf(session, database)),
      book_(session.dataFolder(), database, *store_) {}

AlarmCalendar::~AlarmCalendar() = default;

void AlarmCalendar::switchOn(int code) {
    report(book_.switchOn(code), noEvent);
    const std::filesystem::path service = executablePath().parent_path() / "quode-alarmd";
    const ServiceStart start = assureServiceStart(session_->environment(), service);
    if (!start.message.empty() && !isStartReported_) session_->report(start.message);
    isStartReported_ = true;
}

void AlarmCalendar::switchOff(int code) {
    report(book_.switchOff(code), _("The event of the alarm may still be in the calendar."));
}

void AlarmCalendar::change(const std::function<void()>& change) {
    report(book_.change([&] { database_->connection().change(change); }), noEvent);
}

void AlarmCalendar::renew() {
    report(book_.renew(), noEvent);
}

void AlarmCalendar::changeLayout(CalendarLayout layout) {
    const auto save = [&] {
        UserSettings settings = loadSettings(*database_);
        settings.calendarLayout = layout;
        saveSettings(*database_, settings);
    };
    report(book_.changeLayout(*store_, layout, save), noEvent);
}

void AlarmCalendar::report(const AlarmChange& change, const std::string& consequence) {
    if (!change.isStored) throw Failure(ExitCode::userData, change.message);
    if (!change.isPlaced) return session_->report(consequence + " " + change.message, ExitCode::userData);
    if (!change.message.empty()) session_->report(change.message);
}

}  // namespace quode::app
