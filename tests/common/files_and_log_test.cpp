// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "common/GlobalFuncs.h"
#include "support/fake_platform.h"

namespace quode {
namespace {

using test::FakePlatform;
using testing::HasSubstr;

class FilesOfTheServices : public testing::Test {
  protected:
    FakePlatform fake;

    GlobalFuncs& started() {
        GlobalFuncs& services = GlobalFuncs::startUp(fake.platform());
        services.setApplicationBundlePath("/bundle");
        return services;
    }

    std::string log() const { return fake.files->contents["/data/QuodeLog.txt"]; }
};

TEST_F(FilesOfTheServices, LogALineWithTheTimeOfDay) {
    fake.clock->show(2024, 3, 31, 9, 5, 3);
    GlobalFuncs& services = started();
    services.NSLogToFile("Şehir seçildi");
    EXPECT_EQ(log(), "[09:05:03] Şehir seçildi\n");
    services.setDebugState(0);
    services.NSLogToFile("second");
    EXPECT_EQ(log(), "[09:05:03] Şehir seçildi\n[09:05:03] second\n");
}

TEST_F(FilesOfTheServices, LogNumbersBehindAText) {
    fake.clock->show(2024, 3, 31, 0, 0, 0);
    GlobalFuncs& services = started();
    services.NSLogToFileStrInt("a", -5);
    services.NSLogToFileStrIntInt("b", 1, 2);
    services.NSLogToFileStrFloat("c", 0.1);
    services.NSLogToFileStrFloatFloat("d", 1e3, -2.5);
    EXPECT_EQ(log(),
              "[00:00:00] a -5\n[00:00:00] b 1, 2\n[00:00:00] c 0.100000\n[00:00:00] d 1000.000000, -2.500000\n");
}

TEST_F(FilesOfTheServices, LoseALogLineThatCannotBeWritten) {
    GlobalFuncs& services = started();
    fake.files->broken = true;
    EXPECT_NO_THROW(services.NSLogToFile("lost"));
    fake.files->broken = false;
    EXPECT_EQ(log(), "");
}

TEST_F(FilesOfTheServices, HaveNoProblemWithAGoodDataFolder) {
    EXPECT_EQ(started().dataFolderProblem(), std::nullopt);
    EXPECT_EQ(started().dataFolder(), "/data");
}

TEST_F(FilesOfTheServices, TellOfADataFolderThatCannotBeWritten) {
    fake.files->readOnly = true;
    GlobalFuncs& services = started();
    ASSERT_TRUE(services.dataFolderProblem());
    EXPECT_THAT(*services.dataFolderProblem(), HasSubstr("/data"));
    EXPECT_THAT(*services.dataFolderProblem(), HasSubstr("QUODE_DATA_DIR"));
    EXPECT_EQ(services.timeLeadingZero(13, 5), "13:05");
}

TEST_F(FilesOfTheServices, TellOfADataFolderThatCannotBeMade) {
    fake.files->broken = true;
    GlobalFuncs& services = started();
    ASSERT_TRUE(services.dataFolderProblem());
    EXPECT_THAT(*services.dataFolderProblem(), HasSubstr("/data"));
    EXPECT_EQ(services.timeLeadingZero(13, 5), "13:05");
}

TEST_F(FilesOfTheServices, FindFilesAndLogAFailure) {
    GlobalFuncs& services = started();
    fake.files->contents["/a"] = "";
    EXPECT_TRUE(services.fileExists("/a"));
    EXPECT_FALSE(services.fileExists("/b"));

    class FailingFiles : public test::MemoryFiles {
      public:
        bool exists(const std::filesystem::path&) const override { throw std::runtime_error("no answer"); }
    };
    auto failing = std::make_shared<FailingFiles>();
    fake.files = failing;
    EXPECT_FALSE(started().fileExists("/a"));
    EXPECT_THAT(log(), HasSubstr("no answer"));
}

TEST_F(FilesOfTheServices, DeleteAFileOfTheDataFolder) {
    GlobalFuncs& services = started();
    fake.files->contents["/data/old.txt"] = "x";
    fake.files->contents["/old.txt"] = "x";
    services.deleteFileOnMobilePath("old.txt");
    EXPECT_FALSE(fake.files->contents.contains("/data/old.txt"));
    EXPECT_TRUE(fake.files->contents.contains("/old.txt"));
    EXPECT_FALSE(fake.files->contents.contains("/data/QuodeLog.txt"));
}

TEST_F(FilesOfTheServices, LeaveAFileThatMayNotBeDeletedSilently) {
    GlobalFuncs& services = started();
    fake.files->contents["/data/old.txt"] = "x";
    fake.files->undeletable = true;
    services.deleteFileOnMobilePath("old.txt");
    services.deleteFileOnMobilePath("missing.txt");
    EXPECT_TRUE(fake.files->contents.contains("/data/old.txt"));
    EXPECT_FALSE(fake.files->contents.contains("/data/QuodeLog.txt"));
}

TEST_F(FilesOfTheServices, LogADeletionThatFails) {
    class StubbornFiles : public test::MemoryFiles {
      public:
        void remove(const std::filesystem::path&) override { throw std::runtime_error("it resists"); }
    };
    fake.files = std::make_shared<StubbornFiles>();
    fake.files->contents["/data/old.txt"] = "x";
    started().deleteFileOnMobilePath("old.txt");
    EXPECT_THAT(log(), HasSubstr("] Error removing file at path: it resists\n"));
}

TEST_F(FilesOfTheServices, NameTheImagesOfASharpScreen) {
    GlobalFuncs& services = started();
    EXPECT_EQ(services.getImagePathOnRoot("icon"), "/bundle/icon@2x.png");
    EXPECT_EQ(services.getImagePathOnImages("dial"), "/bundle/images/dial@2x.png");
    EXPECT_EQ(services.getImagePathWithout2X("dial"), "/bundle/images/dial.png");
}

TEST_F(FilesOfTheServices, NameTheImagesOfAPlainScreen) {
    fake.device->scale = 1.0;
    GlobalFuncs& services = started();
    EXPECT_EQ(services.getImagePathOnRoot("icon"), "/bundle/icon.png");
    EXPECT_EQ(services.getImagePathOnImages("dial"), "/bundle/images/dial.png");
}

TEST_F(FilesOfTheServices, NameNoSharpImagesBelowVersionFour) {
    fake.device->version = "3.2";
    EXPECT_EQ(started().getImagePathOnRoot("icon"), "/bundle/icon.png");
    fake.device->version = "4.0";
    EXPECT_EQ(started().getImagePathOnRoot("icon"), "/bundle/icon@2x.png");
}

TEST_F(FilesOfTheServices, PreferTheImagesOfATabletWhereThereAreAny) {
    fake.device->kind = Idiom::tablet;
    GlobalFuncs& services = started();
    fake.files->contents["/bundle/images/dialiPad@2x.png"] = "";
    fake.files->contents["/bundle/images/dialiPad.png"] = "";
    EXPECT_EQ(services.getImagePathOnImages("dial"), "/bundle/images/dialiPad@2x.png");
    EXPECT_EQ(services.getImagePathOnImages("arrow"), "/bundle/images/arrow@2x.png");
    fake.device->scale = 1.0;
    EXPECT_EQ(services.getImagePathOnImages("dial"), "/bundle/images/dialiPad.png");
    EXPECT_EQ(services.getImagePathOnImages("arrow"), "/bundle/images/arrow.png");
    EXPECT_EQ(services.getImagePathOnRoot("dial"), "/bundle/dial.png");
}

TEST_F(FilesOfTheServices, UseTheImagesOfAPhoneOnAPhone) {
    GlobalFuncs& services = started();
    fake.files->contents["/bundle/images/dialiPad@2x.png"] = "";
    EXPECT_EQ(services.getImagePathOnImages("dial"), "/bundle/images/dial@2x.png");
}

}  // namespace
}  // namespace quode
