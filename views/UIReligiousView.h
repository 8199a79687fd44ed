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

/// The row that names the religious day or night of today, the one that begins tomorrow, the new years and the days of
/// the two festivals with the time of their prayer.
class UIReligiousView : public View {
    Q_OBJECT

  public:
    explicit UIReligiousView(const Rect& frame, QWidget* parent = nullptr);

    /// The entries of the day in the order in which they are shown.
    const std::vector<std::string>& religiousDaysArray() const { return religiousDaysArray_; }
    void setReligiousDaysArray(std::vector<std::string> entries) { religiousDaysArray_ = std::move(entries); }

    /// Index of the city shown in userCities; -1 for none.
    std::int32_t currentCityId() const { return currentCityId_; }
    void setCurrentCityId(std::int32_t index) { currentCityId_ = index; }

    /// The user's cities with their computed times, from which the time of the festival prayer is taken.
    const std::vector<City>& userCities() const { return userCities_; }
    void setUserCities(std::vector<City> cities) { userCities_ = std::move(cities); }

    /// Finds the entries of a day again. Where a text of the language pack is missing or does not fit, the list ends
    /// before it, and the log says why.
    /// @param hijri      the Hijri date of the day
    /// @param gregorian  its Gregorian date
    void calculateReligiousDays(const VAKDate& hijri, const VAKDate& gregorian);

    /// Adds a label for each entry and takes the height that they need, 40 points each. Labels of an earlier call stay.
    void showReligiousDays();

  private:
    std::optional<std::string> festivalPrayerTime() const;

    GlobalFuncs& globalFuncs_;
    std::vector<std::string> religiousDaysArray_;
    std::int32_t currentCityId_ = -1;
    std::vector<City> userCities_;
};

}  // namespace quode
