// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The labels of the panel's own texts.
#include <gtest/gtest.h>

#include <QImage>
#include <QLabel>
#include <QWidget>

#include "host/widgets.h"
#include "views/fonts.h"

namespace quode::test {
namespace {

constexpr int width = 300;
const QColor ink(Qt::red);

class TextLabel : public testing::Test {
  protected:
    // The part of the label that its letters take.
    QRect inked(const QString& text) {
        label.setText(text);
        label.setFixedSize(width, label.heightForWidth(width));
        QImage image(label.size(), QImage::Format_RGB32);
        image.fill(Qt::white);
        host::setTextColor(label, ink);
        label.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
        QRect area;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y) != Qt::white) area |= QRect(x, y, 1, 1);
            }
        }
        return area;
    }

    int heightOf(const QString& text, int forWidth = width) {
        label.setText(text);
        return label.heightForWidth(forWidth);
    }

    QWidget window;
    QLabel& label = *host::newTextLabel(&window);
};

TEST_F(TextLabel, BeginsAtTheSideFromWhichItsLettersAreRead) {
    EXPECT_LT(inked("Fajr").right(), width / 2);
    EXPECT_GT(inked("الفجر").left(), width / 2);
    EXPECT_LE(inked("Fajr").left(), 2);
    EXPECT_GE(inked("الفجر").right(), width - 3);
}

TEST_F(TextLabel, HasLinesFartherApartThanTheFontAsks) {
    label.setFont(fontNamed("DejaVu Sans", host::textPixels));
    const QFontMetrics metrics(label.font());
    EXPECT_GT(heightOf("Monday\n14 Jumada al-Akhirah"), 2 * metrics.height());
    EXPECT_GT(heightOf("Monday"), metrics.height());
}

TEST_F(TextLabel, IsAsHighAsItsLinesAre) {
    const int line = heightOf("Monday");
    EXPECT_NEAR(heightOf("Monday\n14\n1448"), 3 * line, 2);
    EXPECT_NEAR(heightOf("Monday Monday", label.fontMetrics().horizontalAdvance("Monday Mon")), 2 * line, 1);
    EXPECT_NEAR(inked("Monday\nMonday").center().y(), line, 3);
}

TEST_F(TextLabel, CountsItsMargins) {
    const int before = heightOf("Monday");
    label.setContentsMargins(10, 7, 20, 5);
    EXPECT_EQ(heightOf("Monday"), before + 12);
    EXPECT_GE(inked("Monday").left(), 10);
    EXPECT_GE(inked("Monday").top(), 7);
    EXPECT_LE(inked("الفجر").right(), width - 20);
}

TEST_F(TextLabel, ShowsANewTextAndANewFont) {
    const QRect before = inked("Isha");
    EXPECT_GT(inked("Isha, Isha").width(), before.width());
    QFont larger = label.font();
    larger.setPixelSize(24);
    label.setFont(larger);
    EXPECT_GT(inked("Isha").height(), before.height());
}

}  // namespace
}  // namespace quode::test
