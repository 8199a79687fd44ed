// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>
#include <QPixmap>
#include <QWidget>
#include <array>
#include <string>

class QPainter;

namespace quode {

/// The paths of the dial's pictures.
struct CompassImages {
    std::string dial, arrow;
};

/// The dial with the arrow on it. The arrow turns with the dial, and its own rotation adds to the dial's. Sizes and
/// positions are in points and need not be whole.
class CompassDialView : public QWidget {
    Q_OBJECT

  public:
    static constexpr int dialTag = 10000;
    static constexpr int arrowTag = 10001;

    /// @param side  width and height of the dial; the arrow's size is proportional
    CompassDialView(double side, const CompassImages& images, QWidget* parent);

    int tag() const { return dialTag; }
    double side() const { return side_; }
    QSizeF arrowSize() const;

    /// The dial's centre in the parent.
    QPointF center() const { return center_; }
    void setCenter(QPointF center);

    /// Rotations, in radians clockwise.
    float dialRotation() const { return dialRotation_; }
    void setDialRotation(float radians);
    float arrowRotation() const { return arrowRotation_; }
    void setArrowRotation(float radians);

    /// The direction at the top of the screen, degrees clockwise from the dial's north, 0 up to 360.
    double heading() const;

    double scale() const { return scale_; }
    void setScale(double scale);
    double alpha() const { return alpha_; }
    void setAlpha(double alpha);

    /// The letters at the dial's quarters, clockwise from north.
    void setLetters(const std::array<std::string, 4>& letters, const QString& fontName);

    /// True when the user may turn the dial, or assistive technology by its value.
    bool turnsByHand() const { return turnsByHand_; }
    void setTurnsByHand(bool value);

  Q_SIGNALS:
    /// The user turns this direction to the top.
    void headingAsked(double degrees);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    void preparePictures();
    void drawPictures(QPainter& painter);
    void drawLetters(QPainter& painter);
    void drawFocusRing(QPainter& painter) const;

    double side_;
    CompassImages images_;
    QPixmap dial_, arrow_;             // in the screen's resolution
    double preparedResolution_ = 0.0;  // pixels per point; 0 before the first time
    std::array<QPainterPath, 4> letters_;
    QPointF center_;
    float dialRotation_ = 0.0F;
    float arrowRotation_ = 0.0F;
    double scale_ = 1.0;
    double alpha_ = 1.0;
    bool turnsByHand_ = false;
    bool showsFocus_ = false;
};

}  // namespace quode
