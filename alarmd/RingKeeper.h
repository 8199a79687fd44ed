// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

#include "alarmd/Choices.h"
#include "alarmd/DecidedTime.h"
#include "alarmd/RingDesk.h"
#include "companion/RingRecords.h"

namespace quode {

/// Rings every alarm once. It uses only its arguments and its own records: it needs no database.
///
/// Each ring is noted before the desktop is asked, as soon as it was asked, and when it has answered. A process that is
/// killed in between finds what is left to do; only between asking and the next note it is unknown whether the desktop
/// was asked, and the ring is repeated: twice is better than never. Then an answer under an unknown number is for it.
class RingKeeper {
  public:
    /// When the calendar's event of an alarm stands; nothing when there is none.
    using EventStart = std::function<std::optional<std::chrono::sys_seconds>(const UserAlarm& alarm)>;

    /// desk and tell must outlive the object, and the desk must not answer after its end.
    RingKeeper(const std::filesystem::path& dataFolder, RingDesk& desk,
               std::function<void(std::string_view message)> tell);

    /// Rings what is due, and offers again what was not visible.
    void decideDue(const Choices& choices, const Present& present, const EventStart& eventStart);

    /// The next moment at which there is something to decide, at most a day ahead; nothing when there is none.
    std::optional<std::chrono::sys_seconds> next(const Choices& choices, const Present& present) const;

    /// The user has seen a ring. A notification with the number 0 stands for all that ring.
    /// @return false when the notification is none of a ring that is shown
    bool stop(const NotificationId& notification);

    /// As `stop`, but the ring comes again at a moment.
    bool snooze(const NotificationId& notification, std::chrono::sys_seconds ringAt);

    /// A notification was closed: there is nothing left to take away.
    bool closed(const NotificationId& notification);

    /// Notes how far all is decided; to be called before the process ends.
    void rest();

    const RingRecords& records() const { return records_; }

    /// Called when the desktop answers that a ring is not shown, outside of `decideDue` or within it. Offer it
    /// again: call `decideDue` soon, but not from here.
    std::function<void()> onUnseen;

  private:
    using Key = std::pair<int, std::chrono::sys_seconds>;
    enum class Sound { yes, no };

    void followService();
    void takeBack(const DecidedTime::Span& span, const Present& present);
    bool rangTooEarly(const RingRecord& record, std::chrono::milliseconds wrongSince, const Present& present) const;
    bool counts(const AlarmOccurrence& alarm, const Choices& choices, const Present& present,
                const EventStart& eventStart) const;
    bool standsElsewhere(const UserAlarm& alarm, std::chrono::sys_seconds start, const CityRecord& city,
                         std::chrono::sys_seconds now) const;
    bool wasChosen(const AlarmOccurrence& alarm) const;
    std::vector<RingRecord> dueRings(const Choices& choices, const Present& present, const DecidedTime::Span& span,
                                     const EventStart& eventStart) const;
    void decide(const Choices& choices, RingRecord record, const Present& present);
    void offerUnseen(const Choices& choices, const Present& present);
    void ring(const Choices& choices, RingRecord record, const Present& present, Sound sound);
    void answered(const Key& key, const std::optional<NotificationId>& shown);
    std::optional<RingRecord> shownAs(const NotificationId& notification) const;
    std::optional<RingRecord> perhapsShownAs(const NotificationId& notification) const;
    bool finish(const NotificationId& notification, RingState state, std::chrono::sys_seconds ringAt);
    void finish(RingRecord record, RingState state, std::chrono::sys_seconds ringAt);
    bool finishAll(RingState state, std::chrono::sys_seconds ringAt);
    void keepState(RingRecord record, RingState state);
    void noteDecided(const Choices& choices, const Present& present, bool isUrgent);

    RingDesk* desk_;
    std::function<void(std::string_view)> tell_;
    RingRecords records_;
    DecidedTime decided_;
    bool isFirst_ = true;                   // nothing has been decided in this process yet
    std::optional<CityRecord> formerCity_;  // home and alarms when all was decided last
    std::vector<AlarmRule> formerRules_;
    std::string formerChoices_;
    std::set<Key> awaited_;  // rings that this process requested, without an answer so far
};

}  // namespace quode
