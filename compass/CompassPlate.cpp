// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "compass/CompassPlate.h"

#include <QFont>
#include <QFontMetrics>
#include <QLabel>
#include <QPainter>
#include <QPalette>
#include <QRegularExpression>
#include <QStringList>
#include <QVBoxLayout>
#include <algorithm>

namespace quode {
namespace {

constexpr int cornerRadius = 10;
constexpr int horizontalMargin = 12;
constexpr int narrowPlate = 150;
constexpr int narrowMargin = 4;
constexpr int verticalMargin = 7;
constexpr int lineGap = 2;
constexpr int smallestPixelSize = 8;

}  // namespace

CompassPlate::CompassPlate(const CompassInk& ink, QWidget* parent)
    : QWidget(parent), ink_(ink), column_(new QVBoxLayout(this)) {
    column_->setContentsMargins(horizontalMargin, verticalMargin, horizontalMargin, verticalMargin);
    column_->setSpacing(lineGap);
    setAlpha(1.0);
}

QLabel* CompassPlate::newLabel() {
    auto* label = new QLabel(this);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignCenter);
    label->setTextFormat(Qt::PlainText);
    column_->addWidget(label);
    label->show();
    return label;
}

void CompassPlate::setLines(const std::vector<std::string>& lines, bool firstIsBold) {
    firstIsBold_ = firstIsBold;
    while (labels_.size() < lines.size()) labels_.push_back(newLabel());
    while (labels_.size() > lines.size()) {
        delete labels_.back();
        labels_.pop_back();
    }
    for (std::size_t i = 0; i < labels_.size(); ++i) labels_[i]->setText(QString::fromStdString(lines[i]));
    setPixelSize(ink_.pixelSize);
    setVisible(!lines.empty());
}

void CompassPlate::setPixelSize(int pixelSize) {
    QFont font;
    font.setFamilies({ink_.fontName, QStringLiteral("DejaVu Sans")});
    font.setPixelSize(pixelSize);
    for (std::size_t i = 0; i < labels_.size(); ++i) {
        font.setBold(firstIsBold_ && i == 0);
        labels_[i]->setFont(font);
    }
}

// The width of the widest part of any line, split at a separator.
int CompassPlate::widestOf(const QRegularExpression& separator) const {
    int widest = 0;
    for (const QLabel* label : labels_) {
        const QFontMetrics metrics(label->font());
        for (const QString& part : label->text().split(separator)) {
            widest = std::max(widest, metrics.horizontalAdvance(part));
        }
    }
    return widest;
}

int CompassPlate::fitWithin(int widest) {
    static const QRegularExpression lineEnd(QStringLiteral("\\n")), blank(QStringLiteral("\\s"));
    setPixelSize(ink_.pixelSize);
    const int margin = widest < narrowPlate ? narrowMargin : horizontalMargin;
    column_->setContentsMargins(margin, verticalMargin, margin, verticalMargin);
    const int room = widest - 2 * margin;
    if (const int needed = widestOf(lineEnd) + 2; needed <= room) return needed + 2 * margin;
    for (int size = ink_.pixelSize; size > smallestPixelSize && widestOf(blank) > room;) setPixelSize(--size);
    return widest;
}

int CompassPlate::heightFor(int width) const {
    return column_->hasHeightForWidth() ? column_->totalHeightForWidth(width) : column_->totalSizeHint().height();
}

void CompassPlate::setAlpha(double alpha) {
    alpha_ = alpha;
    QColor text = ink_.text;
    text.setAlphaF(static_cast<float>(alpha));
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, text);
    setPalette(colors);
    update();
}

void CompassPlate::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(alpha_);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink_.ground);
    painter.drawRoundedRect(rect(), cornerRadius, cornerRadius);
}

}  // namespace quode
