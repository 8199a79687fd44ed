// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "alarmd/InstanceLock.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/temporary_folder.h"

namespace quode::test {
namespace {

TEST(InstanceLock, IsHeldByOneAtATime) {
    const TemporaryFolder folder;
    {
        const InstanceLock first(folder.path());
        EXPECT_TRUE(first.isHeld());
        EXPECT_FALSE(InstanceLock(folder.path()).isHeld());
        EXPECT_TRUE(InstanceLock(folder.path() / "another").isHeld());
    }
    EXPECT_TRUE(InstanceLock(folder.path()).isHeld());
}

TEST(InstanceLock, EndsWithTheProcessHoweverItDies) {
    const TemporaryFolder folder;
    const pid_t child = fork();
    if (child == 0) {
        const InstanceLock lock(folder.path());
        kill(getpid(), SIGKILL);
    }
    waitpid(child, nullptr, 0);
    EXPECT_TRUE(InstanceLock(folder.path()).isHeld());
}

TEST(InstanceLock, IsNotCurrentOnceTheFolderWasDeletedAndMadeAgain) {
    const TemporaryFolder folder;
    const std::filesystem::path data = folder.path() / "data";
    InstanceLock first(data);
    EXPECT_TRUE(first.isCurrent());
    std::filesystem::remove_all(data);
    EXPECT_FALSE(first.isCurrent());
    {
        const InstanceLock second(data);
        EXPECT_TRUE(second.isHeld());
        EXPECT_FALSE(first.isCurrent());
        first.renew();
        EXPECT_FALSE(first.isHeld()) << "the other one serves it";
    }
    first.renew();
    EXPECT_TRUE(first.isHeld());
    EXPECT_TRUE(first.isCurrent());
}

}  // namespace
}  // namespace quode::test
