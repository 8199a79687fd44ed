// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "desktop/CityDialog.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

namespace quode::test {
namespace {

class CityDialogTest : public testing::Test {
  protected:
    const CityDatabase cities{CityDatabase::fileIn(QUODE_TEST_BUNDLE)};
    CityDialog dialog{[this](const std::string& text) { return cities.search(text); }, nullptr};

    std::string row(int number) { return dialog.list().item(number)->text().toStdString(); }
};

TEST_F(CityDialogTest, ListsPlacesWithEachKeyStroke) {
    QTest::keyClicks(&dialog.field(), "istan");
    ASSERT_GT(dialog.list().count(), 0);
    EXPECT_EQ(row(0).find("Istanbul"), 0U) << row(0);
    EXPECT_NE(row(0).find("Turkey"), std::string::npos) << row(0);
    EXPECT_EQ(dialog.list().currentRow(), 0);
    QTest::keyClick(&dialog.field(), Qt::Key_Backspace);
    EXPECT_GT(dialog.list().count(), 0);
}

TEST_F(CityDialogTest, IsWorkedByKeysAlone) {
    dialog.show();
    QTest::keyClicks(&dialog.field(), "springfield");
    ASSERT_GT(dialog.list().count(), 1);
    QTest::keyClick(&dialog.field(), Qt::Key_Down);
    EXPECT_EQ(dialog.list().currentRow(), 1);
    const int wanted = cities.search("springfield").at(1).city.id;
    QTest::keyClick(&dialog.field(), Qt::Key_Return);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    ASSERT_TRUE(dialog.chosen());
    EXPECT_EQ(dialog.chosen()->id, wanted);
}

TEST_F(CityDialogTest, SaysWhatToDoWhenNothingIsFound) {
    QTest::keyClicks(&dialog.field(), "qqqqqqqqqq");
    EXPECT_EQ(dialog.list().count(), 0);
    bool isTold = false;
    for (const auto* label : dialog.findChildren<QLabel*>()) {
        isTold |= !label->isHidden() && label->text().contains("another spelling");
    }
    EXPECT_TRUE(isTold);
    for (const auto* button : dialog.findChildren<QPushButton*>()) {
        EXPECT_TRUE(button->text() != "Make it home" || !button->isEnabled());
    }
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.chosen());
}

TEST_F(CityDialogTest, NamesItsControls) {
    EXPECT_EQ(dialog.field().accessibleName(), "Name of the city");
    EXPECT_EQ(dialog.list().accessibleName(), "Cities found");
}

}  // namespace
}  // namespace quode::test
