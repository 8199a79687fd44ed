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

/// The one shared-services object of a process: settings, colours, device and screen facts, paths, the debug log, the
/// texts of the language pack, and calendar and formatting by the device's clock and habits.
///
/// A program's main calls startUp once; every other place reaches the object through globalFuncs. Everything runs on
/// the main thread. Arithmetic and formatting are also to be had without this object, see "common/calendar.h" and
/// "common/formatting.h".
class GlobalFuncs {
    struct Key {};  // keeps the constructor to this class

  public:
    /// Creates the shared object on this platform. A later call recreates it in the same place, with all its state,
    /// which tests use; references to it stay valid.
    static GlobalFuncs& startUp(Platform platform);

    /// The shared object. Throws std::logic_error before the first startUp.
    static GlobalFuncs& globalFuncs();

    GlobalFuncs(Key, Platform platform);
    GlobalFuncs(const GlobalFuncs&) = delete;
    GlobalFuncs& operator=(const GlobalFuncs&) = delete;

    /// The platform that the object works on.
    const Platform& platform() const { return platform_; }

    // --- settings, language choice and colours
    // -------------------------------------------------------------------------

    /// Sets the folder of the bundle, below which images and language packs are found. To be called before either is
    /// asked for.
    void setApplicationBundlePath(std::string path) { appBundlePath_ = std::move(path); }

    Settings& getSettings() { return generalSettings_; }
    const Settings& getSettings() const { return generalSettings_; }

    /// Settings are not kept between runs: this leaves them as they are.
    void loadSettings() {}

    /// Takes AM and PM symbols, in lower case, from the locale; the language is Turkish (0) when they are "öö" and
    /// "ös", else English (1); a language chosen by chooseLanguage stays. Other languages are set with setLanguageId or
    /// setLanguage, until this is called again.
    void getLangId();

    /// Keeps to a language of the user's own choice, whatever the locale's is: getLangId yields it from now on. Its
    /// texts are there after loadLanguageFile.
    /// @param name  "tr", "en", "fr" or "de"; empty to follow the locale again
    /// @return false, and nothing is changed, when the name is another one
    bool chooseLanguage(std::string_view name);

    /// Chooses a language by its name "tr", "en", "fr" or "de"; its texts are there after loadLanguageFile.
    /// @return false, and nothing is changed, when the name is another one
    bool setLanguage(std::string_view name);

    /// Takes the 12/24-hour convention from the locale.
    void getTimeFormat();

    /// Takes the five colours from the scheme of the settings; from the default scheme when its id is outside 0..5.
    void updateUIColors();

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

    /// The 12/24-hour convention and the symbols, as the functions of "common/formatting.h" take them.
    const formatting::ClockConvention& clockConvention() const { return clockConvention_; }

    // --- device and geometry
    // -------------------------------------------------------------------------------------------

    /// 0 = phone, 1 = tablet or larger.
    std::int32_t getDeviceType() const { return deviceType_; }

    /// The orientation state; 0 after creation.
    std::int32_t getScreenOrientation() const { return screenState_; }

    /// Generation of the operating system: 1, 2, 3 for versions 6, 7, 8; 0 for those below and for 9 and above.
    std::int32_t getIOSVersion() const { return iosVersion_; }

    /// Measures the device's screen again; by itself the object keeps to what it found at its creation. For a host that
    /// gives the widget another width between two presentations.
    void measureScreen();

    std::int32_t getScreenWidth() const;
    std::int32_t getScreenHeight() const;

    /// Left margin of the widget's area, in points.
    std::int32_t getWidgetLeft() const;
    std::int32_t getWidgetWidth() const;
    std::int32_t getWidgetHeight() const;

    bool getZoomed() const { return isZoomed_; }

    /// Stores the state and computes the button sizes for it.
    void setZoomed(bool zoomed);

    /// Size of a day button; zero until setZoomed was called.
    Size getDayButtonSize() const { return dayButtonSize_; }

    /// Size of a round button; zero until setZoomed was called.
    Size getCircleButtonSize() const { return circleButtonSize_; }

    // --- files and images
    // ----------------------------------------------------------------------------------------------

    /// The folder of the user's files and of the debug log.
    const std::string& dataFolder() const { return platform_.dataFolder; }

    /// What is wrong with the data folder, for the user to read; nothing when files can be kept there. Found out at
    /// start-up: the program works without the folder, but keeps nothing.
    const std::optional<std::string>& dataFolderProblem() const { return dataFolderProblem_; }

    /// True when a file is there. A failure is logged and reads as false.
    bool fileExists(const std::string& path) noexcept;

    /// Deletes a file of the data folder when it may be deleted; otherwise it stays, silently. A failure is logged.
    void deleteFileOnMobilePath(const std::string& fileName) noexcept;

    /// The path of an image of the bundle's own folder. The file need not exist.
    std::string getImagePathOnRoot(std::string_view name) const;

    /// The path of an image of the bundle's "images" folder: the tablet's own one where there is one, else the phone's.
    std::string getImagePathOnImages(std::string_view name);

    /// The path of an image of the bundle's "images" folder, in the single resolution.
    std::string getImagePathWithout2X(std::string_view name) const;

    /// Adds an entry to a pick list.
    void addComboItem(std::vector<UIComboboxItem>& items, std::string displayText, std::string originalText,
                      std::int32_t id) const;

    // --- debug log
    // -----------------------------------------------------------------------------------------------------

    std::int32_t getDebugState() const { return ssDebugId_; }
    void setDebugState(std::int32_t state) { ssDebugId_ = state; }

    /// Adds the line "[hh:mm:ss] message" to QuodeLog.txt of the data folder, whatever the debug state. Never fails: a
    /// line that cannot be written is lost.
    void NSLogToFile(std::string_view message) noexcept;
    void NSLogToFileStrInt(std::string_view text, std::int32_t value);
    void NSLogToFileStrIntInt(std::string_view text, std::int32_t first, std::int32_t second);
    void NSLogToFileStrFloat(std::string_view text, double value);
    void NSLogToFileStrFloatFloat(std::string_view text, double first, double second);

    // --- language pack
    // -------------------------------------------------------------------------------------------------

    /// Loads the pack of the current language from the bundle; the one held before is given up in any case. Without a
    /// usable file there is no pack and every lookup yields nothing.
    /// @return the problem with the path of the file, as it also stands in the log; nothing when the pack was loaded
    std::optional<std::string> loadLanguageFile() noexcept;

    /// The name of a prayer time.
    /// @param id  200..208 (dawn, sunrise, noon, afternoon, sunset, night, forenoon, second afternoon, yellowing of the
    /// Sun)
    std::optional<std::string> GetTextPrayLabels(std::int32_t id) const;

    /// The full name of a Hijri month 1..12.
    std::optional<std::string> GetTextHijriMonth(std::int32_t month) const;

    /// The abbreviated name of a Hijri month 1..12.
    std::optional<std::string> GetTextHijriMonthShort(std::int32_t month) const;

    /// The caption or message of a number.
    std::optional<std::string> GetKeyValue(std::int32_t id);

    /// The locale's full name of a Gregorian month 1..12; empty for another number.
    std::string GetTextGregorianMonth(std::int32_t month) const;

    /// The locale's abbreviated name of a Gregorian month 1..12; empty for another number.
    std::string GetTextGregorianMonthShort(std::int32_t month) const;

    // --- the clock
    // -----------------------------------------------------------------------------------------------------

    /// The present time of day.
    /// @param text  when given, receives the clock text of hour and minute
    void GetClock(int& hour, int& minute, int& second, std::string* text = nullptr) const;

    /// Today's date. Note the order day, month, year.
    void GetDate(int& day, int& month, int& year) const;

    /// The local date and time of day of a moment.
    VAKDate GetDateTimeFromNSDate(Clock::TimePoint moment) const;

    /// The Julian day of the local date and time of day of a moment.
    double GetDateTimeJDFromNSDate(Clock::TimePoint moment) const;

    /// The Julian day of the local date of a moment at 0h.
    double GetDateJDFromNSDate(Clock::TimePoint moment) const;

    /// The present local date and time of day with the fraction of the second.
    VAKDate GetCurrentDateTime() const;

    // --- calendar arithmetic, see "common/calendar.h"
    // ------------------------------------------------------------------

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

    // --- formatting by the device's convention, see "common/formatting.h"
    // ----------------------------------------------

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
