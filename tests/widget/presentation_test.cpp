// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The widget as its host uses it: created, presented, dismissed, presented again.
#include <QApplication>

#include "widget/widget_fixture.h"

// The existing objects, as Qt reports them to its inspection tools.
extern quintptr Q_DECL_IMPORT qtHookData[];

namespace quode::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

int liveObjects = 0;

// Counts the QObjects of the process that are created and deleted while it exists.
class ObjectCount {
  public:
    ObjectCount() : add_(qtHookData[addObject]), remove_(qtHookData[removeObject]) {
        liveObjects = 0;
        qtHookData[addObject] = reinterpret_cast<quintptr>(+[](QObject*) { ++liveObjects; });
        qtHookData[removeObject] = reinterpret_cast<quintptr>(+[](QObject*) { --liveObjects; });
    }
    ~ObjectCount() {
        qtHookData[addObject] = add_;
        qtHookData[removeObject] = remove_;
    }

  private:
    static constexpr int addObject = 3, removeObject = 4;
    quintptr add_, remove_;
};

class Presentation : public WidgetTest {
  protected:
    std::vector<double> rowHeights() const {
        std::vector<double> heights;
        for (int row = 0; row < 13; ++row) heights.push_back(widget->heightForRowAtIndexPath({0, row}));
        return heights;
    }

    std::vector<int> cellTags() const {
        std::vector<int> tags;
        for (int row = 0; row < 13; ++row) tags.push_back(widget->mainTable()->cellForRow(row).tag());
        return tags;
    }

    // The visible rows.
    std::vector<int> filledRows() const {
        std::vector<int> rows;
        for (int row = 0; row < 13; ++row) {
            if (widget->mainTable()->cellForRow(row).accessoryView() != nullptr) rows.push_back(row);
        }
        return rows;
    }
};

TEST_F(Presentation, BuildsOnceWhenItIsMade) {
    makeWidgetFor("Istanbul");
    ASSERT_NE(nullptr, widget->view());
    EXPECT_EQ(widget->myView(), widget->view());
    EXPECT_FALSE(widget->showOtherTimes());
    EXPECT_EQ("06:06", widget->timesImsakView()->labelPrayTime()->text());
    EXPECT_NE(nullptr, widget->timer());
    EXPECT_EQ("", log());
}

TEST_F(Presentation, TellsTheSharedServicesTheFolderOfTheBundle) {
    makeWidget();
    EXPECT_EQ(QUODE_BUNDLE, GlobalFuncs::globalFuncs().appBundlePath());
}

TEST_F(Presentation, PutsTheTableIntoTheRootView) {
    presentWidgetFor("Istanbul");
    EXPECT_EQ((Rect{0.0, 0.0, 320.0, 317.0}), widget->myView()->frame());
    EXPECT_EQ(unsigned(flexibleWidth), widget->myView()->autoresizingMask());
    EXPECT_EQ((Rect{0.0, 0.0, 320.0, 317.0}), widget->mainTable()->frame());
    EXPECT_EQ(widget->myView(), widget->mainTable()->parentWidget());
    EXPECT_TRUE(widget->mainTable()->autoresizesSubviews());
    EXPECT_EQ((EdgeInsets{0.0, 50.0, 0.0, 0.0}), widget->mainTable()->separatorInset());
}

TEST_F(Presentation, MakesEveryRowAsWideAsTheWidget) {
    device.device->bounds = {0.0, 0.0, 768.0, 1024.0};
    device.device->kind = Idiom::tablet;
    presentWidgetFor("Istanbul");
    EXPECT_EQ((Size{480.0, 317.0}), widget->preferredViewSize());
    const std::vector<const View*> rows{widget->cityNameView(),         widget->cityInfoView(),
                                        widget->religiousView(),        widget->timesImsakView(),
                                        widget->timesIsfirarSemsView(), widget->footerView()};
    for (const View* row : rows) EXPECT_EQ(480.0, row->frame().width);
}

TEST_F(Presentation, GivesThePrayerRowsTheirCodesNamesAndButtons) {
    presentWidgetFor("Istanbul");
    const std::vector<std::string> names{"Fajr",   "Sunrise",      "Dhuhr",           "Asr", "Maghrib", "Isha",
                                         "Ishraq", "Asr al-Thani", "Isfirar al-Shams"};
    for (int code = 200; code <= 208; ++code) {
        const UITimesView& row = *widget->timesView(code);
        EXPECT_EQ(code, row.tag());
        EXPECT_EQ(names[std::size_t(code) - 200], row.labelPrayName()->text());
        EXPECT_EQ(40.0, row.frame().height);
        EXPECT_EQ(code > 205, row.buttonAlarmOnOff()->isHidden()) << code;
        EXPECT_EQ(code > 205, row.delegate() == nullptr) << code;
        EXPECT_EQ(code > 205 ? 0U : unsigned(flexibleHeight), row.autoresizingMask()) << code;
    }
    EXPECT_EQ(widget->timesOgleView(), widget->timesView(202));
    EXPECT_EQ(widget->timesAsrSaniView(), widget->timesView(207));
}

TEST_F(Presentation, HasThirteenRowsOfWhichFourHideAtFirst) {
    presentWidgetFor("Istanbul");
    EXPECT_EQ(1, widget->numberOfSectionsInTableView());
    EXPECT_EQ(13, widget->numberOfRowsInSection(0));
    EXPECT_EQ(13, widget->mainTable()->numberOfRows());
    const double h = 40.0, none = 0.01;
    EXPECT_THAT(rowHeights(), ElementsAre(none, h, none, h, h, h, h, h, h, none, none, none, h));
    EXPECT_THAT(filledRows(), ElementsAre(1, 3, 4, 5, 6, 7, 8, 12));
    EXPECT_THAT(cellTags(), ElementsAre(0, 101, 0, 200, 201, 202, 203, 204, 205, 206, 207, 208, 0));
}

TEST_F(Presentation, ShowsTheRowsInTheirOrder) {
    device.clock->show(2026, 12, 31, 11, 0, 0);
    presentWidgetFor("Istanbul");
    click(button("City information"));
    click(button("Show all"));
    const double h = 40.0;
    EXPECT_THAT(rowHeights(), ElementsAre(h, h, 280.0, h, h, h, h, h, h, h, h, h, h));
    const std::vector<const View*> views{
        widget->religiousView(),  widget->cityNameView(),   widget->cityInfoView(),     widget->timesImsakView(),
        widget->timesGunesView(), widget->timesOgleView(),  widget->timesIkindiView(),  widget->timesAksamView(),
        widget->timesYatsiView(), widget->timesIsrakView(), widget->timesAsrSaniView(), widget->timesIsfirarSemsView(),
        widget->footerView()};
    double top = 0.0;
    for (int row = 0; row < 13; ++row) {
        const View* view = views[std::size_t(row)];
        ASSERT_EQ(view, widget->mainTable()->cellForRow(row).accessoryView()) << row;
        EXPECT_EQ(top, widget->mainTable()->rectForRow(row).y) << row;
        EXPECT_EQ(QPoint(-15, int(top)), view->mapTo(widget->view(), QPoint())) << row;
        top += widget->heightForRowAtIndexPath({0, row});
    }
}

TEST_F(Presentation, CountsFixedHeightsForTimesAndFooter) {
    presentWidgetFor("Istanbul");
    EXPECT_EQ(40.0 + 0.0 + 240.0 + 37.0, widget->getWidgetHeight());
    widget->footerView()->setFrame({0.0, 0.0, 320.0, 90.0});
    widget->timesImsakView()->setFrame({0.0, 0.0, 320.0, 70.0});
    EXPECT_EQ(317.0, widget->getWidgetHeight());
    EXPECT_EQ(70.0, widget->heightForRowAtIndexPath({0, 8}));
    EXPECT_EQ(90.0, widget->heightForRowAtIndexPath({0, 12}));
}

TEST_F(Presentation, CountsTheReligiousViewEvenWhileItsRowHides) {
    presentWidgetFor("Istanbul");
    widget->religiousView()->setFrame({0.0, 0.0, 320.0, 40.0});
    EXPECT_EQ(357.0, widget->getWidgetHeight());
    EXPECT_EQ(0.01, widget->heightForRowAtIndexPath({0, 0}));
    EXPECT_EQ(nullptr, widget->mainTable()->cellForRow(0).accessoryView());
}

TEST_F(Presentation, ShowsTheReligiousDaysOfTheDayOnTop) {
    device.clock->show(2026, 12, 31, 11, 0, 0);
    presentWidgetFor("Istanbul");
    EXPECT_EQ(1U, widget->religiousView()->religiousDaysArray().size());
    EXPECT_EQ(40.0, widget->heightForRowAtIndexPath({0, 0}));
    EXPECT_EQ(357.0, widget->preferredViewSize().height);
    EXPECT_EQ(357.0, widget->mainTable()->frame().height);
    EXPECT_EQ(widget->religiousView()->religiousDaysArray().front(), shownTexts().front());
}

TEST_F(Presentation, ShowsTheFestivalWithTheTimeOfItsPrayerInTheCity) {
    device.clock->show(2026, 5, 26, 11, 0, 0);  // the eve of 10 Dhu al-Hijjah 1447
    presentWidgetFor("Istanbul");
    const std::vector<std::string>& days = widget->religiousView()->religiousDaysArray();
    ASSERT_EQ(3U, days.size());
    EXPECT_THAT(days.back(), testing::HasSubstr(widget->timesIsrakView()->labelPrayTime()->text()));
    EXPECT_EQ(317.0 + 120.0, widget->getWidgetHeight());
}

TEST_F(Presentation, TellsTheHostThatItsHeightChanged) {
    makeWidgetFor("Istanbul");
    host.invalidations = 0;
    widget->hostDidPresent();
    EXPECT_EQ(2, host.invalidations);  // once in the build, once after it
    widget->refreshMainTableHeight();
    EXPECT_EQ(3, host.invalidations);
}

TEST_F(Presentation, NeedsNoHost) {
    makeWidgetFor("Istanbul").setWidgetHost(nullptr);
    widget->hostDidPresent();
    click(button("Show all"));
    EXPECT_EQ(437.0, widget->myView()->frame().height);
}

TEST_F(Presentation, KeepsThePlaceThatTheHostGaveTheView) {
    presentWidgetFor("Istanbul");
    widget->myView()->setFrame({7.0, 9.0, 300.0, 10.0});
    widget->refreshMainTableHeight();
    EXPECT_EQ((Rect{7.0, 9.0, 300.0, 317.0}), widget->myView()->frame());
}

TEST_F(Presentation, ReleasesEverythingWhenItIsDismissed) {
    presentWidgetFor("Istanbul");
    const QPointer<QWidget> view = widget->view();
    widget->hostDidDismiss();
    EXPECT_TRUE(view.isNull());
    EXPECT_EQ(nullptr, widget->view());
    EXPECT_EQ(nullptr, widget->mainTable());
    EXPECT_EQ(nullptr, widget->religiousView());
    EXPECT_EQ(nullptr, widget->footerView());
    for (int code = 200; code <= 208; ++code) EXPECT_EQ(nullptr, widget->timesView(code));
    EXPECT_EQ(nullptr, widget->timer());
    EXPECT_THAT(widget->userCities(), IsEmpty());
    EXPECT_THAT(QApplication::allWidgets(), IsEmpty());
}

TEST_F(Presentation, CountsWhatDoesNotExistAsNoHeight) {
    presentWidgetFor("Istanbul");
    widget->hostDidDismiss();
    EXPECT_EQ(277.0, widget->getWidgetHeight());
    EXPECT_EQ((Size{320.0, 277.0}), widget->preferredViewSize());
    widget->refreshMainTableHeight();
    widget->hostDidDismiss();
    EXPECT_EQ(nullptr, widget->view());
}

TEST_F(Presentation, RemembersTheFurtherTimesButNotTheOpenDetails) {
    presentWidgetFor("Istanbul");
    click(button("Show all"));
    click(button("City information"));
    EXPECT_EQ(717.0, widget->getWidgetHeight());
    widget->hostDidDismiss();
    widget->hostDidPresent();
    EXPECT_EQ(437.0, widget->getWidgetHeight());
    EXPECT_TRUE(button("Show less").selected());
    EXPECT_FALSE(button("City information").selected());
    EXPECT_THAT(filledRows(), ElementsAre(1, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12));
}

TEST_F(Presentation, TakesThePlaceOfAnEarlierBuild) {
    makeWidgetFor("Istanbul");
    const QPointer<QWidget> first = widget->view();
    const QPointer<View> firstRow = widget->timesOgleView();
    const int widgets = int(QApplication::allWidgets().size());
    widget->hostDidPresent();
    EXPECT_TRUE(first.isNull());
    EXPECT_TRUE(firstRow.isNull());
    EXPECT_EQ(widgets + 13, int(QApplication::allWidgets().size()));  // the cells, shown by the host first
}

TEST_F(Presentation, ShowsNothingTwiceInAPanelThatKeepsTheView) {
    QWidget panel;
    presentWidgetFor("Istanbul").view()->setParent(&panel);
    for (int i = 0; i < 3; ++i) {
        widget->hostDidPresent();
        widget->view()->setParent(&panel);
        EXPECT_EQ(1, panel.children().size());
        EXPECT_EQ(1, panel.findChildren<UICityNameView*>().size());
        EXPECT_EQ(6, panel.findChildren<UITimesView*>().size());
    }
}

TEST_F(Presentation, SurvivesAPanelThatTakesTheViewWithIt) {
    auto panel = std::make_unique<QWidget>();
    presentWidgetFor("Istanbul").view()->setParent(panel.get());
    panel.reset();
    EXPECT_EQ(nullptr, widget->view());
    tick();
    device.clock->show(2026, 11, 22, 0, 0, 0);
    tick();
    widget->hostDidDismiss();
    widget->hostDidPresent();
    EXPECT_EQ("22 November 2026", widget->cityInfoView()->labelMiladi()->text());
}

TEST_F(Presentation, DoesNotGrowInAHundredPresentations) {
    makeWidgetFor("Istanbul");
    const auto presentAndUse = [this] {
        widget->hostDidPresent();
        click(button("City information"));
        click(button("Show all"));
        click(button("Show less"));
        QCoreApplication::processEvents();
    };
    presentAndUse();  // for what the toolkit creates once and keeps
    widget->hostDidDismiss();
    const ObjectCount count;
    int presented = 0;
    for (int i = 0; i < 100; ++i) {
        presentAndUse();
        if (i == 0) presented = liveObjects;
        ASSERT_GT(liveObjects, 50);
        ASSERT_EQ(presented, liveObjects) << i;
        widget->hostDidDismiss();
        ASSERT_EQ(0, liveObjects) << i;
    }
}

TEST_F(Presentation, DoesNotGrowWhenItIsPresentedOverAndOver) {
    presentWidgetFor("Istanbul");
    const ObjectCount count;
    for (int i = 0; i < 100; ++i) {
        widget->hostDidPresent();
        ASSERT_EQ(0, liveObjects) << i;
    }
}

TEST_F(Presentation, LeavesNothingBehind) {
    makeWidget();
    widget.reset();
    const ObjectCount count;
    presentWidgetFor("Istanbul");
    EXPECT_GT(liveObjects, 50);
    widget.reset();
    EXPECT_EQ(0, liveObjects);
}

TEST_F(Presentation, TellsOfItsRowsInReadingOrder) {
    presentWidgetFor("Istanbul");
    std::vector<std::string> named;
    for (std::string& name : spokenNames(*widget->view())) {
        if (!name.empty()) named.push_back(std::move(name));
    }
    const std::vector<std::string> start(named.begin(), named.begin() + 8);
    EXPECT_THAT(start, ElementsAre("City", "Istanbul", "Qibla compass", "City information", "Fajr 06:06", "Fajr",
                                   "06:06", "Alarm for Fajr"));
    EXPECT_EQ("Show all", named.back());
    click(button("City information"));
    const QAccessibleInterface& details = spokenAs(*widget->view(), "Details of the city");
    EXPECT_EQ(QAccessible::Row, details.role());
}

}  // namespace
}  // namespace quode::test
