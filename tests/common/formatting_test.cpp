// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "common/formatting.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "support/vectors.h"

namespace quode::formatting {
namespace {

using test::Vector;
using test::vectorsOf;

const ClockConvention hours24{true, "am", "pm"};
const ClockConvention hours12{false, "am", "pm"};

const std::vector<double> strangeNumbers{
    std::nan(""), std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(), 1e300, -1e300, 3e9,
    -3e9};

TEST(ClockText, RoundsUpOnlyAfterThirtySeconds) {
    EXPECT_EQ(timeLeadingZero(23.9999, hours24), "00:00");
    EXPECT_EQ(timeLeadingZero(12.50875, hours24), "12:31");
    EXPECT_EQ(timeLeadingZero(12.0 + 30.0 / 60.0 + 31.0 / 3600.0, hours24), "12:30");
    EXPECT_EQ(timeLeadingZero(12.0 + 30.0 / 60.0 + 30.0 / 3600.0, hours24), "12:30");
}

TEST(ClockText, CarriesTheMinuteIntoTheHour) {
    EXPECT_EQ(timeLeadingZero(9.0 + 59.8 / 60.0, hours24), "10:00");
    EXPECT_EQ(timeLeadingZero(22.0 + 59.8 / 60.0, hours24), "23:00");
}

TEST(ClockText, TakesOneDayOffWhatIsPastMidnight) {
    EXPECT_EQ(timeLeadingZero(24.0, hours24), "00:00");
    EXPECT_EQ(timeLeadingZero(25.5, hours24), "01:30");
    EXPECT_EQ(timeLeadingZero(49.5, hours24), "25:30");
}

TEST(ClockText, KeepsTheHourZeroInTheTwelveHourClock) {
    EXPECT_EQ(timeLeadingZero(0, 5, hours12), "00:05 am");
    EXPECT_EQ(timeLeadingZero(11, 59, hours12), "11:59 am");
    EXPECT_EQ(timeLeadingZero(12, 5, hours12), "12:05 pm");
    EXPECT_EQ(timeLeadingZero(13, 5, hours12), "01:05 pm");
    EXPECT_EQ(timeLeadingZero(0.25, hours12), "00:15 am");
}

TEST(ClockText, OfWhatIsNoTimeIsDashes) {
    for (const double hours : strangeNumbers) EXPECT_EQ(timeLeadingZero(hours, hours24), "--:--") << hours;
}

TEST(ClockText, MeetsTheReferenceValues) {
    for (const Vector& v : vectorsOf("calendar", "timeLeadingZero:")) {
        const ClockConvention convention{v.in.at(1) != 0.0, v.inTexts.at(2), v.inTexts.at(3)};
        EXPECT_EQ(timeLeadingZero(v.in[0], convention), v.outTexts.at(0)) << v.describe();
    }
    for (const Vector& v : vectorsOf("calendar", "timeLeadingZero::")) {
        const ClockConvention convention{v.in.at(2) != 0.0, v.inTexts.at(3), v.inTexts.at(4)};
        EXPECT_EQ(timeLeadingZero(int(v.in[0]), int(v.in[1]), convention), v.outTexts.at(0)) << v.describe();
    }
    for (const Vector& v : vectorsOf("calendar", "timeLeadingZeroWithSeconds")) {
        EXPECT_EQ(timeLeadingZeroWithSeconds(int(v.in[0]), int(v.in[1]), int(v.in[2])), v.outTexts.at(0))
            << v.describe();
    }
}

TEST(ZoneText, ShowsSignOffsetAndSun) {
    EXPECT_EQ(GetGMTValueStr(false, 5.5), "(+) 05:30");
    EXPECT_EQ(GetGMTValueStr(false, -3.5), "(-) 03:30");
    EXPECT_EQ(GetGMTValueStr(true, 3.0), "(+) 03:00 \u2600");
    EXPECT_EQ(GetGMTValueStr(false, 0.0), "(+) 00:00");
    for (const Vector& v : vectorsOf("calendar", "GetGMTValueStr")) {
        EXPECT_EQ(GetGMTValueStr(v.in.at(0) != 0.0, v.in.at(1)), v.outTexts.at(0)) << v.describe();
    }
}

TEST(ZoneText, OfWhatIsNoOffsetIsDashes) {
    for (const double offset : strangeNumbers) {
        EXPECT_EQ(GetGMTValueStr(false, offset), offset < 0.0 ? "(-) --:--" : "(+) --:--");
    }
}

TEST(SignedAngleText, NeverCarriesIntoTheDegree) {
    EXPECT_EQ(getDegMinStrWithMinusPlus(10.9999), "+10\u00B059'");
    EXPECT_EQ(getDegMinStrWithMinusPlus(0.0), "+0\u00B00'");
    EXPECT_EQ(getDegMinStrWithMinusPlus(-5.0 - 7.5 / 60.0), "-5\u00B08'");
    for (const Vector& v : vectorsOf("calendar", "getDegMinStrWithMinusPlus")) {
        EXPECT_EQ(getDegMinStrWithMinusPlus(v.in.at(0)), v.outTexts.at(0)) << v.describe();
    }
}

TEST(QiblaText, CountsPositiveAnglesTheOtherWayRound) {
    EXPECT_EQ(getQiblaAngleStr(90.0), "270\u00B000'");
    EXPECT_EQ(getQiblaAngleStr(-45.0), "45\u00B000'");
    EXPECT_EQ(getQiblaAngleStr(0.0), "00\u00B000'");
    EXPECT_EQ(getQiblaAngleStr(-5.999), "05\u00B059'");
    for (const Vector& v : vectorsOf("calendar", "getQiblaAngleStr")) {
        EXPECT_EQ(getQiblaAngleStr(v.in.at(0)), v.outTexts.at(0)) << v.describe();
    }
}

TEST(AngleTexts, OfWhatIsNoAngleAreDashes) {
    for (const double angle : strangeNumbers) {
        EXPECT_EQ(getDegMinStrWithMinusPlus(angle), "--\u00B0--'") << angle;
        EXPECT_EQ(getQiblaAngleStr(angle), "--\u00B0--'") << angle;
    }
}

TEST(SexagesimalText, BecomesADecimal) {
    EXPECT_EQ(getFloatStr("41;30;36"), "41.510000");
    EXPECT_EQ(getFloatStr("-0;30;0"), "-0.500000");
    for (const Vector& v : vectorsOf("calendar", "getFloatStr")) {
        EXPECT_EQ(getFloatStr(v.inTexts.at(0)), v.outTexts.at(0)) << v.describe();
    }
}

TEST(SexagesimalText, DividesItsLastFieldBy3600) {
    EXPECT_EQ(getFloatStr("41;30"), "41.008333");  // 41 + 30/3600
    EXPECT_EQ(getFloatStr("36"), "0.010000");
    EXPECT_EQ(getFloatStr("1;30;30;36"), "2.010000");  // every middle field is divided by 60
}

TEST(SexagesimalText, KeepsSixDecimalsOfSeconds) {
    EXPECT_EQ(getFloatStr("52;31;27.6612"), "52.524350");
}

TEST(SexagesimalText, ReadsWhatIsNoNumberAsZero) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {"", "0.000000"},         {"x;y;z", "0.000000"},   {";;", "0.000000"},       {"41;x;36", "41.010000"},
        {" 41;0;0", "41.000000"}, {"nan;0;0", "0.000000"}, {"inf1;0;0", "0.000000"}, {"1e999;0;0", "0.000000"}};
    for (const auto& [text, expected] : cases) EXPECT_EQ(getFloatStr(text), expected) << text;
}

}  // namespace
}  // namespace quode::formatting
