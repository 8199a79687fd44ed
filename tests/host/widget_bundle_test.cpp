// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/WidgetBundle.h"

#include <gtest/gtest.h>

#include <fstream>

#include "app/failure.h"
#include "common/GlobalFuncs.h"
#include "support/fake_platform.h"
#include "support/temporary_folder.h"

namespace quode::test {
namespace {

using host::WidgetBundle;

void expectDamaged(const std::filesystem::path& bundle, const std::string& part) {
    try {
        WidgetBundle made(bundle.string());
        ADD_FAILURE() << "the bundle was taken";
    } catch (const app::Failure& failure) {
        EXPECT_EQ(failure.code(), app::ExitCode::damagedData);
        const std::string text = failure.what();
        EXPECT_NE(text.find((bundle / "quode-widget.so").string()), std::string::npos) << text;
        EXPECT_NE(text.find(part), std::string::npos) << text;
    }
}

TEST(WidgetBundleTest, GivesTheWidgetOfTheRealModule) {
    const FakePlatform device;
    GlobalFuncs& services = GlobalFuncs::startUp(device.platform());
    WidgetBundle bundle(QUODE_TEST_BUNDLE);
    const auto widget = bundle.makeWidget();
    ASSERT_NE(widget->view(), nullptr);
    EXPECT_EQ(widget->preferredViewSize().width, 320.0);
    // Module and host share the one object of the services.
    EXPECT_EQ(services.appBundlePath(), QUODE_TEST_BUNDLE);
}

TEST(WidgetBundleTest, SaysThatThereIsNoModule) {
    const TemporaryFolder folder;
    expectDamaged(folder.path(), "QUODE_BUNDLE_DIR");
    expectDamaged(folder.path(), "not found. Install Quode again");
}

TEST(WidgetBundleTest, SaysThatTheModuleIsAnotherThing) {
    const TemporaryFolder folder;
    std::ofstream(folder.path() / "quode-widget.so") << "not a library";
    expectDamaged(folder.path(), "Install Quode again");
    std::filesystem::copy_file(QUODE_OTHER_MODULE, folder.path() / "quode-widget.so",
                               std::filesystem::copy_options::overwrite_existing);
    expectDamaged(folder.path(), "Install Quode again");
}

}  // namespace
}  // namespace quode::test
