// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "astro/VAKDate.h"
#include "common/Color.h"
#include "common/LanguagePack.h"
#include "common/Settings.h"
#include "common/UIComboboxItem.h"
#include "common/formatting.h"
#include "platform/Platform.h"

namespace quode {

/// The one shared-services object of a process: settings, colours, device and screen, paths, the debug log, the texts of
/// the language pack, and calendar and formatting by the device's clock and locale.
///
/// A program's main calls `startUp` once; all other code gets the object from `globalFuncs`. Use it on the main thread
/// only. Arithmetic and formatting are also available as free functions, see "common/calendar.h" and
/// "common/formatting.h".
///
/// @code
///   quode::GlobalFuncs& services = quode::GlobalFuncs::startUp(quode::systemPlatform());  // "platform/system_platform.h"
///   services.setApplicationBundlePath("/usr/lib/quode/Quode.bundle");
///   services.loadLanguageFile();
///   const std::optional<std::string> dawn = services.GetTextPrayLabels(200);
///   const std::string time = services.timeLeadingZero(5.5);  // "05:30"; in a 12-hour locale with its symbol
/// @endcode
///
/// Fixed names: all, except `startUp`, `platform`, `measureScreen`, `chooseLanguage`, `setLanguage`, `clockConvention`,
/// `dataFolder` and `dataFolderProblem`.
class GlobalFuncs {
    struct Key {};  // keeps the constructor to this class

  public:
    /// Creates the shared object on a platform. A later call, as in tests, replaces it with a new one at the same address;
    /// references stay valid, but all state is lost.
    static GlobalFuncs& startUp(Platform platform);

    /// The shared object.
    /// @throw std::logic_error  before the first `startUp`
    static GlobalFuncs& globalFuncs();

    GlobalFuncs(Key, Platform platform);
    GlobalFuncs(const GlobalFuncs&) = delete;
    GlobalFuncs& operator=(const GlobalFuncs&) = delete;

    /// The platform given to `startUp`.
    const Platform& platform() const { return platform_; }

    // ---- settings, language choice and colours ----------------------------------------------------------------------

    /// Sets the folder of the bundle, which contains images and language packs. Call it before using either.
    void setApplicationBundlePath(std::string path) { appBundlePath_ = std::move(path); }

    /// The settings of this process.
    Settings& getSettings() { return generalSettings_; }
    const Settings& getSettings() const { return generalSettings_; }

    /// Does nothing: settings are not stored between runs.
    void loadSettings() {}

    /// Takes AM and PM symbols, in lower case, from the locale, and sets the language: Turkish (0) when they are "öö" and
    /// "ös", else English (1). A language chosen by `chooseLanguage` stays; one set by `setLanguageId` or `setLanguage`
    /// does not.
    void getLangId();

    /// Chooses a language that overrides the locale: `getLangId` keeps it. Its texts are available after
    /// `loadLanguageFile`.
    /// @param name  "tr", "en", "fr" or "de"; empty to follow the locale again
    /// @return false, with nothing changed, for another name
    bool chooseLanguage(std::string_view name);

    /// Sets the language until the next `getLangId`. Its texts are available after `loadLanguageFile`.
    /// @param name  "tr", "en", "fr" or "de"
    /// @return false, with nothing changed, for another name
    bool setLanguage(std::string_view name);

    /// Takes the 12/24-hour convention from the locale.
    void getTimeFormat();

    /// Takes the five colours from the scheme of the settings; from the default scheme (1) when its id is outside 0..5.
    void updateUIColors();

    // Values of the settings, the locale and the colour scheme; setters override them until they are taken again.

    bool is24Hour() const { return clockConvention_.is24Hour; }
    void setIs24Hour(bool value) { clockConvention_.is24Hour = value; }
    std::int32_t languageId() const { return languageId_; }
    void setLanguageId(std::int32_t value) { languageId_ = value; }
    const std::string& appBundlePath() const { return appBundlePath_; }
    void setAppBundlePath(std::string value) { appBundlePath_ = std::move(value); }
    const Settings& generalSettings() const { return generalSettings_; }
    void setGeneralSettings(Settings value) { generalSettings_ = std::move(value); }
    const std::string& amSym() const { return clockConvention_.amSym; }
    void setAmSym(std::string value) { clockConvention_.amSym = std::move(value); }
    const std::string& pmSym() const { return clockConvention_.pmSym; }
    void setPmSym(std::string value) { clockConvention_.pmSym = std::move(value); }
    const Color& firstColor() const { return colors_[0]; }
    void setFirstColor(const Color& value) { colors_[0] = value; }
    const Color& secondColor() const { return colors_[1]; }
    void setSecondColor(const Color& value) { colors_[1] = value; }
    const Color& thirdColor() const { return colors_[2]; }
    void setThirdColor(const Color& value) { colors_[2] = value; }
    const Color& fourthColor() const { return colors_[3]; }
    void setFourthColor(const Color& value) { colors_[3] = value; }
    const Color& fifthColor() const { return colors_[4]; }
    void setFifthColor(const Color& value) { colors_[4] = value; }

    /// The 12/24-hour convention and the symbols, for the functions of "common/formatting.h".
    const formatting::ClockConvention& clockConvention() const { return clockConvention_; }

    // ---- device and geometry ----------------------------------------------------------------------------------------

    /// 0 = phone, 1 = tablet or larger.
    std::int32_t getDeviceType() const { return deviceType_; }

    /// The orientation state; 0 after creation.
    std::int32_t getScreenOrientation() const { return screenState_; }

    /// Generation of the operating system: 1, 2, 3 for versions 6, 7, 8; 0 for those below and for 9 and above.
    std::int32_t getIOSVersion() const { return iosVersion_; }

    /// Measures the device's screen again, for a host that changes the width of the widget between two presentations.
    /// Otherwise the sizes are those at the object's creation.
    void measureScreen();

    // Sizes of the screen and of the widget's area, whole points.

    std::int32_t getScreenWidth() const;
    std::int32_t getScreenHeight() const;
    std::int32_t getWidgetLeft() const;
    std::int32_t getWidgetWidth() const;
    std::int32_t getWidgetHeight() const;

    bool getZoomed() const { return isZoomed_; }

    /// Stores the zoom state and computes the button sizes for it.
    void setZoomed(bool zoomed);

    /// Size of a day button, points; zero before the first `setZoomed`.
    Size getDayButtonSize() const { return dayButtonSize_; }

    /// Size of a round button, points; zero before the first `setZoomed`.
    Size getCircleButtonSize() const { return circleButtonSize_; }

    // ---- files and images -------------------------------------------------------------------------------------------

    /// The folder of the user's files and of the debug log.
    const std::string& dataFolder() const { return platform_.dataFolder; }

    /// What is wrong with the data folder, as a message for the user; nothing when it can be used. Checked at start-up:
    /// without the folder the program works, but stores nothing.
    const std::optional<std::string>& dataFolderProblem() const { return dataFolderProblem_; }

    /// True when a file exists. A failure is logged and gives false.
    bool fileExists(const std::string& path) noexcept;

    /// Deletes a file of the data folder. Does nothing when the file may not be deleted; a failure is logged.
    void deleteFileOnMobilePath(const std::string& fileName) noexcept;

    /// The path of an image of the bundle's own folder. The file need not exist.
    std::string getImagePathOnRoot(std::string_view name) const;

    /// The path of an image of the bundle's "images" folder: the tablet's image where it exists, else the phone's.
    std::string getImagePathOnImages(std::string_view name);

    /// The path of an image of the bundle's "images" folder, in the single resolution.
    std::string getImagePathWithout2X(std::string_view name) const;

    /// Appends an entry to a pick list.
    void addComboItem(std::vector<UIComboboxItem>& items, std::string displayText, std::string originalText,
                      std::int32_t id) const;

    // ---- debug log --------------------------------------------------------------------------------------------------

    /// The debug state; 0 after creation. It does not affect the log.
    std::int32_t getDebugState() const { return ssDebugId_; }
    void setDebugState(std::int32_t state) { ssDebugId_ = state; }

    /// Appends the line "[hh:mm:ss] message" to QuodeLog.txt in the data folder, whatever the debug state. Never fails: a
    /// line that cannot be written is lost.
    void NSLogToFile(std::string_view message) noexcept;

    // The same for a text and one or two numbers.

    void NSLogToFileStrInt(std::string_view text, std::int32_t value);
    void NSLogToFileStrIntInt(std::string_view text, std::int32_t first, std::int32_t second);
    void NSLogToFileStrFloat(std::string_view text, double value);
    void NSLogToFileStrFloatFloat(std::string_view text, double first, double second);

    // ---- language pack ----------------------------------------------------------------------------------------------

    /// Loads the pack of the current language from the bundle; the previous pack is dropped in any case. Without a usable
    /// file every lookup returns nothing.
    /// @return the problem with the path of the file, which is also logged; nothing when the pack was loaded
    std::optional<std::string> loadLanguageFile() noexcept;

    /// The name of a prayer time; nothing without a text.
    /// @param id  200..208 (dawn, sunrise, noon, afternoon, sunset, night, forenoon, second afternoon, yellowing of the
    ///            Sun)
    std::optional<std::string> GetTextPrayLabels(std::int32_t id) const;

    /// The full name of a Hijri month 1..12; nothing without a text.
    std::optional<std::string> GetTextHijriMonth(std::int32_t month) const;

    /// The abbreviated name of a Hijri month 1..12; nothing without a text.
    std::optional<std::string> GetTextHijriMonthShort(std::int32_t month) const;

    /// The caption or message of an id, see "common/captions.h"; nothing without a text.
    std::optional<std::string> GetKeyValue(std::int32_t id);

    /// The locale's full name of a Gregorian month 1..12; empty for another number.
    std::string GetTextGregorianMonth(std::int32_t month) const;

    /// The locale's abbreviated name of a Gregorian month 1..12; empty for another number.
    std::string GetTextGregorianMonthShort(std::int32_t month) const;

    // ---- the clock --------------------------------------------------------------------------------------------------

    /// The current local time of day.
    /// @param text  not null: receives the clock text of hour and minute
    void GetClock(int& hour, int& minute, int& second, std::string* text = nullptr) const;

    /// Today's local date. Note the order day, month, year.
    void GetDate(int& day, int& month, int& year) const;

    /// The local date and time of day of a moment.
    VAKDate GetDateTimeFromNSDate(Clock::TimePoint moment) const;

    /// The Julian day of the local date and time of day of a moment.
    double GetDateTimeJDFromNSDate(Clock::TimePoint moment) const;

    /// The Julian day of the local date of a moment at 0 h.
    double GetDateJDFromNSDate(Clock::TimePoint moment) const;

    /// The current local date and time of day, with the fraction of the second in `MSeconds`.
    VAKDate GetCurrentDateTime() const;

    // ---- calendar arithmetic, see "common/calendar.h" ---------------------------------------------------------------

    double CalculateJulianDay(int year, int month, int day, int hour, int minute, int second) const;
    double GregorianDateToJulian(const VAKDate& date) const;
    VAKDate JulianToGregorian(double julianDay) const;
    double HijriDateToJulian(const VAKDate& date) const;
    VAKDate JulianToHijri(double julianDay) const;
    double GetHijriFirstDayOfTheMonthAsJulianDate(int index) const;
    double addMinute(int minutes, double julianDay) const;
    int DayOfWeekWithYear(int year, int month, int day) const;
    int DayOfHijriWeekWithYear(int year, int month, int day) const;
    int DayOfWeekWithJulianDate(double julianDay) const;
    double frac(double x) const;
    void ToHMS(int& hour, int& minute, int& second, double hours) const;

    // ---- formatting by the device's convention, see "common/formatting.h" -------------------------------------------

    std::string timeLeadingZero(double hours) const;
    std::string timeLeadingZero(int hour, int minute) const;
    std::string timeLeadingZeroWithSeconds(int hour, int minute, int second) const;
    std::string GetGMTValueStr(bool daylightSaving, double offset) const;
    std::string getDegMinStrWithMinusPlus(double degrees) const;
    std::string getQiblaAngleStr(double degrees) const;
    std::string getFloatStr(std::string_view text) const;

  private:
    static std::optional<GlobalFuncs>& shared();

    void generateMobilePath() noexcept;
    void detectDeviceType();
    void detectSystemVersion();
    void reCalculateButtonWidthHeight();
    bool hasDoubleImages() const;

    Platform platform_;
    std::int32_t deviceType_ = 0;
    std::int32_t screenState_ = 0;
    std::int32_t iosVersion_ = 0;
    Rect screenSize_;
    Rect widgetSize_;
    std::int32_t ssDebugId_ = 0;
    bool isZoomed_ = true;
    Size dayButtonSize_;
    Size circleButtonSize_;
    LanguagePack langPack_;
    std::int32_t languageId_ = languageEnglish;
    std::optional<std::int32_t> chosenLanguageId_;  // the user's own choice; none: the locale's
    std::string appBundlePath_;
    Settings generalSettings_;
    formatting::ClockConvention clockConvention_;
    ColorScheme colors_{};
    std::optional<std::string> dataFolderProblem_;
};

}  // namespace quode
