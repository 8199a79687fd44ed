// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The buttons that open and close rows.
#include <QApplication>
#include <QTest>

#include "widget/widget_fixture.h"

namespace quode::test {
namespace {

class RowTaps : public WidgetTest {
  protected:
    bool isShown(const View* row) const { return row->isVisibleTo(widget->view()); }
};

TEST_F(RowTaps, OpenTheCityInformation) {
    presentWidgetFor("Istanbul");
    EXPECT_FALSE(isShown(widget->cityInfoView()));
    const int invalidations = host.invalidations;
    click(button("City information"));
    EXPECT_TRUE(isShown(widget->cityInfoView()));
    EXPECT_EQ(597.0, widget->getWidgetHeight());
    EXPECT_EQ(597.0, widget->mainTable()->frame().height);
    EXPECT_EQ(597.0, widget->myView()->frame().height);
    EXPECT_EQ((Size{320.0, 597.0}), widget->preferredViewSize());
    EXPECT_EQ(invalidations + 1, host.invalidations);
    EXPECT_EQ(280.0, widget->heightForRowAtIndexPath({0, 2}));
}

TEST_F(RowTaps, CloseTheCityInformationAgain) {
    presentWidgetFor("Istanbul");
    click(button("City information"));
    click(button("City information"));
    EXPECT_FALSE(isShown(widget->cityInfoView()));
    EXPECT_EQ(317.0, widget->mainTable()->frame().height);
    EXPECT_EQ(0.01, widget->heightForRowAtIndexPath({0, 2}));
    EXPECT_NEAR(40.02, widget->mainTable()->rectForRow(3).y, 1e-9);
}

TEST_F(RowTaps, OpenAShortCityInformationWithoutACity) {
    makeWidget().hostDidPresent();
    click(button("City information"));
    EXPECT_EQ(80.0, widget->heightForRowAtIndexPath({0, 2}));
    EXPECT_EQ(397.0, widget->getWidgetHeight());
    EXPECT_TRUE(isShown(widget->cityInfoView()));
}

TEST_F(RowTaps, ShowAllTimes) {
    presentWidgetFor("Istanbul");
    EXPECT_FALSE(isShown(widget->timesIsrakView()));
    click(button("Show all"));
    EXPECT_TRUE(widget->showOtherTimes());
    EXPECT_EQ(437.0, widget->getWidgetHeight());
    for (const int code : {206, 207, 208}) {
        EXPECT_TRUE(isShown(widget->timesView(code)));
        EXPECT_FALSE(isShown(widget->timesView(code)->buttonAlarmOnOff()));
    }
    EXPECT_EQ(QPoint(-15, 400), widget->footerView()->mapTo(widget->view(), QPoint()));
}

TEST_F(RowTaps, ShowLessTimesAgain) {
    presentWidgetFor("Istanbul");
    click(button("Show all"));
    click(button("Show less"));
    EXPECT_FALSE(widget->showOtherTimes());
    EXPECT_EQ(317.0, widget->myView()->frame().height);
    for (const int code : {206, 207, 208}) {
        EXPECT_FALSE(isShown(widget->timesView(code)));
        EXPECT_EQ(0.01, widget->heightForRowAtIndexPath({0, code - 197}));
    }
}

TEST_F(RowTaps, ReachEveryButtonInTheTableWhole) {
    presentWidgetFor("Istanbul");
    for (const auto* each : widget->view()->findChildren<UIButtonX*>()) {
        if (each->isVisibleTo(widget->view())) {
            EXPECT_TRUE(widget->view()->rect().contains(each->mapTo(widget->view(), each->rect().bottomRight())));
            EXPECT_TRUE(widget->view()->rect().contains(each->mapTo(widget->view(), QPoint())));
        }
    }
}

TEST_F(RowTaps, AreMadeByTheMouseWhereThePersonSeesTheButton) {
    presentWidgetFor("Istanbul");
    widget->view()->show();
    QWidget& root = *widget->view();
    const QPoint place = button("Show all").mapTo(&root, middleOf(button("Show all")));
    QWidget* hit = root.childAt(place);
    ASSERT_NE(nullptr, hit);
    EXPECT_EQ(&button("Show all"), hit);
    QTest::mouseClick(hit, Qt::LeftButton);
    EXPECT_TRUE(widget->showOtherTimes());
}

TEST_F(RowTaps, AreMadeByKeysThatKeepTheFocus) {
    presentWidgetFor("Istanbul");
    QWidget& root = *widget->view();
    root.show();
    root.activateWindow();
    UIButtonX& information = button("City information");
    information.setFocus();
    ASSERT_TRUE(QTest::qWaitFor([&] { return information.hasFocus(); }));
    QTest::keyClick(&information, Qt::Key_Space);
    EXPECT_TRUE(isShown(widget->cityInfoView()));
    EXPECT_TRUE(information.hasFocus());
    QTest::keyClick(&information, Qt::Key_Return);
    EXPECT_FALSE(isShown(widget->cityInfoView()));
    EXPECT_TRUE(information.hasFocus());
}

TEST_F(RowTaps, AreReachedByTheTabKeyFromTopToBottom) {
    presentWidgetFor("Istanbul");
    QWidget& root = *widget->view();
    root.show();
    root.activateWindow();
    UIButtonX& compass = button("Qibla compass");
    compass.setFocus();
    ASSERT_TRUE(QTest::qWaitFor([&] { return compass.hasFocus(); }));
    std::vector<std::string> order;
    for (int i = 0; i < 9; ++i) {
        order.push_back(static_cast<UIButtonX*>(QApplication::focusWidget())->spokenName());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_THAT(order, testing::ElementsAre("Qibla compass", "City information", "Alarm for Fajr", "Alarm for Sunrise",
                                            "Alarm for Dhuhr", "Alarm for Asr", "Alarm for Maghrib", "Alarm for Isha",
                                            "Show all"));
}

}  // namespace
}  // namespace quode::test
