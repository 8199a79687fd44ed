// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/alarm_calendar.h"

#include <algorithm>
#include <utility>

#include "app/session.h"
#include "companion/user_connection.h"
#include "data/DatabaseFunctions.h"
#include "texts/translation.h"

namespace quode::app {
namespace {

constexpr const char* noEvent = N_("The alarm has no event in the calendar.");

}  // namespace

/// The calendar, which remembers the last failure: the operations that write events tell of none.
class AlarmCalendar::Store : public EventStore {
  public:
    Store(const std::filesystem::path& dataFolder, CalendarLayout layout) : store_(dataFolder, layout) {}

    FoundEvent findEvent(std::string_view identifier) override {
        FoundEvent found = store_.findEvent(identifier);
        note(found.status);
        return found;
    }
    SavedEvent saveEvent(const CalendarEvent& event) override {
        SavedEvent saved = store_.saveEvent(event);
        note(saved.status);
        return saved;
    }
    StoreStatus removeEvent(std::string_view identifier) override {
        StoreStatus status = store_.removeEvent(identifier);
        note(status);
        return status;
    }
    CalendarInfo defaultCalendar() const override { return store_.defaultCalendar(); }
    EventList ownEvents() override { return store_.ownEvents(); }

    void changeLayout(CalendarLayout layout) { note(store_.changeLayout(layout)); }

    /// The last message since it was asked for.
    StoreStatus takeStatus() { return std::exchange(status_, {}); }

  private:
    void note(const StoreStatus& status) {
        if (!status.message.empty()) status_ = status;
    }

    UserEventStore store_;
    StoreStatus status_;
};

AlarmCalendar::AlarmCalendar(Session& session, UserDatabase& database)
    : session_(&session),
      database_(&database),
      store_(std::make_shared<Store>(session.dataFolder(), loadSettings(database).calendarLayout)) {
    session.setCalendar(store_);
    session.services();
}

AlarmCalendar::~AlarmCalendar() = default;

void AlarmCalendar::switchOn(int code) {
    writeEvent(code, database_->refreshPrayerTimes());
    seeToIt(code, true);
    complainOfFailures(noEvent);
}

void AlarmCalendar::switchOff(int code) {
    DatabaseFunctions().deleteAlarm(code);
    seeToIt(code, false);
    complainOfFailures(_("The event of the alarm may still be in the calendar."));
}

void AlarmCalendar::renew() {
    const std::vector<AlarmOccurrence> next = database_->refreshPrayerTimes();
    for (const UserAlarm& alarm : database_->alarms()) {
        if (alarm.isOn) writeEvent(alarm.code, next);
    }
    complainOfFailures(noEvent);
}

void AlarmCalendar::changeLayout(CalendarLayout layout) {
    store_->changeLayout(layout);
    renew();
}

// The operations that switch alarms tell of no failure. Where one has failed, the same change is tried by a connection
// that throws and says why; it may be that the hindrance is gone by now.
void AlarmCalendar::seeToIt(int code, bool isOn) {
    if (database_->alarm(code).isOn == isOn) return;
    UserConnection& connection = database_->connection();
    connection.setPatience({});  // the operation has waited already
    connection.change([&] {
        connection.run("UPDATE USER_ALARMS SET ACTIVE = ? WHERE TIMEID = ?", {isOn ? 1 : 0, alarmNumber(code)});
    });
}

// A prayer whose time does not come about within a day has no event.
void AlarmCalendar::writeEvent(int code, const std::vector<AlarmOccurrence>& next) {
    const UserAlarm alarm = database_->alarm(code);
    const auto ring = std::ranges::find(next, code, &AlarmOccurrence::code);
    if (ring != next.end() && alarm.isOn) {
        const FoundEvent found = store_->findEvent(alarm.eventIdentifier);
        if (found.event && found.event->start == ring->due) return;
    }
    DatabaseFunctions().reCalculateAlarm(code);
    if (ring != next.end()) return;
    store_->removeEvent(database_->alarm(code).eventIdentifier);
    database_->forgetEvent(code);
}

void AlarmCalendar::complainOfFailures(const std::string& consequence) {
    const StoreStatus status = store_->takeStatus();
    if (status.message.empty()) return;
    if (status.ok) return writeMessage(status.message);
    session_->complain(consequence + " " + status.message, ExitCode::userData);
}

}  // namespace quode::app
