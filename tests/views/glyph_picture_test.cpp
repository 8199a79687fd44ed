// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Every glyph in every state, and every frame, compared with checked pictures. To make new ones, run this program with
// QUODE_TAKE_PICTURES=1 and check tests/fixtures/glyphs by eye.
#include <QPainter>
#include <QTest>

#include "support/fixtures.h"
#include "views/UIButtonX.h"
#include "views_support.h"

namespace quode::test {
namespace {

constexpr double pixelsPerPoint = 2.0;
constexpr double tolerance = 4.0;  // of 255: edges may be smoothed a little differently

enum class State { normal, pressed, disabled, unselected, selected, focused };
constexpr State states[] = {State::normal,     State::pressed,  State::disabled,
                            State::unselected, State::selected, State::focused};

QImage buttonPicture(int type, int shape, State state) {
    QWidget window;
    window.resize(50, 30);
    auto& button = *addSubview(window, std::make_unique<UIButtonX>(Rect{0.0, 0.0, 50.0, 30.0}));
    button.setButtonType(type);
    button.setButtonShape(shape);
    button.setSelectable(state == State::unselected || state == State::selected);
    button.setSelected(state == State::selected);
    button.setEnabled(state != State::disabled);
    if (state == State::pressed) pressAt(button, middleOf(button));
    if (state == State::focused) {
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        button.clearFocus();
        button.setFocus(Qt::TabFocusReason);
    }
    return pictureOf(button, pixelsPerPoint);
}

// The states of a button in a row.
QImage statesPicture(int type, int shape) {
    const QSize size(100, 60);
    QImage sheet(size.width() * int(std::size(states)), size.height(), QImage::Format_RGB32);
    QPainter painter(&sheet);
    int x = 0;
    for (const State state : states) {
        QImage picture = buttonPicture(type, shape, state);
        picture.setDevicePixelRatio(1.0);
        painter.drawImage(x, 0, picture);
        x += size.width();
    }
    return sheet;
}

void compareWithFixture(const QImage& picture, const std::string& name) {
    const QString path = QString::fromStdString(test::fixture("glyphs/" + name + ".png"));
    if (qEnvironmentVariableIsSet("QUODE_TAKE_PICTURES")) {
        ASSERT_TRUE(picture.save(path)) << path.toStdString();
    }
    const QImage expected = QImage(path).convertToFormat(QImage::Format_RGB32);
    ASSERT_EQ(expected.size(), picture.size()) << path.toStdString();
    for (int i = 0; i < int(std::size(states)); ++i) {
        const QRect part(i * 100, 0, 100, 60);
        EXPECT_LE(differenceOf(expected.copy(part), picture.copy(part)), tolerance) << name << ", state " << i;
    }
}

class GlyphPicture : public ViewsTest, public testing::WithParamInterface<int> {};

TEST_P(GlyphPicture, LooksAsItWasJudgedGood) {
    const int shape = GetParam();
    compareWithFixture(statesPicture(2, shape), "shape-" + std::to_string(shape));
}

INSTANTIATE_TEST_SUITE_P(Shapes, GlyphPicture, testing::Range(0, 13));

class FramePicture : public ViewsTest, public testing::WithParamInterface<int> {};

TEST_P(FramePicture, LooksAsItWasJudgedGood) {
    compareWithFixture(statesPicture(GetParam(), 5), "frame-" + std::to_string(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Types, FramePicture, testing::Range(0, 5));

class PictureComparison : public ViewsTest {};

TEST_F(PictureComparison, TellsGlyphsAndStatesApart) {
    EXPECT_GT(differenceOf(buttonPicture(2, 9, State::selected), buttonPicture(2, 10, State::selected)),
              4.0 * tolerance);
    EXPECT_GT(differenceOf(buttonPicture(2, 9, State::selected), buttonPicture(2, 9, State::unselected)),
              4.0 * tolerance);
    EXPECT_EQ(0.0, differenceOf(buttonPicture(2, 9, State::normal), buttonPicture(2, 9, State::normal)));
}

}  // namespace
}  // namespace quode::test
