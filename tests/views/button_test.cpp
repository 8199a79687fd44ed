// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <QAccessibleActionInterface>
#include <QTest>
#include <array>
#include <cmath>
#include <memory>
#include <numbers>

#include "views/UIButtonX.h"
#include "views/glyphs.h"
#include "views_support.h"

namespace quode::test {
namespace {

constexpr Rect usualFrame{0.0, 0.0, 50.0, 30.0};
const QPoint inside(20, 15);
const QPoint outside(60, 15);

class Taps : public UIButtonXDelegate {
  public:
    void delegateUIButtonXTapped(UIButtonX& button, bool selected) override {
        senders.push_back(&button);
        states.push_back(selected);
    }

    std::vector<UIButtonX*> senders;
    std::vector<bool> states;
};

class Button : public ViewsTest {
  protected:
    Button() { button.setDelegate(&taps); }

    Taps taps;
    UIButtonX button{usualFrame};
};

TEST_F(Button, StartsPlainInTheSecondColor) {
    EXPECT_EQ(0, button.buttonType());
    EXPECT_EQ(0, button.buttonShape());
    EXPECT_FALSE(button.selectable());
    EXPECT_FALSE(button.selected());
    EXPECT_FALSE(button.isSelecting());
    EXPECT_TRUE(button.isShadow());
    EXPECT_EQ(0, button.tag2());
    EXPECT_EQ(globalFuncs.secondColor(), button.selectedColor());
    EXPECT_EQ(globalFuncs.secondColor(), button.enabledColor());
    EXPECT_EQ(7U, button.autoresizingMask());
    EXPECT_TRUE(button.autoresizesSubviews());
}

TEST_F(Button, HasACaptionThatFillsIt) {
    const Label& caption = *button.text();
    EXPECT_EQ((Rect{0.0, 0.0, 50.0, 30.0}), caption.frame());
    EXPECT_EQ("Verdana", caption.fontName());
    EXPECT_EQ(15.0, caption.fontSize());
    EXPECT_EQ(alignCenter, caption.textAlign());
    EXPECT_EQ(globalFuncs.thirdColor(), caption.textColor());
    button.setFrame({5.0, 6.0, 80.0, 44.0});
    EXPECT_EQ((Rect{0.0, 0.0, 80.0, 42.0}), button.text()->frame());
}

TEST_F(Button, TakesAnotherCaption) {
    auto caption = std::make_unique<Label>();
    caption->setText("Other");
    Label* expected = caption.get();
    button.setText(std::move(caption));
    EXPECT_EQ(expected, button.text());
    EXPECT_EQ(1, button.findChildren<Label*>().size());
    EXPECT_EQ("Other", button.spokenName());
}

// ---- touches

TEST_F(Button, StaysUnselectedAfterATapUnlessItIsAToggle) {
    click(button);
    EXPECT_FALSE(button.selected());
    EXPECT_EQ(std::vector<bool>{false}, taps.states);
    EXPECT_EQ(std::vector<UIButtonX*>{&button}, taps.senders);
}

TEST_F(Button, TogglesOnEachTapInside) {
    button.setSelectable(true);
    for (int i = 0; i < 3; ++i) click(button);
    EXPECT_EQ((std::vector<bool>{true, false, true}), taps.states);
    EXPECT_TRUE(button.selected());
}

TEST_F(Button, IgnoresATouchThatEndsOutside) {
    button.setSelectable(true);
    pressAt(button, inside);
    dragTo(button, outside);
    releaseAt(button, outside);
    EXPECT_TRUE(taps.states.empty());
    EXPECT_FALSE(button.selected());
    EXPECT_FALSE(button.isSelecting());
}

TEST_F(Button, LooksPressedWhileTheFingerIsInside) {
    const QImage plain = pictureOf(button, 1.0);
    pressAt(button, inside);
    EXPECT_TRUE(button.isSelecting());
    const QImage pressed = pictureOf(button, 1.0);
    EXPECT_NE(plain, pressed);
    dragTo(button, outside);
    EXPECT_FALSE(button.isSelecting());
    EXPECT_EQ(plain, pictureOf(button, 1.0));
    dragTo(button, inside);
    EXPECT_TRUE(button.isSelecting());
    EXPECT_EQ(pressed, pictureOf(button, 1.0));
    releaseAt(button, inside);
    EXPECT_FALSE(button.isSelecting());
    EXPECT_EQ(1U, taps.states.size());
}

TEST_F(Button, EndsJustBeyondItsLastPoint) {
    for (const QPoint corner : {QPoint(0, 0), QPoint(49, 29)}) {
        pressAt(button, inside);
        releaseAt(button, corner);
    }
    EXPECT_EQ(2U, taps.states.size());
    for (const QPoint beyond : {QPoint(50, 15), QPoint(20, 30), QPoint(-1, 15), QPoint(20, -1)}) {
        pressAt(button, inside);
        releaseAt(button, beyond);
    }
    EXPECT_EQ(2U, taps.states.size());
}

TEST_F(Button, ForgetsATouchWhenItIsTakenAway) {
    const std::array<std::function<void()>, 4> interruptions{
        [&] { button.setEnabled(false); },
        [&] { button.hide(); },
        [&] {
            QFocusEvent event(QEvent::FocusOut, Qt::TabFocusReason);
            QApplication::sendEvent(&button, &event);
        },
        [&] {
            QEvent event(QEvent::WindowDeactivate);
            QApplication::sendEvent(&button, &event);
        },
    };
    for (const auto& interrupt : interruptions) {
        button.setEnabled(true);
        button.show();
        pressAt(button, inside);
        ASSERT_TRUE(button.isSelecting());
        interrupt();
        EXPECT_FALSE(button.isSelecting());
        releaseAt(button, inside);
    }
    EXPECT_TRUE(taps.states.empty());
}

TEST_F(Button, DoesNothingWhileDisabled) {
    button.setSelectable(true);
    button.setEnabled(false);
    click(button);
    pressKey(button, Qt::Key_Return);
    button.tap();
    EXPECT_TRUE(taps.states.empty());
    EXPECT_FALSE(button.selected());
    EXPECT_FALSE(
        spokenAs(button, "").actionInterface()->actionNames().contains(QAccessibleActionInterface::toggleAction()));
}

TEST_F(Button, IsWorkedByTheLeftMouseButtonOnly) {
    QTest::mouseClick(&button, Qt::RightButton, {}, inside);
    EXPECT_TRUE(taps.states.empty());
    QTest::mouseClick(&button, Qt::LeftButton, {}, inside);
    EXPECT_EQ(1U, taps.states.size());
}

TEST_F(Button, IsWorkedByAFinger) {
    const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
    button.setSelectable(true);
    button.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&button));
    QTest::touchEvent(&button, screen.get()).press(0, inside);
    EXPECT_TRUE(button.isSelecting());
    QTest::touchEvent(&button, screen.get()).move(0, outside);
    EXPECT_FALSE(button.isSelecting());
    QTest::touchEvent(&button, screen.get()).move(0, inside);
    EXPECT_TRUE(button.isSelecting());
    QTest::touchEvent(&button, screen.get()).release(0, inside);
    EXPECT_FALSE(button.isSelecting());
    EXPECT_EQ(std::vector<bool>{true}, taps.states);
    QTest::touchEvent(&button, screen.get()).press(0, inside);
    QTest::touchEvent(&button, screen.get()).release(0, outside);
    EXPECT_EQ(1U, taps.states.size());
}

TEST_F(Button, MayBeDeletedByItsTap) {
    class Deleting : public UIButtonXDelegate {
      public:
        void delegateUIButtonXTapped(UIButtonX& tapped, bool) override { delete &tapped; }
    } deleting;
    QPointer<UIButtonX> mortal = new UIButtonX(usualFrame);
    mortal->setDelegate(&deleting);
    pressAt(*mortal, inside);
    releaseAt(*mortal, inside);
    EXPECT_TRUE(mortal.isNull());
}

TEST_F(Button, TakesASelectionOnlyAsAToggle) {
    button.setSelected(true);
    EXPECT_FALSE(button.selected());
    button.setSelectable(true);
    pressAt(button, inside);
    button.setSelected(true);
    EXPECT_TRUE(button.selected());
    EXPECT_FALSE(button.isSelecting());
    EXPECT_EQ(button.selectedColor(), button.text()->textColor());
    button.setSelected(false);
    EXPECT_EQ(globalFuncs.thirdColor(), button.text()->textColor());
    EXPECT_TRUE(taps.states.empty());
}

// ---- keyboard

TEST_F(Button, IsTappedByTheSpaceKeyWhenItIsReleased) {
    pressKey(button, Qt::Key_Space);
    EXPECT_TRUE(button.isSelecting());
    EXPECT_TRUE(taps.states.empty());
    releaseKey(button, Qt::Key_Space);
    EXPECT_FALSE(button.isSelecting());
    EXPECT_EQ(1U, taps.states.size());
}

TEST_F(Button, IsTappedByEnterOnceHoweverLongItIsHeld) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        pressKey(button, key);
        QKeyEvent again(QEvent::KeyPress, key, Qt::NoModifier, {}, true);
        QApplication::sendEvent(&button, &again);
        releaseKey(button, key);
    }
    EXPECT_EQ(2U, taps.states.size());
}

TEST_F(Button, LeavesEscapeToOthersUnlessItIsPressed) {
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    EXPECT_FALSE(QApplication::sendEvent(&button, &escape) && escape.isAccepted());
    pressKey(button, Qt::Key_Space);
    pressKey(button, Qt::Key_Escape);
    releaseKey(button, Qt::Key_Space);
    EXPECT_TRUE(taps.states.empty());
}

TEST_F(Button, ShowsAFocusRingToWhoUsesTheKeyboard) {
    QWidget window;
    auto* first = addSubview(window, std::make_unique<UIButtonX>(usualFrame));
    auto* second = addSubview(window, std::make_unique<UIButtonX>(Rect{0.0, 40.0, 50.0, 30.0}));
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const QImage plain = pictureOf(*second, 1.0);
    second->setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(plain, pictureOf(*second, 1.0));
    first->setFocus(Qt::TabFocusReason);
    QTest::keyClick(first, Qt::Key_Tab);
    ASSERT_TRUE(second->hasFocus());
    EXPECT_NE(plain, pictureOf(*second, 1.0));
    QTest::keyClick(second, Qt::Key_Backtab);
    EXPECT_EQ(plain, pictureOf(*second, 1.0));
}

// ---- accessibility

TEST_F(Button, IsDescribedAsACheckBoxWithItsState) {
    button.setSelectable(true);
    button.setSpokenName([] { return "Alarm for Asr"; });
    QAccessibleInterface& spoken = spokenAs(button, "Alarm for Asr");
    EXPECT_EQ(QAccessible::CheckBox, spoken.role());
    EXPECT_TRUE(spoken.state().checkable);
    EXPECT_TRUE(spoken.state().focusable);
    EXPECT_FALSE(spoken.state().checked);
    spoken.actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(spoken.state().checked);
    EXPECT_EQ(std::vector<bool>{true}, taps.states);
    button.setEnabled(false);
    EXPECT_TRUE(spoken.state().disabled);
}

TEST_F(Button, IsDescribedAsAButtonWithItsCaptionAsName) {
    button.text()->setText("Press me");
    QAccessibleInterface& spoken = spokenAs(button, "Press me");
    EXPECT_EQ(QAccessible::Button, spoken.role());
    EXPECT_FALSE(spoken.state().checkable);
    EXPECT_EQ(0, spoken.childCount());
    spoken.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(1U, taps.states.size());
}

// Only where assistive technology listens: see CMakeLists.txt.
TEST_F(Button, AnnouncesAChangeOfItsState) {
    if (!somethingListens()) GTEST_SKIP() << "nothing listens on this platform";
    static int changes;
    changes = 0;
    const auto previous = QAccessible::installUpdateHandler([](QAccessibleEvent* event) {
        if (event->type() != QAccessible::StateChanged) return;
        if (static_cast<QAccessibleStateChangeEvent*>(event)->changedStates().checked) ++changes;
    });
    button.setSelectable(true);
    button.setSelected(true);
    button.setSelected(true);
    click(button);
    QAccessible::installUpdateHandler(previous);
    EXPECT_EQ(2, changes);
}

// ---- colours, frames and glyphs

TEST_F(Button, StrokesFrameAndGlyphInTheColorOfItsState) {
    const Color red{1.0, 0.0, 0.0, 1.0};
    const Color green{0.0, 1.0, 0.0, 1.0};
    button.setEnabledColor(red);
    button.setSelectedColor(green);
    EXPECT_EQ(red, button.frameColor());
    EXPECT_EQ(globalFuncs.secondColor(), button.glyphColor());
    button.setEnabled(false);
    EXPECT_EQ(globalFuncs.thirdColor(), button.frameColor());
    EXPECT_EQ(globalFuncs.thirdColor(), button.glyphColor());
    button.setEnabled(true);
    button.setSelectable(true);
    EXPECT_EQ(globalFuncs.thirdColor(), button.frameColor());
    EXPECT_EQ(globalFuncs.thirdColor(), button.glyphColor());
    button.setSelected(true);
    EXPECT_EQ(green, button.frameColor());
    EXPECT_EQ(globalFuncs.secondColor(), button.glyphColor());
}

TEST_F(Button, FramesAWideButtonWithACircleInItsMiddle) {
    const QRectF circle = framePath(2, {1.0, 1.0, 48.0, 28.0}).boundingRect();
    EXPECT_EQ(QRectF(11.0, 1.0, 28.0, 28.0), circle);
    EXPECT_EQ(QRectF(1.0, 1.0, 48.0, 28.0), framePath(1, {1.0, 1.0, 48.0, 28.0}).boundingRect());
    EXPECT_EQ(QRectF(1.0, 1.0, 48.0, 28.0), framePath(3, {1.0, 1.0, 48.0, 28.0}).boundingRect());
    EXPECT_FALSE(framePath(3, {1.0, 1.0, 48.0, 28.0}).contains(QPointF(1.5, 1.5)));
    EXPECT_TRUE(framePath(4, {1.0, 1.0, 48.0, 28.0}).contains(QPointF(1.5, 1.5)));
    EXPECT_TRUE(framePath(0, {1.0, 1.0, 48.0, 28.0}).isEmpty());
    EXPECT_TRUE(framePath(5, {1.0, 1.0, 48.0, 28.0}).isEmpty());
}

std::vector<QPointF> pointsOf(const QPainterPath& path) {
    std::vector<QPointF> points;
    for (int i = 0; i < path.elementCount(); ++i) points.emplace_back(path.elementAt(i));
    return points;
}

// The area of a button of 50 by 30: middle (25, 15), from 6 to 24.
constexpr Rect glyphArea{6.0, 6.0, 38.0, 18.0};

TEST(Glyph, PlusReachesTheEdgesOfItsArea) {
    const auto parts = glyphParts(2, glyphArea, 1.3);
    ASSERT_EQ(1U, parts.size());
    EXPECT_EQ((std::vector<QPointF>{{16, 15}, {34, 15}, {25, 6}, {25, 24}}), pointsOf(parts[0].path));
    EXPECT_EQ(2.0, parts[0].width);
    EXPECT_EQ(Qt::FlatCap, parts[0].cap);
    EXPECT_FALSE(parts[0].filled);
}

TEST(Glyph, ArrowsAreMirrorImages) {
    const auto outwards = glyphParts(3, glyphArea, 1.3);
    ASSERT_EQ(2U, outwards.size());
    EXPECT_EQ((std::vector<QPointF>{{17, 15}, {21, 11}, {21, 13}, {24, 13}, {24, 17}, {21, 17}, {21, 19}, {17, 15}}),
              pointsOf(outwards[0].path));
    EXPECT_EQ((std::vector<QPointF>{{33, 15}, {29, 11}, {29, 13}, {26, 13}, {26, 17}, {29, 17}, {29, 19}, {33, 15}}),
              pointsOf(outwards[1].path));
    const auto inwards = glyphParts(4, glyphArea, 1.0);
    EXPECT_EQ((std::vector<QPointF>{{24, 15}, {20, 11}, {20, 13}, {17, 13}, {17, 17}, {20, 17}, {20, 19}, {24, 15}}),
              pointsOf(inwards.at(0).path));
    for (const GlyphPart& part : outwards) {
        EXPECT_EQ(1.3, part.width);
        EXPECT_EQ(Qt::SquareCap, part.cap);
    }
    EXPECT_EQ(1.0, inwards[0].width);
}

TEST(Glyph, HouseHasRoofWallsDoorAndChimney) {
    const auto parts = glyphParts(5, glyphArea, 1.3);
    ASSERT_EQ(1U, parts.size());
    EXPECT_EQ((std::vector<QPointF>{{25, 5},
                                    {31, 11},
                                    {29, 11},
                                    {29, 16},
                                    {26, 16},
                                    {26, 12},
                                    {24, 12},
                                    {24, 16},
                                    {21, 16},
                                    {21, 11},
                                    {19, 11},
                                    {21, 9},
                                    {21, 5},
                                    {23, 5},
                                    {23, 7},
                                    {25, 5}}),
              pointsOf(parts[0].path));
    EXPECT_EQ(1.2, parts[0].width);
}

TEST(Glyph, DotsAreThreePointsWideWithTheirStroke) {
    const auto parts = glyphParts(1, glyphArea, 1.3);
    ASSERT_EQ(1U, parts.size());
    EXPECT_EQ(QRectF(19.0, 13.5, 12.0, 3.0), parts[0].path.boundingRect());
    EXPECT_TRUE(parts[0].filled);
}

TEST(Glyph, AlarmHasADotOrABar) {
    const auto on = glyphParts(9, glyphArea, 1.3);
    const auto off = glyphParts(10, glyphArea, 1.3);
    ASSERT_EQ(2U, on.size());
    ASSERT_EQ(2U, off.size());
    EXPECT_EQ(QRectF(23.0, 13.0, 4.0, 4.0), on[1].path.boundingRect());
    EXPECT_TRUE(on[0].filled && on[1].filled);
    EXPECT_EQ(1.0, on[0].width);
    EXPECT_EQ(Qt::RoundCap, on[0].cap);
    EXPECT_EQ(1.0, off[0].width);
    EXPECT_EQ(3.0, off[1].width);
    EXPECT_EQ(Qt::SquareCap, off[1].cap);
    EXPECT_EQ(1.7, glyphParts(11, glyphArea, 1.3).at(0).width);
    EXPECT_TRUE(glyphParts(11, glyphArea, 1.3).at(0).filled);
}

TEST(Glyph, OpenCircleRunsClockwise) {
    const QPainterPath path = glyphParts(12, glyphArea, 1.3).at(0).path;
    const auto at = [](Point center, double radius, double degrees) {
        const double angle = degrees * std::numbers::pi / 180.0;
        return QPointF(center.x + radius * std::cos(angle), center.y + radius * std::sin(angle));
    };
    const QPointF start(path.elementAt(0));
    const QPointF end = path.currentPosition();
    EXPECT_LT(QLineF(start, at({25, 15}, 7, 15)).length(), 0.01);
    EXPECT_LT(QLineF(end, at({26, 14}, 6, 250)).length(), 0.01);
    EXPECT_NEAR(22.0, path.boundingRect().bottom(), 1e-3);  // below the middle: through 90 degrees
    EXPECT_NEAR(18.0, path.boundingRect().left(), 1e-3);    // and left of it: through 180 degrees
}

TEST(Glyph, UnknownShapesDrawNothing) {
    for (const int shape : {-1, 0, 7, 8, 13}) EXPECT_TRUE(glyphParts(shape, glyphArea, 1.3).empty()) << shape;
}

TEST_F(Button, ShowsSignsAsItsCaption) {
    button.setButtonShape(7);
    EXPECT_EQ("✧", button.text()->text());
    EXPECT_EQ("AppleColorEmoji", button.text()->fontName());
    EXPECT_DOUBLE_EQ(15.0 * 1.3, button.text()->fontSize());
    button.setButtonShape(8);
    EXPECT_EQ("ℹ︎", button.text()->text());
    button.setButtonShape(9);
    EXPECT_EQ("", button.text()->text());
    EXPECT_EQ("Verdana", button.text()->fontName());
}

TEST_F(Button, DrawsThinnerGlyphsWhenNotZoomed) {
    button.setButtonShape(3);
    const QImage zoomed = pictureOf(button, 2.0);
    globalFuncs.setZoomed(false);
    EXPECT_NE(zoomed, pictureOf(button, 2.0));
}

TEST_F(Button, CastsAShadowUnlessToldNotTo) {
    button.setButtonType(2);
    const QImage withShadow = pictureOf(button, 2.0);
    button.setIsShadow(false);
    EXPECT_NE(withShadow, pictureOf(button, 2.0));
}

TEST(ArcPath, RunsClockwiseFromTheRight) {
    const QPainterPath path = UIButtonX::createArcPath();
    EXPECT_EQ(QPointF(15.0, 10.0), QPointF(path.elementAt(0)));
    const double end = 5.0 / std::numbers::sqrt2;
    EXPECT_LT(QLineF(path.currentPosition(), {10.0 - end, 10.0 + end}).length(), 1e-6);
    EXPECT_NEAR(15.0, path.boundingRect().bottom(), 1e-3);
}

}  // namespace
}  // namespace quode::test
