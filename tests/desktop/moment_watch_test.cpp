// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "desktop/MomentWatch.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <fstream>

#include "platform/system_platform.h"
#include "support/fake_platform.h"
#include "support/temporary_folder.h"

namespace quode::test {
namespace {

using namespace std::chrono_literals;

constexpr int aMoment = 100;  // ms in which nothing happens

class Watch : public testing::Test {
  protected:
    void write(const std::string& name) { std::ofstream(folder.path() / name) << "x"; }

    TemporaryFolder folder;
    std::shared_ptr<Clock> clock = systemClock();
    std::unique_ptr<MomentWatch> watch = systemMomentWatch(*clock, {folder.path() / "zone"});
    QSignalSpy happened{watch.get(), &MomentWatch::happened};
};

TEST_F(Watch, TellsThatTheMomentHasCome) {
    const auto wanted = std::chrono::ceil<std::chrono::seconds>(clock->now() + 100ms);
    watch->watchFor(wanted);
    ASSERT_TRUE(happened.wait(3000));
    EXPECT_GE(clock->now(), wanted);
    EXPECT_EQ(happened.count(), 1);
}

TEST_F(Watch, TellsAtOnceThatAMomentHasPassed) {
    watch->watchFor(clock->now() - 24h);
    EXPECT_TRUE(happened.wait(1000));
    watch->watchFor(Clock::TimePoint(24h));
    EXPECT_TRUE(happened.wait(1000));
}

TEST_F(Watch, TellsThatAFileWasWrittenOrReplaced) {
    watch->watchFor(clock->now() + 24h);
    write("zone");
    EXPECT_TRUE(happened.wait(1000));
    write("new");
    EXPECT_FALSE(happened.wait(aMoment));
    std::filesystem::rename(folder.path() / "new", folder.path() / "zone");
    EXPECT_TRUE(happened.wait(1000));
    std::filesystem::remove(folder.path() / "zone");
    std::filesystem::create_symlink("/etc/hostname", folder.path() / "zone");
    EXPECT_TRUE(happened.wait(1000));
}

TEST_F(Watch, TellsThatAFolderWasDeletedAndOfFilesInTheOneMadeInstead) {
    const auto file = folder.path() / "inner" / "zone";
    std::filesystem::create_directory(file.parent_path());
    const auto inner = systemMomentWatch(*clock, {folder.path() / "zone", file});
    QSignalSpy told(inner.get(), &MomentWatch::happened);
    inner->watchFor(clock->now() + 24h);
    std::filesystem::remove(file.parent_path());
    EXPECT_TRUE(told.wait(1000));
    std::filesystem::create_directory(file.parent_path());
    inner->watchFor(clock->now() + 24h);
    EXPECT_FALSE(told.wait(aMoment));
    std::ofstream(file) << "x";
    EXPECT_TRUE(told.wait(1000));
}

TEST_F(Watch, IsSilentWhenAFileIsOnlyOpened) {
    write("zone");
    watch->watchFor(clock->now() + 24h);
    std::fstream(folder.path() / "zone", std::ios::in | std::ios::out).peek();
    EXPECT_FALSE(happened.wait(aMoment));
}

TEST_F(Watch, IsSilentWithoutAMoment) {
    watch->watchFor(clock->now() + 1s);
    watch->watchFor(std::nullopt);
    write("zone");
    EXPECT_FALSE(happened.wait(1200));
    watch->watchFor(clock->now() + 24h);
    write("zone");
    EXPECT_TRUE(happened.wait(1000));
}

TEST(WatchByAStoppedClock, WaitsAsLongAsIfTheClockWentOn) {
    FixedClock clock;
    clock.show(2001, 1, 1, 0, 0, 0);
    const auto watch = systemMomentWatch(clock, {});
    QSignalSpy happened(watch.get(), &MomentWatch::happened);
    watch->watchFor(clock.now() + 1h);
    EXPECT_FALSE(happened.wait(aMoment));
    watch->watchFor(clock.now() + 1s);
    EXPECT_TRUE(happened.wait(3000));
}

TEST(WatchOfNothing, DoesWithoutFoldersThatAreMissing) {
    const auto clock = systemClock();
    const auto watch = systemMomentWatch(*clock, {"/nowhere/at/all"});
    QSignalSpy happened(watch.get(), &MomentWatch::happened);
    watch->watchFor(clock->now());
    EXPECT_TRUE(happened.wait(2000));
}

}  // namespace
}  // namespace quode::test
