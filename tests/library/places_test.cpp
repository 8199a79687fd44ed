// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Places as programs find them, and what they learn when that fails.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <quode/quode.h>

#include <cmath>
#include <functional>

namespace {

using testing::HasSubstr;

quode_status statusOf(const std::function<void()>& work) {
    try {
        work();
        return QUODE_OK;
    } catch (const quode::Error& error) {
        return error.status();
    }
}

std::string messageOf(const std::function<void()>& work) {
    try {
        work();
        return "";
    } catch (const quode::Error& error) {
        return error.what();
    }
}

TEST(LibraryPlaces, AreFoundByNameCountryAndCoordinates) {
    const quode::Database database;
    const quode::Place london = database.find("london");
    EXPECT_EQ(london.name(), "London");
    EXPECT_EQ(london.country(), "GB");
    EXPECT_EQ(london.zone(), "Europe/London");
    EXPECT_EQ(london.method(), "quode");
    EXPECT_NEAR(london.latitude(), 51.5, 0.1);
    EXPECT_EQ(database.find("London, CA").zone(), "America/Toronto");
    EXPECT_EQ(database.byId(london.id()).name(), "London");
    EXPECT_EQ(database.nearest(21.42, 39.83).country(), "SA");
    EXPECT_THAT(std::string(database.edition()), HasSubstr("zones 20"));
}

TEST(LibraryPlaces, AreFoundInTheDatabaseOfAnotherFolder) {
    EXPECT_EQ(quode::Database(QUODE_BUNDLE).find("Cairo").country(), "EG");
    EXPECT_EQ(statusOf([] { quode::Database("/nonexistent"); }), QUODE_NO_DATA);
    EXPECT_THAT(messageOf([] { quode::Database("/nonexistent"); }), HasSubstr("Install Quode again."));
}

TEST(LibraryPlaces, ForgiveATypingMistakeInASearch) {
    const std::vector<quode::Place> found = quode::searchPlaces("Lodnon", 3);
    ASSERT_FALSE(found.empty());
    EXPECT_EQ(found.front().name(), "London");
    EXPECT_TRUE(quode::searchPlaces("--").empty());
    EXPECT_TRUE(quode::searchPlaces("London", 0).empty());
}

TEST(LibraryPlaces, UnknownOnesAreRefusedWithProposals) {
    EXPECT_EQ(statusOf([] { quode::findPlace("Lodnon"); }), QUODE_NOT_FOUND);
    EXPECT_THAT(messageOf([] { quode::findPlace("Lodnon"); }), HasSubstr("London (GB"));
    EXPECT_EQ(statusOf([] { quode::findPlace(""); }), QUODE_BAD_ARGUMENT);
    EXPECT_EQ(statusOf([] { quode::Database().byId(-5); }), QUODE_NOT_FOUND);
}

TEST(LibraryPlaces, APointHasTheClockOfItsZoneOrOfTheNearestPlace) {
    EXPECT_EQ(quode::placeAt(51.5, -0.1).zone(), "Europe/London");
    EXPECT_EQ(quode::placeAt(51.5, -0.1, "Asia/Tokyo").zone(), "Asia/Tokyo");
    EXPECT_EQ(quode::placeAt(51.5, -0.1, "UTC").zone(), "UTC");
    EXPECT_EQ(quode::placeAt(51.5, -0.1).id(), 0);
    EXPECT_EQ(statusOf([] { quode::placeAt(51.5, -0.1, "Europe/Nowhere"); }), QUODE_BAD_ARGUMENT);
    EXPECT_EQ(statusOf([] { quode::placeAt(90.1, 0.0); }), QUODE_BAD_ARGUMENT);
    EXPECT_EQ(statusOf([] { quode::placeAt(0.0, std::nan("")); }), QUODE_BAD_ARGUMENT);
}

TEST(LibraryPlaces, TakeAMethodAndStayAsTheyWere) {
    const quode::Place london = quode::findPlace("London");
    EXPECT_EQ(london.withMethod("mwl asr=2").method(), "mwl asr=2");
    EXPECT_EQ(london.method(), "quode");
    EXPECT_THAT(messageOf([&] { london.withMethod("nobody"); }), HasSubstr("No method is called \"nobody\"."));
    EXPECT_THAT(messageOf([&] { london.withMethod("mwl asr=three"); }), HasSubstr("\"mwl asr=three\" cannot be used"));
    EXPECT_THAT(messageOf([&] { london.withMethod(""); }), HasSubstr("empty"));
}

TEST(LibraryMethods, AreListedWithTheDefaultFirst) {
    const std::vector<quode::MethodName> methods = quode::methods();
    ASSERT_GT(methods.size(), 10U);
    EXPECT_EQ(methods.front().key, "quode");
    const quode::Place mecca = quode::findPlace("Mecca");
    for (const quode::MethodName& method : methods) {
        EXPECT_EQ(mecca.withMethod(std::string(method.key)).method(), method.key);
        EXPECT_FALSE(method.name.empty());
    }
    EXPECT_EQ(quode_method_key(methods.size()), nullptr);
}

TEST(LibraryFailures, AreCutBetweenCharactersAndMayBeIgnored) {
    std::string name = "a";
    for (int i = 0; i < 400; ++i) name += "ş";
    quode_error error{};
    EXPECT_EQ(quode_place_find(nullptr, name.c_str(), &error), nullptr);
    const std::string message = error.message;
    EXPECT_GE(message.size(), sizeof error.message - 2);
    EXPECT_TRUE(message.ends_with("ş"));
    EXPECT_EQ(quode_place_find(nullptr, "Lodnon", nullptr), nullptr);
    EXPECT_EQ(quode_place_find(nullptr, nullptr, nullptr), nullptr);
}

}  // namespace
