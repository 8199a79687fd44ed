// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>
#include <QWidget>
#include <filesystem>

namespace quode::window {

/// A map of the world with a point on it, which is set by a click or by the arrow keys. The wheel and the keys + and -
/// bring the point nearer.
class WorldMap : public QWidget {
    Q_OBJECT

  public:
    /// @param bundle  the folder of the bundle; without the outlines in it the map is empty
    WorldMap(const std::filesystem::path& bundle, QWidget* parent);

    /// Sets the point, in degrees.
    void setPoint(double latitude, double longitude);

    QSize sizeHint() const override { return {320, 160}; }

  Q_SIGNALS:
    /// The user chose a point, in degrees.
    void pointed(double latitude, double longitude);

  protected:
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override { setFixedHeight(width() / 2); }
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QTransform toPixels() const;
    void move(double east, double north);
    void zoom(double factor);
    void choose(QPointF point);

    QPainterPath land_;     // x: longitude, y: latitude
    QPointF point_{0, 0};   // longitude and latitude
    QPointF middle_{0, 0};  // of the part that is shown
    double zoom_ = 1.0;
};

}  // namespace quode::window
