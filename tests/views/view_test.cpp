// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "views/View.h"

#include "views_support.h"

namespace quode::test {
namespace {

TEST(View, KeepsItsFrameInDoublesAndRoundsItOnTheScreen) {
    View view({0.4, 10.6, 100.2, 0.01});
    EXPECT_EQ((Rect{0.4, 10.6, 100.2, 0.01}), view.frame());
    EXPECT_EQ(QRect(0, 11, 101, 0), view.geometry());
    view.setCenter({50.25, 20.5});
    EXPECT_EQ((Point{50.25, 20.5}), view.center());
    EXPECT_EQ(100.2, view.frame().width);
    EXPECT_EQ((Rect{0.0, 0.0, 100.2, 0.01}), view.bounds());
}

TEST(View, StaysWhereItWasPutWhenItIsShown) {
    QWidget window;
    auto* view = addSubview(window, std::make_unique<View>(Rect{10.4, 20.4, 30.4, 40.4}));
    window.show();
    EXPECT_EQ((Rect{10.4, 20.4, 30.4, 40.4}), view->frame());
}

TEST(View, TakesThePlaceThatALayoutGivesIt) {
    QWidget window;
    auto* view = addSubview(window, std::make_unique<View>(Rect{10.4, 20.4, 30.4, 40.4}));
    window.show();
    view->setGeometry(1, 2, 3, 4);
    EXPECT_EQ((Rect{1.0, 2.0, 3.0, 4.0}), view->frame());
}

TEST(View, IsPutAboveTheOthersAndStaysHiddenWhenItWas) {
    QWidget window;
    addSubview(window, std::make_unique<View>(Rect{0.0, 0.0, 50.0, 50.0}));
    auto* above = addSubview(window, std::make_unique<View>(Rect{0.0, 0.0, 50.0, 50.0}));
    EXPECT_EQ(above, window.childAt(10, 10));
    auto hidden = std::make_unique<View>(Rect{0.0, 0.0, 50.0, 50.0});
    hidden->hide();
    auto* added = addSubview(window, std::move(hidden));
    window.show();
    EXPECT_FALSE(added->isVisible());
    EXPECT_TRUE(above->isVisible());
}

Rect resizedChild(unsigned mask, const Rect& child, const Rect& before, const Rect& after) {
    View outer(before);
    auto* inner = addSubview(outer, std::make_unique<View>(child));
    inner->setAutoresizingMask(mask);
    outer.setFrame(after);
    return inner->frame();
}

TEST(Autoresizing, SharesAChangeAmongTheFlexibleParts) {
    const Rect before{0.0, 0.0, 100.0, 40.0};
    const Rect after{0.0, 0.0, 200.0, 80.0};
    const Rect child{10.0, 10.0, 40.0, 20.0};
    EXPECT_EQ(child, resizedChild(fixedAutoresizing, child, before, after));
    EXPECT_EQ((Rect{10.0, 10.0, 140.0, 20.0}), resizedChild(flexibleWidth, child, before, after));
    EXPECT_EQ((Rect{110.0, 10.0, 40.0, 20.0}), resizedChild(flexibleLeftMargin, child, before, after));
    EXPECT_EQ((Rect{10.0, 10.0, 40.0, 60.0}), resizedChild(flexibleHeight, child, before, after));
    EXPECT_EQ((Rect{20.0, 10.0, 80.0, 20.0}),
              resizedChild(flexibleLeftMargin | flexibleWidth | flexibleRightMargin, child, before, after));
}

TEST(Autoresizing, SharesEquallyWhereThereIsNothingToShareBy) {
    const Rect resized = resizedChild(flexibleLeftMargin | flexibleWidth, {}, {}, {0.0, 0.0, 10.0, 10.0});
    EXPECT_EQ((Rect{5.0, 0.0, 5.0, 0.0}), resized);
}

TEST(Autoresizing, IsLeftUndoneWhereTheViewSaysSo) {
    View outer({0.0, 0.0, 100.0, 40.0});
    auto* inner = addSubview(outer, std::make_unique<View>(Rect{0.0, 0.0, 10.0, 10.0}));
    inner->setAutoresizingMask(flexibleWidth);
    outer.setAutoresizesSubviews(false);
    outer.setFrame({0.0, 0.0, 200.0, 40.0});
    EXPECT_EQ((Rect{0.0, 0.0, 10.0, 10.0}), inner->frame());
}

}  // namespace
}  // namespace quode::test
