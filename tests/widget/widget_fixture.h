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

/// A host that records the widget's calls.
class RecordingHost : public WidgetHost {
  public:
    void invalidatePreferredViewSize() override { ++invalidations; }

    int invalidations = 0;
};

/// One of the user's cities, as stored in the user database.
struct KeptCity {
    int id = 0;
    int setAsHome = 0;
};

/// The widget on a test device: the shipped bundle, a temporary data folder, a stopped clock. English with 24 hours;
/// 21 November 2026, 11:30:20; no city unless the test adds one.
class WidgetTest : public testing::Test {
  protected:
    WidgetTest();

    /// Writes the user database: these cities, and the six alarms, off and without a sound.
    void keepCities(const std::vector<KeptCity>& cities);

    /// Runs SQL on the user database, which is created when missing.
    void runOnUserDatabase(const std::string& sql);

    /// The result of a query of one column in the user database; "" without a row.
    std::string readFromUserDatabase(const std::string& query);

    /// The id of the first place with a name in the shipped database.
    static int cityNamed(std::string_view name);

    /// Restarts the shared services, and creates a widget as a host does.
    QuodeController& makeWidget();

    /// The same with the user's one city.
    QuodeController& makeWidgetFor(std::string_view cityName);

    /// Creates a widget and presents it.
    QuodeController& presentWidgetFor(std::string_view cityName);

    /// Fires the tick's timer once, at once.
    void tick();

    /// The debug log; "" without one.
    std::string log() const;

    /// The control with an accessible name, in the root view of the widget.
    UIButtonX& button(const std::string& spokenName);

    /// The visible texts of the widget, from top to bottom.
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
