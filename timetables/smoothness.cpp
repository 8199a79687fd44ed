// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "timetables/smoothness.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace quode::timetables {
namespace {

constexpr double most = 6.0;              // minutes; tables that go in steps of five minutes stay within
constexpr double least = 1.25;            // rounding to the minute alone gives up to 1
constexpr double agreement = 4.0;         // between the neighbours
constexpr int farthestNeighbour = 3;      // days
constexpr std::size_t fewestPoints = 10;  // that tell how smooth a table is

struct Point {
    int day;
    int minute;
    double residue;  ///< minutes from where the Sun alone would put it
};

std::vector<Point> pointsOf(const Timetable& table, SunCheck& check, std::size_t prayer) {
    std::vector<Point> points;
    for (const auto& [day, row] : table.rows) {
        const auto minute = row.minutes[prayer];
        if (minute) points.push_back({day, *minute, *minute - check.day(day)[prayer].middle});
    }
    return points;
}

/// What two neighbours say of a point; nothing when they are far or do not agree.
std::optional<double> expectation(const Point& point, const Point& a, const Point& b) {
    const bool areNear =
        std::abs(a.day - point.day) <= farthestNeighbour && std::abs(b.day - point.day) <= farthestNeighbour;
    if (!areNear || std::abs(a.residue - b.residue) > agreement) return std::nullopt;
    return (a.residue + b.residue) / 2.0;
}

/// How far a point is from what its neighbours say, in minutes; nothing when they say nothing.
std::optional<double> distanceOf(const std::vector<Point>& points, std::size_t i) {
    // The first and the last have both neighbours on one side.
    const std::size_t a = i == 0 ? 1 : i - 1;
    const std::size_t b = i == 0 ? 2 : i + 1 == points.size() ? i - 2 : i + 1;
    const auto expected = expectation(points[i], points[a], points[b]);
    if (!expected) return std::nullopt;
    return std::abs(points[i].residue - *expected);
}

/// How far a point may be: twice as far as nine of ten are.
double toleranceOf(const std::vector<Point>& points) {
    std::vector<double> distances;
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (const auto distance = distanceOf(points, i)) distances.push_back(*distance);
    }
    if (distances.size() < fewestPoints) return most;
    const auto ninth = distances.begin() + std::ptrdiff_t(distances.size() * 9 / 10);
    std::ranges::nth_element(distances, ninth);
    return std::clamp(2.0 * *ninth, least, most);
}

/// Takes the point that is farthest from what its neighbours say out of the others, where it is too far: beside it they
/// seem to be wrong, too.
std::optional<Outlier> takeFarthest(std::vector<Point>& points, double tolerance, std::size_t prayer) {
    std::size_t farthest = points.size();
    double largest = tolerance;
    for (std::size_t i = 0; i < points.size() && points.size() >= 3; ++i) {
        const auto distance = distanceOf(points, i);
        if (!distance || *distance <= largest) continue;
        largest = *distance;
        farthest = i;
    }
    if (farthest == points.size()) return std::nullopt;
    const Outlier outlier{points[farthest].day, int(prayer), points[farthest].minute, int(std::lround(largest))};
    points.erase(points.begin() + std::ptrdiff_t(farthest));
    return outlier;
}

}  // namespace

std::vector<Outlier> outliersOf(const Timetable& table, SunCheck& check) {
    std::vector<Outlier> outliers;
    for (std::size_t prayer = 0; prayer < mainPrayerCount; ++prayer) {
        std::vector<Point> points = pointsOf(table, check, prayer);
        if (points.size() < 3) continue;
        const double tolerance = toleranceOf(points);
        while (const auto outlier = takeFarthest(points, tolerance, prayer)) outliers.push_back(*outlier);
    }
    return outliers;
}

}  // namespace quode::timetables
