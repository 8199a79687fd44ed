// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "digest.h"

namespace quode::test {

void Digest::add(const PrayTimes& times) {
    for (int slot = 0; slot < PrayTimes::slotCount; ++slot) add(times.slot(slot));
    addAll(times.isLatitudeChanged, times.isImsakBeforeTime, times.isIsaEvvelBeforeTime, times.isIsaSaniBeforeTime);
}

void Digest::add(const SunInfoForPray& sun) {
    addAll(sun.PrevDec, sun.CurrentDec, sun.NextDec, sun.PrevTZ, sun.CurrentTZ, sun.NextTZ, sun.SunRise, sun.SunSet,
           sun.SunNextRise, sun.SunNextSet);
}

void Digest::add(const MoonInfo& moon) {
    addAll(moon.Dec, moon.RA, moon.TrueAlt, moon.AppAlt, moon.Azimuth, moon.RiseTime, moon.TransTime, moon.SetTime,
           moon.SideRealTime, moon.Distance, moon.HorParal, moon.Diameter, moon.Elongation, moon.IlluminatedFraction,
           moon.BrightInc, moon.GHA);
}

void Digest::add(const SunData& sun) {
    addAll(sun.Dec, sun.RA, sun.Alt, sun.Azimuth, sun.RiseTime, sun.TransTime, sun.SetTime, sun.SideRealTime,
           sun.EquationTime, sun.Distance, sun.Diameter, sun.Shadow, sun.GHA);
}

void Digest::add(const DirectionInfo& info) {
    addAll(info.SunRise, info.SunSet, info.SunAzimuth, info.SunAltitude, info.MoonRise, info.MoonSet, info.MoonAzimuth,
           info.MoonAltitude, info.MoonElongation);
}

void Digest::add(const CrescentInfo& info) {
    addAll(info.SunRise, info.SunSet, info.MoonAltitude, info.MoonElongation);
}

void Digest::add(const WidgetSkyInfo& sky) {
    addAll(sky.SunRise, sky.SunSet, sky.MoonRise, sky.MoonSet, sky.MoonAltitudeOnSunSet);
}

void Digest::add(const FastAstro& engine) {
    addAll(engine.Lat(), engine.Lon(), engine.SunDec(), engine.SunRA(), engine.EclipticLongitude(),
           engine.SunDistance(), engine.YE(), engine.Zero1(), engine.Zero2(), engine.DX(), engine.UTRise(),
           engine.UTSet(), engine.Rise(), engine.Sett(), engine.tLat(), engine.trho(), engine.MoonDec(),
           engine.MoonRA(), engine.MoonGHA(), engine.MoonDist(), engine.MoonAlt(), engine.L_Moon(), engine.B_Moon(),
           engine.SRT(), engine.MoonRise(), engine.MoonSet());
    add(engine.iCurrentDate());
    add(engine.SunInfo());
    add(engine.Moon());
    add(engine.Sun());
    const Place& place = engine.iPlace();
    addAll(place.Latitude, place.Longitude, place.GMTValue, place.DST, place.DSTValue, place.TemkinHeight,
           place.isDSTTime, place.KibleAngle.i, place.KibleAngle.K);
    add(place.TodayPrayTimes);
    add(place.NextPrayTimes);
}

}  // namespace quode::test
