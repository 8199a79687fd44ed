// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/session.h"

#include <algorithm>

#include "app/dates.h"
#include "astro/prayer.h"
#include "common/captions.h"
#include "common/labels.h"
#include "platform/folders.h"
#include "platform/system_platform.h"
#include "texts/translation.h"

namespace quode::app {

/// The habits of one locale with the names of another.
class TranslatedLocale : public Locale {
  public:
    explicit TranslatedLocale(std::shared_ptr<Locale> habits) : habits_(std::move(habits)), names_(habits_) {}

    void takeNamesOf(std::shared_ptr<Locale> other) { names_ = std::move(other); }
    void takeOwnNames() { names_ = habits_; }

    std::string amSymbol() const override { return habits_->amSymbol(); }
    std::string pmSymbol() const override { return habits_->pmSymbol(); }
    std::string monthName(int month) const override { return names_->monthName(month); }
    std::string shortMonthName(int month) const override { return names_->shortMonthName(month); }
    std::string weekdayName(int weekday) const override { return names_->weekdayName(weekday); }
    std::string shortWeekdayName(int weekday) const override { return names_->shortWeekdayName(weekday); }
    std::string decimalMark() const override { return names_->decimalMark(); }
    std::string hourPattern() const override { return habits_->hourPattern(); }
    std::string lowerAmSymbol() const override { return habits_->lowerAmSymbol(); }
    std::string lowerPmSymbol() const override { return habits_->lowerPmSymbol(); }

  private:
    std::shared_ptr<Locale> habits_;
    std::shared_ptr<Locale> names_;
};

namespace {

/// The machine's clock, stopped at a moment.
class StoppedClock : public Clock {
  public:
    StoppedClock(std::shared_ptr<Clock> clock, std::chrono::sys_seconds moment)
        : clock_(std::move(clock)), moment_(moment) {}

    TimePoint now() const override { return moment_; }
    CivilTime civilTime(TimePoint moment) const override { return clock_->civilTime(moment); }
    std::chrono::seconds utcOffset(TimePoint moment) const override { return clock_->utcOffset(moment); }
    std::string zoneName() const override { return clock_->zoneName(); }

  private:
    std::shared_ptr<Clock> clock_;
    std::chrono::sys_seconds moment_;
};

/// "tr" for "tr_TR.UTF-8".
std::string languageOfLocale(const std::string& locale) {
    return locale.substr(0, locale.find_first_of("_.@-"));
}

/// What stands for a caption of the language pack that cannot be read.
std::string_view plainCaption(int textId) {
    switch (textId) {
        case sunCaption:
            return _("Sun");
        case moonCaption:
            return _("Moon");
        case moonAtSunsetCaption:
            return _("Moon at sunset");
        case zoneCaption:
            return _("Time zone");
        case qiblaCaption:
            return _("Qibla");
        default:
            return "";
    }
}

/// The text without the colon at its end and the blanks around it, which may be no-break spaces.
std::string withoutColon(std::string text) {
    for (const std::string_view end : {" ", ":", "\u00a0", " "}) {
        while (text.ends_with(end)) text.erase(text.size() - end.size());
    }
    return text;
}

}  // namespace

Session::Session(Environment environment, const Options& options)
    : environment_(std::move(environment)),
      options_(options),
      language_(options_.language ? *options_.language : speakChosenLanguage(environment_, {})) {}

Session::~Session() = default;

Clock& Session::clock() {
    if (!clock_) {
        clock_ = systemClock();
        std::optional<std::chrono::sys_seconds> moment = options_.moment;
        if (const auto value = variable("QUODE_NOW"); value && !moment) moment = parseMoment(*value);
        if (moment) clock_ = std::make_shared<StoppedClock>(clock_, *moment);
    }
    return *clock_;
}

const Clock& Session::homeClock() {
    clock();
    if (!homeClock_) homeClock_ = std::make_shared<HomeClock>(clock_);
    return *homeClock_;
}

void Session::followCity(const CityRecord* city) {
    homeClock();
    homeClock_->follow(city ? std::optional(ZoneClock{city->rule, city->known}) : std::nullopt);
}

std::chrono::sys_seconds Session::now() {
    return std::chrono::floor<std::chrono::seconds>(clock().now());
}

std::string Session::systemZone() {
    return clock().zoneName();
}

std::string Session::systemZoneText() {
    const std::string zone = systemZone();
    return zone.empty() ? variable("TZ").value_or("?") : zone;
}

std::filesystem::path Session::dataFolder() const {
    return dataFolderFrom(environment_);
}

std::filesystem::path Session::bundle() const {
    return bundleFolderFrom(environment_, executablePath());
}

std::filesystem::path Session::zoneFolder() const {
    return zoneFolderFrom(environment_);
}

const CityDatabase& Session::cities() {
    if (!cities_) cities_.emplace(CityDatabase::fileIn(bundle()), zoneFolder());
    return *cities_;
}

GlobalFuncs& Session::services() {
    if (services_ != nullptr) return *services_;
    clock();
    Platform platform = systemPlatform();
    homeClock();
    platform.clock = homeClock_;
    platform.alarmClock = clock_;
    platform.eventStore = calendar_;
    platform.dataFolder = dataFolder().string();
    platform.zoneFolder = zoneFolder().string();
    if (device_) platform.device = device_;
    locale_ = std::make_shared<TranslatedLocale>(platform.locale);
    platform.locale = locale_;
    services_ = &GlobalFuncs::startUp(platform);
    services_->setApplicationBundlePath(bundle().string());
    if (const auto& problem = services_->dataFolderProblem()) report(*problem);
    chooseLanguageOfServices();
    return *services_;
}

void Session::chooseLanguageOfServices() {
    const bool isOfLocale = language_.code == languageOfLocale(localeNameFrom(environment_));
    if (language_.isGiven && !isOfLocale) {
        locale_->takeNamesOf(systemLocale(language_.code));
    } else {
        locale_->takeOwnNames();
    }
    // The widget has packs of four languages; its texts are English in every other one.
    if (!services_->chooseLanguage(language_.code)) services_->chooseLanguage("en");
    textsAreLoaded_ = false;
}

void Session::speak(const LanguageChoice& language) {
    if (language.code == language_.code && language.isGiven == language_.isGiven) return;
    language_ = language;
    useLanguage(language.code, bundle());
    if (services_ != nullptr) chooseLanguageOfServices();
}

bool Session::isTurkish() {
    return services().languageId() == languageTurkish;
}

GlobalFuncs& Session::servicesWithTexts() {
    GlobalFuncs& shared = services();
    if (textsAreLoaded_) return shared;
    textsAreLoaded_ = true;
    if (const auto problem = shared.loadLanguageFile()) {
        report(_("{}. The names of the catalogue are shown instead. Install Quode again to repair this.", *problem),
               ExitCode::damagedData);
    }
    return shared;
}

std::string Session::prayerName(int code) {
    return prayerLabel(servicesWithTexts(), code);
}

std::string Session::hijriMonth(int month) {
    return hijriMonthLabel(servicesWithTexts(), month);
}

std::string Session::caption(int textId) {
    GlobalFuncs& shared = servicesWithTexts();
    const bool isOurs = languageName(shared.languageId()) == languageInUse();
    std::string text = isOurs ? shared.GetKeyValue(textId).value_or("") : "";
    text.erase(std::min(text.size(), text.find("%@")));
    return text.empty() ? std::string(plainCaption(textId)) : withoutColon(std::move(text));
}

std::string Session::monthName(int month) {
    return services().GetTextGregorianMonth(month);
}

std::string Session::weekdayName(int weekday) {
    return services().platform().locale->weekdayName(weekday);
}

std::string Session::shortWeekdayName(int weekday) {
    return services().platform().locale->shortWeekdayName(weekday);
}

std::string Session::decimalMark() {
    return services().platform().locale->decimalMark();
}

std::string Session::decimal(double value, int places, bool withSign) {
    return decimalText(value, places, decimalMark(), withSign);
}

void Session::report(std::string_view message, ExitCode code) const {
    if (options_.onProblem) options_.onProblem({std::string(message), code});
}

}  // namespace quode::app
