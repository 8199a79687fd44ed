// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <array>

namespace quode {

/// The times of one day at one place, in decimal hours of the place's clock (zone and summer time included).
/// -1.0 marks a time that does not exist that day. The flags show which times come from a fallback.
/// Fixed names: all fields; the order of the slots.
struct PrayTimes {
    double Imsak = 0.0;         ///< dawn: Sun 19 degrees below the horizon, less the margin
    double Gunes = 0.0;         ///< sunrise, less the margin
    double Ogle = 0.0;          ///< noon, plus the margin
    double AsriEvvel = 0.0;     ///< afternoon: the shadow has grown by one length
    double Aksam = 0.0;         ///< sunset, plus the margin
    double IsaEvvel = 0.0;      ///< night: Sun 17 degrees below the horizon
    double AsriSani = 0.0;      ///< second afternoon time: the shadow has grown by two lengths
    double IsaSani = 0.0;       ///< second night time: Sun 19 degrees below the horizon
    double Duha = 0.0;          ///< forenoon: Sun 5 degrees above the horizon
    double IsfirariSems = 0.0;  ///< yellowing of the Sun: 5 degrees above the western horizon, without margin
    double Zeval = 0.0;         ///< noon, less the margin
    double Teheccud = 0.0;      ///< dawn less one sixth of the night
    double KibleSun = 0.0;      ///< the Sun stands in the qibla direction; without the zone's hours
    double KibleMoon = 0.0;     ///< never written
    double Gece2 = 0.0;         ///< sunset plus half of the night
    double Gece3 = 0.0;         ///< sunset plus a third of the night
    double EzaniImsak = 0.0;    ///< this and the following: the sunset-based counterparts
    double EzaniGunes = 0.0;    ///< holds the half-day-length difference in minutes
    double EzaniOgle = 0.0;
    double EzaniAsriEvvel = 0.0;
    double EzaniAksam = 0.0;
    double EzaniIsaEvvel = 0.0;
    double EzaniAsriSani = 0.0;
    double EzaniIsaSani = 0.0;
    double EzaniDuha = 0.0;
    double EzaniIsfirariSems = 0.0;
    double EzaniZeval = 0.0;
    double EzaniTeheccud = 0.0;
    double EzaniKibleSun = 0.0;
    double EzaniKibleMoon = 0.0;
    double EzaniGece2 = 0.0;
    double EzaniGece3 = 0.0;
    double newLat = 0.0;  ///< set by the polar fallback only: the latitude before its last step, degrees

    bool isLatitudeChanged = false;     ///< the times were computed for a lower latitude
    bool isImsakBeforeTime = false;     ///< Imsak is that of an earlier day
    bool isIsaEvvelBeforeTime = false;  ///< IsaEvvel is that of an earlier day
    bool isIsaSaniBeforeTime = false;   ///< IsaSani is that of an earlier day

    static constexpr int slotCount = 33;

    /// The time of a slot.
    /// @param index  0 (Imsak) to 32 (newLat), in the order of declaration; not checked
    double slot(int index) const { return this->*slotFields()[static_cast<std::size_t>(index)]; }
    double& slot(int index) { return this->*slotFields()[static_cast<std::size_t>(index)]; }

    friend bool operator==(const PrayTimes&, const PrayTimes&) = default;

  private:
    static constexpr std::array<double PrayTimes::*, slotCount> slotFields() {
        using P = PrayTimes;
        return {&P::Imsak,         &P::Gunes,
                &P::Ogle,          &P::AsriEvvel,
                &P::Aksam,         &P::IsaEvvel,
                &P::AsriSani,      &P::IsaSani,
                &P::Duha,          &P::IsfirariSems,
                &P::Zeval,         &P::Teheccud,
                &P::KibleSun,      &P::KibleMoon,
                &P::Gece2,         &P::Gece3,
                &P::EzaniImsak,    &P::EzaniGunes,
                &P::EzaniOgle,     &P::EzaniAsriEvvel,
                &P::EzaniAksam,    &P::EzaniIsaEvvel,
                &P::EzaniAsriSani, &P::EzaniIsaSani,
                &P::EzaniDuha,     &P::EzaniIsfirariSems,
                &P::EzaniZeval,    &P::EzaniTeheccud,
                &P::EzaniKibleSun, &P::EzaniKibleMoon,
                &P::EzaniGece2,    &P::EzaniGece3,
                &P::newLat};
    }
};

/// The mark of a Sun or prayer time that does not exist.
inline constexpr double missingTime = -1.0;

/// The mark of an azimuth that does not exist, in the zenith or at a pole.
inline constexpr double noDirection = -1.0;

}  // namespace quode
