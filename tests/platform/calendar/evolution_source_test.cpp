// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The description that makes GNOME's calendar server show Quode's file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "calendar_test_support.h"
#include "platform/evolution_source.h"

namespace quode::test {
namespace {

using testing::HasSubstr;

class EvolutionSourceTest : public testing::Test {
  protected:
    TemporaryFolder config;
    EvolutionSource source{config.path(), std::make_shared<UnsynchronisedCalls>()};
};

TEST_F(EvolutionSourceTest, NothingIsConnectedAtFirst) {
    EXPECT_FALSE(source.isConnected());
    EXPECT_FALSE(source.rings());
    EXPECT_TRUE(source.disconnect().ok);
}

TEST_F(EvolutionSourceTest, ConnectingDescribesTheFileReadOnlyAndWatched) {
    ASSERT_TRUE(source.connect("/home/ayşe d/Quode.ics", true).ok);
    const std::string text = contentOf(config.path() / "evolution" / "sources" / "quode.source");
    for (const std::string line : {"Parent=local-stub", "CustomFile=file:///home/ay%C5%9Fe%20d/Quode.ics", "Watch=true",
                                   "Writable=false", "BackendName=local", "IncludeMe=true"}) {
        EXPECT_THAT(text, HasSubstr("\n" + line + "\n"));
    }
    EXPECT_TRUE(source.isConnected());
    EXPECT_TRUE(source.rings());
}

TEST_F(EvolutionSourceTest, ItCanShowTheAlarmsWithoutRingingThem) {
    ASSERT_TRUE(source.connect("/a/Quode.ics", false).ok);
    EXPECT_TRUE(source.isConnected());
    EXPECT_FALSE(source.rings());
    ASSERT_TRUE(source.connect("/a/Quode.ics", true).ok);
    EXPECT_TRUE(source.rings());
}

TEST_F(EvolutionSourceTest, DisconnectingRemovesOurDescriptionAndNoOther) {
    ASSERT_TRUE(source.connect("/a/Quode.ics", true).ok);
    const auto other = config.path() / "evolution" / "sources" / "birthdays.source";
    write(other, "[Data Source]\n");
    ASSERT_TRUE(source.disconnect().ok);
    EXPECT_FALSE(source.isConnected());
    EXPECT_FALSE(std::filesystem::exists(source.descriptionFile()));
    EXPECT_EQ(contentOf(other), "[Data Source]\n");
}

TEST_F(EvolutionSourceTest, ConnectingAgainKeepsWhatTheServerAdded) {
    ASSERT_TRUE(source.connect("/a/Quode.ics", true).ok);
    const std::string withColour = contentOf(source.descriptionFile()) + "Color=#00ff00\n";
    write(source.descriptionFile(), withColour);
    ASSERT_TRUE(source.connect("/a/Quode.ics", true).ok);
    EXPECT_EQ(contentOf(source.descriptionFile()), withColour);
    ASSERT_TRUE(source.connect("/b/Quode.ics", true).ok);
    EXPECT_THAT(contentOf(source.descriptionFile()), HasSubstr("CustomFile=file:///b/Quode.ics\n"));
}

TEST_F(EvolutionSourceTest, ARelativePathIsRefused) {
    const FileOutcome outcome = source.connect("Quode.ics", true);
    EXPECT_FALSE(outcome.ok);
    EXPECT_THAT(outcome.message, HasSubstr("no absolute path"));
    EXPECT_FALSE(source.isConnected());
}

TEST_F(EvolutionSourceTest, AFolderThatCannotBeMadeIsReported) {
    write(config.path() / "evolution", "a file in the way");
    EXPECT_THAT(source.connect("/a/Quode.ics", true).message, HasSubstr("evolution"));
    EXPECT_FALSE(source.isConnected());
    EXPECT_EQ(contentOf(config.path() / "evolution"), "a file in the way");
}

}  // namespace
}  // namespace quode::test
