// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The interface org.quode.Quode1.Alarms. What rings is read from the notes of the program that rings; it alone stops it.
#include <fmt/format.h>
#include <signal.h>
#include <spawn.h>

#include <algorithm>
#include <map>

#include "app/alarm_changes.h"
#include "app/alarm_habits.h"
#include "app/alarm_sounds.h"
#include "app/day_view.h"
#include "app/user_alarms.h"
#include "companion/RingRecords.h"
#include "platform/folders.h"
#include "service/bus.h"
#include "texts/translation.h"

extern char** environ;

namespace quode::service {
namespace {

using namespace app;

constexpr const char* interfaceName = "org.quode.Quode1.Alarms";
constexpr std::chrono::seconds longestMute = std::chrono::days(366);

int alarmOfKey(const std::string& key) {
    for (int code = firstPrayer; code <= lastMainPrayer; ++code) {
        if (prayerKey(code) == key) return code;
    }
    throw BusError(invalidError, _("No alarm has the key \"{}\".", key));
}

// --- what is

int list(sd_bus_message* call, void* context, sd_bus_error* error) {
    return answering(error, [&] {
        Session& session = contextOf(context).session();
        const UserAlarms all = readAlarms(session);
        const Message reply = replyTo(call);
        append(reply.get(), 'a', "(ssbis)", [&] {
            for (const UserAlarm& alarm : all.alarms) {
                check(sd_bus_message_append(reply.get(), "(ssbis)", prayerKey(alarm.code).c_str(),
                                            session.prayerName(alarm.code).c_str(), int(alarm.isOn), alarm.offset,
                                            soundOf(all, alarm).c_str()));
            }
        });
        send(reply);
    });
}

int upcoming(sd_bus_message* call, void* context, sd_bus_error* error) {
    return answering(error, [&] {
        Session& session = contextOf(context).session();
        const UserAlarms all = readAlarms(session);
        const Message reply = replyTo(call);
        append(reply.get(), 'a', "(ssxxb)", [&] {
            for (const AlarmOccurrence& ring : all.rings()) {
                check(sd_bus_message_append(reply.get(), "(ssxxb)", prayerKey(ring.code).c_str(),
                                            session.prayerName(ring.code).c_str(), secondsOf(ring.due),
                                            secondsOf(ring.prayer), int(all.isSnoozed(ring))));
            }
        });
        send(reply);
    });
}

/// The rings that the user has not answered, by prayer and instant.
using Rings = std::map<std::pair<int, std::int64_t>, RingRecord>;

Rings ringsNow(const Session& session) {
    Rings rings;
    for (const RingRecord& record : RingRecords(session.dataFolder()).unfinished()) {
        if (record.state == RingState::snoozed) continue;
        rings.insert_or_assign({record.alarm.code, secondsOf(record.alarm.prayer)}, record);
    }
    return rings;
}

int ringing(sd_bus_message* call, void* context, sd_bus_error* error) {
    return answering(error, [&] {
        Session& session = contextOf(context).session();
        const Message reply = replyTo(call);
        append(reply.get(), 'a', "(ssx)", [&] {
            for (const auto& [key, record] : ringsNow(session)) {
                check(sd_bus_message_append(reply.get(), "(ssx)", prayerKey(key.first).c_str(),
                                            session.prayerName(key.first).c_str(), key.second));
            }
        });
        send(reply);
    });
}

// --- changes

int setAlarm(sd_bus_message* call, void* context, sd_bus_error* error) {
    return answering(error, [&] {
        const char *prayer = nullptr, *sound = nullptr;
        int offset = 0;
        check(sd_bus_message_read(call, "sis", &prayer, &offset, &sound));
        const int code = alarmOfKey(prayer);
        Session& session = contextOf(context).home->freshSession();
        std::optional<std::string> chosen;
        if (*sound != '\0') chosen = soundNamedByUser(session, sound);
        setUpAlarms(session, {code}, offset, chosen);
        contextOf(context).home->finishChange();
        check(sd_bus_reply_method_return(call, ""));
    });
}

int enable(sd_bus_message* call, void* context, sd_bus_error* error) {
    return answering(error, [&] {
        const char* prayer = nullptr;
        int isOn = 0;
        check(sd_bus_message_read(call, "sb", &prayer, &isOn));
        const int code = alarmOfKey(prayer);
        switchAlarms(contextOf(context).home->freshSession(), {code}, isOn != 0);
        contextOf(context).home->finishChange();
        check(sd_bus_reply_method_return(call, ""));
    });
}

int skip(sd_bus_message* call, void* context, sd_bus_error* error) {
    return answering(error, [&] {
        const char* prayer = nullptr;
        check(sd_bus_message_read(call, "s", &prayer));
        const int code = alarmOfKey(prayer);
        const auto next = skipNext(contextOf(context).home->freshSession(), code);
        contextOf(context).home->finishChange();
        check(sd_bus_reply_method_return(call, "x", next ? secondsOf(next->due) : std::int64_t(0)));
    });
}

int muteUntil(sd_bus_message* call, void* context, sd_bus_error* error) {
    return answering(error, [&] {
        std::int64_t instant = 0;
        check(sd_bus_message_read(call, "x", &instant));
        Session& session = contextOf(context).home->freshSession();
        const bool isFar = instant > secondsOf(session.now()) + longestMute.count();
        if (instant != 0 && (instant <= secondsOf(session.now()) || isFar)) {
            throw BusError(invalidError, _("Give a moment of the coming year, or 0 to ring again."));
        }
        mute(session,
             instant == 0 ? std::nullopt : std::optional(std::chrono::sys_seconds(std::chrono::seconds(instant))));
        contextOf(context).home->finishChange();
        check(sd_bus_reply_method_return(call, ""));
    });
}

/// Asks the program that rings to answer all rings that are shown.
int answerRings(sd_bus_message* call, void* context, sd_bus_error* error, const char* action) {
    return answering(error, [&] {
        const Context& with = contextOf(context);
        if (ringsNow(with.session()).empty() || !with.tellRinger) throw BusError(notRingingError, _("No alarm rings."));
        with.tellRinger(std::string(action) + " 0 \n");
        check(sd_bus_reply_method_return(call, ""));
    });
}

int stop(sd_bus_message* call, void* context, sd_bus_error* error) {
    return answerRings(call, context, error, "stop");
}

int snooze(sd_bus_message* call, void* context, sd_bus_error* error) {
    return answerRings(call, context, error, "snooze");
}

// The trial lasts for seconds, in a process of its own: this one does not wait for it. One at a time.
int test(sd_bus_message* call, void* context, sd_bus_error* error) {
    return answering(error, [&] {
        pid_t& trial = contextOf(context).trial;
        const char* prayer = nullptr;
        check(sd_bus_message_read(call, "s", &prayer));
        const std::string key = prayerKey(alarmOfKey(prayer));
        const std::string program = executablePath().parent_path() / "quode";
        std::string words[] = {program, "alarm", "test", key};
        char* arguments[] = {words[0].data(), words[1].data(), words[2].data(), words[3].data(), nullptr};
        if (trial != 0 && ::kill(trial, 0) == 0)
            throw BusError(busyError, _("A trial is already running. Wait for its end."));
        if (posix_spawn(&trial, program.c_str(), nullptr, nullptr, arguments, environ) != 0) {
            throw BusError(installationError, _("{} cannot be started. Install Quode again.", program));
        }
        check(sd_bus_reply_method_return(call, ""));
    });
}

const sd_bus_vtable vtable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD_WITH_NAMES("List", "", , "a(ssbis)", SD_BUS_PARAM(alarms), list, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_NAMES("Upcoming", "", , "a(ssxxb)", SD_BUS_PARAM(rings), upcoming, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_NAMES("Ringing", "", , "a(ssx)", SD_BUS_PARAM(rings), ringing, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_NAMES("Set", "sis", SD_BUS_PARAM(prayer) SD_BUS_PARAM(offset) SD_BUS_PARAM(sound), "", ,
                             setAlarm, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_NAMES("Enable", "sb", SD_BUS_PARAM(prayer) SD_BUS_PARAM(on), "", , enable,
                             SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_NAMES("SkipNext", "s", SD_BUS_PARAM(prayer), "x", SD_BUS_PARAM(next), skip,
                             SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_NAMES("MuteUntil", "x", SD_BUS_PARAM(instant), "", , muteUntil, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("Stop", "", "", stop, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("Snooze", "", "", snooze, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_NAMES("Test", "s", SD_BUS_PARAM(prayer), "", , test, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_SIGNAL_WITH_NAMES("Rang", "ssx", SD_BUS_PARAM(key) SD_BUS_PARAM(name) SD_BUS_PARAM(prayer), 0),
    SD_BUS_SIGNAL_WITH_NAMES("Stopped", "ssx", SD_BUS_PARAM(key) SD_BUS_PARAM(name) SD_BUS_PARAM(prayer), 0),
    SD_BUS_VTABLE_END,
};

/// Emits a signal for the rings of `some` that are not in `others`.
void emitMissing(const Context& context, const char* signal, const Rings& some, const Rings& others) {
    for (const auto& [key, record] : some) {
        if (others.contains(key)) continue;
        sd_bus_emit_signal(context.bus, objectPath, interfaceName, signal, "ssx", prayerKey(key.first).c_str(),
                           context.session().prayerName(key.first).c_str(), key.second);
    }
}

}  // namespace

void addAlarms(Context& context) {
    check(sd_bus_add_object_vtable(context.bus, nullptr, objectPath, interfaceName, vtable, &context));
    context.home->onRings = [&context, known = ringsNow(context.session())]() mutable {
        Rings now = ringsNow(context.session());
        emitMissing(context, "Rang", now, known);
        emitMissing(context, "Stopped", known, now);
        known = std::move(now);
    };
}

}  // namespace quode::service
