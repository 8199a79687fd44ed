// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "engine_bits.h"

#include <array>
#include <cmath>
#include <sstream>

#include "astro/AstroGlobalFuncs.h"
#include "astro/MagneticVariation.h"
#include "astro/MoonPhases.h"
#include "astro/MoonTransit.h"
#include "common/calendar.h"
#include "digest.h"
#include "engine_operations.h"

namespace quode::test {
namespace {

using Compute = void (*)(RandomNumbers&, Digest&);

/// A day of a place in a new engine: the values that a front end computes.
void freshDay(RandomNumbers& random, Digest& digest) {
    const RandomPlace place = randomPlace(random);
    const VAKDate day = randomDay(random);
    FastAstro engine;
    set(engine, place, day);
    engine.CalculatePrayTimes();
    digest.add(engine);
    if (random.oneIn(4)) engine.CalculateNextPrayTimes();
    digest.add(engine.getSomeInfoForQuodeWidget());
    digest.add(engine);
    digest.add(moonTransit(day, place.longitude, place.zone));
    digest.add(MagneticVariation().getMagneticVariation(day.Days, day.Months, day.Years, place.latitude,
                                                        place.longitude, random.oneIn(2) ? 500.0 : 0.0));
}

/// Twenty days of a place, one after the other, in one engine.
void keptDays(RandomNumbers& random, Digest& digest) {
    const RandomPlace place = randomPlace(random);
    VAKDate day = randomDay(random);
    FastAstro engine;
    for (int i = 0; i < 20; ++i) {
        set(engine, place, day);
        engine.CalculatePrayTimes();
        if (random.oneIn(2)) digest.add(engine.getSomeInfoForQuodeWidget());
        digest.add(engine);
        AstroGlobalFuncs::JulianToCalendar(
            AstroGlobalFuncs::CalculateJulianDay(day.Years, day.Months, day.Days, 12, 0, 0) + 1.0, day, true);
        day = VAKDateMake(day.Days, day.Months, day.Years, 0, 0, 0);
    }
}

/// Twenty places on one day, in one engine.
void keptPlaces(RandomNumbers& random, Digest& digest) {
    const VAKDate day = randomDay(random);
    FastAstro engine;
    for (int i = 0; i < 20; ++i) {
        set(engine, randomPlace(random), day);
        engine.CalculatePrayTimes();
        digest.add(engine.getSomeInfoForQuodeWidget());
        digest.add(engine);
    }
}

/// Sixty operations in any order.
void mixedOperations(RandomNumbers& random, Digest& digest) {
    FastAstro engine;
    setAnywhere(engine, random);
    for (int i = 0; i < 60; ++i) {
        operate(engine, random, digest);
        digest.add(engine);
    }
}

/// Hijri dates by the crescent, in years in which it is found.
void crescentDates(RandomNumbers& random, Digest& digest) {
    FastAstro engine;
    for (int i = 0; i < 5; ++i) {
        VAKDate hijri;
        const int day = random.whole(1, 28), month = random.whole(1, 12), year = random.whole(700, 3000);
        engine.RealGregJulToHicri(day, month, year, hijri);
        digest.add(hijri);
    }
    digest.add(engine);
    for (const MoonPhase& phase : moonPhasesOfYear(random.whole(1, 9999))) digest.add(phase.julianDay);
}

void calendars(RandomNumbers& random, Digest& digest) {
    for (int i = 0; i < 200; ++i) {
        const VAKDate day = randomDay(random);
        const int year = random.oneIn(10) ? -day.Years : day.Years;
        const int hour = random.whole(-30, 50), minute = random.whole(0, 59), second = random.whole(0, 59);
        digest.add(AstroGlobalFuncs::CalculateJulianDay(year, day.Months, day.Days, hour, minute, second));
        digest.add(calendar::CalculateJulianDay(year, day.Months, day.Days, hour, minute, second));
        // The table of Hijri months, its edges, and whole seconds and minutes, where truncation is most delicate.
        double julianDay = random.between(2454600.0, 2470000.0);
        if (random.oneIn(3)) julianDay = std::floor(julianDay) + random.whole(0, 86400) / 86400.0;
        digest.add(calendar::JulianToHijri(julianDay));
        digest.add(calendar::JulianToGregorian(julianDay));
        VAKDate hijri;
        hijri.Years = random.whole(1428, 1473);
        hijri.Months = random.whole(0, 13);
        hijri.Days = random.whole(1, 30);
        digest.add(calendar::HijriDateToJulian(hijri));
        const double number = random.between(-1e3, 1e3) * (random.oneIn(20) ? 1e20 : 1.0);
        digest.add(AstroGlobalFuncs::frac(number));
        int h = 0, m = 0, s = 0;
        AstroGlobalFuncs::ToHMS(number, h, m, s);
        for (const int part : {h, m, s}) digest.add(part);
    }
}

void magneticField(RandomNumbers& random, Digest& digest) {
    MagneticVariation field;
    for (int i = 0; i < 20; ++i) {
        const RandomPlace place = randomPlace(random);
        const VAKDate day = randomDay(random);
        const double height = random.between(-100.0, 9000.0), radius = random.between(6000.0, 7000.0);
        const int coordinates = random.whole(1, 2), degree = random.whole(1, 14), target = random.whole(3, 4);
        digest.add(
            field.getMagneticVariation(day.Days, day.Months, day.Years, place.latitude, place.longitude, height));
        for (const double value : {field.iDeclination(), field.iInclination(), field.iHorizontalIntensity(),
                                   field.iTotalIntensity(), field.iDeclinationTemp(), field.iInclinationTemp(),
                                   field.iHorizontalIntensityTemp(), field.iTotalIntensityTemp()}) {
            digest.add(value);
        }
        const FieldComponents parts =
            field.SHVAL3(coordinates, degree, target, place.latitude, place.longitude, radius);
        for (const double value : {parts.north, parts.east, parts.down}) digest.add(value);
    }
}

struct Kind {
    const char* name;
    Compute compute;
    int blocks, perBlock;
};

constexpr Kind kinds[] = {
    {"fresh-day", freshDay, 240, 100},         {"kept-days", keptDays, 20, 10},
    {"kept-places", keptPlaces, 20, 10},       {"mixed-operations", mixedOperations, 40, 10},
    {"crescent-dates", crescentDates, 10, 10}, {"calendars", calendars, 20, 5},
    {"magnetic-field", magneticField, 20, 5},
};

std::string hexadecimal(std::uint64_t value) {
    constexpr char digits[] = "0123456789abcdef";
    std::string text(16, '0');
    for (auto digit = text.rbegin(); digit != text.rend(); ++digit, value >>= 4) *digit = digits[value & 15];
    return text;
}

}  // namespace

std::vector<BitBlock> engineBits() {
    std::vector<BitBlock> blocks;
    std::uint64_t seed = 0;
    for (const Kind& kind : kinds) {
        for (int block = 0; block < kind.blocks; ++block) {
            RandomNumbers random(++seed * 1000003);
            Digest digest;
            for (int i = 0; i < kind.perBlock; ++i) kind.compute(random, digest);
            blocks.push_back({std::string(kind.name).append("-").append(std::to_string(block)), digest.sum()});
        }
    }
    return blocks;
}

std::uint64_t mathsLibraryBits() {
    RandomNumbers random(20260214);
    Digest digest;
    for (int i = 0; i < 20000; ++i) {
        const double x = random.between(-1000.0, 1000.0), unit = random.between(-1.0, 1.0);
        const double y = random.between(-3.0, 3.0);
        for (const double value : {std::sin(x), std::cos(x), std::tan(x), std::asin(unit), std::acos(unit),
                                   std::atan(x), std::atan2(y, unit), std::pow(1.0 + unit * 0.02, 10 + y)}) {
            digest.add(value);
        }
        const auto single = static_cast<float>(x);
        for (const float value : {std::sin(single), std::cos(single), std::atan2(static_cast<float>(y), single)}) {
            digest.add(static_cast<double>(value));
        }
    }
    return digest.sum();
}

std::string textOf(const BitFile& file) {
    std::string text = "maths " + hexadecimal(file.maths) + "\n";
    for (const BitBlock& block : file.blocks) text += block.name + " " + hexadecimal(block.checksum) + "\n";
    return text;
}

BitFile bitFileOf(const std::string& text) {
    BitFile file;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (line.empty() || line.front() == '#') continue;
        const std::size_t blank = line.find(' ');
        const std::uint64_t sum = std::stoull(line.substr(blank + 1), nullptr, 16);
        const std::string name = line.substr(0, blank);
        if (name == "maths") {
            file.maths = sum;
        } else {
            file.blocks.push_back({name, sum});
        }
    }
    return file;
}

}  // namespace quode::test
