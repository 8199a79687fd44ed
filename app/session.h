// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "app/failure.h"
#include "app/json.h"
#include "app/terminal.h"
#include "app/text_layout.h"
#include "common/GlobalFuncs.h"
#include "companion/language.h"
#include "data/CityDatabase.h"
#include "data/HomeClock.h"
#include "platform/Device.h"
#include "platform/Environment.h"
#include "platform/EventStore.h"

namespace quode::app {

class TranslatedLocale;

/// What a command works with: the clock, the cities, the words of the language, and the output. Each part is made when
/// it is first asked for, so that a command pays only for what it shows.
class Session {
  public:
    struct Options {
        /// As speakChosenLanguage() returned it at the start; otherwise it is chosen now.
        std::optional<LanguageChoice> language = {};
        bool json = false;
        bool noColours = false;
        std::optional<std::chrono::sys_seconds> moment = {};  ///< taken for now, before $QUODE_NOW
    };

    Session(Environment environment, const Options& options);
    ~Session();

    /// The present moment: that of $QUODE_NOW when it is set. Throws `Failure` when that is no moment.
    std::chrono::sys_seconds now();

    /// The name of the system's time zone; empty when it has none.
    std::string systemZone();

    /// The system's time zone as messages tell it: its name, else what TZ says.
    std::string systemZoneText();

    const CityDatabase& cities();

    /// The clock of this system, stopped at $QUODE_NOW when that is set.
    const Clock& deviceClock() { return clock(); }

    /// The same clock, which tells date and time as they are in the city that it follows; see `followCity`. It is that
    /// of the shared services.
    const Clock& homeClock();

    /// Lets the shared services tell date and time of a city from now on; without one, those of this system.
    void followCity(const CityRecord* city);

    const Environment& environment() const { return environment_; }

    /// The folder of the user's files; it is made by `services`.
    std::filesystem::path dataFolder() const;
    std::filesystem::path bundle() const;
    /// Where this machine keeps its zone data.
    std::filesystem::path zoneFolder() const;

    /// The calendar to which the shared services write alarms; to be told before they are first asked for.
    void setCalendar(std::shared_ptr<EventStore> calendar) { calendar_ = std::move(calendar); }

    /// The screen that the shared services measure, of a program that draws; to be told before they are first asked
    /// for.
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

    /// The name of a Gregorian month, in the language that was asked for, else as the locale has it.
    std::string monthName(int month);

    /// The name of a day of the week, 0 = Sunday .. 6 = Saturday.
    std::string weekdayName(int weekday);
    std::string shortWeekdayName(int weekday);

    /// A value of the environment; nothing when it is empty.
    std::optional<std::string> variable(std::string_view name) const { return nonEmpty(environment_, name); }

    bool wantsJson() const { return options_.json; }
    const Style& style() const { return style_; }
    bool drawsOnTerminal() const { return drawsOnTerminal_; }

    /// The columns that output is laid out for: those of the terminal, else those of a page.
    int width() const { return columns_.value_or(pageWidth); }
    /// Those of a text for reading.
    int textWidth() const { return std::min(width(), pageWidth); }
    /// Those that rows are broken at; without a terminal they are not, for another program may read them.
    int rowWidth() const { return columns_.value_or(unlimitedWidth); }
    /// A text in lines that fit; later ones begin with blanks.
    std::string wrapped(std::string_view text, int indentation = 0) const;

    /// Adds a line to the output; it is wrapped where the terminal is narrower.
    void print(std::string_view line = "");
    /// Adds a line as it is: for another program to read.
    void printData(std::string_view line);
    /// Adds the lines of a table, after blanks.
    void print(const TextTable& table, int indentation);
    /// Adds bytes to the output as they stand.
    void write(std::string_view bytes) { output_ += bytes; }
    /// Adds a JSON document to the output.
    void printJson(const Json& json) { output_ += json.text(); }
    const std::string& output() const { return output_; }

    /// Where messages go from now on; at first they are written to the standard error.
    void setMessenger(std::function<void(std::string_view message)> messenger) { messenger_ = std::move(messenger); }

    /// Reports something that keeps nothing from being done.
    void tell(std::string_view message) const { messenger_(message); }

    /// What the program ends with after a command that did not fail.
    ExitCode exitCode() const { return exitCode_; }

    void endWith(ExitCode code) { exitCode_ = code; }

    /// Tells that something is wrong, though the command goes on: a message, and what the program ends with.
    void complain(std::string_view message, ExitCode code);

  private:
    Clock& clock();
    GlobalFuncs& servicesWithTexts();
    void chooseLanguageOfServices();

    Environment environment_;
    Options options_;
    LanguageChoice language_;
    bool drawsOnTerminal_ = false;
    std::optional<int> columns_;  // of the terminal, where it is known
    Style style_;
    std::shared_ptr<Clock> clock_;
    std::shared_ptr<HomeClock> homeClock_;
    std::shared_ptr<TranslatedLocale> locale_;
    std::shared_ptr<EventStore> calendar_;
    std::shared_ptr<Device> device_;
    std::optional<CityDatabase> cities_;
    GlobalFuncs* services_ = nullptr;
    bool textsAreLoaded_ = false;
    std::string output_;
    std::function<void(std::string_view)> messenger_ = writeMessage;
    ExitCode exitCode_ = ExitCode::ok;
};

}  // namespace quode::app
