// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "views/UIReligiousView.h"

#include <exception>

#include "astro/prayer.h"
#include "common/GlobalFuncs.h"
#include "common/formatting.h"
#include "views/drawing.h"
#include "views/religious_days.h"

namespace quode {
namespace {

constexpr double entryHeight = 40.0;
constexpr double leftMargin = 65.0;
constexpr int festivalPrayerCode = codeOf(Prayer::ishraq);

}  // namespace

UIReligiousView::UIReligiousView(const Rect& frame, QWidget* parent)
    : View(frame, parent), globalFuncs_(GlobalFuncs::globalFuncs()) {}

void UIReligiousView::calculateReligiousDays(const VAKDate& hijri, const VAKDate& gregorian) {
    religiousDaysArray_.clear();
    const auto text = [this](std::int32_t key) { return globalFuncs_.GetKeyValue(key); };
    const auto festivalPrayer = [this] { return festivalPrayerTime(); };
    try {
        addReligiousDays({hijri, gregorian, text, festivalPrayer}, religiousDaysArray_);
    } catch (const std::exception& error) {
        globalFuncs_.NSLogToFile(error.what());
    }
}

std::optional<std::string> UIReligiousView::festivalPrayerTime() const {
    if (userCities_.empty()) return std::nullopt;
    const double time =
        userCities_.at(static_cast<std::size_t>(currentCityId_)).getRelevantPrayerTime(festivalPrayerCode);
    return time == missingTime ? std::string(formatting::noTime) : globalFuncs_.timeLeadingZero(time);
}

void UIReligiousView::showReligiousDays() {
    const double height = entryHeight * static_cast<double>(religiousDaysArray_.size());
    setFrame({frame().x, frame().y, frame().width, height});
    const Settings& settings = globalFuncs_.getSettings();
    const double width = frame().width - leftMargin;
    double centerY = entryHeight * 0.5;
    for (const std::string& entry : religiousDaysArray_) {
        addLabel(*this, {width * 0.5 + leftMargin, centerY}, {width, entryHeight}, settings.fontName,
                 settings.fontSize + 2, entry, globalFuncs_.firstColor(), alignCenter, false, false, 0);
        centerY += entryHeight;
    }
}

}  // namespace quode
