// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "views/glyphs.h"

#include <QTransform>
#include <array>
#include <initializer_list>
#include <map>
#include <utility>

#include "views/Point.h"
#include "views/drawing.h"
#include "views/qt_conversions.h"

namespace quode {
namespace {

using Parts = std::vector<GlyphPart>;

// The marks of the area of a glyph from which its points are measured.
struct Marks {
    explicit Marks(const Rect& area)
        : midX(area.x + area.width * 0.5), midY(area.y + area.height * 0.5), minY(area.y), maxY(area.y + area.height) {}

    double midX, midY, minY, maxY;
};

// A closed line through points that are given from an origin; `mirror` is -1.0 for the mirror image.
QPainterPath closedLine(Point origin, std::initializer_list<Point> points, double mirror = 1.0) {
    QPainterPath path;
    for (const Point& point : points) {
        const QPointF place(origin.x + mirror * point.x, origin.y + point.y);
        if (path.elementCount() == 0) {
            path.moveTo(place);
        } else {
            path.lineTo(place);
        }
    }
    path.closeSubpath();
    return path;
}

// A part of a circle, clockwise from an angle to another; angles in degrees from the right, clockwise.
void addArc(QPainterPath& path, Point center, double radius, double from, double to) {
    const QRectF circle(center.x - radius, center.y - radius, 2.0 * radius, 2.0 * radius);
    path.arcMoveTo(circle, -from);
    path.arcTo(circle, -from, -(to - from));
}

// A dot of 1 point with a stroke of 2 points around it is a disc of 3 points; it is drawn as such because a stroke that
// is wider than its curve leaves a hole.
Parts dots(const Marks& m) {
    QPainterPath path;
    for (const double left : {m.midX - 5.0, m.midX - 0.5, m.midX + 4.0}) {
        path.addEllipse(left - 1.0, m.midY - 1.5, 3.0, 3.0);
    }
    return {{path, 0.0, Qt::FlatCap, true}};
}

Parts plus(const Marks& m) {
    const double d = m.midY - m.minY;
    QPainterPath path;
    path.moveTo(m.midX - d, m.midY);
    path.lineTo(m.midX + d, m.midY);
    path.moveTo(m.midX, m.minY);
    path.lineTo(m.midX, m.maxY);
    return {{path, 2.0, Qt::FlatCap, false}};
}

// Two arrows whose points lie to both sides of the middle, the right one being the mirror image of the left.
Parts arrows(const Marks& m, double width, std::initializer_list<Point> left) {
    Parts parts;
    for (const double mirror : {1.0, -1.0}) {
        parts.push_back({closedLine({m.midX, m.midY}, left, mirror), width, Qt::SquareCap, false});
    }
    return parts;
}

Parts arrowsOutwards(const Marks& m, double width) {
    return arrows(m, width, {{-8, 0}, {-4, -4}, {-4, -2}, {-1, -2}, {-1, 2}, {-4, 2}, {-4, 4}});
}

Parts arrowsInwards(const Marks& m, double width) {
    return arrows(m, width, {{-1, 0}, {-5, -4}, {-5, -2}, {-8, -2}, {-8, 2}, {-5, 2}, {-5, 4}});
}

Parts house(const Marks& m) {
    return {{closedLine({m.midX, m.minY}, {{0, -1},
                                           {6, 5},
                                           {4, 5},
                                           {4, 10},
                                           {1, 10},
                                           {1, 6},
                                           {-1, 6},
                                           {-1, 10},
                                           {-4, 10},
                                           {-4, 5},
                                           {-6, 5},
                                           {-4, 3},
                                           {-4, -1},
                                           {-2, -1},
                                           {-2, 1}}),
             1.2, Qt::SquareCap, false}};
}

// A tower of three steps on a base.
Parts steppedFigure(const Marks& m) {
    const double d = m.midY - m.minY;
    const double step = (2.0 * d - 4.0) / 3.0;
    const double top = d / 3.0;
    const double bottom = d / 2.0 + d / 3.0;
    const double middle = (top + bottom) * 0.5;
    const double height = 2.0 * d;
    return {{closedLine({m.midX, m.minY}, {{0, 0},
                                           {top, 0},
                                           {top, step},
                                           {middle, step},
                                           {middle, 2 * step},
                                           {bottom, 2 * step},
                                           {bottom, height},
                                           {top, height},
                                           {top, 3 * step},
                                           {-top, 3 * step},
                                           {-top, height},
                                           {-bottom, height},
                                           {-bottom, 2 * step},
                                           {-middle, 2 * step},
                                           {-middle, step},
                                           {-top, step},
                                           {-top, 0}}),
             1.2, Qt::SquareCap, false}};
}

// The outline of a bell: dome, flaring sides and a rim with round ends.
// @param inset  how much smaller than the outermost outline
QPainterPath bellBody(const Marks& m, double inset) {
    const double dome = 6.0 - inset;
    const double domeY = m.midY - 2.5;
    const double flareY = m.midY + 3.0 - inset * 0.5;
    const double rim = 8.2 - inset;
    const double rimY = m.midY + 6.0 - inset;
    const double end = m.midY / 10.0 - inset * 0.8;
    const double endY = rimY - 2.0 * end;
    QPainterPath path;
    path.moveTo(m.midX - dome, domeY);
    path.arcTo(m.midX - dome, domeY - dome, 2.0 * dome, 2.0 * dome, 180.0, -180.0);
    path.lineTo(m.midX + dome, flareY);
    path.arcTo(m.midX + rim - 2.0 * end, endY, 2.0 * end, 2.0 * end, 50.0, -140.0);
    path.arcTo(m.midX - rim, endY, 2.0 * end, 2.0 * end, 270.0, -140.0);
    path.lineTo(m.midX - dome, flareY);
    path.closeSubpath();
    return path;
}

// The lower part of a disc.
QPainterPath clapper(const Marks& m) {
    constexpr double cutAngle = 24.0;
    const double radius = m.midY / 6.0;
    const QRectF disc(m.midX - radius, m.midY + 6.6 - radius, 2.0 * radius, 2.0 * radius);
    QPainterPath path;
    path.arcMoveTo(disc, -cutAngle);
    path.arcTo(disc, -cutAngle, 2.0 * cutAngle - 180.0);
    path.closeSubpath();
    return path;
}

QPainterPath bell(const Marks& m) {
    QPainterPath path = bellBody(m, 0.0);
    path.addPath(clapper(m));
    return path;
}

QPainterPath hollowBell(const Marks& m) {
    QPainterPath path = bellBody(m, 0.0);
    path.addPath(bellBody(m, 1.4));
    path.addPath(clapper(m));
    path.setFillRule(Qt::OddEvenFill);
    return path;
}

Parts alarmOn(const Marks& m) {
    QPainterPath dot;
    dot.addEllipse(m.midX - 2.0, m.midY - 2.0, 4.0, 4.0);
    return {{hollowBell(m), 1.0, Qt::RoundCap, true}, {dot, 1.0, Qt::RoundCap, true}};
}

// What is left of a figure when a bar is laid over it, with a gap around the bar that keeps both apart.
QPainterPath cutByBar(const QPainterPath& figure, const QPainterPath& bar, double barWidth, double gap) {
    QPainterPathStroker stroker;
    stroker.setWidth(barWidth + 2.0 * gap);
    stroker.setCapStyle(Qt::SquareCap);
    // Paths are cut to a fixed precision: in a large drawing curves stay smooth.
    constexpr double enlargement = 64.0;
    const QTransform enlarge = QTransform::fromScale(enlargement, enlargement);
    const QPainterPath rest = enlarge.map(figure).subtracted(enlarge.map(stroker.createStroke(bar)));
    return enlarge.inverted().map(rest);
}

Parts alarmOff(const Marks& m) {
    constexpr double barWidth = 3.0;
    QPainterPath bar;
    bar.moveTo(m.midX - 7.0, m.midY - 7.0);
    bar.lineTo(m.midX + 7.0, m.midY + 7.0);
    return {{cutByBar(hollowBell(m), bar, barWidth, 1.6), 1.0, Qt::RoundCap, true},
            {bar, barWidth, Qt::SquareCap, false}};
}

Parts openCircle(const Marks& m, double width) {
    QPainterPath path;
    addArc(path, {m.midX, m.midY}, 7.0, 15.0, 260.0);
    addArc(path, {m.midX + 1.0, m.midY - 1.0}, 6.0, 30.0, 250.0);
    return {{path, width, Qt::FlatCap, false}};
}

std::vector<GlyphPart> drawnParts(std::int32_t shape, const Rect& area, double defaultWidth) {
    const Marks marks(area);
    switch (shape) {
        case 1:
            return dots(marks);
        case 2:
            return plus(marks);
        case 3:
            return arrowsOutwards(marks, defaultWidth);
        case 4:
            return arrowsInwards(marks, defaultWidth);
        case 5:
            return house(marks);
        case 6:
            return steppedFigure(marks);
        case 9:
            return alarmOn(marks);
        case 10:
            return alarmOff(marks);
        case 11:
            return {{bell(marks), 1.7, Qt::RoundCap, true}};
        case 12:
            return openCircle(marks, defaultWidth);
        default:
            return {};
    }
}

}  // namespace

// Uniting and cutting outlines is slow, and a table draws the same few glyphs again and again.
const std::vector<GlyphPart>& glyphParts(std::int32_t shape, const Rect& area, double defaultWidth) {
    using Key = std::array<double, 6>;
    constexpr std::size_t mostDrawn = 64;
    static std::map<Key, std::vector<GlyphPart>> drawn;
    const Key key{static_cast<double>(shape), area.x, area.y, area.width, area.height, defaultWidth};
    if (const auto found = drawn.find(key); found != drawn.end()) return found->second;
    if (drawn.size() >= mostDrawn) drawn.clear();
    return drawn[key] = drawnParts(shape, area, defaultWidth);
}

std::string_view signOfShape(std::int32_t shape) {
    switch (shape) {
        case 7:
            return "✧";
        case 8:
            return "\u2139\uFE0E";  // the letter i as a sign, asked for as text rather than as a picture
        default:
            return {};
    }
}

QPainterPath framePath(std::int32_t type, const Rect& rect) {
    QPainterPath path;
    switch (type) {
        case 1:
            path.addEllipse(toQt(rect));
            break;
        case 2:
            path.addEllipse(rect.x + (rect.width - rect.height) * 0.5, rect.y, rect.height, rect.height);
            break;
        case 3:
            drawRoundedRectangle(path, rect, 3.0);
            break;
        case 4:
            path.addRect(toQt(rect));
            break;
        default:
            break;
    }
    return path;
}

}  // namespace quode
