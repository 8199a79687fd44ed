// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "engine_operations.h"

#include "astro/AstroGlobalFuncs.h"

namespace quode::test {
namespace {

double julianDayOf(const VAKDate& day, double hours) {
    return AstroGlobalFuncs::CalculateJulianDay(day.Years, day.Months, day.Days, 0, 0, 0) + hours / 24.0;
}

VAKDate moment(RandomNumbers& random, VAKDate day) {
    day.Hours = random.whole(0, 23);
    day.Minutes = random.whole(0, 59);
    day.Seconds = random.whole(0, 59);
    return day;
}

/// A day near the engine's current one, so that cached values are used, and errors in them show.
VAKDate dayNear(const FastAstro& engine, RandomNumbers& random) {
    VAKDate day = engine.iCurrentDate();
    if (random.oneIn(2)) day.Days = random.whole(1, 28);
    return day;
}

void changeEngine(FastAstro& engine, RandomNumbers& random) {
    const VAKDate today = engine.iCurrentDate();
    switch (random.whole(0, 7)) {
        case 0:
            setAnywhere(engine, random);
            break;
        case 1:
            engine.SetCurrentDate(random.whole(1, 28), today.Months, today.Years);
            break;
        case 2:
            engine.SetLatLon(random.between(-90.0, 90.0), engine.Lon());
            break;
        case 3:
            engine.setLon(random.between(-180.0, 180.0));
            break;
        case 4:
            set(engine, randomPlace(random), today);
            break;
        case 5: {
            Place place = engine.iPlace();
            place.GMTValue = random.whole(-12, 14);
            engine.setIPlace(place);
            break;
        }
        case 6:
            engine.setSunDec(random.between(-23.0, 23.0));
            engine.setSunRA(random.between(0.0, 24.0));
            engine.setEclipticLongitude(random.between(0.0, 360.0));
            engine.setDX(random.between(0.0, 1.0));
            break;
        default:
            engine.setUTRise(random.between(0.0, 24.0));
            engine.setUTSet(random.between(0.0, 24.0));
            engine.setRise(random.oneIn(2));
            engine.setMoonDec(random.between(-28.0, 28.0));
            engine.setMoonSet(random.between(0.0, 24.0));
    }
}

void operateOnSun(FastAstro& engine, RandomNumbers& random, Digest& digest) {
    const VAKDate day = dayNear(engine, random);
    const double julianDay = julianDayOf(day, random.between(0.0, 24.0));
    switch (random.whole(0, 9)) {
        case 0:
            engine.SunDecRA(julianDay);
            break;
        case 1:
            engine.SunDecRAAccurate(julianDay);
            break;
        case 2:
            digest.add(FastAstro::EquationOfTime(julianDay, random.between(0.0, 24.0)));
            break;
        case 3:
            engine.RiseSet(day.Days, day.Months, day.Years, random.whole(-14, 38));
            break;
        case 4:
            engine.SunRiseSet(day.Days, day.Months, day.Years);
            break;
        case 5: {
            SunData sun;
            sun.RA = random.between(0.0, 24.0);
            engine.SunRiseSetTrans(day, sun);
            digest.add(sun);
            break;
        }
        case 6:
            digest.add(engine.SunInformation(moment(random, day), engine.Lat(), engine.Lon()));
            break;
        case 7: {
            DirectionInfo info;
            engine.SunInformationForDirection(moment(random, day), info);
            digest.add(info);
            break;
        }
        case 8:
            digest.add(engine.SunInformationForPray(day.Days, day.Months, day.Years));
            break;
        default:
            digest.add(FastAstro::GM_Sidereal_Time(julianDay));
    }
}

void operateOnMoon(FastAstro& engine, RandomNumbers& random, Digest& digest) {
    const VAKDate day = dayNear(engine, random);
    const double julianDay = julianDayOf(day, random.between(0.0, 24.0));
    switch (random.whole(0, 9)) {
        case 0:
            engine.MoonDecRA(julianDay);
            break;
        case 1:
            engine.MoonDecRAAccurate(julianDay);
            break;
        case 2:
            engine.MoonRiseSet(day.Days, day.Months, day.Years, random.whole(-14, 38));
            break;
        case 3:
            engine.MoonRiseTime(day.Days, day.Months, day.Years);
            break;
        case 4:
            engine.MoonSetTime(day.Days, day.Months, day.Years);
            break;
        case 5: {
            MoonInfo moon;
            engine.MoonRiseSetTrans(day, moon);
            digest.add(moon);
            break;
        }
        case 6:
            digest.add(engine.MoonInformation(moment(random, day), engine.Lat(), engine.Lon()));
            break;
        case 7: {
            DirectionInfo info;
            engine.MoonInformationForDirection(moment(random, day), info);
            engine.MoonInformationForDirectionWithoutLocalTime(moment(random, day), info);
            digest.add(info);
            break;
        }
        case 8: {
            CrescentInfo info;
            engine.MoonInformationforCrescent(day, random.whole(-1, 1), info);
            engine.SunInformationForCrescent(day, info);
            digest.add(info);
            break;
        }
        default:
            digest.add(engine.MoonElongation(julianDay));
    }
}

void searchAltitude(const FastAstro& engine, RandomNumbers& random, Digest& digest) {
    constexpr int angles[] = {-19, -17, -6, 0, 1, 2, 5, 30};
    const double latitude = random.between(-90.0, 90.0), correction = random.between(-12.0, 12.0);
    const double temkin = random.between(-0.2, 0.2);
    const int zone = random.whole(-12, 14), angle = angles[random.whole(0, 7)], side = random.oneIn(2) ? 1 : -1;
    double result = 0.0;
    digest.add(FastAstro::Iterasyon(result, latitude, correction, temkin, zone, angle, side, engine.SunInfo()));
    digest.add(result);
}

void operateOnTimes(FastAstro& engine, RandomNumbers& random, Digest& digest) {
    const VAKDate day = dayNear(engine, random);
    switch (random.whole(0, 5)) {
        case 0:
            engine.CalculatePrayTimes();
            break;
        case 1:
            engine.CalculateNextPrayTimes();
            break;
        case 2: {
            PrayTimes times;
            const bool temkin = random.oneIn(2);
            engine.CalculateAllPrayTimes(day.Days, day.Months, day.Years, 0, 0, 0, engine.Lat(), engine.Lon(), temkin,
                                         0, times, engine.iPlace().KibleAngle);
            digest.add(times);
            break;
        }
        case 3:
            searchAltitude(engine, random, digest);
            break;
        case 4:
            engine.CalculatePrayTimes();
            [[fallthrough]];
        default:
            digest.add(engine.getSomeInfoForQuodeWidget());
    }
}

}  // namespace

void set(FastAstro& engine, const RandomPlace& place, const VAKDate& day) {
    engine.SetCurrentDateTime(day);
    engine.SetPlace(place.latitude, place.longitude, place.zone, place.dst, place.startMonth, place.startDay,
                    place.stopMonth, place.stopDay, place.dst, place.temkin);
}

void setAnywhere(FastAstro& engine, RandomNumbers& random) {
    // Each step in a separate statement: compilers evaluate arguments in different orders.
    const RandomPlace place = randomPlace(random);
    const VAKDate day = randomDay(random);
    set(engine, place, day);
}

void operate(FastAstro& engine, RandomNumbers& random, Digest& digest) {
    switch (random.whole(0, 3)) {
        case 0:
            changeEngine(engine, random);
            break;
        case 1:
            operateOnSun(engine, random, digest);
            break;
        case 2:
            operateOnMoon(engine, random, digest);
            break;
        default:
            operateOnTimes(engine, random, digest);
    }
}

}  // namespace quode::test
