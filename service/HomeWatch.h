// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The times of the home city, kept ready, and renewed at the moments at which they change.
#pragma once

#include <systemd/sd-event.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/place.h"
#include "app/session.h"
#include "data/city_day.h"

namespace quode::service {

/// An instant as the bus carries it: seconds since 1970, UTC.
inline std::int64_t secondsOf(std::chrono::sys_seconds instant) {
    return instant.time_since_epoch().count();
}

/// How a time came about, as bits.
enum TimeFlag : std::uint32_t {
    fallbackTime = 1,  ///< by a rule for where the Sun does not reach the altitude
    adjustedTime = 2,  ///< with minutes of the user's
    missingTimeFlag = 4,
};

struct PrayerFact {
    std::string key;
    std::string name;
    std::int64_t instant = 0;  ///< UTC seconds; 0 when it is missing
    std::string text;          ///< as the locale tells it
    std::uint32_t flags = 0;

    friend bool operator==(const PrayerFact&, const PrayerFact&) = default;
};

/// The nine times of a day.
std::vector<PrayerFact> prayersOf(app::Session& session, const CityDay& day);

/// What the object shows of the home city.
struct Home {
    app::ChosenPlace place;
    std::string placeDetails;  ///< region and country
    std::string date, hijriDate, hijriText;
    std::vector<PrayerFact> prayers;
    PrayerFact current, next;     ///< of the six main ones; without a key when there is none
    std::int64_t validUntil = 0;  ///< UTC seconds
    std::string method, zoneEdition;
    std::vector<std::string> notes;
};

class HomeWatch {
  public:
    /// The folder of the user's files: made where there is none, or there already. Throws `Failure` when it is not.
    enum class Folder { made, isThere };

    HomeWatch(sd_event* loop, Folder folder);
    ~HomeWatch();
    HomeWatch(const HomeWatch&) = delete;
    HomeWatch& operator=(const HomeWatch&) = delete;

    /// In the user's language of the moment.
    app::Session& session() { return *session_; }

    /// The same, without services so far: what is changed takes the calendar into them.
    app::Session& freshSession();

    const Home& home() const { return home_; }

    std::function<void()> onChange;   ///< the times were computed again
    std::function<void()> onChoices;  ///< the user may have chosen something
    std::function<void()> onRings;    ///< a ring was noted

    /// What is wrong with the user's files, as the last session reported it; the error of a call that met it.
    struct Trouble {
        app::ExitCode code = app::ExitCode::ok;
        std::string message;
    };

    /// To be called after a change with a fresh session, which ends then: what is shown next has the change. Throws `Failure`
    /// for what the session reported, such as an event that could not be written.
    void finishChange();

    /// Throws `Failure` when the home could not be computed so far.
    void requireHome() const;

    /// The home city; while the user's files cannot be read, the one that was read last, with its method. Throws `Failure`
    /// when there is none.
    app::ChosenPlace homePlace();

    /// Computes the times now, and names the next moment for it. Failures are logged, and tried again.
    void renew();

  private:
    struct Unref {
        void operator()(sd_event_source* source) const { sd_event_source_unref(source); }
    };
    using Source = std::unique_ptr<sd_event_source, Unref>;

    void compute();
    void refuseTrouble() const;
    void tryAgain(const Trouble& trouble);
    void publish();
    void arm(std::int64_t instant);
    void choicesChanged();
    void settle(std::uint64_t us);
    bool startAgain();
    Source watch(const std::filesystem::path& folder);

    static int timerExpired(sd_event_source* source, int descriptor, std::uint32_t events, void* self);
    static int folderChanged(sd_event_source* source, const inotify_event* event, void* self);
    static int settled(sd_event_source* source, std::uint64_t time, void* self);

    sd_event* loop_;
    std::unique_ptr<app::Session> session_;
    Home home_;
    Trouble trouble_;  ///< of the present session
    Trouble unknown_;  ///< why there is no home yet
    bool isKnown_ = false;
    int timer_;
    Source expiry_, settling_, dataFolder_, zoneFolder_;
};

}  // namespace quode::service
