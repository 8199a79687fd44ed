// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QWidget>
#include <string>
#include <vector>

class QLabel;
class QRegularExpression;
class QVBoxLayout;

namespace quode {

/// The look of text on the screen.
struct CompassInk {
    QColor text, ground;
    QString fontName;
    int pixelSize = 13;
};

/// Lines of text on a rounded, nearly opaque plate, so that they are legible above any screen content.
class CompassPlate : public QWidget {
    Q_OBJECT

  public:
    CompassPlate(const CompassInk& ink, QWidget* parent);

    /// Shows lines, one label each; without lines the plate is hidden.
    void setLines(const std::vector<std::string>& lines, bool firstIsBold);

    /// The width for the lines, at most `widest`: longer lines are wrapped, and drawn smaller where a word would not fit.
    int fitWithin(int widest);

    /// The height for the lines at a width of the plate.
    int heightFor(int width) const;

    void setAlpha(double alpha);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QLabel* newLabel();
    void setPixelSize(int pixelSize);
    int widestOf(const QRegularExpression& separator) const;

    CompassInk ink_;
    QVBoxLayout* column_;
    std::vector<QLabel*> labels_;
    bool firstIsBold_ = false;
    double alpha_ = 1.0;
};

}  // namespace quode
