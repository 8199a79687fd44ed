// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The real files, in a temporary folder.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <iterator>
#include <string>

#include "common/GlobalFuncs.h"
#include "platform/system_platform.h"
#include "support/fake_platform.h"
#include "support/temporary_folder.h"

namespace quode {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

class PosixFilesInAFolder : public testing::Test {
  protected:
    test::TemporaryFolder temporary;
    fs::path folder = temporary.path();
    std::shared_ptr<Files> files = posixFiles();

    std::ptrdiff_t entries() const { return std::distance(fs::directory_iterator(folder), fs::directory_iterator()); }
};

TEST_F(PosixFilesInAFolder, AppendAndRead) {
    files->append(folder / "log.txt", "one\n");
    files->append(folder / "log.txt", "two\n");
    EXPECT_EQ(files->read(folder / "log.txt"), "one\ntwo\n");
    const std::string large(100000, 'x');
    files->append(folder / "large", large);
    EXPECT_EQ(files->read(folder / "large"), large);
}

TEST_F(PosixFilesInAFolder, ReplaceAFileAndLeaveNothingBeside) {
    files->write(folder / "a", "first");
    fs::permissions(folder / "a", fs::perms(0600));
    files->write(folder / "a", std::string("sec\0nd", 6));
    EXPECT_EQ(files->read(folder / "a"), std::string("sec\0nd", 6));
    EXPECT_EQ(fs::status(folder / "a").permissions(), fs::perms(0600));
    EXPECT_EQ(entries(), 1);
}

TEST_F(PosixFilesInAFolder, WriteThroughALink) {
    files->write(folder / "a", "first");
    fs::create_symlink("a", folder / "link");
    files->write(folder / "link", "second");
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(files->read(folder / "a"), "second");
}

TEST_F(PosixFilesInAFolder, KeepANewFileToTheUserAlone) {
    const mode_t mask = umask(027);
    files->write(folder / "a", "");
    umask(mask);
    EXPECT_EQ(fs::status(folder / "a").permissions(), fs::perms(0600));
}

TEST_F(PosixFilesInAFolder, KeepTheOldFileWhenItCannotBeReplaced) {
    fs::create_directory(folder / "a");
    files->append(folder / "a" / "inside", "kept");
    EXPECT_THROW(files->write(folder / "a", "new"), std::system_error);
    EXPECT_EQ(files->read(folder / "a" / "inside"), "kept");
    EXPECT_EQ(entries(), 1);
}

TEST_F(PosixFilesInAFolder, DeleteAFile) {
    files->write(folder / "a", "");
    EXPECT_TRUE(files->exists(folder / "a"));
    EXPECT_TRUE(files->deletable(folder / "a"));
    files->remove(folder / "a");
    EXPECT_FALSE(files->exists(folder / "a"));
    EXPECT_FALSE(files->deletable(folder / "a"));
}

TEST_F(PosixFilesInAFolder, TakeNoFolderForAFileToDelete) {
    EXPECT_FALSE(files->deletable(folder));
}

TEST_F(PosixFilesInAFolder, CreateFoldersTwice) {
    files->createFolders(folder / "a/b/c");
    files->createFolders(folder / "a/b/c");
    EXPECT_TRUE(fs::is_directory(folder / "a/b/c"));
    EXPECT_TRUE(files->writable(folder / "a/b/c"));
}

TEST_F(PosixFilesInAFolder, NameThePathOfAFailure) {
    const auto messageOf = [](const auto& operation) {
        try {
            operation();
            return std::string();
        } catch (const std::system_error& error) {
            return std::string(error.what());
        }
    };
    const fs::path missing = folder / "none" / "file";
    EXPECT_THAT(messageOf([&] { files->read(missing); }), HasSubstr(missing.string()));
    EXPECT_THAT(messageOf([&] { files->append(missing, ""); }), HasSubstr(missing.string()));
    EXPECT_THAT(messageOf([&] { files->write(missing, ""); }), HasSubstr(missing.string()));
    EXPECT_THAT(messageOf([&] { files->remove(missing); }), HasSubstr(missing.string()));
    EXPECT_THAT(messageOf([&] { files->read(folder); }), HasSubstr(folder.string()));
    EXPECT_FALSE(files->writable(missing));
}

class ServicesOnRealFiles : public PosixFilesInAFolder {
  protected:
    test::FakePlatform fake;

    GlobalFuncs& startedIn(const fs::path& dataFolder) {
        Platform platform = fake.platform();
        platform.files = files;
        platform.dataFolder = dataFolder.string();
        return GlobalFuncs::startUp(platform);
    }
};

TEST_F(ServicesOnRealFiles, MakeTheDataFolderAndLogThere) {
    fake.clock->show(2024, 3, 31, 9, 5, 3);
    GlobalFuncs& services = startedIn(folder / "a/Quode");
    EXPECT_EQ(services.dataFolderProblem(), std::nullopt);
    services.NSLogToFile("hello");
    EXPECT_EQ(files->read(folder / "a/Quode/QuodeLog.txt"), "[09:05:03] hello\n");
    services.deleteFileOnMobilePath("QuodeLog.txt");
    EXPECT_FALSE(files->exists(folder / "a/Quode/QuodeLog.txt"));
}

TEST_F(ServicesOnRealFiles, WorkWithoutADataFolder) {
    files->write(folder / "file", "");
    for (const fs::path& impossible : {folder / "file", folder / "file/Quode", fs::path("/proc/Quode")}) {
        GlobalFuncs& services = startedIn(impossible);
        ASSERT_TRUE(services.dataFolderProblem()) << impossible;
        EXPECT_THAT(*services.dataFolderProblem(), HasSubstr(impossible.string()));
        EXPECT_NO_THROW(services.NSLogToFile("lost"));
        services.deleteFileOnMobilePath("x");
        EXPECT_EQ(services.timeLeadingZero(13, 5), "13:05");
    }
    EXPECT_EQ(files->read(folder / "file"), "");
}

}  // namespace
}  // namespace quode
