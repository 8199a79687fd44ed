// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "common/GlobalFuncs.h"

#include <cmath>
#include <limits>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "common/color_schemes.h"
#include "common/numbers.h"
#include "texts/translation.h"

namespace quode {
namespace {

constexpr double phoneMargin = 10.0;
constexpr double tabletWidgetWidth = 480.0;
constexpr double dayButtonHeight = 18.0;
constexpr Size circleButton{40.0, 22.0};

// The whole part of a length; 0 for NaN, the nearest int beyond the range of int.
std::int32_t truncated(double length) {
    using Limits = std::numeric_limits<std::int32_t>;
    if (std::isnan(length)) return 0;
    if (length >= Limits::max()) return Limits::max();
    if (length <= Limits::min()) return Limits::min();
    return static_cast<std::int32_t>(length);
}

}  // namespace

std::optional<GlobalFuncs>& GlobalFuncs::shared() {
    static std::optional<GlobalFuncs> object;
    return object;
}

GlobalFuncs& GlobalFuncs::startUp(Platform platform) {
    // In place, so that references to an earlier object stay valid.
    shared().reset();
    return shared().emplace(Key{}, std::move(platform));
}

GlobalFuncs& GlobalFuncs::globalFuncs() {
    if (!shared()) throw std::logic_error("GlobalFuncs::startUp must be called before GlobalFuncs::globalFuncs.");
    return *shared();
}

GlobalFuncs::GlobalFuncs(Key, Platform platform) : platform_(std::move(platform)) {
    generateMobilePath();
    detectDeviceType();
    measureScreen();
    detectSystemVersion();
    loadSettings();
    updateUIColors();
    getLangId();
    getTimeFormat();
}

void GlobalFuncs::generateMobilePath() noexcept {
    const std::string& folder = platform_.dataFolder;
    try {
        platform_.files->createFolders(folder);
        if (!platform_.files->writable(folder)) {
            dataFolderProblem_ =
                _("The data folder \"{}\" cannot be written, so nothing can be stored. Give yourself write permission, "
                  "or set QUODE_DATA_DIR to another folder.",
                  folder);
        }
    } catch (const std::exception& error) {
        dataFolderProblem_ =
            _("The data folder \"{}\" cannot be created, so nothing can be stored: {}. Set QUODE_DATA_DIR to another "
              "folder.",
              folder, error.what());
    }
}

void GlobalFuncs::detectDeviceType() {
    const std::optional<Idiom> idiom = platform_.device->idiom();
    deviceType_ = idiom && *idiom != Idiom::phone ? 1 : 0;
}

void GlobalFuncs::measureScreen() {
    screenSize_ = platform_.device->screenBounds();
    widgetSize_ = screenSize_;
    if (deviceType_ == 1) {
        widgetSize_.x = screenSize_.width * 0.5 - tabletWidgetWidth * 0.5;
        widgetSize_.width = tabletWidgetWidth;
    } else {
        widgetSize_.x = phoneMargin;
    }
}

void GlobalFuncs::detectSystemVersion() {
    const float version = leadingNumber<float>(platform_.device->systemVersion());
    if (version >= 6.0F && version < 9.0F) iosVersion_ = static_cast<std::int32_t>(version) - 5;
}

void GlobalFuncs::getLangId() {
    const Locale& locale = *platform_.locale;
    clockConvention_.amSym = locale.lowerAmSymbol();
    clockConvention_.pmSym = locale.lowerPmSymbol();
    const bool isTurkish = clockConvention_.amSym == "öö" && clockConvention_.pmSym == "ös";
    languageId_ = chosenLanguageId_.value_or(isTurkish ? languageTurkish : languageEnglish);
}

bool GlobalFuncs::chooseLanguage(std::string_view name) {
    const std::optional<int> id = languageIdOf(name);
    if (!id && !name.empty()) return false;
    chosenLanguageId_ = id;
    getLangId();
    return true;
}

bool GlobalFuncs::setLanguage(std::string_view name) {
    const std::optional<int> id = languageIdOf(name);
    if (id) languageId_ = *id;
    return id.has_value();
}

void GlobalFuncs::getTimeFormat() {
    clockConvention_.is24Hour = platform_.locale->hourPattern().find('a') == std::string::npos;
}

void GlobalFuncs::updateUIColors() {
    colors_ = colorScheme(generalSettings_.uiControlColorId);
}

std::int32_t GlobalFuncs::getScreenWidth() const {
    return truncated(screenSize_.width);
}

std::int32_t GlobalFuncs::getScreenHeight() const {
    return truncated(screenSize_.height);
}

std::int32_t GlobalFuncs::getWidgetLeft() const {
    return truncated(widgetSize_.x);
}

std::int32_t GlobalFuncs::getWidgetWidth() const {
    return truncated(widgetSize_.width);
}

std::int32_t GlobalFuncs::getWidgetHeight() const {
    return truncated(widgetSize_.height);
}

void GlobalFuncs::setZoomed(bool zoomed) {
    isZoomed_ = zoomed;
    reCalculateButtonWidthHeight();
}

void GlobalFuncs::reCalculateButtonWidthHeight() {
    dayButtonSize_ = {std::trunc((getWidgetWidth() - 10.0) / (isZoomed_ ? 7.0 : 14.0)), dayButtonHeight};
    circleButtonSize_ = circleButton;
}

}  // namespace quode
