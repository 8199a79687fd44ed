// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "views/Label.h"

#include <QAccessible>
#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>
#include <cmath>

#include "texts/reading_order.h"
#include "views/fonts.h"
#include "views/qt_conversions.h"

namespace quode {
namespace {

constexpr double smallestScale = 0.5;
constexpr Point shadowOffset{1.0, 1.0};

// The first lines of a text that is wrapped between words, or within a word that is longer than a line.
std::vector<std::string> wrappedLines(const QString& text, const QFont& font, double width, int count) {
    QTextLayout layout(text, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    std::vector<std::string> lines;
    layout.beginLayout();
    while (int(lines.size()) < count) {
        QTextLine line = layout.createLine();
        if (!line.isValid()) break;
        line.setLineWidth(width);
        lines.push_back(text.mid(line.textStart(), line.textLength()).trimmed().toStdString());
    }
    layout.endLayout();
    return lines;
}

}  // namespace

Label::Label(const Rect& frame, QWidget* parent) : View(frame, parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
}

void Label::setText(std::optional<std::string> text) {
    std::string shown = std::move(text).value_or(std::string());
    if (shown == text_) return;
    text_ = std::move(shown);
    update();
    QAccessibleEvent event(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
}

void Label::setFont(std::string name, double size) {
    fontName_ = std::move(name);
    fontSize_ = size;
    update();
}

void Label::setTextColor(const Color& color) {
    textColor_ = color;
    update();
}

void Label::setTextAlign(TextAlign align) {
    textAlign_ = align;
    update();
}

void Label::setShadow(bool value) {
    shadow_ = value;
    update();
}

void Label::setNumberOfLines(int lines) {
    numberOfLines_ = lines;
    update();
}

void Label::setDrawsItself(bool value) {
    drawsItself_ = value;
    update();
}

// A font has whole points; the scale of the layout makes up the difference.
QFont Label::screenFont() const {
    return fontNamed(fontName_, std::max(1, static_cast<int>(std::ceil(fontSize_))));
}

Label::Layout Label::layout() const {
    const QFont font = screenFont();
    const double natural = fontSize_ / font.pixelSize();
    const double width = bounds().width / natural;
    QString text = toQt(text_);
    if (numberOfLines_ > 1) {
        return {wrappedLines(text.replace(QChar::LineFeed, QChar::LineSeparator), font, width, numberOfLines_),
                natural};
    }
    text.replace(QChar::LineFeed, QChar::Space);
    const QFontMetricsF metrics(font);
    const double needed = metrics.horizontalAdvance(text);
    if (needed <= width) return {{text.toStdString()}, natural};
    if (needed * smallestScale <= width) return {{text.toStdString()}, natural * width / needed};
    const QString cut = metrics.elidedText(text, Qt::ElideRight, width / smallestScale);
    return {{cut.toStdString()}, natural * smallestScale};
}

void Label::draw(QPainter& painter) const {
    if (text_.empty()) return;
    const Layout shown = layout();
    painter.save();
    painter.setFont(screenFont());
    if (shadow_) {
        painter.setPen(Qt::black);
        painter.translate(toQt(shadowOffset));
        drawLines(painter, shown);
        painter.translate(-toQt(shadowOffset));
    }
    painter.setPen(toQt(textColor_));
    drawLines(painter, shown);
    painter.restore();
}

void Label::drawLines(QPainter& painter, const Layout& layout) const {
    const QFontMetricsF metrics(painter.font());
    const double lineHeight = metrics.height() * layout.scale;
    double top = (bounds().height - lineHeight * double(layout.lines.size())) * 0.5;
    for (const std::string& line : layout.lines) {
        const QString text = toQt(withPartsTogether(line));
        const double spare = bounds().width - metrics.horizontalAdvance(text) * layout.scale;
        const double left = textAlign_ == alignLeft ? 0.0 : textAlign_ == alignCenter ? spare * 0.5 : spare;
        painter.save();
        // Whole points keep the letters sharp.
        painter.translate(std::round(left), std::round(top + metrics.ascent() * layout.scale));
        painter.scale(layout.scale, layout.scale);
        painter.drawText(QPointF(), text);
        painter.restore();
        top += lineHeight;
    }
}

void Label::paintEvent(QPaintEvent*) {
    if (!drawsItself_) return;
    QPainter painter(this);
    draw(painter);
}

}  // namespace quode
