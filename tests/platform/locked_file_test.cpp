// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "platform/LockedFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <utility>

#include "support/temporary_folder.h"

namespace quode::test {
namespace {

using std::chrono::milliseconds;
using Result = LockedFile::Result;

class LockedFileTest : public testing::Test {
  protected:
    TemporaryFolder folder;
    std::filesystem::path path = folder.path() / "lock";
};

TEST_F(LockedFileTest, HasOneHolderAtATime) {
    LockedFile second = LockedFile::file(path);
    {
        LockedFile first = LockedFile::file(path);
        EXPECT_EQ(first.lock(milliseconds(0)), Result::locked);
        EXPECT_EQ(second.lock(milliseconds(10)), Result::busy);
        EXPECT_TRUE(second.isLockedByOther());
    }
    EXPECT_FALSE(second.isLockedByOther());
    EXPECT_EQ(second.lock(std::nullopt), Result::locked);
}

TEST_F(LockedFileTest, MovesWithItsLock) {
    LockedFile first = LockedFile::file(path), second = LockedFile::file(path);
    EXPECT_EQ(first.lock(milliseconds(0)), Result::locked);
    LockedFile moved = std::move(first);
    EXPECT_EQ(second.lock(milliseconds(0)), Result::busy);
    moved = {};
    EXPECT_FALSE(moved.isOpen());
    EXPECT_EQ(second.lock(milliseconds(0)), Result::locked);
}

TEST_F(LockedFileTest, LocksAFolder) {
    LockedFile first = LockedFile::folder(folder.path()), second = LockedFile::folder(folder.path());
    EXPECT_EQ(first.lock(std::nullopt), Result::locked);
    EXPECT_EQ(second.lock(milliseconds(0)), Result::busy);
}

TEST_F(LockedFileTest, CreatesAPrivateRegularFile) {
    const LockedFile file = LockedFile::file(path);
    ASSERT_TRUE(file.isOpen());
    EXPECT_TRUE(file.isRegularFile());
    EXPECT_EQ(std::filesystem::status(path).permissions(), std::filesystem::perms(0600));
}

TEST_F(LockedFileTest, NeitherWaitsForAPipeNorFollowsALink) {
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    EXPECT_FALSE(LockedFile::file(path).isRegularFile());
    std::filesystem::create_symlink(folder.path() / "other", folder.path() / "link");
    EXPECT_FALSE(LockedFile::file(folder.path() / "link").isOpen());
    EXPECT_FALSE(LockedFile::folder(folder.path() / "missing").isOpen());
}

}  // namespace
}  // namespace quode::test
