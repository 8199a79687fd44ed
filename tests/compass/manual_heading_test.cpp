// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The compass without a sensor: it shows that, and the user turns it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QTest>
#include <limits>

#include "compass/CompassView.h"
#include "compass/compass_fixture.h"

namespace quode::test {
namespace {

using testing::HasSubstr;
using testing::Not;

class ManualHeading : public CompassFixture {
  protected:
    ManualHeading() {
        view->show();
        heading->callbacks.problem(HeadingProblem::noSensor);
    }

    std::string texts() const { return textsOf(*view).toStdString(); }

    // A point in a direction from the dial's centre, degrees clockwise from the top.
    QPoint at(double degrees, double radius = 100.0) const {
        const double angle = qDegreesToRadians(degrees);
        return (view->dialView()->center() + QPointF(radius * std::sin(angle), -radius * std::cos(angle))).toPoint();
    }

    void drag(double fromDegrees, double toDegrees) {
        QTest::mousePress(view.get(), Qt::LeftButton, {}, at(fromDegrees));
        const int steps = 20;
        for (int i = 1; i <= steps; ++i) {
            moveTo(at(fromDegrees + (toDegrees - fromDegrees) * i / steps));
        }
        QTest::mouseRelease(view.get(), Qt::LeftButton, {}, at(toDegrees));
    }

    void moveTo(QPoint position) {
        QMouseEvent move(QEvent::MouseMove, position, view->mapToGlobal(position), Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(view.get(), &move);
    }

    std::unique_ptr<CompassView> view = compass();
};

TEST_F(ManualHeading, HasNorthUpAndSaysWhy) {
    EXPECT_EQ(view->dialView()->heading(), 0.0);
    EXPECT_THAT(texts(), HasSubstr("No compass sensor was found."));
    EXPECT_THAT(texts(), HasSubstr("North is at the top."));
    EXPECT_THAT(texts(), HasSubstr("Drag the dial or press the arrow keys to turn it."));
    EXPECT_THAT(texts(), HasSubstr("Top of the screen : 0°"));
}

TEST_F(ManualHeading, SaysEachReasonInItsOwnWords) {
    heading->callbacks.problem(HeadingProblem::accessDenied);
    EXPECT_THAT(texts(), HasSubstr("may not read the compass sensor"));
    heading->callbacks.problem(HeadingProblem::noAnswer);
    EXPECT_THAT(texts(), HasSubstr("does not answer"));
    EXPECT_THAT(texts(), Not(HasSubstr("may not read")));
}

TEST_F(ManualHeading, TurnsByTheArrowKeys) {
    QTest::keyClick(view->dialView(), Qt::Key_Left);
    EXPECT_NEAR(view->dialView()->heading(), 1.0, 1e-4);
    QTest::keyClick(view->dialView(), Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_NEAR(view->dialView()->heading(), 11.0, 1e-4);
    EXPECT_THAT(texts(), HasSubstr("Top of the screen : 11°"));
    EXPECT_THAT(texts(), Not(HasSubstr("North is at the top.")));
    QTest::keyClick(view->dialView(), Qt::Key_Right, Qt::ShiftModifier);
    QTest::keyClick(view->dialView(), Qt::Key_Right);
    QTest::keyClick(view->dialView(), Qt::Key_Right);
    EXPECT_NEAR(view->dialView()->heading(), 359.0, 1e-4);
    QTest::keyClick(view->dialView(), Qt::Key_Home);
    EXPECT_EQ(view->dialView()->heading(), 0.0);
}

TEST_F(ManualHeading, TurnsByTheArrowKeysWhileTheButtonHasTheFocus) {
    auto* close = buttonNamed(*view, "Close");
    QTest::keyClick(close, Qt::Key_Left);
    EXPECT_NEAR(view->dialView()->heading(), 1.0, 1e-4);
}

TEST_F(ManualHeading, FollowsADragAroundItsMiddle) {
    drag(10.0, 70.0);
    EXPECT_NEAR(view->dialView()->heading(), 300.0, 1.0);  // the dial went 60 degrees clockwise
    drag(350.0, 380.0);                                    // across the top
    EXPECT_NEAR(view->dialView()->heading(), 270.0, 1.0);
    drag(0.0, -720.0);  // twice around
    EXPECT_NEAR(view->dialView()->heading(), 270.0, 2.0);
    EXPECT_NE(view->overlayWindow(), nullptr);
}

TEST_F(ManualHeading, IsNotThrownAboutNearItsMiddle) {
    QTest::mousePress(view.get(), Qt::LeftButton, {}, at(0.0, 60.0));
    moveTo(at(0.0, 5.0));
    moveTo(at(180.0, 5.0));
    moveTo(at(180.0, 60.0));
    QTest::mouseRelease(view.get(), Qt::LeftButton, {}, at(180.0, 60.0));
    EXPECT_EQ(view->dialView()->heading(), 0.0);
}

TEST_F(ManualHeading, TakesAValueFromAssistiveTechnology) {
    auto* accessible = QAccessible::queryAccessibleInterface(view->dialView());
    EXPECT_FALSE(accessible->state().readOnly);
    EXPECT_TRUE(accessible->state().focusable);
    accessible->valueInterface()->setCurrentValue(137.0);
    EXPECT_NEAR(view->dialView()->heading(), 137.0, 1e-4);
    accessible->valueInterface()->setCurrentValue(-90.0);
    EXPECT_NEAR(view->dialView()->heading(), 270.0, 1e-4);
    accessible->valueInterface()->setCurrentValue("north");
    accessible->valueInterface()->setCurrentValue(std::numeric_limits<double>::infinity());
    EXPECT_NEAR(view->dialView()->heading(), 270.0, 1e-4);
}

TEST_F(ManualHeading, IsTrueNorthWithoutDeclinationOrOrientation) {
    orientation = DeviceOrientation::landscapeLeft;
    view->updateDisplay();
    view->turnByHand(-45.0);
    EXPECT_NEAR(view->dialView()->heading(), 45.0, 1e-4);
}

TEST_F(ManualHeading, EndsWithTheFirstReadingAndGoesOnFromTheLast) {
    view->turnByHand(30.0);
    heading->say(94.75);  // true 100
    EXPECT_NEAR(view->dialView()->heading(), 100.0, 1e-4);
    QTest::keyClick(view->dialView(), Qt::Key_Left);
    drag(10.0, 70.0);
    EXPECT_NEAR(view->dialView()->heading(), 100.0, 1e-4);
    EXPECT_THAT(texts(), Not(HasSubstr("No compass sensor")));

    heading->callbacks.problem(HeadingProblem::noSensor);
    EXPECT_NEAR(view->dialView()->heading(), 100.0, 1e-4);
    EXPECT_THAT(texts(), HasSubstr("No compass sensor was found."));
    QTest::keyClick(view->dialView(), Qt::Key_Left);
    EXPECT_NEAR(view->dialView()->heading(), 101.0, 1e-4);
}

}  // namespace
}  // namespace quode::test
