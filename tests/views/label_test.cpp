// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "views/Label.h"

#include "views/drawing.h"
#include "views_support.h"

namespace quode::test {
namespace {

const Color white{1.0, 1.0, 1.0, 1.0};

class LabelMaker : public ViewsTest {
  protected:
    Label* made(const std::string& text, Size size = {100.0, 40.0}, TextAlign align = alignLeft, bool shadow = false) {
        return addLabel(view, {60.0, 20.0}, size, "Verdana", 15.0, text, white, align, false, shadow, 0);
    }

    // The columns of the view, from left to right, in which something is drawn.
    std::pair<int, int> inkColumns() {
        const QImage picture = pictureOf(view, 1.0);
        int first = picture.width();
        int last = -1;
        for (int x = 0; x < picture.width(); ++x) {
            for (int y = 0; y < picture.height(); ++y) {
                if (picture.pixel(x, y) == panelColor.rgb()) continue;
                first = std::min(first, x);
                last = x;
            }
        }
        return {first, last};
    }

    View view{Rect{0.0, 0.0, 200.0, 40.0}};
};

TEST_F(LabelMaker, MakesALabelInItsParent) {
    const Label* label = addLabel(view, {60.5, 20.0}, {120.0, 40.0}, "Verdana", 17.0, "Imsak", globalFuncs.firstColor(),
                                  alignCenter, false, true, 42);
    EXPECT_EQ(&view, label->parent());
    EXPECT_EQ((Rect{0.5, 0.0, 120.0, 40.0}), label->frame());
    EXPECT_EQ("Verdana", label->fontName());
    EXPECT_EQ(17.0, label->fontSize());
    EXPECT_EQ("Imsak", label->text());
    EXPECT_EQ(globalFuncs.firstColor(), label->textColor());
    EXPECT_EQ(alignCenter, label->textAlign());
    EXPECT_TRUE(label->shadow());
    EXPECT_EQ(42, label->tag());
    EXPECT_EQ(1, label->numberOfLines());
    EXPECT_FALSE(label->isHidden());
    EXPECT_TRUE(label->testAttribute(Qt::WA_TransparentForMouseEvents));
}

TEST_F(LabelMaker, MakesAHiddenLabel) {
    const Label* label =
        addLabel(view, {0.0, 0.0}, {10.0, 10.0}, "Verdana", 15.0, "x", white, alignLeft, true, false, 0);
    view.show();
    EXPECT_TRUE(label->isHidden());
}

TEST_F(LabelMaker, ShowsNothingForAMissingText) {
    Label* label =
        addLabel(view, {60.0, 20.0}, {100.0, 40.0}, "Verdana", 15.0, std::nullopt, white, alignLeft, false, false, 0);
    EXPECT_EQ("", label->text());
    EXPECT_EQ(-1, inkColumns().second);
    label->setText("there");
    EXPECT_GT(inkColumns().second, 0);
    label->setText(std::nullopt);
    EXPECT_EQ(-1, inkColumns().second);
}

TEST_F(LabelMaker, SetsTheTextLeftCentredOrRight) {
    made("Asr", {100.0, 40.0}, alignLeft);
    EXPECT_NEAR(10, inkColumns().first, 2);
    delete view.findChild<Label*>();
    made("Asr", {100.0, 40.0}, alignCenter);
    const auto [first, last] = inkColumns();
    EXPECT_NEAR(60.0, (first + last) * 0.5, 1.5);
    delete view.findChild<Label*>();
    made("Asr", {100.0, 40.0}, alignRight);
    EXPECT_NEAR(109, inkColumns().second, 2);
}

TEST_F(LabelMaker, MakesALongLineSmallerUntilItFits) {
    const Label::Layout fits = made("Asr")->layout();
    EXPECT_EQ(1.0, fits.scale);
    const Label* label = made("Isfirar al-Shams");
    const Label::Layout smaller = label->layout();
    EXPECT_LT(smaller.scale, 1.0);
    EXPECT_GT(smaller.scale, 0.5);
    EXPECT_EQ(std::vector<std::string>{"Isfirar al-Shams"}, smaller.lines);
    EXPECT_LE(inkColumns().second, 110);
}

TEST_F(LabelMaker, CutsTheTailOfALineThatCannotFit) {
    const std::string text = "Llanfairpwllgwyngyllgogerychwyrndrobwllllantysiliogogogoch";
    const Label::Layout cut = made(text)->layout();
    ASSERT_EQ(1U, cut.lines.size());
    EXPECT_EQ(0.5, cut.scale);
    EXPECT_TRUE(cut.lines[0].starts_with("Llanfair"));
    EXPECT_TRUE(cut.lines[0].ends_with("…"));
    EXPECT_LE(inkColumns().second, 110);
    EXPECT_EQ(QString::fromStdString(text),
              QAccessible::queryAccessibleInterface(view.findChild<Label*>())->text(QAccessible::Name));
}

TEST_F(LabelMaker, WrapsBetweenWordsAndCutsAfterTheLastLine) {
    Label* label = made("one two three four five six seven eight nine ten");
    label->setNumberOfLines(2);
    const std::vector<std::string> lines = label->layout().lines;
    ASSERT_EQ(2U, lines.size());
    EXPECT_TRUE(lines[0].starts_with("one two"));
    EXPECT_EQ(std::string::npos, (lines[0] + lines[1]).find("ten"));
    label->setText("one\ntwo");
    EXPECT_EQ((std::vector<std::string>{"one", "two"}), label->layout().lines);
    label->setText("Short");
    EXPECT_EQ(std::vector<std::string>{"Short"}, label->layout().lines);
}

TEST_F(LabelMaker, CastsABlackShadowOnePointRightAndDown) {
    made("I", {100.0, 40.0}, alignLeft, true);
    const QImage picture = pictureOf(view, 1.0);
    int darkest = 255;
    for (int y = 0; y < 40; ++y) {
        for (int x = 0; x < 40; ++x) darkest = std::min(darkest, qGreen(picture.pixel(x, y)));
    }
    EXPECT_LT(darkest, panelColor.green() / 2);
}

TEST_F(LabelMaker, IsDescribedAsATextThatChanges) {
    Label* label = made("Fajr");
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(label);
    EXPECT_EQ(QAccessible::StaticText, spoken->role());
    EXPECT_EQ("Fajr", spoken->text(QAccessible::Name).toStdString());
    label->setText("Dhuhr");
    EXPECT_EQ("Dhuhr", spoken->text(QAccessible::Name).toStdString());
    EXPECT_FALSE(spoken->state().focusable);
}

TEST_F(LabelMaker, UsesDejaVuWhereTheFontIsMissing) {
    const auto widthWith = [&](const std::string& font) {
        const auto label = std::make_unique<Label>(Rect{0.0, 0.0, 200.0, 40.0});
        label->setFont(font, 15.0);
        label->setText("Istanbul");
        label->setTextColor(white);
        return pictureOf(*label, 1.0);
    };
    EXPECT_EQ(widthWith("DejaVu Sans"), widthWith("No Such Font"));
}

}  // namespace
}  // namespace quode::test
