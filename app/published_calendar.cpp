// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/published_calendar.h"

#include "app/day_view.h"
#include "app/printed_times.h"
#include "app/session.h"
#include "app/user_data.h"
#include "common/numbers.h"
#include "data/city_day.h"
#include "platform/atomic_file.h"
#include "texts/translation.h"

namespace quode::app {
namespace {

constexpr const char* fileSetting = "calendar.published";
constexpr const char* alarmSetting = "calendar.published.alarm";
constexpr int daysAhead = 92;
constexpr std::chrono::hours interval{6};  // of a subscriber's looks
constexpr std::size_t largestFile = 16'000'000;

std::vector<VAKDate> daysFrom(const VAKDate& today) {
    const std::chrono::sys_days present = dayOf(today);
    std::vector<VAKDate> days;
    for (int offset = -1; offset <= daysAhead; ++offset) {
        days.push_back(recordOf(present + std::chrono::days(offset)));
    }
    return days;
}

void check(const FileOutcome& outcome) {
    if (!outcome.ok) throw Failure(ExitCode::userData, outcome.message);
}

void checkFolder(const std::filesystem::path& file) {
    std::error_code error;
    if (std::filesystem::is_directory(file, error)) {
        throw Failure(ExitCode::usage, _("{} is a folder. Name a file.", file.string()));
    }
    if (std::filesystem::is_directory(file.parent_path(), error)) return;
    throw Failure(ExitCode::usage, _("There is no folder {}. Make it first.", file.parent_path().string()));
}

}  // namespace

std::optional<PublishedCalendar> publishedCalendar(const UserDatabase& database) {
    const std::string file = database.setting(fileSetting).value_or("");
    if (file.empty()) return std::nullopt;
    PublishedCalendar calendar{file, std::nullopt};
    if (const auto minutes = numberOf<int>(database.setting(alarmSetting).value_or(""))) {
        calendar.alarm = std::chrono::minutes(*minutes);
    }
    return calendar;
}

void setPublishedCalendar(UserDatabase& database, const std::optional<PublishedCalendar>& calendar) {
    database.setSetting(fileSetting, calendar ? calendar->file.string() : "");
    database.setSetting(alarmSetting,
                        calendar && calendar->alarm ? numberText(static_cast<int>(calendar->alarm->count())) : "");
}

void publishCalendar(Session& session, const PublishedCalendar& calendar) {
    checkFolder(calendar.file);
    UserDatabase database = userDatabaseToChange(session);
    renewPublishedCalendar(session, calendar);
    setPublishedCalendar(database, calendar);
}

std::optional<PublishedCalendar> unpublishCalendar(Session& session) {
    UserDatabase database = userDatabaseToChange(session);
    std::optional<PublishedCalendar> former = publishedCalendar(database);
    setPublishedCalendar(database, std::nullopt);
    return former;
}

void renewPublishedCalendar(Session& session, const PublishedCalendar& published) {
    const ChosenPlace place = chooseHomePlace(session);
    const VAKDate now = today(session, siteOf(place.city));
    printing::PrayerCalendar calendar = prayerCalendar(session, place, daysFrom(now), published.alarm);
    // The day, not the second: a file whose times have not changed stays the same to the byte.
    calendar.made = std::chrono::floor<std::chrono::days>(calendar.made);
    calendar.interval = interval;
    const std::string text = printedCalendar(calendar);
    const FileContent old = readWholeFile(published.file, largestFile);
    check(old.outcome);
    if (old.bytes == text) return;
    const bool isOurs = !old.bytes || old.bytes->empty() || printing::isPrayerCalendar(*old.bytes);
    if (!isOurs) {
        throw Failure(
            ExitCode::usage,
            _("{} is not a calendar of Quode and is left alone. Name another file: quode calendar publish FILE",
              published.file.string()));
    }
    check(replaceFile(*systemFileCalls(), published.file, text));
}

}  // namespace quode::app
