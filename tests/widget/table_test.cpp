// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The plain table alone.
#include <QCoreApplication>
#include <QPainter>

#include "support/fake_platform.h"
#include "views/views_support.h"
#include "widget/WidgetTable.h"

namespace quode::test {
namespace {

// Rows of views that the test owns.
class Rows : public WidgetTableSource {
  public:
    struct Row {
        View* view = nullptr;
        double height = 40.0;
    };

    int numberOfSectionsInTableView() const override { return sections; }
    int numberOfRowsInSection(int) const override { return static_cast<int>(rows.size()); }
    double heightForRowAtIndexPath(IndexPath path) const override {
        ++questions;
        return rows.at(static_cast<std::size_t>(path.row)).height;
    }
    void cellForRowAtIndexPath(WidgetTableCell& cell, IndexPath path) const override {
        cell.setAccessoryView(rows.at(static_cast<std::size_t>(path.row)).view);
        if (path.row > 0) cell.setTag(100 + path.row);
    }

    int sections = 1;
    std::vector<Row> rows;
    mutable int questions = 0;
};

class Table : public ViewsTest {
  protected:
    Table() {
        table.setSeparatorInset({0.0, 50.0, 0.0, 0.0});
        table.setDataSource(&rows);
    }

    // Sets the frame of the table, which then reads its rows.
    void lay() { table.setFrame({0.0, 0.0, 320.0, 200.0}); }

    // True when a line is drawn at a point.
    bool isLineAt(int x, int y) { return pictureOf(table, 1.0).pixel(x, y) != panelColor.rgb(); }

    Rows rows;
    WidgetTable table{Rect{0.0, 0.0, 320.0, 200.0}};  // deleted after its views
    View first{Rect{0.0, 0.0, 320.0, 40.0}}, second{Rect{0.0, 0.0, 320.0, 40.0}}, third{Rect{0.0, 0.0, 320.0, 30.0}};
};

TEST_F(Table, AsksForItsRowsAtTheNextLayout) {
    rows.rows = {{&first}};
    EXPECT_EQ(0, rows.questions);
    EXPECT_EQ(0, table.numberOfRows());
    lay();
    EXPECT_EQ(1, table.numberOfRows());
    EXPECT_EQ(1, rows.questions);
    lay();
    EXPECT_EQ(1, rows.questions);
}

TEST_F(Table, AsksForItsRowsInTheEventLoopToo) {
    rows.rows = {{&first}};
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(1, table.numberOfRows());
}

TEST_F(Table, StacksItsRowsInExactHeights) {
    rows.rows = {{nullptr, 0.01}, {&first}, {nullptr, 0.01}, {&second}};
    lay();
    EXPECT_EQ((Rect{0.0, 0.0, 320.0, 0.01}), table.rectForRow(0));
    EXPECT_EQ((Rect{0.0, 0.01, 320.0, 40.0}), table.rectForRow(1));
    EXPECT_EQ((Rect{0.0, 40.01, 320.0, 0.01}), table.rectForRow(2));
    EXPECT_DOUBLE_EQ(40.02, table.rectForRow(3).y);
    EXPECT_EQ(QRect(0, 40, 320, 40), table.cellForRow(3).geometry());
}

TEST_F(Table, CountsTheRowsOfAllSections) {
    rows.rows = {{nullptr, 10.0}, {nullptr, 20.0}};
    rows.sections = 2;
    lay();
    EXPECT_EQ(4, table.numberOfRows());
    EXPECT_EQ((Rect{0.0, 40.0, 320.0, 20.0}), table.rectForRow(3));
}

TEST_F(Table, PlacesAViewInTheMiddleOfItsRowBeforeTheRightMargin) {
    rows.rows = {{&first}, {&third}};
    lay();
    EXPECT_EQ((Rect{-15.0, 0.0, 320.0, 40.0}), first.frame());
    EXPECT_EQ((Rect{-15.0, 5.0, 320.0, 30.0}), third.frame());
    EXPECT_EQ(QPoint(-15, 45), third.mapTo(&table, QPoint()));
}

TEST_F(Table, DrawsALineUnderEachRowFromTheInsetToTheEdge) {
    rows.rows = {{&first}, {&second}};
    lay();
    for (const int y : {39, 79}) {
        EXPECT_TRUE(isLineAt(50, y)) << y;
        EXPECT_TRUE(isLineAt(319, y)) << y;
        EXPECT_FALSE(isLineAt(49, y)) << y;
        EXPECT_FALSE(isLineAt(200, y - 1)) << y;
        EXPECT_FALSE(isLineAt(200, y + 1)) << y;
    }
}

TEST_F(Table, ShowsNothingOfARowOfAlmostNoHeight) {
    rows.rows = {{nullptr, 0.01}, {nullptr, 0.01}, {nullptr, 0.01}};
    lay();
    for (int y = 0; y < 4; ++y) EXPECT_FALSE(isLineAt(200, y)) << y;
    EXPECT_TRUE(table.cellForRow(0).isHidden());
    EXPECT_EQ(0, table.cellForRow(0).height());
}

TEST_F(Table, LeavesTagsThatARowDoesNotGive) {
    rows.rows = {{&first}, {&second}};
    lay();
    EXPECT_EQ(0, table.cellForRow(0).tag());
    EXPECT_EQ(101, table.cellForRow(1).tag());
}

TEST_F(Table, TakesAViewOutOfARowThatIsEmptied) {
    rows.rows = {{&first}, {&second}};
    lay();
    rows.rows = {{&first}, {nullptr, 0.01}};
    table.reloadData();
    EXPECT_EQ(nullptr, second.parentWidget());
    EXPECT_FALSE(second.isVisibleTo(&table));
    EXPECT_TRUE(first.isVisibleTo(&table));
    rows.rows = {{&first}, {&second}};
    table.reloadData();
    EXPECT_TRUE(second.isVisibleTo(&table));
    EXPECT_EQ(40.0, second.frame().height);
}

TEST_F(Table, KeepsAViewInItsCellWhenItAsksAgain) {
    rows.rows = {{&first}, {&second}};
    lay();
    const QWidget* cell = second.parentWidget();
    table.reloadData();
    EXPECT_EQ(cell, second.parentWidget());
    EXPECT_EQ(2, table.findChildren<WidgetTableCell*>().size());
}

TEST_F(Table, DropsTheCellsOfRowsThatHaveGone) {
    rows.rows = {{&first}, {nullptr, 40.0}};
    lay();
    rows.rows = {{&first}};
    table.reloadData();
    EXPECT_EQ(1, table.numberOfRows());
    EXPECT_EQ(1, table.findChildren<WidgetTableCell*>().size());
}

TEST_F(Table, SurvivesTheEndOfAView) {
    auto shortLived = std::make_unique<View>(Rect{0.0, 0.0, 320.0, 40.0});
    rows.rows = {{shortLived.get()}};
    lay();
    shortLived.reset();
    lay();
    EXPECT_EQ(nullptr, table.cellForRow(0).accessoryView());
}

TEST_F(Table, DoesNotStretchItsViewsWithItsOwnHeight) {
    first.setAutoresizingMask(flexibleHeight);
    rows.rows = {{&first}};
    lay();
    table.setFrame({0.0, 0.0, 320.0, 900.0});
    EXPECT_EQ(40.0, first.frame().height);
}

TEST_F(Table, LeavesTheEventLoopInPeace) {
    rows.rows = {{&first}, {&second}};
    lay();
    table.show();
    for (int i = 0; i < 10; ++i) QCoreApplication::processEvents();
    class Requests : public QObject {
      public:
        bool eventFilter(QObject*, QEvent* event) override {
            count += event->type() == QEvent::LayoutRequest ? 1 : 0;
            return false;
        }
        int count = 0;
    } requests;
    table.installEventFilter(&requests);
    for (int i = 0; i < 10; ++i) QCoreApplication::processEvents();
    EXPECT_EQ(0, requests.count);
}

}  // namespace
}  // namespace quode::test
