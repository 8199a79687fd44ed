// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "alarmd/AlarmKeeper.h"

#include <algorithm>

#include "alarmd/ring_texts.h"
#include "companion/AlarmHabits.h"
#include "companion/user_connection.h"
#include "data/next_midnight.h"
#include "data/user_places.h"
#include "texts/translation.h"

namespace quode {
namespace {

using namespace std::chrono;

constexpr seconds retryAfter{30};
constexpr milliseconds readPatience{250};  // for a ring is not to come late
constexpr minutes longOutage{1};

}  // namespace

AlarmKeeper::AlarmKeeper(AlarmSurroundings surroundings)
    : with_(std::move(surroundings)),
      events_(*with_.calendar, [this](const std::string& message) { tellOnce(message); }),
      rings_(with_.dataFolder, *with_.desk, with_.tell),
      damagedCopies_(damagedCopies()) {
    rings_.onUnseen = [this] {
        if (onUnseen) onUnseen();
    };
}

Present AlarmKeeper::present() const {
    return {floor<seconds>(with_.clock->now()), with_.uptime()};
}

sys_seconds AlarmKeeper::wake() {
    const Present present = this->present();
    const sys_seconds now = present.clock;
    if (now < earliestClock) {
        tellOnce(_("The clock of this device has not been set. Alarms ring once it is."));
        return now + retryAfter;
    }
    std::optional<UserDatabase> database;
    const bool isRead = attempt([&] {
        database.emplace(openDatabase());
        takeChoices(*database);
    });
    warnOfOutage(isRead, present);
    if (!choices_) choices_ = choicesWithoutDatabase();
    sys_seconds next = std::max(nextMidnight(*with_.clock, now), now + minutes(1));
    bool succeeded = isRead;
    if (choices_) {
        // Ringing comes first: what else fails must not keep an alarm silent.
        succeeded =
            attempt([&] {
                rings_.decideDue(*choices_, present, [this](const UserAlarm& alarm) { return events_.startOf(alarm); });
            }) &&
            succeeded;
        next = std::min(next, rings_.next(*choices_, present).value_or(next));
    }
    if (database) succeeded = renew(*database, next, now) && succeeded;
    if (!rings_.records().problem().empty()) {
        tellOnce(rings_.records().problem());
        succeeded = false;
    }
    if (!succeeded) return std::min(next, now + retryAfter);
    if (next > now + retryAfter) lastFailure_.clear();
    return next;
}

bool AlarmKeeper::renew(UserDatabase& database, sys_seconds& next, sys_seconds now) {
    return attempt([&] {
        with_.useLayout(choices_->settings.calendarLayout);
        const std::optional<sys_seconds> again = events_.renew(database, choices_->ringer, now);
        if (again) next = std::min(next, *again);
    });
}

bool AlarmKeeper::choicesChanged() {
    bool changed = true;  // what cannot be read may have changed
    attempt([&] {
        UserDatabase database = openDatabase();
        changed = !choices_ || choicesIn(database).text() != choices_->text();
    });
    return changed;
}

// --- the user's choices

UserDatabase AlarmKeeper::openDatabase() {
    UserDatabase database(with_.dataFolder, *with_.cities, *with_.clock, std::min(readPatience, with_.lockPatience));
    database.connection().setPatience(with_.lockPatience);
    for (const std::string& notice : database.notices()) with_.tell(notice);
    return database;
}

// With the program that really rings.
Choices AlarmKeeper::choicesIn(UserDatabase& database) const {
    Choices choices = readChoices(database);
    choices.ringer = with_.ringer(choices.settings);
    return choices;
}

// When the database could not be read since this process began.
std::optional<Choices> AlarmKeeper::choicesWithoutDatabase() {
    std::optional<Choices> choices;
    attempt([&] {
        choices = readChoicesBehindLock(with_.dataFolder, *with_.cities, *with_.clock);
        if (choices) choices->ringer = with_.ringer(choices->settings);
    });
    areChoicesNoted_ = !choices;
    return choices ? choices : notedChoices();
}

void AlarmKeeper::takeChoices(UserDatabase& database) {
    const int copies = damagedCopies();
    if (copies > damagedCopies_ && !choices_) choices_ = notedChoices();
    if (copies > damagedCopies_ && !giveBackChoices(database)) {
        for (const std::string& notice : database.notices()) with_.desk->warn(notice);
    }
    damagedCopies_ = copies;
    choices_ = choicesIn(database);
    areChoicesNoted_ = false;
}

// After damage a fresh database is in the place of the user's, whichever program has made it.
bool AlarmKeeper::giveBackChoices(UserDatabase& database) {
    if (!choices_ || choices_->rules().empty() || !readChoices(database).rules().empty()) return false;
    const bool succeeded = attempt([&] { restoreChoices(database, *choices_); });
    if (!succeeded) return false;
    const std::string message = _(
        "The file {} was damaged. Your cities and alarms are as the alarm service knew them, and ring on. The damaged "
        "file is kept beside it.",
        database.file().string());
    with_.tell(message);
    with_.desk->warn(message);
    return true;
}

// How often the database was found damaged so far.
int AlarmKeeper::damagedCopies() const {
    int count = 0;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(with_.dataFolder, error)) {
        if (entry.path().filename().string().starts_with(std::string(userDatabaseName) + ".damaged-")) ++count;
    }
    return count;
}

// What the notes of rings say about the choices.
std::optional<Choices> AlarmKeeper::notedChoices() const {
    const std::optional<DecidedNote>& note = rings_.records().decided();
    if (!note) return std::nullopt;
    const std::optional<CityRecord> city = with_.cities->city(note->city);
    if (!city) return std::nullopt;
    Choices choices;
    choices.home = UserCity{note->city, true, city};
    choices.cities = {*choices.home};
    // All are silent for as long as each of them is.
    const auto firstToRing = std::ranges::min_element(note->rules, {}, &AlarmRule::silentUntil);
    for (const AlarmRule& rule : note->rules) {
        UserAlarm& alarm = choices.alarms.emplace_back();
        alarm.code = rule.code;
        alarm.offset = rule.offset;
        alarm.isOn = true;
        alarm.days = rule.days;
        alarm.reminder = rule.reminder;
        alarm.mutedUntil = firstToRing->silentUntil;
        if (rule.silentUntil > alarm.mutedUntil) alarm.skippedUntil = rule.silentUntil;
    }
    return choices;
}

void AlarmKeeper::warnOfOutage(bool isRead, const Present& present) {
    if (isRead) {
        outage_.reset();
        warnedOfOutage_ = false;
        return;
    }
    if (!outage_) outage_ = present.uptime;
    if (warnedOfOutage_ || present.uptime.time - outage_->time < longOutage) return;
    warnedOfOutage_ = true;
    const std::string consequence(areChoicesNoted_ ? _("The alarms ring at the times of Quode's own method.")
                                                   : _("The alarms ring as they were set before."));
    with_.desk->warn(lastFailure_ + " " + consequence);
}

// --- answers

void AlarmKeeper::stop(const NotificationId& notification) {
    rings_.stop(notification);
}

void AlarmKeeper::snooze(const NotificationId& notification) {
    rings_.snooze(notification, present().clock + snoozeTime);
}

void AlarmKeeper::mute(const NotificationId& notification) {
    if (!rings_.stop(notification) || !choices_ || !choices_->home || !choices_->home->city) return;
    attempt([this] {
        UserDatabase database = openDatabase();
        muteUntil(database, nextMidnight(siteOf(*choices_->home->city).clock(), present().clock));
    });
}

void AlarmKeeper::closed(const NotificationId& notification) {
    rings_.closed(notification);
}

void AlarmKeeper::rest() {
    rings_.rest();
}

// --- failures

// Does something; false when it failed, which is reported.
bool AlarmKeeper::attempt(const std::function<void()>& action) {
    try {
        action();
        return true;
    } catch (const std::exception& error) {
        tellOnce(error.what());
        return false;
    }
}

// A failure that goes on is reported once.
void AlarmKeeper::tellOnce(const std::string& message) {
    if (message == lastFailure_) return;
    lastFailure_ = message;
    with_.tell(message);
}

}  // namespace quode
