// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "service/HomeWatch.h"
#include "terminal/streams.h"

#include <sys/inotify.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <stdexcept>

#include "app/dates.h"
#include "app/day_notes.h"
#include "app/day_view.h"
#include "app/method_choice.h"
#include "app/published_calendar.h"
#include "app/user_data.h"
#include "data/next_midnight.h"
#include "data/user_places.h"
#include "texts/translation.h"

namespace quode::service {
namespace {

using namespace app;

constexpr std::uint64_t settlingUs = 50'000, accuracyUs = 10'000, folderIntervalUs = 10'000'000;
constexpr std::int64_t retrySeconds = 15;
constexpr const char* ringsName = "alarmd.rings";
constexpr const char* zoneName = "localtime";
constexpr std::uint32_t written = IN_MODIFY | IN_CREATE | IN_MOVED_TO | IN_DELETE;

std::uint32_t flagsOf(const CityDay& day, int code) {
    const TimeMark& mark = day.method.mark(code);
    const Fallbacks fallbacks = fallbacksOf(day.times, code);
    const bool isFallback = fallbacks.latitude || fallbacks.earlierDay || mark.source == TimeSource::highLatitude ||
                            mark.source == TimeSource::otherLatitude;
    if (!timeOfPrayer(day, code)) return missingTimeFlag;
    return (isFallback ? fallbackTime : 0U) | (mark.adjusted != 0 ? adjustedTime : 0U);
}

CityDay dayAt(const Site& site, const VAKDate& today, int offset) {
    return computeCityDay(site, recordOf(dayOf(today) + std::chrono::days(offset)));
}

/// The main times of yesterday, today and tomorrow that exist, in the order of time.
std::vector<PrayerFact> mainTimesAround(Session& session, const Site& site, const VAKDate& today) {
    std::vector<PrayerFact> all;
    for (const int offset : {-1, 0, 1}) {
        const std::vector<PrayerFact> prayers = prayersOf(session, dayAt(site, today, offset));
        std::copy_if(prayers.begin(), prayers.begin() + (lastMainPrayer - firstPrayer + 1), std::back_inserter(all),
                     [](const PrayerFact& each) { return (each.flags & missingTimeFlag) == 0; });
    }
    std::ranges::stable_sort(all, {}, &PrayerFact::instant);
    return all;
}

}  // namespace

std::vector<PrayerFact> prayersOf(Session& session, const CityDay& day) {
    std::vector<PrayerFact> prayers;
    for (int code = firstPrayer; code <= lastPrayer; ++code) {
        const auto hours = timeOfPrayer(day, code);
        const std::int64_t instant = hours ? secondsOf(instantOf(day, *hours)) : 0;
        prayers.push_back(
            {prayerKey(code), session.prayerName(code), instant, clockText(session, hours), flagsOf(day, code)});
    }
    return prayers;
}

HomeWatch::HomeWatch(sd_event* loop, Folder folder)
    : loop_(loop), timer_(timerfd_create(CLOCK_REALTIME, TFD_CLOEXEC | TFD_NONBLOCK)) {
    if (timer_ < 0) throw std::runtime_error(_("No timer could be created."));
    freshSession();
    if (folder == Folder::made) session_->services();
    if (!startAgain())
        throw Failure(ExitCode::userData, _("The data folder {} is gone.", session_->dataFolder().string()));
    sd_event_source* made = nullptr;
    sd_event_add_io(loop_, &made, timer_, EPOLLIN, &HomeWatch::timerExpired, this);
    expiry_.reset(made);
    made = nullptr;
    sd_event_add_time_relative(loop_, &made, CLOCK_MONOTONIC, 0, accuracyUs, &HomeWatch::settled, this);
    settling_.reset(made);
    sd_event_source_set_enabled(made, SD_EVENT_OFF);
    dataFolder_ = watch(session_->dataFolder());
    zoneFolder_ = watch("/etc");
}

HomeWatch::~HomeWatch() {
    expiry_.reset();
    ::close(timer_);
}

app::Session& HomeWatch::freshSession() {
    trouble_ = {};
    const auto note = [this](const Problem& problem) {
        terminal::writeProblem(problem);
        if (problem.code != ExitCode::ok) trouble_ = {problem.code, problem.message};
    };
    session_ = std::make_unique<Session>(processEnvironment(), Session::Options{.onProblem = note});
    return *session_;
}

void HomeWatch::refuseTrouble() const {
    if (trouble_.code != ExitCode::ok) throw Failure(trouble_.code, trouble_.message);
}

void HomeWatch::finishChange() {
    refuseTrouble();
    choicesChanged();
}

void HomeWatch::requireHome() const {
    if (!isKnown_) throw Failure(unknown_.code, unknown_.message);
}

HomeWatch::Source HomeWatch::watch(const std::filesystem::path& folder) {
    sd_event_source* made = nullptr;
    sd_event_add_inotify(loop_, &made, folder.c_str(), written | IN_ONLYDIR, &HomeWatch::folderChanged, this);
    return Source(made);
}

void HomeWatch::renew() {
    try {
        compute();
        isKnown_ = true;
        publish();
        const bool isSure = trouble_.code == ExitCode::ok;
        arm(isSure ? home_.validUntil : std::min(home_.validUntil, secondsOf(session_->now()) + retrySeconds));
    } catch (const Failure& failure) {
        tryAgain({failure.code(), failure.what()});
    } catch (const CityDatabaseError& error) {
        tryAgain({ExitCode::damagedData, error.what()});
    } catch (const std::exception& error) {
        tryAgain({ExitCode::internalError, error.what()});
    }
    if (onChange) onChange();
}

void HomeWatch::tryAgain(const Trouble& trouble) {
    unknown_ = trouble;
    terminal::writeMessage(trouble.message);
    arm(secondsOf(session_->now()) + retrySeconds);
}

ChosenPlace HomeWatch::homePlace() {
    trouble_ = {};
    ChosenPlace place = chooseHomePlace(*session_);
    if (trouble_.code == ExitCode::ok) return place;
    if (!isKnown_) refuseTrouble();
    return home_.place;
}

void HomeWatch::compute() {
    Session& session = *session_;
    Home home;
    home.place = homePlace();
    const CityRecord& city = home.place.city;
    const Site site = siteOf(city);
    const VAKDate date = today(session, site);
    const CityDay day = computeCityDay(site, date);
    home.placeDetails = regionAndCountry(session, city);
    home.date = isoDate(date);
    if (const auto hijri = hijriByTable(date)) {
        home.hijriDate = isoDate(*hijri);
        home.hijriText = hijriText(session, *hijri);
    }
    home.prayers = prayersOf(session, day);
    const std::int64_t now = secondsOf(session.now());
    for (const PrayerFact& each : mainTimesAround(session, site, date)) {
        if (each.instant <= now) home.current = each;
        if (each.instant > now && home.next.key.empty()) home.next = each;
    }
    home.validUntil = secondsOf(nextMidnight(site.clock(), session.now()));
    if (!home.next.key.empty()) home.validUntil = std::min(home.validUntil, home.next.instant);
    const std::string method = methodLine(site);
    home.method = method.empty() ? std::string(_("Quode's own method")) : method;
    home.zoneEdition = city.known ? city.known->edition : "";
    home.notes = dayNotes(session, home.place, day);
    if (trouble_.code != ExitCode::ok) home.notes.push_back(trouble_.message);
    home_ = std::move(home);
}

// What cannot be written now is tried again with the next change.
void HomeWatch::publish() {
    try {
        const std::optional<UserDatabase> database = userDatabaseToRead(*session_);
        const auto calendar = database ? publishedCalendar(*database) : std::nullopt;
        if (calendar) renewPublishedCalendar(*session_, *calendar);
    } catch (const std::exception& error) {
        terminal::writeMessage(error.what());
    }
}

void HomeWatch::arm(std::int64_t instant) {
    if (session_->variable("QUODE_NOW")) return;  // a clock that stands brings no moment
    itimerspec when{};
    when.it_value.tv_sec = static_cast<std::time_t>(instant);
    // Arming the timer discards a report that the clock was set in between; it fails then.
    while (timerfd_settime(timer_, TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &when, nullptr) < 0 &&
           errno == ECANCELED) {
    }
}

// The language may be another one, and the services speak it. A data folder that the user deleted is not recreated:
// it is looked for until it is there, and watched again then.
void HomeWatch::choicesChanged() {
    if (!startAgain()) return settle(folderIntervalUs);
    dataFolder_ = watch(session_->dataFolder());
    renew();
    if (onChoices) onChoices();
}

// The moment has come, or the clock was set, which the reading reports as cancelled.
int HomeWatch::timerExpired(sd_event_source*, int descriptor, std::uint32_t, void* self) {
    std::uint64_t count = 0;
    if (::read(descriptor, &count, sizeof count) < 0 && errno == EAGAIN) return 0;
    static_cast<HomeWatch*>(self)->renew();
    return 0;
}

int HomeWatch::folderChanged(sd_event_source*, const inotify_event* event, void* userData) {
    auto* const self = static_cast<HomeWatch*>(userData);
    const std::string_view name = event->len > 0 ? event->name : "";
    const bool isLost = (event->mask & IN_Q_OVERFLOW) != 0;
    if (name == ringsName && self->onRings) self->onRings();
    // A change is complete when the journal beside the database has been removed.
    if (!name.starts_with(userDatabaseName) && name != zoneName && !isLost) return 0;
    self->settle(settlingUs);
    return 0;
}

// Starting the services would make the folder, so it is looked for at the last moment.
bool HomeWatch::startAgain() {
    freshSession();
    std::error_code error;
    if (!std::filesystem::is_directory(session_->dataFolder(), error)) return false;
    session_->services();
    return true;
}

void HomeWatch::settle(std::uint64_t us) {
    sd_event_source_set_time_relative(settling_.get(), us);
    sd_event_source_set_enabled(settling_.get(), SD_EVENT_ONESHOT);
}

int HomeWatch::settled(sd_event_source*, std::uint64_t, void* self) {
    static_cast<HomeWatch*>(self)->choicesChanged();
    return 0;
}

}  // namespace quode::service
