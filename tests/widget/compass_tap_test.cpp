// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The button that opens the compass.
#include <QApplication>
#include <QTest>

#include "widget/widget_fixture.h"

namespace quode::test {
namespace {

// The calls of a compass to the device.
struct Record {
    int made = 0, started = 0, stopped = 0, awake = 0;
};

class SilentHeading : public HeadingSource {
  public:
    explicit SilentHeading(Record& record) : record_(record) {}
    void startUpdatingHeading(double, Callbacks) override { ++record_.started; }
    void stopUpdatingHeading() override { ++record_.stopped; }

  private:
    Record& record_;
};

class CountingKeeper : public ScreenKeeper {
  public:
    explicit CountingKeeper(Record& record) : record_(record) {}
    void keepAwake() override { record_.awake = 1; }
    void letGo() override { record_.awake = 0; }

  private:
    Record& record_;
};

class CompassTap : public WidgetTest {
  protected:
    CompassTap() {
        compassDevices = [this]() -> CompassDevices {
            ++record.made;
            return {std::make_unique<SilentHeading>(record), std::make_unique<CountingKeeper>(record),
                    [] { return DeviceOrientation::portrait; }};
        };
    }
    ~CompassTap() override {
        widget.reset();
        settle();
    }

    // Until all deferred deletions are done.
    static void settle() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    Record record;
};

TEST_F(CompassTap, ShowsTheCompassOfTheCityOverTheScreen) {
    presentWidgetFor("Istanbul");
    click(button("Qibla compass"));
    ASSERT_NE(nullptr, widget->compass());
    const City& city = widget->userCities().front();
    EXPECT_EQ(static_cast<float>(city.getQiblaAngle()), widget->compass()->qAngle());
    EXPECT_EQ(static_cast<float>(city.getMagneticVariation()), widget->compass()->compassDeclination());
    EXPECT_GT(city.getMagneticVariation(), 4.0);
    EXPECT_EQ((Rect{0.0, 0.0, 320.0, 480.0}), widget->compass()->frame());
    EXPECT_TRUE(widget->compass()->isVisible());
    EXPECT_EQ(1, record.started);
    EXPECT_EQ(1, record.awake);
}

TEST_F(CompassTap, GivesEverythingBackWhenTheCompassIsClosed) {
    presentWidgetFor("Istanbul");
    const auto widgets = QApplication::allWidgets().size();
    click(button("Qibla compass"));
    QTest::keyClick(widget->compass(), Qt::Key_Escape);
    settle();
    EXPECT_EQ(nullptr, widget->compass());
    EXPECT_EQ(1, record.stopped);
    EXPECT_EQ(0, record.awake);
    EXPECT_EQ(widgets, QApplication::allWidgets().size());
}

TEST_F(CompassTap, OpensAnotherCompassAfterwards) {
    presentWidgetFor("Istanbul");
    for (int i = 1; i <= 3; ++i) {
        click(button("Qibla compass"));
        ASSERT_NE(nullptr, widget->compass());
        EXPECT_EQ(i, record.made);
        widget->compass()->destroy();
        settle();
    }
    EXPECT_EQ(3, record.stopped);
}

TEST_F(CompassTap, NeverShowsTwoCompasses) {
    presentWidgetFor("Istanbul");
    click(button("Qibla compass"));
    click(button("Qibla compass"));
    settle();
    EXPECT_EQ(2, record.started);
    EXPECT_EQ(1, record.stopped);
    EXPECT_EQ(1, record.awake);
    ASSERT_NE(nullptr, widget->compass());
    EXPECT_NE(nullptr, widget->compass()->overlayWindow());
}

// A panel that loses the focus to the compass dismisses its widget.
TEST_F(CompassTap, LeavesTheCompassWhenTheWidgetIsDismissed) {
    presentWidgetFor("Istanbul");
    click(button("Qibla compass"));
    widget->hostDidDismiss();
    settle();
    ASSERT_NE(nullptr, widget->compass());
    EXPECT_TRUE(widget->compass()->isVisible());
    EXPECT_EQ(1, record.awake);
    widget->hostDidPresent();
    EXPECT_NE(nullptr, widget->compass());
}

TEST_F(CompassTap, TakesTheCompassAlongWithTheWidget) {
    presentWidgetFor("Istanbul");
    click(button("Qibla compass"));
    widget.reset();
    settle();
    EXPECT_EQ(1, record.stopped);
    EXPECT_EQ(0, record.awake);
    EXPECT_TRUE(QApplication::allWidgets().isEmpty());
}

TEST_F(CompassTap, ShowsNothingWithoutACity) {
    makeWidget().hostDidPresent();
    UIButtonX& hidden = *widget->cityNameView()->buttonCompass();
    EXPECT_TRUE(hidden.isHidden());
    hidden.tap();
    EXPECT_EQ(nullptr, widget->compass());
    EXPECT_EQ(0, record.made);
}

}  // namespace
}  // namespace quode::test
