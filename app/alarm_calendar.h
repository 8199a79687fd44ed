// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The events of the alarms, as far as a command changes them. Otherwise the alarm service keeps them.
#pragma once

#include <memory>
#include <string>

#include "companion/UserDatabase.h"
#include "companion/UserEventStore.h"
#include "companion/UserSettings.h"

namespace quode::app {

class Session;

/// Switches alarms, and brings their events to the next ring. What goes wrong is complained of; it never keeps an alarm
/// from being switched.
class AlarmCalendar {
  public:
    /// To be made before the session's services are first asked for. All must outlive the object.
    AlarmCalendar(Session& session, UserDatabase& database);
    ~AlarmCalendar();
    AlarmCalendar(const AlarmCalendar&) = delete;
    AlarmCalendar& operator=(const AlarmCalendar&) = delete;

    void switchOn(int code);
    void switchOff(int code);

    /// After a change of cities, home, alarms or layout: the events of all alarms that are on.
    void renew();

    /// Brings the events into another layout. The setting is not touched.
    void changeLayout(CalendarLayout layout);

  private:
    class Store;

    void writeEvent(int code, const std::vector<AlarmOccurrence>& next);
    void seeToIt(int code, bool isOn);
    void complainOfFailures(const std::string& consequence);

    Session* session_;
    UserDatabase* database_;
    std::shared_ptr<Store> store_;
};

}  // namespace quode::app
