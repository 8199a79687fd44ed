// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The window of the compass: how it opens, which services of the device it uses, and how it closes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QScreen>
#include <QSequentialAnimationGroup>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QVariantAnimation>
#include <functional>

#include "compass/CompassView.h"
#include "compass/compass_fixture.h"

namespace quode::test {
namespace {

class Overlay : public CompassFixture {
  protected:
    std::unique_ptr<CompassView> shown() {
        auto view = compass();
        view->show();
        return view;
    }

    void expectGone(const CompassView& view) const {
        EXPECT_EQ(view.overlayWindow(), nullptr);
        EXPECT_FALSE(view.isVisible());
        EXPECT_FALSE(screen->isAwake);
        EXPECT_FALSE(heading->isStarted());
    }
};

TEST_F(Overlay, CoversTheScreenAboveAllOthersWithoutAFrame) {
    const auto view = shown();
    const auto* window = view->overlayWindow();
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->geometry(), QGuiApplication::primaryScreen()->geometry());
    EXPECT_TRUE(window->windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_TRUE(window->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(window->testAttribute(Qt::WA_TranslucentBackground));
    EXPECT_EQ(view->geometry(), window->rect());
    EXPECT_EQ(window->windowTitle(), "Qibla compass");
}

TEST_F(Overlay, IsAPictureInAWindowWhereThereIsNoSensor) {
    CompassDevices devices = fakeDevices();
    devices.hasSensor = false;
    const auto view = compass(std::move(devices));
    view->show();
    auto* window = view->overlayWindow();
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->isVisible());
    EXPECT_FALSE(window->isFullScreen());
    EXPECT_FALSE(window->windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_FALSE(window->testAttribute(Qt::WA_TranslucentBackground));
    EXPECT_EQ(window->size(), QSize(360, 572));
    EXPECT_TRUE(window->screen()->availableGeometry().contains(window->geometry()));
    EXPECT_EQ(view->geometry(), window->rect());
    EXPECT_EQ(view->dialView()->center(), QPointF(180.0, 286.0));
    EXPECT_EQ(window->grab().toImage().pixelColor(2, 2), QColor(51, 55, 69));
    view->destroy();
    expectGone(*view);
}

TEST_F(Overlay, FadesInAndPopsUp) {
    const auto view = shown();
    EXPECT_EQ(view->overlayWindow()->alpha(), 0.0);
    EXPECT_EQ(view->dialView()->scale(), double(0.6F));

    const auto* steps = view->findChild<QSequentialAnimationGroup*>();
    ASSERT_NE(steps, nullptr);
    ASSERT_EQ(steps->animationCount(), 3);
    const std::array<std::tuple<double, double, int>, 3> expected{{{0.6000000238418579, 1.100000023841858, 200},
                                                                   {1.100000023841858, 0.8999999761581421, 67},
                                                                   {0.8999999761581421, 1.0, 133}}};
    for (int i = 0; i < 3; ++i) {
        const auto* step = qobject_cast<QVariantAnimation*>(steps->animationAt(i));
        const auto& [from, to, duration] = expected[static_cast<std::size_t>(i)];
        EXPECT_EQ(step->startValue().toDouble(), from) << i;
        EXPECT_EQ(step->endValue().toDouble(), to) << i;
        EXPECT_EQ(step->duration(), duration) << i;
    }

    EXPECT_TRUE(QTest::qWaitFor([&] { return view->findChildren<QAbstractAnimation*>().isEmpty(); }));
    EXPECT_EQ(view->overlayWindow()->alpha(), 1.0);
    EXPECT_EQ(view->dialView()->scale(), 1.0);
    EXPECT_EQ(view->dialView()->alpha(), 1.0);
}

TEST_F(Overlay, KeepsTheScreenAwakeFromShowingToClosing) {
    const auto view = compass();
    view->onTick();
    EXPECT_FALSE(screen->isAwake);
    view->show();
    EXPECT_TRUE(screen->isAwake);
    view->destroy();
    EXPECT_FALSE(screen->isAwake);
}

TEST_F(Overlay, RenewsTheRequestAfterTwoSecondsAndThenEveryThree) {
    const auto view = shown();
    auto* timer = view->findChild<QTimer*>();
    ASSERT_NE(timer, nullptr);
    EXPECT_TRUE(timer->isActive());
    EXPECT_EQ(timer->interval(), 2000);
    const int before = screen->requests;
    QMetaObject::invokeMethod(timer, "timeout");
    EXPECT_EQ(screen->requests, before + 1);
    EXPECT_EQ(timer->interval(), 3000);
    QMetaObject::invokeMethod(timer, "timeout");
    EXPECT_EQ(screen->requests, before + 2);
    EXPECT_EQ(timer->interval(), 3000);

    view->destroy();
    EXPECT_FALSE(timer->isActive());
    view->onTick();
    EXPECT_FALSE(screen->isAwake);
}

TEST_F(Overlay, ClosesByEveryWayAndLeavesNothingBehind) {
    const std::vector<std::pair<const char*, std::function<void(CompassView&)>>> ways{
        {"tap on the dial", [](CompassView& view) { QTest::mouseClick(view.dialView(), Qt::LeftButton); }},
        {"tap beside the dial",
         [](CompassView& view) {
             QTest::mouseClick(&view, Qt::LeftButton, {}, {3, 3});
         }},
        {"Escape", [](CompassView& view) { QTest::keyClick(view.dialView(), Qt::Key_Escape); }},
        {"close button", [](CompassView& view) { QTest::mouseClick(buttonNamed(view, "Close"), Qt::LeftButton); }},
        {"Enter on the close button",
         [](CompassView& view) { QTest::keyClick(buttonNamed(view, "Close"), Qt::Key_Return); }},
        {"Space on the close button",
         [](CompassView& view) { QTest::keyClick(buttonNamed(view, "Close"), Qt::Key_Space); }},
        {"accessible press",
         [](CompassView& view) {
             auto* button = QAccessible::queryAccessibleInterface(buttonNamed(view, "Close"));
             button->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
         }},
        {"the desktop", [](CompassView& view) { view.overlayWindow()->close(); }},
        {"its arrow's tap", [](CompassView& view) { view.tapActionCompassArrowTapped(); }},
    };
    for (const auto& [name, close] : ways) {
        SCOPED_TRACE(name);
        const auto view = shown();
        QSignalSpy closed(view.get(), &CompassView::closed);
        close(*view);
        // An accessible press is visible for a short time.
        EXPECT_TRUE(QTest::qWaitFor([&] { return closed.count() > 0; }));
        expectGone(*view);
        EXPECT_EQ(closed.count(), 1);
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
}

TEST_F(Overlay, LetsEverythingGoWithTheObject) {
    auto view = shown();
    view.reset();
    EXPECT_FALSE(screen->isAlive);
    EXPECT_FALSE(screen->isAwake);
    EXPECT_FALSE(heading->isStarted());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
}

TEST_F(Overlay, IsQuietAfterItWasTakenDown) {
    const auto view = shown();
    const auto callbacks = heading->callbacks;
    view->destroy();
    callbacks.reading({50.0, std::nullopt});
    callbacks.problem(HeadingProblem::noSensor);
    view->updateDisplay();
    view->backgroungEffect();
    view->turnByHand(5.0);
    view->show();
    view->destroy();
    expectGone(*view);
    EXPECT_EQ(heading->stops, 1);
}

TEST_F(Overlay, GivesTheKeyboardBackToTheWindowThatHadIt) {
    QWidget panel;
    panel.show();
    panel.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&panel));
    const auto view = shown();
    EXPECT_EQ(view->overlayWindow()->oldKeyWindow(), &panel);
    ASSERT_TRUE(QTest::qWaitForWindowActive(view->overlayWindow()));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&panel));
}

TEST_F(Overlay, SurvivesTheEndOfTheOldKeyWindow) {
    auto panel = std::make_unique<QWidget>();
    panel->show();
    panel->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(panel.get()));
    const auto view = shown();
    panel.reset();
    EXPECT_EQ(view->overlayWindow()->oldKeyWindow(), nullptr);
    view->destroy();
    expectGone(*view);
}

TEST_F(Overlay, EmptiesItsFrameWhenTheScreenTurnsAndIsStillSeen) {
    const auto view = shown();
    ASSERT_TRUE(QTest::qWaitFor([&] { return view->findChildren<QAbstractAnimation*>().isEmpty(); }));
    auto& controller = view->overlayWindow()->rootViewController();
    EXPECT_TRUE(controller.shouldAutorotateToInterfaceOrientation(DeviceOrientation::landscapeRight));
    orientation = DeviceOrientation::landscapeLeft;
    const auto before = view->overlayWindow()->grab().toImage();
    controller.willAnimateRotationToInterfaceOrientation(orientation, 0.3);
    EXPECT_EQ(view->frame(), Rect{});
    EXPECT_EQ(view->fixAngle(), 90.0F);
    EXPECT_EQ(view->overlayWindow()->grab().toImage(), before);
    QTest::mouseClick(view->dialView(), Qt::LeftButton);
    expectGone(*view);
}

TEST_F(Overlay, FollowsANewSizeOfItsWindow) {
    const auto view = shown();
    view->overlayWindow()->resize(401, 701);
    EXPECT_EQ(view->size(), QSize(401, 701));
    EXPECT_EQ(view->dialView()->center(), QPointF(200.5, 350.5));
}

TEST_F(Overlay, KeepsItsTextsOnTheScreenAndOffTheDial) {
    const auto view = shown();
    heading->callbacks.problem(HeadingProblem::accessDenied);
    for (const QSize size :
         {QSize(480, 320), QSize(360, 720), QSize(720, 360), QSize(1280, 800), QSize(1920, 1080), QSize(640, 480)}) {
        view->overlayWindow()->resize(size);
        const QPointF center = view->dialView()->center();
        for (const auto* plate : view->findChildren<CompassPlate*>()) {
            EXPECT_TRUE(view->rect().contains(plate->geometry()))
                << size.width() << "x" << size.height() << " " << plate->geometry().top();
            const QRectF area = plate->geometry();
            const QPointF nearest(std::clamp(center.x(), area.left(), area.right()),
                                  std::clamp(center.y(), area.top(), area.bottom()));
            EXPECT_GE(QLineF(center, nearest).length(), 146.0) << size.width() << "x" << size.height();
        }
    }
}

TEST_F(Overlay, GivesNamesAndRolesToEverything) {
    const auto view = shown();
    heading->callbacks.problem(HeadingProblem::noSensor);
    const auto roleOf = [](QObject* object) { return QAccessible::queryAccessibleInterface(object)->role(); };
    EXPECT_EQ(roleOf(buttonNamed(*view, "Close")), QAccessible::Button);
    EXPECT_EQ(roleOf(view->dialView()), QAccessible::Dial);
    for (auto* widget : view->findChildren<QWidget*>()) {
        if (widget->inherits("QLabel") && widget->isVisible()) {
            EXPECT_EQ(roleOf(widget), QAccessible::StaticText);
            EXPECT_FALSE(QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name).isEmpty());
        }
    }
    EXPECT_EQ(QAccessible::queryAccessibleInterface(view->overlayWindow())->text(QAccessible::Name), "Qibla compass");
}

TEST_F(Overlay, MovesTheFocusBetweenDialAndButton) {
    const auto view = shown();
    ASSERT_TRUE(QTest::qWaitForWindowActive(view->overlayWindow()));
    EXPECT_EQ(QApplication::focusWidget(), view->dialView());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), buttonNamed(*view, "Close"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), view->dialView());
}

}  // namespace
}  // namespace quode::test
