// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "conventions/Method.h"

#include <gtest/gtest.h>

#include <set>

namespace quode::conventions {
namespace {

TEST(Conventions, haveAKeyAndASourceEach) {
    std::set<std::string_view> keys;
    for (const Convention& convention : allConventions()) {
        keys.insert(convention.key);
        EXPECT_FALSE(convention.source.empty()) << convention.key;
        EXPECT_FALSE(convention.authority.empty()) << convention.key;
    }
    EXPECT_EQ(keys.size(), allConventions().size());
    EXPECT_EQ(keys.size(), 27U);
    EXPECT_EQ(defaultConvention().key, "quode");
    EXPECT_EQ(defaultConvention().computation, Computation::engine);
}

TEST(Conventions, areFoundWhateverTheCase) {
    EXPECT_EQ(findConvention("Diyanet"), findConvention("diyanet"));
    EXPECT_EQ(findConvention("umm-al-qura")->rule(Prayer::isha).ramadanMinutes, 120.0);
    EXPECT_EQ(findConvention("nobody"), nullptr);
}

TEST(Conventions, nameTheUsualOneOfACountry) {
    EXPECT_EQ(usualIn("TR")->key, "diyanet");
    EXPECT_EQ(usualIn("MY")->key, "jakim");
    EXPECT_EQ(usualIn("PK")->key, "karachi");
    EXPECT_EQ(usualIn("JP"), nullptr);
    EXPECT_EQ(usualIn(""), nullptr);
}

TEST(Conventions, tellAnAuthorityOfTheCountryFromACalculationUsedThere) {
    for (const char* own : {"TR", "SA", "EG", "PK", "MY", "SG", "IR"}) {
        ASSERT_NE(usualIn(own), nullptr) << own;
        EXPECT_TRUE(isOfCountry(*usualIn(own), own)) << own;
    }
    for (const char* borrowed :
         {"LY", "SD", "SY", "LB", "IQ", "PS", "YE", "BH", "OM", "BD", "IN", "AF", "NP", "CY", "SE"}) {
        ASSERT_NE(usualIn(borrowed), nullptr) << borrowed;
        EXPECT_FALSE(isOfCountry(*usualIn(borrowed), borrowed)) << borrowed;
    }
}

TEST(Method, survivesItsText) {
    Method method;
    method.key = "diyanet";
    method.asrFactor = 2;
    method.fajrAngle = 18.5;
    method.highLatitude = HighLatitudeRule::oneSeventh;
    method.adjust = {2, 0, 0, 0, 0, -1};
    EXPECT_EQ(textOf(method), "diyanet asr=2 high-latitude=one-seventh fajr-angle=18.5 adjust=2,0,0,0,0,-1");
    EXPECT_EQ(methodOf(textOf(method)), method);
    EXPECT_EQ(methodOf("quode"), Method{});
}

TEST(Method, isRefusedWhereItMeansNothing) {
    for (const char* text : {"", "nobody", "diyanet asr=3", "diyanet fajr-angle=2", "diyanet adjust=1,2",
                             "diyanet adjust=500,0,0,0,0,0", "jakim zone=XYZ01", "diyanet zone=WLY01",
                             "quode fajr-angle=18", "diyanet height=nan", "diyanet surprise=1"}) {
        EXPECT_FALSE(methodOf(text)) << text;
    }
}

}  // namespace
}  // namespace quode::conventions
