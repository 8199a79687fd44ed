// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "timetables/smoothness.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace quode::timetables {
namespace {

constexpr double tolerance = 6.0;     // minutes; tables that go in steps of five minutes stay within
constexpr double agreement = 4.0;     // between the neighbours
constexpr int farthestNeighbour = 3;  // days

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

}  // namespace

std::vector<Outlier> outliersOf(const Timetable& table, SunCheck& check) {
    std::vector<Outlier> outliers;
    for (std::size_t prayer = 0; prayer < conventions::prayerCount; ++prayer) {
        const std::vector<Point> points = pointsOf(table, check, prayer);
        if (points.size() < 3) continue;
        for (std::size_t i = 0; i < points.size(); ++i) {
            // The first and the last have both neighbours on one side.
            const std::size_t a = i == 0 ? 1 : i - 1;
            const std::size_t b = i == 0 ? 2 : i + 1 == points.size() ? i - 2 : i + 1;
            const auto expected = expectation(points[i], points[a], points[b]);
            if (!expected || std::abs(points[i].residue - *expected) <= tolerance) continue;
            outliers.push_back({points[i].day, int(prayer), points[i].minute,
                                int(std::lround(std::abs(points[i].residue - *expected)))});
        }
    }
    return outliers;
}

}  // namespace quode::timetables
