// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The events of the alarms, as far as a command changes them. Otherwise the alarm service keeps them.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "companion/AlarmBook.h"
#include "companion/UserDatabase.h"
#include "companion/UserEventStore.h"
#include "companion/UserSettings.h"

namespace quode::app {

class Session;

/// The alarm book of a command. An alarm that could not be switched is a `Failure`; what went wrong with an event is
/// reported.
class AlarmCalendar {
  public:
    /// Construct it before the first use of the session's services. All must outlive the object.
    AlarmCalendar(Session& session, UserDatabase& database);
    ~AlarmCalendar();
    AlarmCalendar(const AlarmCalendar&) = delete;
    AlarmCalendar& operator=(const AlarmCalendar&) = delete;

    /// Also makes the alarm service start at the next login, and reports when that is new.
    void switchOn(int code);
    void switchOff(int code);

    /// A change of cities, home or alarms: altogether, and the events of all alarms that are on after it.
    void change(const std::function<void()>& change);

    /// Brings the events of all alarms that are on to their next rings.
    void renew();

    /// Brings the events into another layout, and changes the setting.
    void changeLayout(CalendarLayout layout);

    AlarmBook& book() { return book_; }

  private:
    void report(const AlarmChange& change, const std::string& consequence);

    Session* session_;
    UserDatabase* database_;
    std::shared_ptr<UserEventStore> store_;
    AlarmBook book_;
    bool isStartReported_ = false;
};

}  // namespace quode::app
