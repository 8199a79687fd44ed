// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "platform/folders.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "platform/system_platform.h"
#include "platform/zone_name.h"
#include "support/environment_of.h"
#include "support/scoped_variable.h"
#include "support/temporary_folder.h"

namespace quode {
namespace {

namespace fs = std::filesystem;
using test::environmentOf;

TEST(DataFolder, IsTheOneThatTheUserNamed) {
    EXPECT_EQ(dataFolderFrom(environmentOf({{"QUODE_DATA_DIR", "/q"}, {"XDG_DATA_HOME", "/x"}, {"HOME", "/h"}})), "/q");
}

TEST(DataFolder, IsElseInTheFolderForDataOfPrograms) {
    EXPECT_EQ(dataFolderFrom(environmentOf({{"XDG_DATA_HOME", "/x"}, {"HOME", "/h"}})), "/x/Quode");
    EXPECT_EQ(dataFolderFrom(environmentOf({{"QUODE_DATA_DIR", ""}, {"XDG_DATA_HOME", "/x"}})), "/x/Quode");
}

TEST(DataFolder, IsElseInTheHomeFolder) {
    EXPECT_EQ(dataFolderFrom(environmentOf({{"HOME", "/h"}})), "/h/.local/share/Quode");
    EXPECT_EQ(dataFolderFrom(environmentOf({{"XDG_DATA_HOME", ""}, {"HOME", "/h"}})), "/h/.local/share/Quode");
    EXPECT_EQ(dataFolderFrom(environmentOf({{"XDG_DATA_HOME", "relative"}, {"HOME", "/h"}})), "/h/.local/share/Quode");
}

TEST(DataFolder, IsThatOfTheAccountWithoutAHome) {
    const std::string ofAccount = std::string(getpwuid(getuid())->pw_dir) + "/.local/share/Quode";
    EXPECT_EQ(dataFolderFrom(environmentOf({})), ofAccount);
    EXPECT_EQ(dataFolderFrom(environmentOf({{"TMPDIR", "/t"}})), ofAccount) << "a shared folder will not do";
    EXPECT_EQ(dataFolderFrom(environmentOf({{"HOME", "relative"}})), ofAccount);
    EXPECT_EQ(dataFolderFrom(environmentOf({{"HOME", ""}})), ofAccount);
}

TEST(ConfigFolder, IsThatOfTheDesktopElseInTheHome) {
    EXPECT_EQ(configFolderFrom(environmentOf({{"XDG_CONFIG_HOME", "/c"}, {"HOME", "/h"}})), "/c");
    EXPECT_EQ(configFolderFrom(environmentOf({{"XDG_CONFIG_HOME", "c"}, {"HOME", "/h"}})), "/h/.config");
}

TEST(BundleFolder, IsTheOneThatTheUserNamed) {
    EXPECT_EQ(bundleFolderFrom(environmentOf({{"QUODE_BUNDLE_DIR", "/b"}}), "/usr/bin/quode"), "/b");
}

TEST(BundleFolder, IsElseBesideTheProgram) {
    EXPECT_EQ(bundleFolderFrom(environmentOf({}), "/usr/bin/quode"), "/usr/lib/quode/Quode.bundle");
    EXPECT_EQ(bundleFolderFrom(environmentOf({}), "/opt/q/bin/quode"), "/opt/q/lib/quode/Quode.bundle");
}

TEST(ExecutablePath, IsThatOfThisProgram) {
    EXPECT_TRUE(fs::is_regular_file(executablePath()));
    EXPECT_EQ(executablePath().filename(), "platform_system");
}

TEST(ProcessEnvironment, GivesWhatIsSet) {
    const test::ScopedVariable set("QUODE_TEST_SET", "x");
    const test::ScopedVariable empty("QUODE_TEST_EMPTY", "");
    const test::ScopedVariable missing("QUODE_TEST_MISSING", std::nullopt);
    const Environment environment = processEnvironment();
    EXPECT_EQ(environment("QUODE_TEST_SET"), "x");
    EXPECT_EQ(environment("QUODE_TEST_EMPTY"), "");
    EXPECT_EQ(environment("QUODE_TEST_MISSING"), std::nullopt);
    EXPECT_EQ(nonEmpty(environment, "QUODE_TEST_EMPTY"), std::nullopt);
}

TEST(SystemPlatform, IsComplete) {
    const test::ScopedVariable folder("QUODE_DATA_DIR", "/chosen");
    const Platform platform = systemPlatform("tr_TR");
    EXPECT_TRUE(platform.clock && platform.device && platform.files);
    EXPECT_EQ(platform.locale->monthName(8), "Ağustos");
    EXPECT_EQ(platform.dataFolder, "/chosen");
    EXPECT_EQ(platform.device->idiom(), Idiom::phone);
    EXPECT_GT(platform.device->screenBounds().width, 480.0);
    EXPECT_GT(platform.device->screenScale(), 0.0);
}

class ZoneName : public testing::Test {
  protected:
    ZoneName() {
        fs::create_directories(root / "etc");
        write("usr/share/zoneinfo/Asia/Kathmandu", "");
    }

    void write(const fs::path& path, const std::string& content) const {
        fs::create_directories((root / path).parent_path());
        std::ofstream(root / path) << content;
    }

    std::string nameWith(const std::string& value) const { return zoneNameFrom(environmentOf({{"TZ", value}}), root); }
    std::string name() const { return zoneNameFrom(environmentOf({}), root); }

    test::TemporaryFolder temporary;
    fs::path root = temporary.path();
};

TEST_F(ZoneName, ComesFromTheVariable) {
    EXPECT_EQ(nameWith("Asia/Kathmandu"), "Asia/Kathmandu");
    EXPECT_EQ(nameWith(":Asia/Kathmandu"), "Asia/Kathmandu");
    EXPECT_EQ(nameWith("/usr/share/zoneinfo/Asia/Kathmandu"), "Asia/Kathmandu");
    EXPECT_EQ(nameWith(""), "UTC");
}

TEST_F(ZoneName, ComesFromAPathThatTheVariableNames) {
    fs::create_symlink("/usr/share/zoneinfo/Europe/Istanbul", root / "etc/localtime");
    EXPECT_EQ(nameWith(":/etc/localtime"), "Europe/Istanbul");
    EXPECT_EQ(nameWith("/etc/localtime"), "Europe/Istanbul");
    EXPECT_EQ(nameWith(":/usr/share/zoneinfo/Asia/Kathmandu"), "Asia/Kathmandu");
    EXPECT_EQ(nameWith("/usr/share/zoneinfo/posix/Asia/Kathmandu"), "Asia/Kathmandu");
    EXPECT_EQ(nameWith("right/Asia/Kathmandu"), "Asia/Kathmandu");
    fs::create_symlink("/usr/share/zoneinfo/Asia/Kathmandu", root / "etc/home-zone");
    EXPECT_EQ(nameWith("/etc/home-zone"), "Asia/Kathmandu");
}

TEST_F(ZoneName, OfACopiedLocalTimeIsTheOneKeptBesideIt) {
    write("etc/localtime", "TZif");
    write("etc/timezone", "Europe/Paris\n");
    EXPECT_EQ(nameWith(":/etc/localtime"), "Europe/Paris");
}

TEST_F(ZoneName, IsEmptyForAPathThatLeadsElsewhere) {
    write("etc/passwd", "x");
    EXPECT_EQ(nameWith("/etc/passwd"), "");
    EXPECT_EQ(nameWith(":/etc/passwd"), "");
    EXPECT_EQ(nameWith("../../../etc/passwd"), "");
    EXPECT_EQ(nameWith("/usr/share/zoneinfo/../../../etc/passwd"), "");
    EXPECT_EQ(nameWith("/usr/share/zoneinfo/No/Such_Zone"), "");
}

TEST_F(ZoneName, IsEmptyForARuleWithoutAName) {
    EXPECT_EQ(nameWith("<+0545>-5:45"), "");
    EXPECT_EQ(nameWith("No/Such_Zone"), "");
    EXPECT_EQ(nameWith("Asia"), "");
}

TEST_F(ZoneName, ComesFromTheLinkOfTheSystem) {
    fs::create_symlink("/usr/share/zoneinfo/Asia/Kathmandu", root / "etc/localtime");
    EXPECT_EQ(name(), "Asia/Kathmandu");
    fs::remove(root / "etc/localtime");
    fs::create_symlink("../usr/share/zoneinfo/Europe/Istanbul", root / "etc/localtime");
    EXPECT_EQ(name(), "Europe/Istanbul");
}

TEST_F(ZoneName, ComesFromTheNameThatTheSystemKeepsBesideACopy) {
    write("etc/localtime", "TZif");
    EXPECT_EQ(name(), "");
    write("etc/timezone", "Europe/Paris\n");
    EXPECT_EQ(name(), "Europe/Paris");
}

TEST_F(ZoneName, IsUtcWhenNothingIsSet) {
    EXPECT_EQ(name(), "UTC");
}

}  // namespace
}  // namespace quode
