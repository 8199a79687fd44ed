// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>

#include "astro/PrayTimes.h"
#include "astro/SkyRecords.h"
#include "data/SiteChoice.h"

namespace quode {

class GlobalFuncs;

/// One of the user's cities: its facts from the city database, and the values computed for it today.
///
/// Every fact is text, as the databases store it; an empty text is an unknown fact. Computed values are zero until
/// `computeCity` ("data/city_day.h") stores them.
///
/// @code
///   quode::City istanbul;                                // after GlobalFuncs::startUp
///   istanbul.setCityId("745044");
///   istanbul.getAllCityInfo(istanbul);
///   quode::computeCity(istanbul, quode::VAKDateMake(21, 3, 2026, 0, 0, 0));
///   const double sunset = istanbul.getRelevantPrayerTime(204);
/// @endcode
///
/// Fixed names: all, except `choice` and `setChoice`.
class City {
  public:
    City();

    /// Stores the sky of the day.
    void setSomeAstroIfo(const WidgetSkyInfo& info) { someInfoForQuodeWidget_ = info; }
    WidgetSkyInfo getSomeAstroInfo() const { return someInfoForQuodeWidget_; }

    /// Stores the prayer times of the day.
    void setPrayerTimes(const PrayTimes& times) { aNamazVakitleri_ = times; }

    /// The prayer time of a code, in local decimal hours; -1.0 where the time does not exist that day.
    /// @param code  200 Imsak, 201 Gunes, 202 Ogle, 203 Ikindi, 204 Aksam, 205 Yatsi, 206 Israk, 207 AsrSani,
    ///              208 IsfirarSems
    /// @return 0.0 for any other code
    double getRelevantPrayerTime(int code) const;

    /// Direction of the qibla, degrees, as `KiblePair::K`.
    double getQiblaAngle() const { return qAngle_; }
    void setQiblaAngle(double degrees) { qAngle_ = degrees; }

    /// Magnetic declination in degrees, east positive.
    double getMagneticVariation() const { return mVariation_; }
    void setMagneticVariation(double degrees) { mVariation_ = degrees; }

    /// Switches the margin: any non-zero `temkin` becomes "0", everything else (an empty text too) "1".
    void changeTemkin();

    /// Fills a city from the city database of the bundle: names, coordinates, zone, summer-time rule and margin. Where
    /// the yearly rule does not apply today, offset and rule are those of today. Without the database, or without such a
    /// city, `city` stays as it was and no error is reported; use `CityDatabase` where the user needs a message.
    /// @param city  its `cityId` is read; a negative id is a place of the user, see "data/user_places.h"
    void getAllCityInfo(City& city) const;

    /// The same with an open user database, for several cities in turn.
    void getAllCityInfo(City& city, sqlite3* userDatabase) const;

    /// The method and the table that the user chose for the city, from `getAllCityInfo`.
    const SiteChoice& choice() const { return choice_; }
    void setChoice(SiteChoice choice) { choice_ = std::move(choice); }

    // The facts; the fields below describe each.
    const std::string& cityId() const { return cityId_; }
    void setCityId(std::string value) { cityId_ = std::move(value); }
    const std::string& name() const { return name_; }
    void setName(std::string value) { name_ = std::move(value); }
    const std::string& nameParent() const { return nameParent_; }
    void setNameParent(std::string value) { nameParent_ = std::move(value); }
    const std::string& latitude() const { return latitude_; }
    void setLatitude(std::string value) { latitude_ = std::move(value); }
    const std::string& longitude() const { return longitude_; }
    void setLongitude(std::string value) { longitude_ = std::move(value); }
    const std::string& countryId() const { return countryId_; }
    void setCountryId(std::string value) { countryId_ = std::move(value); }
    const std::string& setAsHome() const { return setAsHome_; }
    void setSetAsHome(std::string value) { setAsHome_ = std::move(value); }
    const std::string& setAsAlarm() const { return setAsAlarm_; }
    void setSetAsAlarm(std::string value) { setAsAlarm_ = std::move(value); }
    const std::string& alter_Lat() const { return alter_Lat_; }
    void setAlter_Lat(std::string value) { alter_Lat_ = std::move(value); }
    const std::string& alter_Lon() const { return alter_Lon_; }
    void setAlter_Lon(std::string value) { alter_Lon_ = std::move(value); }
    const std::string& countryId1() const { return countryId1_; }
    void setCountryId1(std::string value) { countryId1_ = std::move(value); }
    const std::string& countryId2() const { return countryId2_; }
    void setCountryId2(std::string value) { countryId2_ = std::move(value); }
    const std::string& countryNameEn() const { return countryNameEn_; }
    void setCountryNameEn(std::string value) { countryNameEn_ = std::move(value); }
    const std::string& countryNameTr() const { return countryNameTr_; }
    void setCountryNameTr(std::string value) { countryNameTr_ = std::move(value); }
    const std::string& GMT() const { return GMT_; }
    void setGMT(std::string value) { GMT_ = std::move(value); }
    const std::string& GMTStr() const { return GMTStr_; }
    void setGMTStr(std::string value) { GMTStr_ = std::move(value); }
    const std::string& DST() const { return DST_; }
    void setDST(std::string value) { DST_ = std::move(value); }
    const std::string& startMonth() const { return startMonth_; }
    void setStartMonth(std::string value) { startMonth_ = std::move(value); }
    const std::string& startDay() const { return startDay_; }
    void setStartDay(std::string value) { startDay_ = std::move(value); }
    const std::string& stopMonth() const { return stopMonth_; }
    void setStopMonth(std::string value) { stopMonth_ = std::move(value); }
    const std::string& stopDay() const { return stopDay_; }
    void setStopDay(std::string value) { stopDay_ = std::move(value); }
    const std::string& hour() const { return hour_; }
    void setHour(std::string value) { hour_ = std::move(value); }
    const std::string& temkin() const { return temkin_; }
    void setTemkin(std::string value) { temkin_ = std::move(value); }
    const std::string& latitudeStr() const { return latitudeStr_; }
    void setLatitudeStr(std::string value) { latitudeStr_ = std::move(value); }
    const std::string& longitudeStr() const { return longitudeStr_; }
    void setLongitudeStr(std::string value) { longitudeStr_ = std::move(value); }

  private:
    void fill(City& city, int id) const;

    SiteChoice choice_;
    double qAngle_ = 0.0;
    double mVariation_ = 0.0;
    PrayTimes aNamazVakitleri_;
    WidgetSkyInfo someInfoForQuodeWidget_;

    std::string cityId_;  ///< the city's key in the city database, an integer as text
    std::string name_;
    std::string nameParent_;     ///< name of the region
    std::string latitude_;       ///< decimal degrees, north positive
    std::string longitude_;      ///< decimal degrees, east positive
    std::string countryId_;      ///< not filled here
    std::string setAsHome_;      ///< "1" for the home city
    std::string setAsAlarm_;     ///< not filled here
    std::string alter_Lat_;      ///< not filled here
    std::string alter_Lon_;      ///< not filled here
    std::string countryId1_;     ///< not filled here
    std::string countryId2_;     ///< not filled here
    std::string countryNameEn_;  ///< in English
    std::string countryNameTr_;  ///< in Turkish
    std::string GMT_;            ///< offset from Greenwich without summer time, decimal hours
    std::string GMTStr_;         ///< the offset in force today, for display
    std::string DST_;            ///< "1" where the clocks change for summer, else "0"
    std::string startMonth_;     ///< rule of the change, see ZoneRule: months from 0
    std::string startDay_;       ///< rule day
    std::string stopMonth_;      ///< months from 0
    std::string stopDay_;        ///< rule day
    std::string hour_;           ///< hours of the shift
    std::string temkin_;         ///< "1": margin for 500 m of height; "0": for 250 m
    std::string latitudeStr_;    ///< not filled here
    std::string longitudeStr_;   ///< not filled here

    const GlobalFuncs* globalFuncs_;
};

}  // namespace quode
