// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The real clients of the sensor service and of the screen-saver service, with services on a private bus.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTest>
#include <chrono>
#include <cmath>

#include "compass/compass_fixture.h"
#include "platform/qt/screensaver_keeper.h"
#include "platform/qt/sensor_proxy_heading.h"

namespace quode::test {
namespace {

constexpr int patience = 5000;  // ms

// A service in a separate process, with orders and answers in lines.
class Service {
  public:
    explicit Service(const QString& script, const QString& systemBus = {}) {
        if (!systemBus.isEmpty()) {
            auto environment = QProcessEnvironment::systemEnvironment();
            environment.insert("DBUS_SYSTEM_BUS_ADDRESS", systemBus);
            process_.setProcessEnvironment(environment);
        }
        process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process_.start("/usr/bin/python3", {QString(QUODE_MOCKS) + "/" + script});
        waitFor("owned");
    }
    ~Service() {
        process_.closeWriteChannel();
        process_.waitForFinished(patience);
    }

    void order(const QByteArray& line) {
        process_.write(line + "\n");
        waitFor("done " + line.split(' ').first());
    }

    // Waits until the service prints a line, and drops earlier lines.
    void waitFor(const QByteArray& line) {
        const bool seen = QTest::qWaitFor([&] { return take(line); }, patience);
        EXPECT_TRUE(seen) << "no line \"" << line.toStdString() << "\"";
    }

    // True when the service prints a line within a short time.
    bool says(const QByteArray& line) {
        return QTest::qWaitFor([&] { return take(line); }, 300);
    }

  private:
    bool take(const QByteArray& line) {
        lines_ += process_.readAllStandardOutput().split('\n');
        const auto at = lines_.indexOf(line);
        if (at < 0) return false;
        lines_ = lines_.mid(at + 1);
        return true;
    }

    QProcess process_;
    QList<QByteArray> lines_;
};

class CompassBus : public CompassFixture {
  protected:
    std::unique_ptr<CompassView> realCompass() {
        return compass({sensorProxyHeading(), screenSaverKeeper("Quode", "Qibla compass"),
                        [] { return DeviceOrientation::portrait; }});
    }

    static testing::AssertionResult comesToSay(const CompassView& view, const QString& text) {
        const bool said = QTest::qWaitFor([&] { return textsOf(view).contains(text); }, patience);
        if (said) return testing::AssertionSuccess();
        return testing::AssertionFailure() << textsOf(view).toStdString();
    }

    static testing::AssertionResult comesToHeading(const CompassView& view, double degrees) {
        const auto isThere = [&] {
            return std::abs(std::remainder(view.dialView()->heading() - degrees, 360.0)) < 1e-4;
        };
        if (QTest::qWaitFor(isThere, patience)) return testing::AssertionSuccess();
        return testing::AssertionFailure() << view.dialView()->heading() << " instead of " << degrees;
    }
};

TEST_F(CompassBus, TurnsTheDialToWhatTheServiceSays) {
    Service sensor("sensor_service.py");
    const auto view = realCompass();
    view->show();
    EXPECT_TRUE(comesToSay(*view, "figure of eight"));  // the service has no heading yet
    for (const double magnetic : {10.0, 100.5, 222.25, 359.9, 180.0, 0.1}) {
        sensor.order("heading " + QByteArray::number(magnetic));
        EXPECT_TRUE(comesToHeading(*view, magnetic + 5.25)) << magnetic;
        const float sum = static_cast<float>(magnetic) + 5.25F;
        EXPECT_EQ(view->compassAngle(), static_cast<float>(double(sum) * -0.017453292519943295));
    }
    sensor.order("heading 359.9");  // less than a degree away across north
    sensor.order("heading 0.9");
    QTest::qWait(100);
    EXPECT_NEAR(view->dialView()->heading(), 5.35, 1e-4);

    sensor.order("heading -1");
    EXPECT_TRUE(comesToSay(*view, "figure of eight"));
    EXPECT_NEAR(view->dialView()->heading(), 5.35, 1e-4);
    view->destroy();
    sensor.waitFor("ReleaseCompass");
}

TEST_F(CompassBus, ReadsAHeadingThatIsThereAlready) {
    Service sensor("sensor_service.py");
    sensor.order("heading 45");
    const auto view = realCompass();
    EXPECT_TRUE(comesToHeading(*view, 50.25));
}

TEST_F(CompassBus, ReleasesTheSensorWithTheObject) {
    Service sensor("sensor_service.py");
    auto view = realCompass();
    sensor.waitFor("ClaimCompass");
    view.reset();
    sensor.waitFor("ReleaseCompass");
}

TEST_F(CompassBus, SaysThatThereIsNoServiceAndTakesItWhenItComes) {
    const auto view = realCompass();
    EXPECT_TRUE(comesToSay(*view, "No compass sensor was found."));
    Service sensor("sensor_service.py");
    sensor.waitFor("ClaimCompass");
    sensor.order("heading 45");
    EXPECT_TRUE(comesToHeading(*view, 50.25));
    EXPECT_FALSE(textsOf(*view).contains("No compass sensor"));

    sensor.order("leave");
    EXPECT_TRUE(comesToSay(*view, "No compass sensor was found."));
    EXPECT_NEAR(view->dialView()->heading(), 50.25, 1e-4);
    sensor.order("heading 90");
    sensor.order("come");
    EXPECT_TRUE(comesToHeading(*view, 95.25));
}

TEST_F(CompassBus, SaysThatTheDeviceHasNoCompassAndTakesOneThatIsPluggedIn) {
    Service sensor("sensor_service.py");
    sensor.order("compass no");
    const auto view = realCompass();
    EXPECT_TRUE(comesToSay(*view, "No compass sensor was found."));
    sensor.order("heading 45");
    sensor.order("compass yes");
    EXPECT_TRUE(comesToHeading(*view, 50.25));
    sensor.order("compass no");
    EXPECT_TRUE(comesToSay(*view, "No compass sensor was found."));
}

TEST_F(CompassBus, KnowsBeforehandWhetherThereIsASensorForThisUser) {
    EXPECT_FALSE(hasCompassSensor());
    Service sensor("sensor_service.py");
    sensor.order("compass no");
    EXPECT_FALSE(hasCompassSensor());
    sensor.order("compass yes");
    EXPECT_TRUE(hasCompassSensor());
    sensor.order("leave");
    EXPECT_FALSE(hasCompassSensor());
}

TEST_F(CompassBus, SaysThatTheSensorIsNotOpenToIt) {
    Service sensor("sensor_service.py");
    sensor.order("deny yes");
    sensor.order("heading 45");
    const auto view = realCompass();
    EXPECT_TRUE(comesToSay(*view, "may not read the compass sensor"));
    EXPECT_EQ(view->dialView()->heading(), 0.0);
}

// Most systems deny the compass to ordinary users by a rule of the bus.
TEST_F(CompassBus, SaysThatTheBusKeepsTheSensorFromIt) {
    QProcess daemon;
    daemon.start("dbus-daemon", {"--nofork", "--print-address", "--config-file=" QUODE_MOCKS "/locked_bus.conf"});
    ASSERT_TRUE(QTest::qWaitFor([&] { return daemon.canReadLine(); }, patience));
    const QString address = QString::fromUtf8(daemon.readLine().trimmed());
    {
        Service sensor("sensor_service.py", address);
        const auto bus = QDBusConnection::connectToBus(address, "locked");
        const auto view = compass({sensorProxyHeading(bus), screenSaverKeeper("Quode", "Qibla compass"), {}});
        EXPECT_TRUE(comesToSay(*view, "may not read the compass sensor"));
    }
    QDBusConnection::disconnectFromBus("locked");
    daemon.terminate();
    daemon.waitForFinished(patience);
}

TEST_F(CompassBus, SaysThatTheServiceDoesNotAnswer) {
    Service sensor("sensor_service.py");
    sensor.order("mute yes");
    const auto view = compass({sensorProxyHeading(QDBusConnection::systemBus(), std::chrono::milliseconds(200)),
                               screenSaverKeeper("Quode", "Qibla compass"),
                               {}});
    EXPECT_TRUE(comesToSay(*view, "does not answer"));
}

TEST_F(CompassBus, HandlesABusThatIsNotThere) {
    const auto bus = QDBusConnection::connectToBus("unix:path=/nowhere/at/all", "nowhere");
    ASSERT_FALSE(bus.isConnected());
    const auto view = compass({sensorProxyHeading(bus), screenSaverKeeper("Quode", "Qibla compass"), {}});
    EXPECT_TRUE(comesToSay(*view, "No compass sensor was found."));
}

TEST_F(CompassBus, KeepsTheScreenAwakeWhileShown) {
    Service screenSaver("screensaver_service.py");
    const auto view = realCompass();
    EXPECT_FALSE(screenSaver.says("Inhibit 77 Quode Qibla compass"));
    view->show();
    screenSaver.waitFor("Inhibit 77 Quode Qibla compass");
    view->onTick();
    view->onTick();
    EXPECT_FALSE(screenSaver.says("Inhibit 78 Quode Qibla compass"));  // one request is enough
    QTest::keyClick(view->dialView(), Qt::Key_Escape);
    screenSaver.waitFor("UnInhibit 77");
    screenSaver.waitFor("client gone");
}

TEST_F(CompassBus, LetsTheScreenGoWithTheObjectEvenBeforeTheAnswer) {
    Service screenSaver("screensaver_service.py");
    auto view = realCompass();
    view->show();
    view.reset();
    screenSaver.waitFor("Inhibit 77 Quode Qibla compass");
    screenSaver.waitFor("UnInhibit 77");
}

TEST_F(CompassBus, AsksAgainWhenTheScreenSaverCameAgain) {
    Service screenSaver("screensaver_service.py");
    const auto keeper = screenSaverKeeper("Quode", "Test");
    keeper->keepAwake();
    screenSaver.waitFor("Inhibit 77 Quode Test");
    QTest::qWait(50);
    screenSaver.order("leave");
    screenSaver.order("come");
    screenSaver.waitFor("Inhibit 78 Quode Test");
    QTest::qWait(50);
    keeper->letGo();
    screenSaver.waitFor("UnInhibit 78");
}

TEST_F(CompassBus, IsSilentWithoutAScreenSaver) {
    const auto keeper = screenSaverKeeper("Quode", "Test");
    keeper->letGo();
    keeper->keepAwake();
    QTest::qWait(100);
    keeper->keepAwake();
    Service screenSaver("screensaver_service.py");  // starts later
    screenSaver.waitFor("Inhibit 77 Quode Test");
    QTest::qWait(50);
    QElapsedTimer time;
    time.start();
    keeper->letGo();
    keeper->letGo();
    EXPECT_LT(time.elapsed(), 500);
    screenSaver.waitFor("UnInhibit 77");
}

}  // namespace
}  // namespace quode::test
