// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "astro/VAKDate.h"
#include "data/City.h"
#include "views/View.h"

namespace quode {

class GlobalFuncs;

/// The row of the religious days: the day or night of today, the one that begins tomorrow, the new years and the days of
/// the two festivals with the time of their prayer. Fixed names: all.
class UIReligiousView : public View {
    Q_OBJECT

  public:
    explicit UIReligiousView(const Rect& frame, QWidget* parent = nullptr);

    /// The entries of the day, in the order shown.
    const std::vector<std::string>& religiousDaysArray() const { return religiousDaysArray_; }
    void setReligiousDaysArray(std::vector<std::string> entries) { religiousDaysArray_ = std::move(entries); }

    /// Index in `userCities` of the city shown; -1 for none.
    std::int32_t currentCityId() const { return currentCityId_; }
    void setCurrentCityId(std::int32_t index) { currentCityId_ = index; }

    /// The user's cities with their computed times, for the time of the festival prayer.
    const std::vector<City>& userCities() const { return userCities_; }
    void setUserCities(std::vector<City> cities) { userCities_ = std::move(cities); }

    /// Replaces the entries with those of a day. Where a text of the language pack is missing or does not match its values,
    /// the list ends before it, and the log says why.
    /// @param hijri      the Hijri date of the day
    /// @param gregorian  its Gregorian date
    void calculateReligiousDays(const VAKDate& hijri, const VAKDate& gregorian);

    /// Adds a label for each entry and sets the height for them, 40 points each. Labels of an earlier call stay.
    void showReligiousDays();

  private:
    std::optional<std::string> festivalPrayerTime() const;

    GlobalFuncs& globalFuncs_;
    std::vector<std::string> religiousDaysArray_;
    std::int32_t currentCityId_ = -1;
    std::vector<City> userCities_;
};

}  // namespace quode
