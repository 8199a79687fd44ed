// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The content of the widget: the user's cities, the day of one of them, and the labels.
#include <fmt/format.h>
#include <sqlite3.h>

#include <algorithm>
#include <exception>
#include <string_view>

#include "common/GlobalFuncs.h"
#include "common/captions.h"
#include "common/formatting.h"
#include "common/numbers.h"
#include "common/text_format.h"
#include "data/city_day.h"
#include "data/sqlite_reading.h"
#include "data/user_places.h"
#include "widget/QuodeController.h"

namespace quode {
namespace {

constexpr const char* cityQuery = "SELECT ID, SETASHOME FROM USER_CITY";
constexpr int lockPatienceMs = 200;
using formatting::noTime;

// Runs an operation and catches every failure; the log gets the reason.
template <typename Operation>
void guarded(GlobalFuncs& globalFuncs, std::string_view name, Operation operation) noexcept {
    try {
        operation();
    } catch (const std::exception& error) {
        globalFuncs.NSLogToFile(fmt::format("Error in QuodeController -> {}", name));
        globalFuncs.NSLogToFile(error.what());
    }
}

bool isHome(const City& city) {
    return leadingNumber<int>(city.setAsHome()) == 1;
}

sqlite::Database openDatabase(const std::string& path) {
    if (!sqlite::isSafeToOpen(path)) return nullptr;
    sqlite3* opened = nullptr;
    const int result = sqlite3_open_v2(path.c_str(), &opened, SQLITE_OPEN_READWRITE, nullptr);
    sqlite::Database database(opened);
    if (result != SQLITE_OK) return nullptr;
    sqlite3_busy_timeout(database.get(), lockPatienceMs);
    return database;
}

// The cities in a user database.
std::vector<City> readCities(sqlite3* userDB) {
    std::vector<City> cities;
    const sqlite::Statement row = sqlite::prepare(userDB, cityQuery);
    if (!row) return cities;
    while (sqlite3_step(row.get()) == SQLITE_ROW) {
        City city;
        city.setCityId(sqlite::text(row.get(), 0));
        city.setSetAsHome(sqlite::text(row.get(), 1));
        city.getAllCityInfo(city, userDB);
        cities.push_back(std::move(city));
    }
    // Without coordinates the home city would get the times of latitude and longitude 0: show no city instead.
    const auto home = std::ranges::find_if(cities, isHome);
    const City* const shown = home != cities.end() ? &*home : cities.empty() ? nullptr : &cities.front();
    if (shown != nullptr && shown->latitude().empty()) cities.clear();
    return cities;
}

}  // namespace

const City* QuodeController::currentCity() const {
    const bool isCity = currentCityId_ >= 0 && static_cast<std::size_t>(currentCityId_) < userCities_.size();
    return isCity ? &userCities_[static_cast<std::size_t>(currentCityId_)] : nullptr;
}

void QuodeController::initializeParameters() {
    globalFuncs_.getLangId();
    globalFuncs_.getTimeFormat();
    globalFuncs_.loadLanguageFile();
}

void QuodeController::loadAllUserCities() {
    guarded(globalFuncs_, "loadAllUserCities", [this] {
        userCities_.clear();
        const std::string path = userDatabaseFile(globalFuncs_.dataFolder());
        if (!globalFuncs_.fileExists(path)) return;
        if (const sqlite::Database userDB = openDatabase(path)) userCities_ = readCities(userDB.get());
    });
    findHomeCityId();
}

bool QuodeController::findHomeCityId() {
    currentCityId_ = nextCityId_ = prevCityId_ = -1;
    if (userCities_.empty()) return false;
    const auto home = std::ranges::find_if(userCities_, isHome);
    currentCityId_ = home == userCities_.end() ? 0 : static_cast<std::int32_t>(home - userCities_.begin());
    return true;
}

void QuodeController::refresh() {
    guarded(globalFuncs_, "setDatesInfo", [this] { setDatesInfo(); });
    guarded(globalFuncs_, "refreshDateLabels", [this] { refreshDateLabels(); });
    calculatePrayerTimes();
    updatePrayerTimes();
    updateCityInfo();
    guarded(globalFuncs_, "showReligiousDays", [this] { showReligiousDays(); });
}

void QuodeController::showReligiousDays() {
    religiousView_->setCurrentCityId(currentCityId_);
    religiousView_->setUserCities(userCities_);
    religiousView_->calculateReligiousDays(currentInfo_.HijriDate, currentInfo_.MiladiDate);
    religiousView_->showReligiousDays();
}

// --- the date --------------------------------------------------------------------------------------------------------

void QuodeController::setDatesInfo() {
    const VAKDate now = globalFuncs_.GetCurrentDateTime();
    currentInfo_.MiladiDate = now;
    currentInfo_.dayofWeek = globalFuncs_.DayOfWeekWithYear(now.Years, now.Months, now.Days);
    const VAKDate midnight = VAKDateMake(now.Days, now.Months, now.Years, 0, 0, 0);
    currentInfo_.HijriDate = globalFuncs_.JulianToHijri(globalFuncs_.GregorianDateToJulian(midnight));
}

void QuodeController::refreshDateLabels() {
    if (!cityInfoView_) return;
    const VAKDate& miladi = currentInfo_.MiladiDate;
    const VAKDate& hijri = currentInfo_.HijriDate;
    cityInfoView_->labelMiladi()->setText(
        fmt::format("{} {} {}", miladi.Days, globalFuncs_.GetTextGregorianMonth(miladi.Months), miladi.Years));
    cityInfoView_->labelHijri()->setText(
        fmt::format("{} {} {}", hijri.Days, globalFuncs_.GetTextHijriMonth(hijri.Months).value_or(""), hijri.Years));
}

// The clock is checked in even seconds only.
void QuodeController::tick() {
    const VAKDate now = globalFuncs_.GetCurrentDateTime();
    if (now.Seconds % 2 == 0) timerFireMethod(now);
}

void QuodeController::timerFireMethod(const VAKDate& now) noexcept {
    if (isWidgetLoading_ || isWidgetUnloading_) return;
    const VAKDate& shown = currentInfo_.MiladiDate;
    if (now.Years == shown.Years && now.Months == shown.Months && now.Days == shown.Days) return;
    try {
        setDatesInfo();
        refreshDateLabels();
    } catch (const std::exception& error) {
        globalFuncs_.NSLogToFile(error.what());
    }
}

// --- the city --------------------------------------------------------------------------------------------------------

void QuodeController::calculatePrayerTimes() noexcept {
    guarded(globalFuncs_, "calculatePrayerTimes", [this] {
        if (currentCity() == nullptr) return;
        computeCity(userCities_[static_cast<std::size_t>(currentCityId_)], currentInfo_.MiladiDate);
    });
}

void QuodeController::updatePrayerTimes() noexcept {
    guarded(globalFuncs_, "showPrayerTimes", [this] {
        const City* city = currentCity();
        if (city == nullptr || !cityNameView_) return;
        cityNameView_->labelCityName()->setText(city->name());
        for (int code = firstPrayer; code <= lastPrayer; ++code) {
            const double time = city->getRelevantPrayerTime(code);
            const bool isMissing = time == missingTime;
            timesView(code)->labelPrayTime()->setText(isMissing ? std::string(noTime)
                                                                : globalFuncs_.timeLeadingZero(time));
        }
    });
}

void QuodeController::updateCityInfo() noexcept {
    guarded(globalFuncs_, "showPrayerTimes", [this] {
        if (!cityNameView_ || !cityInfoView_) return;
        if (currentCityId_ < 0 || userCities_.empty()) {
            cityNameView_->labelCityName()->setText(globalFuncs_.GetKeyValue(noCityCaption));
        } else if (const City* city = currentCity()) {
            showCityInformation(*city);
        }
    });
}

void QuodeController::showCityInformation(const City& city) {
    const auto caption = [this](std::int32_t key) { return globalFuncs_.GetKeyValue(key).value_or(""); };
    const auto filled = [this](std::int32_t key, const std::string& value) -> std::optional<std::string> {
        const std::optional<std::string> format = globalFuncs_.GetKeyValue(key);
        return format ? std::optional(filledFormat(*format, {value})) : std::nullopt;
    };
    const auto timeText = [this](double time) {
        return time < 0.0 ? std::string(noTime) : globalFuncs_.timeLeadingZero(time);
    };
    const auto riseAndSet = [&](std::int32_t key, double rise, double set) {
        return fmt::format("{} : {} / {}", caption(key), timeText(rise), timeText(set));
    };

    const WidgetSkyInfo sky = city.getSomeAstroInfo();
    cityInfoView_->labelGMT()->setText(filled(zoneCaption, city.GMTStr()));
    cityInfoView_->labelQibla()->setText(filled(qiblaCaption, globalFuncs_.getQiblaAngleStr(city.getQiblaAngle())));
    cityInfoView_->labelSunInfo()->setText(riseAndSet(sunCaption, sky.SunRise, sky.SunSet));
    cityInfoView_->labelMoonInfo()->setText(riseAndSet(moonCaption, sky.MoonRise, sky.MoonSet));
    const double altitude = sky.MoonAltitudeOnSunSet;
    const bool isMissing = altitude == missingMoonTime;
    cityInfoView_->labelMoonOnSunSet()->setText(
        fmt::format("{} {}", caption(moonAtSunsetCaption),
                    isMissing ? std::string(noTime) : globalFuncs_.getDegMinStrWithMinusPlus(altitude)));
}

}  // namespace quode
