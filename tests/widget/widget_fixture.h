// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "common/GlobalFuncs.h"
#include "support/fake_platform.h"
#include "support/memory_event_store.h"
#include "support/temporary_folder.h"
#include "views/views_support.h"
#include "widget/QuodeController.h"

namespace quode::test {

/// A host that notes what the widget tells it.
class RecordingHost : public WidgetHost {
  public:
    void invalidatePreferredViewSize() override { ++invalidations; }

    int invalidations = 0;
};

/// One of the user's cities, as the user database keeps it.
struct KeptCity {
    int id = 0;
    int setAsHome = 0;
};

/// The widget on a device of the test: the bundle as it is shipped, a data folder of the test's own, a clock that
/// stands still. English with 24 hours; 21 November 2026, 11:30:20; no city unless the test keeps one.
class WidgetTest : public testing::Test {
  protected:
    WidgetTest();

    /// Writes the user database: these cities, and the six alarms, off and without a sound.
    void keepCities(const std::vector<KeptCity>& cities);

    /// Runs SQL on the user database, which is made when missing.
    void runOnUserDatabase(const std::string& sql);

    /// What a query of one column yields in the user database; "" for no row.
    std::string readFromUserDatabase(const std::string& query);

    /// The number of the first place of a name in the shipped database.
    static int cityNamed(std::string_view name);

    /// Restarts the shared services, and makes a widget as a host does.
    QuodeController& makeWidget();

    /// The same with the user's one city.
    QuodeController& makeWidgetFor(std::string_view cityName);

    /// Makes a widget and presents it.
    QuodeController& presentWidgetFor(std::string_view cityName);

    /// Lets the tick's timer run out once, at once.
    void tick();

    /// The debug log; "" when there is none.
    std::string log() const;

    /// The control with an accessible name, in the root view of the widget.
    UIButtonX& button(const std::string& spokenName);

    /// The texts of the widget that a person sees, from top to bottom.
    std::vector<std::string> shownTexts();

    std::filesystem::path userDatabase() const { return folder.path() / "user.sqlite"; }

    TemporaryFolder folder;
    FakePlatform device;
    std::shared_ptr<MemoryEventStore> calendar = std::make_shared<MemoryEventStore>();
    RecordingHost host;
    std::function<CompassDevices()> compassDevices;
    std::unique_ptr<QuodeController> widget;

  private:
    Platform platform() const;
};

}  // namespace quode::test
