// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "app/failure.h"
#include "common/GlobalFuncs.h"
#include "companion/language.h"
#include "data/CityDatabase.h"
#include "data/HomeClock.h"
#include "platform/Device.h"
#include "platform/Environment.h"
#include "platform/EventStore.h"

namespace quode::app {

class OpenUserData;
class TranslatedLocale;

/// What the programs work with: the clock, the cities, the user's files and the words of the language. Each part is made
/// at its first use, so that a command pays only for what it shows. Nothing is printed: problems go to `onProblem`.
class Session {
  public:
    struct Options {
        /// As speakChosenLanguage() returned it at the start; otherwise it is chosen now.
        std::optional<LanguageChoice> language = {};
        std::optional<std::chrono::sys_seconds> moment = {};  ///< used as now; takes precedence over $QUODE_NOW
        /// Receives what failed though the program goes on; without it, problems are dropped.
        std::function<void(const Problem&)> onProblem = {};
    };

    Session(Environment environment, const Options& options);
    ~Session();

    /// The present moment: that of $QUODE_NOW when it is set. Throws `Failure` when that is no moment.
    std::chrono::sys_seconds now();

    /// The name of the system's time zone; empty when it has none.
    std::string systemZone();

    /// The system's time zone as messages name it: its name, else the value of TZ.
    std::string systemZoneText();

    const CityDatabase& cities();

    /// The clock of this system, stopped at $QUODE_NOW when that is set.
    const Clock& deviceClock() { return clock(); }

    /// The same clock with date and time of the city that it follows; see `followCity`. The shared services use
    /// it.
    const Clock& homeClock();

    /// Makes the shared services use date and time of a city from now on; without one, those of this system.
    void followCity(const CityRecord* city);

    const Environment& environment() const { return environment_; }

    /// The folder of the user's files; `services` creates it.
    std::filesystem::path dataFolder() const;
    std::filesystem::path bundle() const;
    /// Where this machine keeps its zone data.
    std::filesystem::path zoneFolder() const;

    /// The calendar to which the shared services write alarms; set it before their first use.
    void setCalendar(std::shared_ptr<EventStore> calendar) { calendar_ = std::move(calendar); }

    /// The screen that the shared services measure, of a program that draws; set it before their first
    /// use.
    void setDevice(std::shared_ptr<Device> device) { device_ = std::move(device); }

    /// Speaks another language from now on, the shared services with it.
    void speak(const LanguageChoice& language);

    /// The shared services, in the language that was chosen.
    GlobalFuncs& services();

    /// A number with a fixed count of decimals, as the language writes it.
    std::string decimal(double value, int places, bool withSign = false);
    std::string decimalMark();
    bool isTurkish();

    // Texts of the language pack. Without a usable pack there are plain names, and the problem is reported once.
    std::string prayerName(int code);
    std::string hijriMonth(int month);
    /// The part of a caption before its placeholder, without the colon.
    std::string caption(int textId);

    /// The name of a Gregorian month, in the chosen language, else as the locale has it.
    std::string monthName(int month);

    /// The name of a day of the week, 0 = Sunday .. 6 = Saturday.
    std::string weekdayName(int weekday);
    std::string shortWeekdayName(int weekday);

    /// A value of the environment; nothing when it is empty.
    std::optional<std::string> variable(std::string_view name) const { return nonEmpty(environment_, name); }

    /// Reports a problem to `Options::onProblem`.
    void report(std::string_view message, ExitCode code = ExitCode::ok) const;

    /// What keeps the user database open for all who read it; null when nothing does.
    OpenUserData* openUserData() const { return openUserData_; }
    void setOpenUserData(OpenUserData* open) { openUserData_ = open; }

    /// Reports to another receiver from now on.
    void reportTo(std::function<void(const Problem&)> onProblem) { options_.onProblem = std::move(onProblem); }

  private:
    Clock& clock();
    GlobalFuncs& servicesWithTexts();
    void chooseLanguageOfServices();

    Environment environment_;
    Options options_;
    LanguageChoice language_;
    std::shared_ptr<Clock> clock_;
    std::shared_ptr<HomeClock> homeClock_;
    std::shared_ptr<TranslatedLocale> locale_;
    std::shared_ptr<EventStore> calendar_;
    std::shared_ptr<Device> device_;
    std::optional<CityDatabase> cities_;
    GlobalFuncs* services_ = nullptr;
    OpenUserData* openUserData_ = nullptr;
    bool textsAreLoaded_ = false;
};

}  // namespace quode::app
