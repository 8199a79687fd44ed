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

/// How text stands on the screen.
struct CompassInk {
    QColor text, ground;
    QString fontName;
    int pixelSize = 13;
};

/// Lines of text on a rounded, nearly opaque plate, so that they are legible above whatever is on the screen.
class CompassPlate : public QWidget {
    Q_OBJECT

  public:
    CompassPlate(const CompassInk& ink, QWidget* parent);

    /// Shows these lines, one label each; without lines the plate hides. The first one is bold if asked.
    void setLines(const std::vector<std::string>& lines, bool firstIsBold);

    /// The width that the lines need, or the widest allowed: lines are wrapped then, and set smaller if it takes that
    /// to keep a word whole.
    int fitWithin(int widest);

    /// The height that the lines need when the plate is this wide.
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
